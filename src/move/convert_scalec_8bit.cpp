// taviScaleC from 8u and 8s sources.
#include "move/convert_scalec.h"

using tav::move::cvt::scale_c;
using tav::move::cvt::scale_c_inplace;

// clang-format off
TavStatus own_taviScaleC_8u_C1R(const Tav8u* s, int ss, Tav64f m, Tav64f a, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8u8s_C1R(const Tav8u* s, int ss, Tav64f m, Tav64f a, Tav8s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8u16u_C1R(const Tav8u* s, int ss, Tav64f m, Tav64f a, Tav16u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8u16s_C1R(const Tav8u* s, int ss, Tav64f m, Tav64f a, Tav16s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8u32s_C1R(const Tav8u* s, int ss, Tav64f m, Tav64f a, Tav32s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8u32f_C1R(const Tav8u* s, int ss, Tav64f m, Tav64f a, Tav32f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8u64f_C1R(const Tav8u* s, int ss, Tav64f m, Tav64f a, Tav64f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8u_C1IR(Tav8u* p, int step, Tav64f m, Tav64f a, TaviSize r, TavHintAlgorithm h) { return scale_c_inplace(p, step, m, a, r, h); }
TavStatus own_taviScaleC_8s8u_C1R(const Tav8s* s, int ss, Tav64f m, Tav64f a, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8s_C1R(const Tav8s* s, int ss, Tav64f m, Tav64f a, Tav8s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8s16u_C1R(const Tav8s* s, int ss, Tav64f m, Tav64f a, Tav16u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8s16s_C1R(const Tav8s* s, int ss, Tav64f m, Tav64f a, Tav16s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8s32s_C1R(const Tav8s* s, int ss, Tav64f m, Tav64f a, Tav32s* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8s32f_C1R(const Tav8s* s, int ss, Tav64f m, Tav64f a, Tav32f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8s64f_C1R(const Tav8s* s, int ss, Tav64f m, Tav64f a, Tav64f* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_c(s, ss, m, a, d, ds, r, h); }
TavStatus own_taviScaleC_8s_C1IR(Tav8s* p, int step, Tav64f m, Tav64f a, TaviSize r, TavHintAlgorithm h) { return scale_c_inplace(p, step, m, a, r, h); }
// clang-format on
