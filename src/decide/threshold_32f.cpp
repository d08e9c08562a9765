// The threshold exports of 32f images, bound to the family templates.
#include "decide/threshold_kernels.h"

using namespace tav;
using namespace tav::decide;
namespace {
constexpr Layout C1 = Layout::C1, C3 = Layout::C3, C4 = Layout::C4, AC4 = Layout::AC4;
}

// clang-format off
TavStatus own_taviThreshold_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f t, TavCmpOp op) { return thr::limit<C1>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_32f_C1IR(Tav32f* p, int st, TaviSize r, Tav32f t, TavCmpOp op) { return thr::limit<C1>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t, TavCmpOp op) { return thr::limit<C3>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_32f_C3IR(Tav32f* p, int st, TaviSize r, const Tav32f* t, TavCmpOp op) { return thr::limit<C3>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t, TavCmpOp op) { return thr::limit<AC4>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_32f_AC4IR(Tav32f* p, int st, TaviSize r, const Tav32f* t, TavCmpOp op) { return thr::limit<AC4>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_GT_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f t) { return thr::cap<C1>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_32f_C1IR(Tav32f* p, int st, TaviSize r, Tav32f t) { return thr::cap<C1>(io(p, st), r, t); }
TavStatus own_taviThreshold_GT_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t) { return thr::cap<C3>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_32f_C3IR(Tav32f* p, int st, TaviSize r, const Tav32f* t) { return thr::cap<C3>(io(p, st), r, t); }
TavStatus own_taviThreshold_GT_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t) { return thr::cap<AC4>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_32f_AC4IR(Tav32f* p, int st, TaviSize r, const Tav32f* t) { return thr::cap<AC4>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f t) { return thr::floor<C1>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_32f_C1IR(Tav32f* p, int st, TaviSize r, Tav32f t) { return thr::floor<C1>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t) { return thr::floor<C3>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_32f_C3IR(Tav32f* p, int st, TaviSize r, const Tav32f* t) { return thr::floor<C3>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t) { return thr::floor<AC4>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_32f_AC4IR(Tav32f* p, int st, TaviSize r, const Tav32f* t) { return thr::floor<AC4>(io(p, st), r, t); }
TavStatus own_taviThreshold_Val_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f t, Tav32f v, TavCmpOp op) { return thr::replace<C1>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_32f_C1IR(Tav32f* p, int st, TaviSize r, Tav32f t, Tav32f v, TavCmpOp op) { return thr::replace<C1>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_Val_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t, const Tav32f* v, TavCmpOp op) { return thr::replace<C3>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_32f_C3IR(Tav32f* p, int st, TaviSize r, const Tav32f* t, const Tav32f* v, TavCmpOp op) { return thr::replace<C3>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_Val_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t, const Tav32f* v, TavCmpOp op) { return thr::replace<AC4>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_32f_AC4IR(Tav32f* p, int st, TaviSize r, const Tav32f* t, const Tav32f* v, TavCmpOp op) { return thr::replace<AC4>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_GTVal_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f t, Tav32f v) { return thr::replace_above<C1>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_32f_C1IR(Tav32f* p, int st, TaviSize r, Tav32f t, Tav32f v) { return thr::replace_above<C1>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_above<C3>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_32f_C3IR(Tav32f* p, int st, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_above<C3>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_32f_C4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_above<C4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_32f_C4IR(Tav32f* p, int st, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_above<C4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_above<AC4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_32f_AC4IR(Tav32f* p, int st, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_above<AC4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f t, Tav32f v) { return thr::replace_below<C1>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_32f_C1IR(Tav32f* p, int st, TaviSize r, Tav32f t, Tav32f v) { return thr::replace_below<C1>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_below<C3>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_32f_C3IR(Tav32f* p, int st, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_below<C3>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_32f_C4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_below<C4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_32f_C4IR(Tav32f* p, int st, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_below<C4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_below<AC4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_32f_AC4IR(Tav32f* p, int st, TaviSize r, const Tav32f* t, const Tav32f* v) { return thr::replace_below<AC4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTValGTVal_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f tl, Tav32f vl, Tav32f tg, Tav32f vg) { return thr::replace_outside<C1>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_32f_C1IR(Tav32f* p, int st, TaviSize r, Tav32f tl, Tav32f vl, Tav32f tg, Tav32f vg) { return thr::replace_outside<C1>(io(p, st), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* tl, const Tav32f* vl, const Tav32f* tg, const Tav32f* vg) { return thr::replace_outside<C3>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_32f_C3IR(Tav32f* p, int st, TaviSize r, const Tav32f* tl, const Tav32f* vl, const Tav32f* tg, const Tav32f* vg) { return thr::replace_outside<C3>(io(p, st), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav32f* tl, const Tav32f* vl, const Tav32f* tg, const Tav32f* vg) { return thr::replace_outside<AC4>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_32f_AC4IR(Tav32f* p, int st, TaviSize r, const Tav32f* tl, const Tav32f* vl, const Tav32f* tg, const Tav32f* vg) { return thr::replace_outside<AC4>(io(p, st), r, tl, vl, tg, vg); }
// clang-format on
