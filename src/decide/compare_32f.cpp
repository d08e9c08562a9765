// The compare exports of 32f images, bound to the family templates.
#include "decide/compare_kernels.h"

using namespace tav;
using namespace tav::decide;
namespace {
constexpr Layout C1 = Layout::C1, C3 = Layout::C3, C4 = Layout::C4, AC4 = Layout::AC4;
}

// clang-format off
TavStatus own_taviCompare_32f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare<C1>(a, as, b, bs, d, ds, r, op); }
TavStatus own_taviCompare_32f_C3R(const Tav32f* a, int as, const Tav32f* b, int bs, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare<C3>(a, as, b, bs, d, ds, r, op); }
TavStatus own_taviCompare_32f_C4R(const Tav32f* a, int as, const Tav32f* b, int bs, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare<C4>(a, as, b, bs, d, ds, r, op); }
TavStatus own_taviCompare_32f_AC4R(const Tav32f* a, int as, const Tav32f* b, int bs, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare<AC4>(a, as, b, bs, d, ds, r, op); }
TavStatus own_taviCompareC_32f_C1R(const Tav32f* s, int ss, Tav32f v, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare_c<C1>(s, ss, v, d, ds, r, op); }
TavStatus own_taviCompareC_32f_C3R(const Tav32f* s, int ss, const Tav32f* v, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare_c<C3>(s, ss, v, d, ds, r, op); }
TavStatus own_taviCompareC_32f_C4R(const Tav32f* s, int ss, const Tav32f* v, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare_c<C4>(s, ss, v, d, ds, r, op); }
TavStatus own_taviCompareC_32f_AC4R(const Tav32f* s, int ss, const Tav32f* v, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare_c<AC4>(s, ss, v, d, ds, r, op); }
TavStatus own_taviCompareEqualEps_32f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, Tav8u* d, int ds, TaviSize r, Tav32f eps) { return cmp::equal_eps<C1>(a, as, b, bs, d, ds, r, eps); }
TavStatus own_taviCompareEqualEps_32f_C3R(const Tav32f* a, int as, const Tav32f* b, int bs, Tav8u* d, int ds, TaviSize r, Tav32f eps) { return cmp::equal_eps<C3>(a, as, b, bs, d, ds, r, eps); }
TavStatus own_taviCompareEqualEps_32f_C4R(const Tav32f* a, int as, const Tav32f* b, int bs, Tav8u* d, int ds, TaviSize r, Tav32f eps) { return cmp::equal_eps<C4>(a, as, b, bs, d, ds, r, eps); }
TavStatus own_taviCompareEqualEps_32f_AC4R(const Tav32f* a, int as, const Tav32f* b, int bs, Tav8u* d, int ds, TaviSize r, Tav32f eps) { return cmp::equal_eps<AC4>(a, as, b, bs, d, ds, r, eps); }
TavStatus own_taviCompareEqualEpsC_32f_C1R(const Tav32f* s, int ss, Tav32f v, Tav8u* d, int ds, TaviSize r, Tav32f eps) { return cmp::equal_eps_c<C1>(s, ss, v, d, ds, r, eps); }
TavStatus own_taviCompareEqualEpsC_32f_C3R(const Tav32f* s, int ss, const Tav32f* v, Tav8u* d, int ds, TaviSize r, Tav32f eps) { return cmp::equal_eps_c<C3>(s, ss, v, d, ds, r, eps); }
TavStatus own_taviCompareEqualEpsC_32f_C4R(const Tav32f* s, int ss, const Tav32f* v, Tav8u* d, int ds, TaviSize r, Tav32f eps) { return cmp::equal_eps_c<C4>(s, ss, v, d, ds, r, eps); }
TavStatus own_taviCompareEqualEpsC_32f_AC4R(const Tav32f* s, int ss, const Tav32f* v, Tav8u* d, int ds, TaviSize r, Tav32f eps) { return cmp::equal_eps_c<AC4>(s, ss, v, d, ds, r, eps); }
// clang-format on
