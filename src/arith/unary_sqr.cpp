// taviSqr: x * x. Integer squares are exact in lanes twice the element width
// (16 bits for 8u, 32 for 16u and 16s), then scaled by 2^-scaleFactor with
// ties to even and saturated. The path is chosen by scaleFactor before the
// row loop; every path gives the value of the rule.
#include "arith/unary_frame.h"

namespace tav::arith {
namespace {

// Unsigned lane operations at 16 or 32 bits.
template <int kBits>
struct ULanes;

template <>
struct ULanes<16> {
    static __m512i set1(int v) { return _mm512_set1_epi16(static_cast<short>(v)); }
    static __m512i srl(__m512i v, __m128i c) { return _mm512_srl_epi16(v, c); }
    static __m512i sll(__m512i v, __m128i c) { return _mm512_sll_epi16(v, c); }
    static __m512i add(__m512i a, __m512i b) { return _mm512_add_epi16(a, b); }
    static __m512i min(__m512i a, __m512i b) { return _mm512_min_epu16(a, b); }
    static __m512i add_one_where_above(__m512i q, __m512i a, __m512i b) {
        return _mm512_mask_add_epi16(q, _mm512_cmpgt_epu16_mask(a, b), q, set1(1));
    }
};

template <>
struct ULanes<32> {
    static __m512i set1(int v) { return _mm512_set1_epi32(v); }
    static __m512i srl(__m512i v, __m128i c) { return _mm512_srl_epi32(v, c); }
    static __m512i sll(__m512i v, __m128i c) { return _mm512_sll_epi32(v, c); }
    static __m512i add(__m512i a, __m512i b) { return _mm512_add_epi32(a, b); }
    static __m512i min(__m512i a, __m512i b) { return _mm512_min_epu32(a, b); }
    static __m512i add_one_where_above(__m512i q, __m512i a, __m512i b) {
        return _mm512_mask_add_epi32(q, _mm512_cmpgt_epu32_mask(a, b), q, set1(1));
    }
};

enum class Path { Exact, Down, Up, Zero, Saturate };

// Scale of exact non-negative results s held in unsigned kBits lanes.
template <int kBits, Path P>
struct Scale {
    using U = ULanes<kBits>;
    __m128i count;
    __m512i low{}, half{}, limit{}, max;

    Scale(int f, int maxOut) : count(_mm_cvtsi32_si128(P == Path::Down ? f : P == Path::Up ? -f : 0)), max(U::set1(maxOut)) {
        if constexpr (P == Path::Down) {  // 1 <= f <= kBits
            low = U::set1(static_cast<int>(f == 32 ? 0xffffffffu : (1u << f) - 1));
            half = U::set1(static_cast<int>(1u << (f - 1)));
        } else if constexpr (P == Path::Up) {
            // Anything above maxOut >> k saturates; clamping first keeps the
            // shift inside the lane.
            limit = U::set1((maxOut >> -f) + 1);
        }
    }

    __m512i operator()(__m512i s) const {
        if constexpr (P == Path::Exact) {
            return U::min(s, max);
        } else if constexpr (P == Path::Down) {
            // Round to nearest, ties to even: q + (rest + (q & 1) > half).
            const __m512i q = U::srl(s, count);
            const __m512i rest = _mm512_and_si512(s, low);
            const __m512i odd = _mm512_and_si512(q, U::set1(1));
            return U::min(U::add_one_where_above(q, U::add(rest, odd), half), max);
        } else {
            return U::min(U::sll(U::min(s, limit), count), max);
        }
    }
};

template <class T, Path P>
struct SqrInt : NoStatus {
    static constexpr int kWide = sizeof(T) == 1 ? 16 : 32;
    Scale<kWide, P> scale;
    explicit SqrInt(int f) : scale(f, kMaxOf<T>) {}

    __m512i operator()(__m512i x, std::uint64_t) const {
        constexpr int kMax = kMaxOf<T>;
        if constexpr (P == Path::Zero) {
            return _mm512_setzero_si512();
        } else if constexpr (P == Path::Saturate) {
            if constexpr (sizeof(T) == 1) return _mm512_maskz_mov_epi8(_mm512_test_epi8_mask(x, x), _mm512_set1_epi8(-1));
            else return _mm512_maskz_mov_epi16(_mm512_test_epi16_mask(x, x), _mm512_set1_epi16(kMax));
        } else if constexpr (sizeof(T) == 1) {
            // Unpacking and packing within 128-bit lanes undo each other.
            const __m512i zero = _mm512_setzero_si512();
            const __m512i lo = _mm512_unpacklo_epi8(x, zero), hi = _mm512_unpackhi_epi8(x, zero);
            return _mm512_packus_epi16(scale(_mm512_mullo_epi16(lo, lo)), scale(_mm512_mullo_epi16(hi, hi)));
        } else {
            const __m512i lo = _mm512_mullo_epi16(x, x);
            const __m512i hi = std::is_signed_v<T> ? _mm512_mulhi_epi16(x, x) : _mm512_mulhi_epu16(x, x);
            return _mm512_packus_epi32(scale(_mm512_unpacklo_epi16(lo, hi)), scale(_mm512_unpackhi_epi16(lo, hi)));
        }
    }
};

template <class T, Layout L, Path P>
TavStatus sqr_rows(const T* s, int ss, T* d, int ds, TaviSize roi, int f) {
    // 16-bit members walk whole elements; 8u uses the step as it is.
    constexpr int kLowBits = sizeof(T) - 1;
    SqrInt<T, P> op(f);
    return map_rows<T, L, 2, kLowBits>(s, ss, d, ds, roi, op);
}

template <class T, Layout L>
TavStatus sqr_sfs(const T* s, int ss, T* d, int ds, TaviSize roi, int f) {
    if (TavStatus st = check_unary(s, ss, d, ds, roi)) return st;
    constexpr int kWide = sizeof(T) == 1 ? 16 : 32;
    // Largest left shift that some non-zero square survives unsaturated.
    constexpr int kUpMost = std::is_same_v<T, Tav16s> ? 14 : sizeof(T) * 8 - 1;
    if (f == 0) return sqr_rows<T, L, Path::Exact>(s, ss, d, ds, roi, f);
    if (f > kWide) return sqr_rows<T, L, Path::Zero>(s, ss, d, ds, roi, f);
    if (f > 0) return sqr_rows<T, L, Path::Down>(s, ss, d, ds, roi, f);
    if (f >= -kUpMost) return sqr_rows<T, L, Path::Up>(s, ss, d, ds, roi, f);
    return sqr_rows<T, L, Path::Saturate>(s, ss, d, ds, roi, f);
}

struct Sqr32f : NoStatus {
    __m512 operator()(__m512 x, std::uint64_t) const { return _mm512_mul_ps(x, x); }
};

template <Layout L>
constexpr auto sqr_32f = unary_op<Sqr32f, Tav32f, L, 4, 0>;

}  // namespace
}  // namespace tav::arith

using tav::Layout;
using tav::arith::sqr_32f;
using tav::arith::sqr_sfs;

TavStatus own_taviSqr_8u_C1RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav8u, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_8u_C3RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav8u, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_8u_C4RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav8u, Layout::C4>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_8u_AC4RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav8u, Layout::AC4>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_8u_C1IRSfs(Tav8u* p, int st, TaviSize r, int f) { return sqr_sfs<Tav8u, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviSqr_8u_C3IRSfs(Tav8u* p, int st, TaviSize r, int f) { return sqr_sfs<Tav8u, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviSqr_8u_C4IRSfs(Tav8u* p, int st, TaviSize r, int f) { return sqr_sfs<Tav8u, Layout::C4>(p, st, p, st, r, f); }
TavStatus own_taviSqr_8u_AC4IRSfs(Tav8u* p, int st, TaviSize r, int f) { return sqr_sfs<Tav8u, Layout::AC4>(p, st, p, st, r, f); }
TavStatus own_taviSqr_16u_C1RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav16u, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_16u_C3RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav16u, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_16u_C4RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav16u, Layout::C4>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_16u_AC4RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav16u, Layout::AC4>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_16u_C1IRSfs(Tav16u* p, int st, TaviSize r, int f) { return sqr_sfs<Tav16u, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviSqr_16u_C3IRSfs(Tav16u* p, int st, TaviSize r, int f) { return sqr_sfs<Tav16u, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviSqr_16u_C4IRSfs(Tav16u* p, int st, TaviSize r, int f) { return sqr_sfs<Tav16u, Layout::C4>(p, st, p, st, r, f); }
TavStatus own_taviSqr_16u_AC4IRSfs(Tav16u* p, int st, TaviSize r, int f) { return sqr_sfs<Tav16u, Layout::AC4>(p, st, p, st, r, f); }
TavStatus own_taviSqr_16s_C1RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav16s, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_16s_C3RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav16s, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_16s_C4RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav16s, Layout::C4>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_16s_AC4RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return sqr_sfs<Tav16s, Layout::AC4>(s, ss, d, ds, r, f); }
TavStatus own_taviSqr_16s_C1IRSfs(Tav16s* p, int st, TaviSize r, int f) { return sqr_sfs<Tav16s, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviSqr_16s_C3IRSfs(Tav16s* p, int st, TaviSize r, int f) { return sqr_sfs<Tav16s, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviSqr_16s_C4IRSfs(Tav16s* p, int st, TaviSize r, int f) { return sqr_sfs<Tav16s, Layout::C4>(p, st, p, st, r, f); }
TavStatus own_taviSqr_16s_AC4IRSfs(Tav16s* p, int st, TaviSize r, int f) { return sqr_sfs<Tav16s, Layout::AC4>(p, st, p, st, r, f); }
TavStatus own_taviSqr_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return sqr_32f<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviSqr_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return sqr_32f<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviSqr_32f_C4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return sqr_32f<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviSqr_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return sqr_32f<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviSqr_32f_C1IR(Tav32f* p, int st, TaviSize r) { return sqr_32f<Layout::C1>(p, st, p, st, r); }
TavStatus own_taviSqr_32f_C3IR(Tav32f* p, int st, TaviSize r) { return sqr_32f<Layout::C3>(p, st, p, st, r); }
TavStatus own_taviSqr_32f_C4IR(Tav32f* p, int st, TaviSize r) { return sqr_32f<Layout::C4>(p, st, p, st, r); }
TavStatus own_taviSqr_32f_AC4IR(Tav32f* p, int st, TaviSize r) { return sqr_32f<Layout::AC4>(p, st, p, st, r); }
