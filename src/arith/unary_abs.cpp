// taviAbs: |x| for 16s (with -32768 clamped to 32767 first) and 32f (sign bit
// cleared, so not-a-number keeps its payload). Rows are walked whole
// elements apart: an odd step is rounded down.
#include "arith/unary_frame.h"

namespace tav::arith {
namespace {

struct Abs16s : NoStatus {
    __m512i operator()(__m512i x, std::uint64_t) const {
        return _mm512_abs_epi16(_mm512_max_epi16(x, _mm512_set1_epi16(-32767)));
    }
};

struct Abs32f : NoStatus {
    __m512 operator()(__m512 x, std::uint64_t) const {
        return _mm512_castsi512_ps(_mm512_and_si512(_mm512_castps_si512(x), _mm512_set1_epi32(0x7fffffff)));
    }
};

template <class T, Layout L>
constexpr auto abs_call = unary_op<std::conditional_t<std::is_same_v<T, Tav32f>, Abs32f, Abs16s>, T, L, 4, sizeof(T) - 1>;

}  // namespace
}  // namespace tav::arith

using tav::Layout;
using tav::arith::abs_call;

TavStatus own_taviAbs_16s_C1R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return abs_call<Tav16s, Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviAbs_16s_C3R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return abs_call<Tav16s, Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviAbs_16s_C4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return abs_call<Tav16s, Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviAbs_16s_AC4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return abs_call<Tav16s, Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviAbs_16s_C1IR(Tav16s* p, int st, TaviSize r) { return abs_call<Tav16s, Layout::C1>(p, st, p, st, r); }
TavStatus own_taviAbs_16s_C3IR(Tav16s* p, int st, TaviSize r) { return abs_call<Tav16s, Layout::C3>(p, st, p, st, r); }
TavStatus own_taviAbs_16s_C4IR(Tav16s* p, int st, TaviSize r) { return abs_call<Tav16s, Layout::C4>(p, st, p, st, r); }
TavStatus own_taviAbs_16s_AC4IR(Tav16s* p, int st, TaviSize r) { return abs_call<Tav16s, Layout::AC4>(p, st, p, st, r); }
TavStatus own_taviAbs_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return abs_call<Tav32f, Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviAbs_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return abs_call<Tav32f, Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviAbs_32f_C4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return abs_call<Tav32f, Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviAbs_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return abs_call<Tav32f, Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviAbs_32f_C1IR(Tav32f* p, int st, TaviSize r) { return abs_call<Tav32f, Layout::C1>(p, st, p, st, r); }
TavStatus own_taviAbs_32f_C3IR(Tav32f* p, int st, TaviSize r) { return abs_call<Tav32f, Layout::C3>(p, st, p, st, r); }
TavStatus own_taviAbs_32f_C4IR(Tav32f* p, int st, TaviSize r) { return abs_call<Tav32f, Layout::C4>(p, st, p, st, r); }
TavStatus own_taviAbs_32f_AC4IR(Tav32f* p, int st, TaviSize r) { return abs_call<Tav32f, Layout::AC4>(p, st, p, st, r); }
