// The threshold exports of 16s images, bound to the family templates.
#include "decide/threshold_kernels.h"

using namespace tav;
using namespace tav::decide;
namespace {
constexpr Layout C1 = Layout::C1, C3 = Layout::C3, C4 = Layout::C4, AC4 = Layout::AC4;
}

// clang-format off
TavStatus own_taviThreshold_16s_C1R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, Tav16s t, TavCmpOp op) { return thr::limit<C1>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_16s_C1IR(Tav16s* p, int st, TaviSize r, Tav16s t, TavCmpOp op) { return thr::limit<C1>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_16s_C3R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t, TavCmpOp op) { return thr::limit<C3>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_16s_C3IR(Tav16s* p, int st, TaviSize r, const Tav16s* t, TavCmpOp op) { return thr::limit<C3>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_16s_AC4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t, TavCmpOp op) { return thr::limit<AC4>(io(s, ss, d, ds), r, t, op); }
TavStatus own_taviThreshold_16s_AC4IR(Tav16s* p, int st, TaviSize r, const Tav16s* t, TavCmpOp op) { return thr::limit<AC4>(io(p, st), r, t, op); }
TavStatus own_taviThreshold_GT_16s_C1R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, Tav16s t) { return thr::cap<C1>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_16s_C1IR(Tav16s* p, int st, TaviSize r, Tav16s t) { return thr::cap<C1>(io(p, st), r, t); }
TavStatus own_taviThreshold_GT_16s_C3R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t) { return thr::cap<C3>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_16s_C3IR(Tav16s* p, int st, TaviSize r, const Tav16s* t) { return thr::cap<C3>(io(p, st), r, t); }
TavStatus own_taviThreshold_GT_16s_AC4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t) { return thr::cap<AC4>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_GT_16s_AC4IR(Tav16s* p, int st, TaviSize r, const Tav16s* t) { return thr::cap<AC4>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_16s_C1R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, Tav16s t) { return thr::floor<C1>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_16s_C1IR(Tav16s* p, int st, TaviSize r, Tav16s t) { return thr::floor<C1>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_16s_C3R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t) { return thr::floor<C3>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_16s_C3IR(Tav16s* p, int st, TaviSize r, const Tav16s* t) { return thr::floor<C3>(io(p, st), r, t); }
TavStatus own_taviThreshold_LT_16s_AC4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t) { return thr::floor<AC4>(io(s, ss, d, ds), r, t); }
TavStatus own_taviThreshold_LT_16s_AC4IR(Tav16s* p, int st, TaviSize r, const Tav16s* t) { return thr::floor<AC4>(io(p, st), r, t); }
TavStatus own_taviThreshold_Val_16s_C1R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, Tav16s t, Tav16s v, TavCmpOp op) { return thr::replace<C1>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_16s_C1IR(Tav16s* p, int st, TaviSize r, Tav16s t, Tav16s v, TavCmpOp op) { return thr::replace<C1>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_Val_16s_C3R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t, const Tav16s* v, TavCmpOp op) { return thr::replace<C3>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_16s_C3IR(Tav16s* p, int st, TaviSize r, const Tav16s* t, const Tav16s* v, TavCmpOp op) { return thr::replace<C3>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_Val_16s_AC4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t, const Tav16s* v, TavCmpOp op) { return thr::replace<AC4>(io(s, ss, d, ds), r, t, v, op); }
TavStatus own_taviThreshold_Val_16s_AC4IR(Tav16s* p, int st, TaviSize r, const Tav16s* t, const Tav16s* v, TavCmpOp op) { return thr::replace<AC4>(io(p, st), r, t, v, op); }
TavStatus own_taviThreshold_GTVal_16s_C1R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, Tav16s t, Tav16s v) { return thr::replace_above<C1>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_16s_C1IR(Tav16s* p, int st, TaviSize r, Tav16s t, Tav16s v) { return thr::replace_above<C1>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_16s_C3R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_above<C3>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_16s_C3IR(Tav16s* p, int st, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_above<C3>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_16s_C4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_above<C4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_16s_C4IR(Tav16s* p, int st, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_above<C4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_GTVal_16s_AC4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_above<AC4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_GTVal_16s_AC4IR(Tav16s* p, int st, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_above<AC4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_16s_C1R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, Tav16s t, Tav16s v) { return thr::replace_below<C1>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_16s_C1IR(Tav16s* p, int st, TaviSize r, Tav16s t, Tav16s v) { return thr::replace_below<C1>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_16s_C3R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_below<C3>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_16s_C3IR(Tav16s* p, int st, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_below<C3>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_16s_C4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_below<C4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_16s_C4IR(Tav16s* p, int st, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_below<C4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTVal_16s_AC4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_below<AC4>(io(s, ss, d, ds), r, t, v); }
TavStatus own_taviThreshold_LTVal_16s_AC4IR(Tav16s* p, int st, TaviSize r, const Tav16s* t, const Tav16s* v) { return thr::replace_below<AC4>(io(p, st), r, t, v); }
TavStatus own_taviThreshold_LTValGTVal_16s_C1R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, Tav16s tl, Tav16s vl, Tav16s tg, Tav16s vg) { return thr::replace_outside<C1>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_16s_C1IR(Tav16s* p, int st, TaviSize r, Tav16s tl, Tav16s vl, Tav16s tg, Tav16s vg) { return thr::replace_outside<C1>(io(p, st), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_16s_C3R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* tl, const Tav16s* vl, const Tav16s* tg, const Tav16s* vg) { return thr::replace_outside<C3>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_16s_C3IR(Tav16s* p, int st, TaviSize r, const Tav16s* tl, const Tav16s* vl, const Tav16s* tg, const Tav16s* vg) { return thr::replace_outside<C3>(io(p, st), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_16s_AC4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav16s* tl, const Tav16s* vl, const Tav16s* tg, const Tav16s* vg) { return thr::replace_outside<AC4>(io(s, ss, d, ds), r, tl, vl, tg, vg); }
TavStatus own_taviThreshold_LTValGTVal_16s_AC4IR(Tav16s* p, int st, TaviSize r, const Tav16s* tl, const Tav16s* vl, const Tav16s* tg, const Tav16s* vg) { return thr::replace_outside<AC4>(io(p, st), r, tl, vl, tg, vg); }
// clang-format on
