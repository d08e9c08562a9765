// taviScaleC from 32s and 32f and 64f sources.
#include "move/convert_scalec.h"

using tav::move::cvt::scale_c;
using tav::move::cvt::scale_c_inplace;

// clang-format off
TavStatus own_taviScaleC_32s8u_C1R(const Tav32s* s, int ss, Tav64f m, Tav64f a, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32s8s_C1R(const Tav32s* s, int ss, Tav64f m, Tav64f a, Tav8s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32s16u_C1R(const Tav32s* s, int ss, Tav64f m, Tav64f a, Tav16u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32s16s_C1R(const Tav32s* s, int ss, Tav64f m, Tav64f a, Tav16s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32s_C1R(const Tav32s* s, int ss, Tav64f m, Tav64f a, Tav32s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32s32f_C1R(const Tav32s* s, int ss, Tav64f m, Tav64f a, Tav32f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32s64f_C1R(const Tav32s* s, int ss, Tav64f m, Tav64f a, Tav64f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32s_C1IR(Tav32s* p, int step, Tav64f m, Tav64f a, TaviSize r, TavHintAlgorithm h) { return scale_c_inplace(p, step, m, a, r, h); }
TavStatus own_taviScaleC_32f8u_C1R(const Tav32f* s, int ss, Tav64f m, Tav64f a, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32f8s_C1R(const Tav32f* s, int ss, Tav64f m, Tav64f a, Tav8s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32f16u_C1R(const Tav32f* s, int ss, Tav64f m, Tav64f a, Tav16u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32f16s_C1R(const Tav32f* s, int ss, Tav64f m, Tav64f a, Tav16s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32f32s_C1R(const Tav32f* s, int ss, Tav64f m, Tav64f a, Tav32s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32f_C1R(const Tav32f* s, int ss, Tav64f m, Tav64f a, Tav32f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32f64f_C1R(const Tav32f* s, int ss, Tav64f m, Tav64f a, Tav64f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_32f_C1IR(Tav32f* p, int step, Tav64f m, Tav64f a, TaviSize r, TavHintAlgorithm h) { return scale_c_inplace(p, step, m, a, r, h); }
TavStatus own_taviScaleC_64f8u_C1R(const Tav64f* s, int ss, Tav64f m, Tav64f a, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_64f8s_C1R(const Tav64f* s, int ss, Tav64f m, Tav64f a, Tav8s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_64f16u_C1R(const Tav64f* s, int ss, Tav64f m, Tav64f a, Tav16u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_64f16s_C1R(const Tav64f* s, int ss, Tav64f m, Tav64f a, Tav16s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_64f32s_C1R(const Tav64f* s, int ss, Tav64f m, Tav64f a, Tav32s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_64f32f_C1R(const Tav64f* s, int ss, Tav64f m, Tav64f a, Tav32f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_64f_C1R(const Tav64f* s, int ss, Tav64f m, Tav64f a, Tav64f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_64f_C1IR(Tav64f* p, int step, Tav64f m, Tav64f a, TaviSize r, TavHintAlgorithm h) { return scale_c_inplace(p, step, m, a, r, h); }
// clang-format on
