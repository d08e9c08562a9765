// The threshold exports of 16u images, bound to the family templates.
#include "decide/threshold_kernels.h"

using namespace tav;
using namespace tav::decide;
namespace {
constexpr Layout C1 = Layout::C1, C3 = Layout::C3, C4 = Layout::C4, AC4 = Layout::AC4;
}

// clang-format off
TavStatus own_taviThreshold_16u_C1R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, Tav16u t, TavCmpOp op) { return thr::limit<C1>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_16u_C1IR(Tav16u* p, int st, TaviSize r, Tav16u t, TavCmpOp op) { return thr::limit<C1>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_16u_C3R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, TavCmpOp op) { return thr::limit<C3>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_16u_C3IR(Tav16u* p, int st, TaviSize r, const Tav16u* t, TavCmpOp op) { return thr::limit<C3>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_16u_AC4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, TavCmpOp op) { return thr::limit<AC4>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_16u_AC4IR(Tav16u* p, int st, TaviSize r, const Tav16u* t, TavCmpOp op) { return thr::limit<AC4>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_GT_16u_C1R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, Tav16u t) { return thr::cap<C1>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_16u_C1IR(Tav16u* p, int st, TaviSize r, Tav16u t) { return thr::cap<C1>(io(p, st), r, t); }
TavStatus own_taviThreshold_GT_16u_C3R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t) { return thr::cap<C3>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_16u_C3IR(Tav16u* p, int st, TaviSize r, const Tav16u* t) { return thr::cap<C3>(io(p, st), r, t); }
TavStatus own_taviThreshold_GT_16u_AC4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t) { return thr::cap<AC4>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_16u_AC4IR(Tav16u* p, int st, TaviSize r, const Tav16u* t) { return thr::cap<AC4>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_16u_C1R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, Tav16u t) { return thr::floor<C1>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_16u_C1IR(Tav16u* p, int st, TaviSize r, Tav16u t) { return thr::floor<C1>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_16u_C3R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t) { return thr::floor<C3>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_16u_C3IR(Tav16u* p, int st, TaviSize r, const Tav16u* t) { return thr::floor<C3>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_16u_AC4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t) { return thr::floor<AC4>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_16u_AC4IR(Tav16u* p, int st, TaviSize r, const Tav16u* t) { return thr::floor<AC4>(io(p, st), r, t); }
TavStatus own_taviThreshold_Val_16u_C1R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, Tav16u t, Tav16u v, TavCmpOp op) { return thr::replace<C1>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_16u_C1IR(Tav16u* p, int st, TaviSize r, Tav16u t, Tav16u v, TavCmpOp op) { return thr::replace<C1>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_Val_16u_C3R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, const Tav16u* v, TavCmpOp op) { return thr::replace<C3>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_16u_C3IR(Tav16u* p, int st, TaviSize r, const Tav16u* t, const Tav16u* v, TavCmpOp op) { return thr::replace<C3>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_Val_16u_AC4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, const Tav16u* v, TavCmpOp op) { return thr::replace<AC4>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_16u_AC4IR(Tav16u* p, int st, TaviSize r, const Tav16u* t, const Tav16u* v, TavCmpOp op) { return thr::replace<AC4>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_GTVal_16u_C1R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, Tav16u t, Tav16u v) { return thr::replace_above<C1>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_16u_C1IR(Tav16u* p, int st, TaviSize r, Tav16u t, Tav16u v) { return thr::replace_above<C1>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_16u_C3R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_above<C3>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_16u_C3IR(Tav16u* p, int st, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_above<C3>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_16u_C4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_above<C4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_16u_C4IR(Tav16u* p, int st, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_above<C4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_16u_AC4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_above<AC4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_16u_AC4IR(Tav16u* p, int st, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_above<AC4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_16u_C1R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, Tav16u t, Tav16u v) { return thr::replace_below<C1>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_16u_C1IR(Tav16u* p, int st, TaviSize r, Tav16u t, Tav16u v) { return thr::replace_below<C1>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_16u_C3R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_below<C3>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_16u_C3IR(Tav16u* p, int st, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_below<C3>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_16u_C4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_below<C4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_16u_C4IR(Tav16u* p, int st, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_below<C4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_16u_AC4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_below<AC4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_16u_AC4IR(Tav16u* p, int st, TaviSize r, const Tav16u* t, const Tav16u* v) { return thr::replace_below<AC4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTValGTVal_16u_C1R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, Tav16u tl, Tav16u vl, Tav16u tg, Tav16u vg) { return thr::replace_outside<C1>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_16u_C1IR(Tav16u* p, int st, TaviSize r, Tav16u tl, Tav16u vl, Tav16u tg, Tav16u vg) { return thr::replace_outside<C1>(io(p, st), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_16u_C3R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* tl, const Tav16u* vl, const Tav16u* tg, const Tav16u* vg) { return thr::replace_outside<C3>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_16u_C3IR(Tav16u* p, int st, TaviSize r, const Tav16u* tl, const Tav16u* vl, const Tav16u* tg, const Tav16u* vg) { return thr::replace_outside<C3>(io(p, st), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_16u_AC4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* tl, const Tav16u* vl, const Tav16u* tg, const Tav16u* vg) { return thr::replace_outside<AC4>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_16u_AC4IR(Tav16u* p, int st, TaviSize r, const Tav16u* tl, const Tav16u* vl, const Tav16u* tg, const Tav16u* vg) { return thr::replace_outside<AC4>(io(p, st), r, tl, vl, tg, vg); }
// clang-format on
