// Division: pSrc2 / pSrc1 (or an image by a constant). Integer quotients are
// formed in single precision by one division rounded to nearest whatever the
// caller's rounding control (on this target the divider outruns a refined
// reciprocal); only the final conversion to integer takes the requested
// rounding (the current one for taviDiv).
// A zero divisor gives 0 for a zero dividend and the saturation value of the
// dividend's sign otherwise, and the call reports tavWarnDivByZero.
#pragma once

#include <immintrin.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "arith/entry_shapes.h"

namespace tav::arith {

enum class Rnd { Current, Near, Zero, Financial };

// Range of f computed by division; outside it every quotient is 0 (above)
// or saturated (below) and no division happens.
template <class T>
struct DivRange {
    static constexpr int kLo = sizeof(T) == 1 ? -15 : -31;
    static constexpr int kHi = sizeof(T) == 1 ? 8 : 16;
};

constexpr int kRN = _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC;

// The correctly rounded single-precision quotient, whatever the caller's
// rounding control.
inline __m512 quotient(__m512 a, __m512 b) { return _mm512_div_round_ps(a, b, kRN); }

template <Rnd R>
inline __m512i to_int(__m512 q) {
    if constexpr (R == Rnd::Current) return _mm512_cvtps_epi32(q);
    else if constexpr (R == Rnd::Near) return _mm512_cvt_roundps_epi32(q, kRN);
    else if constexpr (R == Rnd::Zero) return _mm512_cvttps_epi32(q);
    else {
        // Ties away from zero: a half of the quotient's sign added, then truncated.
        const __m512 half = _mm512_set1_ps(0.5f);
        const __m512 signedHalf = _mm512_castsi512_ps(_mm512_ternarylogic_epi32(
            _mm512_castps_si512(half), _mm512_castps_si512(q), _mm512_set1_epi32(0x7fffffff), 0xe4));
        return _mm512_cvttps_epi32(_mm512_add_round_ps(q, signedHalf, kRN));
    }
}

// The result for a zero divisor, and the ends of the range by sign:
// 0 for 0, else the saturation value of v's sign.
template <class T>
inline __m512i sign_ends(__m512i v) {
    if constexpr (sizeof(T) == 1) return _mm512_maskz_mov_epi8(_mm512_test_epi8_mask(v, v), _mm512_set1_epi32(-1));
    else if constexpr (std::is_unsigned_v<T>) return _mm512_maskz_mov_epi16(_mm512_test_epi16_mask(v, v), _mm512_set1_epi32(-1));
    else {
        const __m512i ends = _mm512_xor_si512(_mm512_srai_epi16(v, 15), _mm512_set1_epi16(0x7fff));
        return _mm512_maskz_mov_epi16(_mm512_test_epi16_mask(v, v), ends);
    }
}

template <class T>
inline Mask<T> zero_lanes(Mask<T> m, __m512i v) {
    if constexpr (sizeof(T) == 1) return _mm512_mask_testn_epi8_mask(m, v, v);
    else return _mm512_mask_testn_epi16_mask(m, v, v);
}

template <class T>
inline __m512i select(Mask<T> m, __m512i a, __m512i b) {
    if constexpr (sizeof(T) == 1) return _mm512_mask_mov_epi8(a, m, b);
    else return _mm512_mask_mov_epi16(a, m, b);
}

// Base of the integer division ops: the divisor is the second source, or the
// row's constant; zero divisors of the counted lanes are remembered.
template <class T, bool IsConst>
struct DivBase {
    Mask<T> zeros = 0;
    static __m512i divisor(__m512i y, __m512i c) { return IsConst ? c : y; }
};

// Scaled: f is not 0. Clamp: f is below -15, where a 16-bit quotient can
// leave the 32-bit range of the conversion; above it the packs saturate.
template <class T, Rnd R, bool Scaled, bool Clamp, bool IsConst>
struct OpDiv : DivBase<T, IsConst> {
    __m512 scale;
    explicit OpDiv(int f) : scale(_mm512_set1_ps(std::ldexp(1.0f, -f))) {}

    __m512i group(__m512i xi, __m512i yi) const {
        __m512 a = _mm512_cvtepi32_ps(xi);
        if constexpr (Scaled) a = _mm512_mul_ps(a, scale);  // a power of two: exact
        __m512 q = quotient(a, _mm512_cvtepi32_ps(yi));
        if constexpr (Clamp && std::is_same_v<T, Tav16u>) q = _mm512_min_ps(q, _mm512_set1_ps(65535.0f));
        if constexpr (Clamp && std::is_same_v<T, Tav16s>)
            q = _mm512_max_ps(_mm512_min_ps(q, _mm512_set1_ps(32767.0f)), _mm512_set1_ps(-32768.0f));
        return to_int<R>(q);
    }

    template <class M>
    __m512i apply(__m512i x, __m512i y, __m512i c, M m) {
        const __m512i v = this->divisor(y, c);
        const __m512i z = _mm512_setzero_si512();
        __m512i r;
        if constexpr (sizeof(T) == 1) {
            const __m512i xl = _mm512_unpacklo_epi8(x, z), xh = _mm512_unpackhi_epi8(x, z);
            const __m512i vl = _mm512_unpacklo_epi8(v, z), vh = _mm512_unpackhi_epi8(v, z);
            const __m512i lo = _mm512_packs_epi32(group(_mm512_unpacklo_epi16(xl, z), _mm512_unpacklo_epi16(vl, z)),
                                                  group(_mm512_unpackhi_epi16(xl, z), _mm512_unpackhi_epi16(vl, z)));
            const __m512i hi = _mm512_packs_epi32(group(_mm512_unpacklo_epi16(xh, z), _mm512_unpacklo_epi16(vh, z)),
                                                  group(_mm512_unpackhi_epi16(xh, z), _mm512_unpackhi_epi16(vh, z)));
            r = _mm512_packus_epi16(lo, hi);
        } else {
            const __m512i sx = std::is_signed_v<T> ? _mm512_srai_epi16(x, 15) : z;
            const __m512i sv = std::is_signed_v<T> ? _mm512_srai_epi16(v, 15) : z;
            const __m512i lo = group(_mm512_unpacklo_epi16(x, sx), _mm512_unpacklo_epi16(v, sv));
            const __m512i hi = group(_mm512_unpackhi_epi16(x, sx), _mm512_unpackhi_epi16(v, sv));
            r = std::is_signed_v<T> ? _mm512_packs_epi32(lo, hi) : _mm512_packus_epi32(lo, hi);
        }
        const Mask<T> zm = zero_lanes<T>(m, v);
        if (zm == 0) return r;  // zero divisors are rare: keep the fix off the common path
        this->zeros |= zm;
        return select<T>(zm, r, sign_ends<T>(x));
    }
};

// f above the range: every quotient rounds to 0; a zero divisor still gives
// the saturation value.
template <class T, bool IsConst>
struct OpDivAbove : DivBase<T, IsConst> {
    template <class M>
    __m512i apply(__m512i x, __m512i y, __m512i c, M m) {
        const Mask<T> zm = zero_lanes<T>(m, this->divisor(y, c));
        this->zeros |= zm;
        return select<T>(zm, _mm512_setzero_si512(), sign_ends<T>(x));
    }
};

// f below the range: every non-zero quotient saturates (by the signs of
// dividend and divisor; a zero divisor counts as positive).
template <class T, bool IsConst>
struct OpDivBelow : DivBase<T, IsConst> {
    template <class M>
    __m512i apply(__m512i x, __m512i y, __m512i c, M m) {
        const __m512i v = this->divisor(y, c);
        this->zeros |= zero_lanes<T>(m, v);
        if constexpr (std::is_signed_v<T>) {
            const __m512i ends = _mm512_xor_si512(_mm512_srai_epi16(_mm512_xor_si512(x, v), 15), _mm512_set1_epi16(0x7fff));
            return _mm512_maskz_mov_epi16(_mm512_test_epi16_mask(x, x), ends);
        } else {
            return sign_ends<T>(x);
        }
    }
};

// Runs the op of f over an image: x the dividends, y the divisors (binary) or
// k the constant.
template <class T, Layout L, Rnd R, bool IsConst>
TavStatus divide_image(const T* x, std::ptrdiff_t tx, const T* y, std::ptrdiff_t ty, const Konst<T>* k, T* d,
                       std::ptrdiff_t td, int64_t w, int64_t h, int f) {
    auto go = [&](auto op) {
        if constexpr (IsConst) const_rows<T, L>(op, x, tx, *k, d, td, w, h);
        else binary_rows<T, L>(op, x, tx, y, ty, d, td, w, h);
        return op.zeros ? tavWarnDivByZero : tavOk;
    };
    if (f > DivRange<T>::kHi) return go(OpDivAbove<T, IsConst>{});
    if (f < DivRange<T>::kLo) return go(OpDivBelow<T, IsConst>{});
    if (f == 0) return go(OpDiv<T, R, false, false, IsConst>(0));
    if (f < -15) return go(OpDiv<T, R, true, true, IsConst>(f));
    return go(OpDiv<T, R, true, false, IsConst>(f));
}

template <Rnd R>
struct DivBin {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s1, std::ptrdiff_t t1, const T* s2, std::ptrdiff_t t2, T* d, std::ptrdiff_t td,
                             int64_t w, int64_t h, int f) {
            return divide_image<T, L, R, false>(s2, t2, s1, t1, nullptr, d, td, w, h, f);
        }
    };
};

// taviDiv_Round: the rounding code is checked after pointers, size and steps.
struct DivRoundBin {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s1, std::ptrdiff_t t1, const T* s2, std::ptrdiff_t t2, T* d, std::ptrdiff_t td,
                             int64_t w, int64_t h, TavRoundMode mode, int f) {
            switch (mode) {
                case tavRndZero: return divide_image<T, L, Rnd::Zero, false>(s2, t2, s1, t1, nullptr, d, td, w, h, f);
                case tavRndNear: return divide_image<T, L, Rnd::Near, false>(s2, t2, s1, t1, nullptr, d, td, w, h, f);
                case tavRndFinancial: return divide_image<T, L, Rnd::Financial, false>(s2, t2, s1, t1, nullptr, d, td, w, h, f);
                default: return tavErrRoundMode;
            }
        }
    };
};

template <class T, Layout L>
bool any_zero_constant(const T* v) {
    for (int c = 0; c < kConstCount<L>; ++c)
        if (v[c] == 0) return true;
    return false;
}

// A zero constant is an error found after the general checks; the row
// function of a 64-bit call repeats the test.
struct DivConst {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s, std::ptrdiff_t ts, const T* v, T* d, std::ptrdiff_t td, int64_t w, int64_t h, int f) {
            if (any_zero_constant<T, L>(v)) return tavErrDivByZero;
            const Konst<T> k = konst_of<T, L>(v);
            return divide_image<T, L, Rnd::Current, true>(s, ts, nullptr, 0, &k, d, td, w, h, f);
        }
    };
};

// Single precision: one IEEE division a pixel.
template <bool IsConst>
struct OpDivF {
    __mmask16 zeros = 0;
    __m512 apply(__m512 x, __m512 y, __m512 c, __mmask16 m) {
        const __m512 v = IsConst ? c : y;
        zeros |= _mm512_mask_cmp_ps_mask(m, v, _mm512_setzero_ps(), _CMP_EQ_OQ);
        return _mm512_div_ps(x, v);
    }
};

struct DivBinF {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s1, std::ptrdiff_t t1, const T* s2, std::ptrdiff_t t2, T* d, std::ptrdiff_t td,
                             int64_t w, int64_t h) {
            OpDivF<false> op;
            binary_rows<T, L>(op, s2, t2, s1, t1, d, td, w, h);
            return op.zeros ? tavWarnDivByZero : tavOk;
        }
    };
};

struct DivConstF {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s, std::ptrdiff_t ts, const T* v, T* d, std::ptrdiff_t td, int64_t w, int64_t h) {
            if (any_zero_constant<T, L>(v)) return tavErrDivByZero;
            const Konst<T> k = konst_of<T, L>(v);
            OpDivF<true> op;
            const_rows<T, L>(op, s, ts, k, d, td, w, h);
            return tavOk;
        }
    };
};

}  // namespace tav::arith
