// Sixteen elements of any element type in one set of registers, and the
// rounding and saturation steps between them. Conversions are written on
// these "wide" values: integers up to 32 bits widen to 32-bit lanes (sign or
// zero extended, 32u kept as raw bits), 32f is one float vector, 64f a pair of
// double vectors. A store narrows values that are already in range.
//
// Contract: a load reads only the lanes of its mask and a store writes only
// those; the unmasked (full) forms touch exactly 16 elements.
#pragma once

// GCC 12 reports the deliberately undefined pass-through operand inside its
// own vector intrinsics as uninitialized once they are inlined into templates;
// the pragma must precede the first inclusion of the intrinsics header.
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ == 12
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include <immintrin.h>

#include <cstdint>
#include <limits>
#include <type_traits>

#include "tavtypes.h"

namespace tav::move::cvt {

struct F64x2 {
    __m512d lo, hi;
};

// Rounding of a value with a fraction: toward zero, nearest with ties to
// even, nearest with ties away from zero.
enum class Rnd { Zero, Near, Fin };

// Any mode the caller gives that is not toward zero or financial rounds to
// nearest, so the mode switch happens once outside the row loop.
inline Rnd rnd_of(TavRoundMode m) { return m == tavRndZero ? Rnd::Zero : m == tavRndFinancial ? Rnd::Fin : Rnd::Near; }

template <class T>
inline constexpr bool kInt32Lanes = std::is_integral_v<T>;

template <class T>
struct WideOf {
    using type = __m512i;
};
template <>
struct WideOf<Tav32f> {
    using type = __m512;
};
template <>
struct WideOf<Tav64f> {
    using type = F64x2;
};
template <class T>
using Wide = typename WideOf<T>::type;

// The non-temporal integer store takes a vector pointer.
template <class T>
inline void stream512(T* p, __m512i v) {
    _mm512_stream_si512(reinterpret_cast<__m512i*>(p), v);
}

// ---- loads --------------------------------------------------------------

template <bool Tail, class S>
inline Wide<S> load16(const S* p, __mmask16 m) {
    if constexpr (sizeof(S) == 1) {
        __m128i x = Tail ? _mm_maskz_loadu_epi8(m, p) : _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        if constexpr (std::is_signed_v<S>) return _mm512_cvtepi8_epi32(x);
        else return _mm512_cvtepu8_epi32(x);
    } else if constexpr (sizeof(S) == 2) {
        __m256i x = Tail ? _mm256_maskz_loadu_epi16(m, p) : _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
        if constexpr (std::is_signed_v<S>) return _mm512_cvtepi16_epi32(x);
        else return _mm512_cvtepu16_epi32(x);
    } else if constexpr (std::is_same_v<S, Tav32f>) {
        return Tail ? _mm512_maskz_loadu_ps(m, p) : _mm512_loadu_ps(p);
    } else if constexpr (std::is_same_v<S, Tav64f>) {
        if constexpr (Tail)
            return {_mm512_maskz_loadu_pd(static_cast<__mmask8>(m), p), _mm512_maskz_loadu_pd(static_cast<__mmask8>(m >> 8), p + 8)};
        else return {_mm512_loadu_pd(p), _mm512_loadu_pd(p + 8)};
    } else {
        return Tail ? _mm512_maskz_loadu_epi32(m, p) : _mm512_loadu_si512(p);
    }
}

// ---- stores -------------------------------------------------------------
// NT: non-temporal; the caller has aligned the destination to 64 bytes, so
// every full block lands on its own natural alignment.

template <bool Tail, bool NT, class D>
inline void store16(D* p, __mmask16 m, Wide<D> v) {
    if constexpr (sizeof(D) == 1) {
        __m128i x = _mm512_cvtepi32_epi8(v);
        if constexpr (Tail) _mm_mask_storeu_epi8(p, m, x);
        else if constexpr (NT) _mm_stream_si128(reinterpret_cast<__m128i*>(p), x);
        else _mm_storeu_si128(reinterpret_cast<__m128i*>(p), x);
    } else if constexpr (sizeof(D) == 2) {
        __m256i x = _mm512_cvtepi32_epi16(v);
        if constexpr (Tail) _mm256_mask_storeu_epi16(p, m, x);
        else if constexpr (NT) _mm256_stream_si256(reinterpret_cast<__m256i*>(p), x);
        else _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), x);
    } else if constexpr (std::is_same_v<D, Tav32f>) {
        if constexpr (Tail) _mm512_mask_storeu_ps(p, m, v);
        else if constexpr (NT) _mm512_stream_ps(p, v);
        else _mm512_storeu_ps(p, v);
    } else if constexpr (std::is_same_v<D, Tav64f>) {
        if constexpr (Tail) {
            _mm512_mask_storeu_pd(p, static_cast<__mmask8>(m), v.lo);
            _mm512_mask_storeu_pd(p + 8, static_cast<__mmask8>(m >> 8), v.hi);
        } else if constexpr (NT) {
            _mm512_stream_pd(p, v.lo);
            _mm512_stream_pd(p + 8, v.hi);
        } else {
            _mm512_storeu_pd(p, v.lo);
            _mm512_storeu_pd(p + 8, v.hi);
        }
    } else {
        if constexpr (Tail) _mm512_mask_storeu_epi32(p, m, v);
        else if constexpr (NT) stream512(p, v);
        else _mm512_storeu_si512(p, v);
    }
}

// ---- limits -------------------------------------------------------------

template <class T>
inline constexpr double kLo = static_cast<double>(std::numeric_limits<T>::lowest());
template <class T>
inline constexpr double kHi = static_cast<double>(std::numeric_limits<T>::max());

// ---- integer lanes ------------------------------------------------------

// Saturates 32-bit lanes holding values of type S to the range of D.
template <class S, class D>
inline __m512i sat_i32(__m512i v) {
    constexpr bool sUnsigned32 = std::is_same_v<S, Tav32u>;
    if constexpr (sUnsigned32) {
        if constexpr (sizeof(D) < 4 || std::is_same_v<D, Tav32s>)
            return _mm512_min_epu32(v, _mm512_set1_epi32(static_cast<int>(kHi<D>)));
        else return v;
    } else {
        if constexpr (kLo<D> > kLo<S>) v = _mm512_max_epi32(v, _mm512_set1_epi32(static_cast<int>(kLo<D>)));
        if constexpr (kHi<D> < kHi<S>) v = _mm512_min_epi32(v, _mm512_set1_epi32(static_cast<int>(kHi<D>)));
        return v;
    }
}

// ---- float to integer ---------------------------------------------------

template <Rnd R>
inline constexpr int kRoundImm = (R == Rnd::Near ? _MM_FROUND_TO_NEAREST_INT : _MM_FROUND_TO_ZERO) | _MM_FROUND_NO_EXC;

// Financial rounding: add one half with the sign of x under round-toward-zero
// (so the sum itself is not rounded up across an integer), then truncate.
inline __m512 half_away(__m512 x) {
    __m512 h = _mm512_or_ps(_mm512_and_ps(x, _mm512_set1_ps(-0.0f)), _mm512_set1_ps(0.5f));
    return _mm512_add_round_ps(x, h, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
}
inline __m512d half_away(__m512d x) {
    __m512d h = _mm512_or_pd(_mm512_and_pd(x, _mm512_set1_pd(-0.0)), _mm512_set1_pd(0.5));
    return _mm512_add_round_pd(x, h, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
}

// Clamping takes the lower bound first: max(x, lo) gives lo for a NaN, so a
// NaN lands on the lowest value of the destination.
inline __m512 clamp(__m512 x, float lo, float hi) {
    return _mm512_min_ps(_mm512_max_ps(x, _mm512_set1_ps(lo)), _mm512_set1_ps(hi));
}
inline __m512d clamp(__m512d x, double lo, double hi) {
    return _mm512_min_pd(_mm512_max_pd(x, _mm512_set1_pd(lo)), _mm512_set1_pd(hi));
}

// float lanes to D (any integer type), rounded by R and saturated.
template <class D, Rnd R>
inline __m512i f32_to_int(__m512 x) {
    constexpr int imm = kRoundImm<R>;
    if constexpr (sizeof(D) <= 2) {
        x = clamp(x, static_cast<float>(kLo<D>), static_cast<float>(kHi<D>));
        if constexpr (R == Rnd::Fin) x = half_away(x);
        return _mm512_cvt_roundps_epi32(x, imm);
    } else if constexpr (std::is_same_v<D, Tav32s>) {
        // 2^31 has no float below it closer than 128, so clamp below only and
        // saturate the lanes at or above 2^31 after the conversion.
        x = _mm512_max_ps(x, _mm512_set1_ps(-2147483648.0f));
        __mmask16 over = _mm512_cmp_ps_mask(x, _mm512_set1_ps(2147483648.0f), _CMP_GE_OQ);
        if constexpr (R == Rnd::Fin) x = half_away(x);
        __m512i r = _mm512_cvt_roundps_epi32(x, imm);
        return _mm512_mask_mov_epi32(r, over, _mm512_set1_epi32(0x7fffffff));
    } else {
        x = _mm512_max_ps(x, _mm512_setzero_ps());
        __mmask16 over = _mm512_cmp_ps_mask(x, _mm512_set1_ps(4294967296.0f), _CMP_GE_OQ);
        if constexpr (R == Rnd::Fin) x = half_away(x);
        __m512i r = _mm512_cvt_roundps_epu32(x, imm);
        return _mm512_mask_mov_epi32(r, over, _mm512_set1_epi32(-1));
    }
}

// float lanes rounded by R to 32-bit integers that a saturating pack then
// narrows to an 8- or 16-bit type: only values at 2^31 and above need a
// bound, since the conversion gives its out-of-range value (the lowest
// integer) for them. min(bound, x) keeps a NaN, which converts to that
// lowest integer and so lands on the destination's lowest value.
template <Rnd R>
inline __m512i f32_to_packable(__m512 x) {
    x = _mm512_min_ps(_mm512_set1_ps(65536.0f), x);
    if constexpr (R == Rnd::Fin) x = half_away(x);
    return _mm512_cvt_roundps_epi32(x, kRoundImm<R>);
}

// double lanes to D, rounded by R and saturated; every integer limit up to
// 32 bits is exact in double, so a plain clamp does.
template <class D, Rnd R>
inline __m256i f64_to_int(__m512d x) {
    constexpr int imm = kRoundImm<R>;
    x = clamp(x, kLo<D>, kHi<D>);
    if constexpr (R == Rnd::Fin) x = half_away(x);
    if constexpr (std::is_same_v<D, Tav32u>) return _mm512_cvt_roundpd_epu32(x, imm);
    else return _mm512_cvt_roundpd_epi32(x, imm);
}

template <class D, Rnd R>
inline __m512i f64_to_int(F64x2 v) {
    return _mm512_inserti64x4(_mm512_castsi256_si512(f64_to_int<D, R>(v.lo)), f64_to_int<D, R>(v.hi), 1);
}

// ---- to double ----------------------------------------------------------

template <class S>
inline F64x2 to_f64(Wide<S> v) {
    if constexpr (std::is_same_v<S, Tav64f>) {
        return v;
    } else if constexpr (std::is_same_v<S, Tav32f>) {
        return {_mm512_cvtps_pd(_mm512_castps512_ps256(v)), _mm512_cvtps_pd(_mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(v), 1)))};
    } else if constexpr (std::is_same_v<S, Tav32u>) {
        return {_mm512_cvtepu32_pd(_mm512_castsi512_si256(v)), _mm512_cvtepu32_pd(_mm512_extracti64x4_epi64(v, 1))};
    } else {
        return {_mm512_cvtepi32_pd(_mm512_castsi512_si256(v)), _mm512_cvtepi32_pd(_mm512_extracti64x4_epi64(v, 1))};
    }
}

inline __m512 f64_to_f32(F64x2 v) {
    constexpr int imm = _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC;
    return _mm512_castpd_ps(_mm512_insertf64x4(_mm512_castps_pd(_mm512_castps256_ps512(_mm512_cvt_roundpd_ps(v.lo, imm))),
                                               _mm256_castps_pd(_mm512_cvt_roundpd_ps(v.hi, imm)), 1));
}

// Integer lanes (any integer S up to 32 bits) to float, rounded to nearest
// whatever the caller's rounding control says.
template <class S>
inline __m512 int_to_f32(__m512i v) {
    constexpr int imm = _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC;
    if constexpr (std::is_same_v<S, Tav32u>) return _mm512_cvt_roundepu32_ps(v, imm);
    else return _mm512_cvt_roundepi32_ps(v, imm);
}

}  // namespace tav::move::cvt
