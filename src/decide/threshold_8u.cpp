// The threshold exports of 8u images, bound to the family templates.
#include "decide/threshold_kernels.h"

using namespace tav;
using namespace tav::decide;
namespace {
constexpr Layout C1 = Layout::C1, C3 = Layout::C3, C4 = Layout::C4, AC4 = Layout::AC4;
}

// clang-format off
TavStatus own_taviThreshold_8u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, Tav8u t, TavCmpOp op) { return thr::limit<C1>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_8u_C1IR(Tav8u* p, int st, TaviSize r, Tav8u t, TavCmpOp op) { return thr::limit<C1>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_8u_C3R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, TavCmpOp op) { return thr::limit<C3>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_8u_C3IR(Tav8u* p, int st, TaviSize r, const Tav8u* t, TavCmpOp op) { return thr::limit<C3>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_8u_AC4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, TavCmpOp op) { return thr::limit<AC4>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_8u_AC4IR(Tav8u* p, int st, TaviSize r, const Tav8u* t, TavCmpOp op) { return thr::limit<AC4>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_GT_8u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, Tav8u t) { return thr::cap<C1>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_8u_C1IR(Tav8u* p, int st, TaviSize r, Tav8u t) { return thr::cap<C1>(io(p, st), r, t); }
TavStatus own_taviThreshold_GT_8u_C3R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t) { return thr::cap<C3>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_8u_C3IR(Tav8u* p, int st, TaviSize r, const Tav8u* t) { return thr::cap<C3>(io(p, st), r, t); }
TavStatus own_taviThreshold_GT_8u_AC4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t) { return thr::cap<AC4>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_8u_AC4IR(Tav8u* p, int st, TaviSize r, const Tav8u* t) { return thr::cap<AC4>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_8u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, Tav8u t) { return thr::floor<C1>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_8u_C1IR(Tav8u* p, int st, TaviSize r, Tav8u t) { return thr::floor<C1>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_8u_C3R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t) { return thr::floor<C3>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_8u_C3IR(Tav8u* p, int st, TaviSize r, const Tav8u* t) { return thr::floor<C3>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_8u_AC4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t) { return thr::floor<AC4>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_8u_AC4IR(Tav8u* p, int st, TaviSize r, const Tav8u* t) { return thr::floor<AC4>(io(p, st), r, t); }
TavStatus own_taviThreshold_Val_8u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, Tav8u t, Tav8u v, TavCmpOp op) { return thr::replace<C1>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_8u_C1IR(Tav8u* p, int st, TaviSize r, Tav8u t, Tav8u v, TavCmpOp op) { return thr::replace<C1>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_Val_8u_C3R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, const Tav8u* v, TavCmpOp op) { return thr::replace<C3>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_8u_C3IR(Tav8u* p, int st, TaviSize r, const Tav8u* t, const Tav8u* v, TavCmpOp op) { return thr::replace<C3>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_Val_8u_AC4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, const Tav8u* v, TavCmpOp op) { return thr::replace<AC4>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_8u_AC4IR(Tav8u* p, int st, TaviSize r, const Tav8u* t, const Tav8u* v, TavCmpOp op) { return thr::replace<AC4>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_GTVal_8u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, Tav8u t, Tav8u v) { return thr::replace_above<C1>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_8u_C1IR(Tav8u* p, int st, TaviSize r, Tav8u t, Tav8u v) { return thr::replace_above<C1>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_8u_C3R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_above<C3>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_8u_C3IR(Tav8u* p, int st, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_above<C3>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_8u_C4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_above<C4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_8u_C4IR(Tav8u* p, int st, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_above<C4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_8u_AC4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_above<AC4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_8u_AC4IR(Tav8u* p, int st, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_above<AC4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_8u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, Tav8u t, Tav8u v) { return thr::replace_below<C1>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_8u_C1IR(Tav8u* p, int st, TaviSize r, Tav8u t, Tav8u v) { return thr::replace_below<C1>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_8u_C3R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_below<C3>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_8u_C3IR(Tav8u* p, int st, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_below<C3>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_8u_C4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_below<C4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_8u_C4IR(Tav8u* p, int st, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_below<C4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_8u_AC4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_below<AC4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_8u_AC4IR(Tav8u* p, int st, TaviSize r, const Tav8u* t, const Tav8u* v) { return thr::replace_below<AC4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTValGTVal_8u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, Tav8u tl, Tav8u vl, Tav8u tg, Tav8u vg) { return thr::replace_outside<C1>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_8u_C1IR(Tav8u* p, int st, TaviSize r, Tav8u tl, Tav8u vl, Tav8u tg, Tav8u vg) { return thr::replace_outside<C1>(io(p, st), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_8u_C3R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* tl, const Tav8u* vl, const Tav8u* tg, const Tav8u* vg) { return thr::replace_outside<C3>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_8u_C3IR(Tav8u* p, int st, TaviSize r, const Tav8u* tl, const Tav8u* vl, const Tav8u* tg, const Tav8u* vg) { return thr::replace_outside<C3>(io(p, st), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_8u_AC4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* tl, const Tav8u* vl, const Tav8u* tg, const Tav8u* vg) { return thr::replace_outside<AC4>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_8u_AC4IR(Tav8u* p, int st, TaviSize r, const Tav8u* tl, const Tav8u* vl, const Tav8u* tg, const Tav8u* vg) { return thr::replace_outside<AC4>(io(p, st), r, tl, vl, tg, vg); }
// clang-format on
