// Bindings of the shifts by constant counts.
#include "arith/shift.h"

using tav::arith::shift_c1;
using tav::arith::shift_cn;
using tav::Layout;

TavStatus own_taviLShiftC_8u_C1R(const Tav8u* s, int t, Tav32u n, Tav8u* d, int td, TaviSize r) { return shift_c1<Tav8u, true>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_8u_C1IR(Tav32u n, Tav8u* sd, int t, TaviSize r) { return shift_c1<Tav8u, true>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_8u_C3R(const Tav8u* s, int t, const Tav32u* n, Tav8u* d, int td, TaviSize r) { return shift_cn<Tav8u, true, Layout::C3>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_8u_C3IR(const Tav32u* n, Tav8u* sd, int t, TaviSize r) { return shift_cn<Tav8u, true, Layout::C3>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_8u_C4R(const Tav8u* s, int t, const Tav32u* n, Tav8u* d, int td, TaviSize r) { return shift_cn<Tav8u, true, Layout::C4>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_8u_C4IR(const Tav32u* n, Tav8u* sd, int t, TaviSize r) { return shift_cn<Tav8u, true, Layout::C4>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_8u_AC4R(const Tav8u* s, int t, const Tav32u* n, Tav8u* d, int td, TaviSize r) { return shift_cn<Tav8u, true, Layout::AC4>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_8u_AC4IR(const Tav32u* n, Tav8u* sd, int t, TaviSize r) { return shift_cn<Tav8u, true, Layout::AC4>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_16u_C1R(const Tav16u* s, int t, Tav32u n, Tav16u* d, int td, TaviSize r) { return shift_c1<Tav16u, true>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_16u_C1IR(Tav32u n, Tav16u* sd, int t, TaviSize r) { return shift_c1<Tav16u, true>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_16u_C3R(const Tav16u* s, int t, const Tav32u* n, Tav16u* d, int td, TaviSize r) { return shift_cn<Tav16u, true, Layout::C3>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_16u_C3IR(const Tav32u* n, Tav16u* sd, int t, TaviSize r) { return shift_cn<Tav16u, true, Layout::C3>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_16u_C4R(const Tav16u* s, int t, const Tav32u* n, Tav16u* d, int td, TaviSize r) { return shift_cn<Tav16u, true, Layout::C4>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_16u_C4IR(const Tav32u* n, Tav16u* sd, int t, TaviSize r) { return shift_cn<Tav16u, true, Layout::C4>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_16u_AC4R(const Tav16u* s, int t, const Tav32u* n, Tav16u* d, int td, TaviSize r) { return shift_cn<Tav16u, true, Layout::AC4>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_16u_AC4IR(const Tav32u* n, Tav16u* sd, int t, TaviSize r) { return shift_cn<Tav16u, true, Layout::AC4>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_32s_C1R(const Tav32s* s, int t, Tav32u n, Tav32s* d, int td, TaviSize r) { return shift_c1<Tav32s, true>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_32s_C1IR(Tav32u n, Tav32s* sd, int t, TaviSize r) { return shift_c1<Tav32s, true>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_32s_C3R(const Tav32s* s, int t, const Tav32u* n, Tav32s* d, int td, TaviSize r) { return shift_cn<Tav32s, true, Layout::C3>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_32s_C3IR(const Tav32u* n, Tav32s* sd, int t, TaviSize r) { return shift_cn<Tav32s, true, Layout::C3>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_32s_C4R(const Tav32s* s, int t, const Tav32u* n, Tav32s* d, int td, TaviSize r) { return shift_cn<Tav32s, true, Layout::C4>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_32s_C4IR(const Tav32u* n, Tav32s* sd, int t, TaviSize r) { return shift_cn<Tav32s, true, Layout::C4>(sd, t, n, sd, t, r); }
TavStatus own_taviLShiftC_32s_AC4R(const Tav32s* s, int t, const Tav32u* n, Tav32s* d, int td, TaviSize r) { return shift_cn<Tav32s, true, Layout::AC4>(s, t, n, d, td, r); }
TavStatus own_taviLShiftC_32s_AC4IR(const Tav32u* n, Tav32s* sd, int t, TaviSize r) { return shift_cn<Tav32s, true, Layout::AC4>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_8u_C1R(const Tav8u* s, int t, Tav32u n, Tav8u* d, int td, TaviSize r) { return shift_c1<Tav8u, false>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_8u_C1IR(Tav32u n, Tav8u* sd, int t, TaviSize r) { return shift_c1<Tav8u, false>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_8u_C3R(const Tav8u* s, int t, const Tav32u* n, Tav8u* d, int td, TaviSize r) { return shift_cn<Tav8u, false, Layout::C3>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_8u_C3IR(const Tav32u* n, Tav8u* sd, int t, TaviSize r) { return shift_cn<Tav8u, false, Layout::C3>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_8u_C4R(const Tav8u* s, int t, const Tav32u* n, Tav8u* d, int td, TaviSize r) { return shift_cn<Tav8u, false, Layout::C4>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_8u_C4IR(const Tav32u* n, Tav8u* sd, int t, TaviSize r) { return shift_cn<Tav8u, false, Layout::C4>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_8u_AC4R(const Tav8u* s, int t, const Tav32u* n, Tav8u* d, int td, TaviSize r) { return shift_cn<Tav8u, false, Layout::AC4>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_8u_AC4IR(const Tav32u* n, Tav8u* sd, int t, TaviSize r) { return shift_cn<Tav8u, false, Layout::AC4>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_16u_C1R(const Tav16u* s, int t, Tav32u n, Tav16u* d, int td, TaviSize r) { return shift_c1<Tav16u, false>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_16u_C1IR(Tav32u n, Tav16u* sd, int t, TaviSize r) { return shift_c1<Tav16u, false>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_16u_C3R(const Tav16u* s, int t, const Tav32u* n, Tav16u* d, int td, TaviSize r) { return shift_cn<Tav16u, false, Layout::C3>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_16u_C3IR(const Tav32u* n, Tav16u* sd, int t, TaviSize r) { return shift_cn<Tav16u, false, Layout::C3>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_16u_C4R(const Tav16u* s, int t, const Tav32u* n, Tav16u* d, int td, TaviSize r) { return shift_cn<Tav16u, false, Layout::C4>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_16u_C4IR(const Tav32u* n, Tav16u* sd, int t, TaviSize r) { return shift_cn<Tav16u, false, Layout::C4>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_16u_AC4R(const Tav16u* s, int t, const Tav32u* n, Tav16u* d, int td, TaviSize r) { return shift_cn<Tav16u, false, Layout::AC4>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_16u_AC4IR(const Tav32u* n, Tav16u* sd, int t, TaviSize r) { return shift_cn<Tav16u, false, Layout::AC4>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_16s_C1R(const Tav16s* s, int t, Tav32u n, Tav16s* d, int td, TaviSize r) { return shift_c1<Tav16s, false>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_16s_C1IR(Tav32u n, Tav16s* sd, int t, TaviSize r) { return shift_c1<Tav16s, false>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_16s_C3R(const Tav16s* s, int t, const Tav32u* n, Tav16s* d, int td, TaviSize r) { return shift_cn<Tav16s, false, Layout::C3>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_16s_C3IR(const Tav32u* n, Tav16s* sd, int t, TaviSize r) { return shift_cn<Tav16s, false, Layout::C3>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_16s_C4R(const Tav16s* s, int t, const Tav32u* n, Tav16s* d, int td, TaviSize r) { return shift_cn<Tav16s, false, Layout::C4>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_16s_C4IR(const Tav32u* n, Tav16s* sd, int t, TaviSize r) { return shift_cn<Tav16s, false, Layout::C4>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_16s_AC4R(const Tav16s* s, int t, const Tav32u* n, Tav16s* d, int td, TaviSize r) { return shift_cn<Tav16s, false, Layout::AC4>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_16s_AC4IR(const Tav32u* n, Tav16s* sd, int t, TaviSize r) { return shift_cn<Tav16s, false, Layout::AC4>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_32s_C1R(const Tav32s* s, int t, Tav32u n, Tav32s* d, int td, TaviSize r) { return shift_c1<Tav32s, false>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_32s_C1IR(Tav32u n, Tav32s* sd, int t, TaviSize r) { return shift_c1<Tav32s, false>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_32s_C3R(const Tav32s* s, int t, const Tav32u* n, Tav32s* d, int td, TaviSize r) { return shift_cn<Tav32s, false, Layout::C3>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_32s_C3IR(const Tav32u* n, Tav32s* sd, int t, TaviSize r) { return shift_cn<Tav32s, false, Layout::C3>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_32s_C4R(const Tav32s* s, int t, const Tav32u* n, Tav32s* d, int td, TaviSize r) { return shift_cn<Tav32s, false, Layout::C4>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_32s_C4IR(const Tav32u* n, Tav32s* sd, int t, TaviSize r) { return shift_cn<Tav32s, false, Layout::C4>(sd, t, n, sd, t, r); }
TavStatus own_taviRShiftC_32s_AC4R(const Tav32s* s, int t, const Tav32u* n, Tav32s* d, int td, TaviSize r) { return shift_cn<Tav32s, false, Layout::AC4>(s, t, n, d, td, r); }
TavStatus own_taviRShiftC_32s_AC4IR(const Tav32u* n, Tav32s* sd, int t, TaviSize r) { return shift_cn<Tav32s, false, Layout::AC4>(sd, t, n, sd, t, r); }
