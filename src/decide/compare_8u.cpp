// The compare exports of 8u images, bound to the family templates.
#include "decide/compare_kernels.h"

using namespace tav;
using namespace tav::decide;
namespace {
constexpr Layout C1 = Layout::C1, C3 = Layout::C3, C4 = Layout::C4, AC4 = Layout::AC4;
}

// clang-format off
TavStatus own_taviCompare_8u_C1R(const Tav8u* a, int as, const Tav8u* b, int bs, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare<C1>(a, as, b, bs, d, ds, r, op); }
TavStatus own_taviCompare_8u_C3R(const Tav8u* a, int as, const Tav8u* b, int bs, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare<C3>(a, as, b, bs, d, ds, r, op); }
TavStatus own_taviCompare_8u_C4R(const Tav8u* a, int as, const Tav8u* b, int bs, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare<C4>(a, as, b, bs, d, ds, r, op); }
TavStatus own_taviCompare_8u_AC4R(const Tav8u* a, int as, const Tav8u* b, int bs, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare<AC4>(a, as, b, bs, d, ds, r, op); }
TavStatus own_taviCompareC_8u_C1R(const Tav8u* s, int ss, Tav8u v, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare_c<C1>(s, ss, v, d, ds, r, op); }
TavStatus own_taviCompareC_8u_C3R(const Tav8u* s, int ss, const Tav8u* v, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare_c<C3>(s, ss, v, d, ds, r, op); }
TavStatus own_taviCompareC_8u_C4R(const Tav8u* s, int ss, const Tav8u* v, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare_c<C4>(s, ss, v, d, ds, r, op); }
TavStatus own_taviCompareC_8u_AC4R(const Tav8u* s, int ss, const Tav8u* v, Tav8u* d, int ds, TaviSize r, TavCmpOp op) { return cmp::compare_c<AC4>(s, ss, v, d, ds, r, op); }
// clang-format on
