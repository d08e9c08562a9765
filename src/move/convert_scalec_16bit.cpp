// taviScaleC from 16u and 16s sources.
#include "move/convert_scalec.h"

using tav::move::cvt::scale_c;
using tav::move::cvt::scale_c_inplace;

// clang-format off
TavStatus own_taviScaleC_16u8u_C1R(const Tav16u* s, int ss, Tav64f m, Tav64f a, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16u8s_C1R(const Tav16u* s, int ss, Tav64f m, Tav64f a, Tav8s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16u_C1R(const Tav16u* s, int ss, Tav64f m, Tav64f a, Tav16u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16u16s_C1R(const Tav16u* s, int ss, Tav64f m, Tav64f a, Tav16s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16u32s_C1R(const Tav16u* s, int ss, Tav64f m, Tav64f a, Tav32s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16u32f_C1R(const Tav16u* s, int ss, Tav64f m, Tav64f a, Tav32f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16u64f_C1R(const Tav16u* s, int ss, Tav64f m, Tav64f a, Tav64f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16u_C1IR(Tav16u* p, int step, Tav64f m, Tav64f a, TaviSize r, TavHintAlgorithm h) { return scale_c_inplace(p, step, m, a, r, h); }
TavStatus own_taviScaleC_16s8u_C1R(const Tav16s* s, int ss, Tav64f m, Tav64f a, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16s8s_C1R(const Tav16s* s, int ss, Tav64f m, Tav64f a, Tav8s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16s16u_C1R(const Tav16s* s, int ss, Tav64f m, Tav64f a, Tav16u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16s_C1R(const Tav16s* s, int ss, Tav64f m, Tav64f a, Tav16s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16s32s_C1R(const Tav16s* s, int ss, Tav64f m, Tav64f a, Tav32s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16s32f_C1R(const Tav16s* s, int ss, Tav64f m, Tav64f a, Tav32f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16s64f_C1R(const Tav16s* s, int ss, Tav64f m, Tav64f a, Tav64f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_16s_C1IR(Tav16s* p, int step, Tav64f m, Tav64f a, TaviSize r, TavHintAlgorithm h) { return scale_c_inplace(p, step, m, a, r, h); }
// clang-format on
