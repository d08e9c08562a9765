// Integer sum, difference and product with the power-of-two scale rule:
// the exact result s is formed in lanes twice as wide as the element,
// divided by 2^f rounding half to even (f > 0) or multiplied by 2^-f (f < 0),
// and saturated to the element's range. Each of the five paths of a family is
// its own op, chosen once a call, so the row loop carries no test on f.
#pragma once

#include <immintrin.h>

#include <cstdint>
#include <limits>
#include <type_traits>

#include "tavtypes.h"

namespace tav::arith {

enum class Fam { Add, Sub, Mul };

// Lane operations at 16 or 32 bits, so one template serves both widths.
template <int Bits>
struct Lanes;

template <>
struct Lanes<16> {
    using M = __mmask32;
    static __m512i set1(int v) { return _mm512_set1_epi16(static_cast<short>(v)); }
    static __m512i add(__m512i a, __m512i b) { return _mm512_add_epi16(a, b); }
    static __m512i sub(__m512i a, __m512i b) { return _mm512_sub_epi16(a, b); }
    static __m512i sra(__m512i a, __m128i n) { return _mm512_sra_epi16(a, n); }
    static __m512i srl(__m512i a, __m128i n) { return _mm512_srl_epi16(a, n); }
    static __m512i sll(__m512i a, __m128i n) { return _mm512_sll_epi16(a, n); }
    static __m512i minu(__m512i a, __m512i b) { return _mm512_min_epu16(a, b); }
    static __m512i mins(__m512i a, __m512i b) { return _mm512_min_epi16(a, b); }
    static __m512i maxs(__m512i a, __m512i b) { return _mm512_max_epi16(a, b); }
    static M gtu(__m512i a, __m512i b) { return _mm512_cmpgt_epu16_mask(a, b); }
    static __m512i add_if(__m512i a, M m, __m512i b) { return _mm512_mask_add_epi16(a, m, a, b); }
};

template <>
struct Lanes<32> {
    using M = __mmask16;
    static __m512i set1(int v) { return _mm512_set1_epi32(v); }
    static __m512i add(__m512i a, __m512i b) { return _mm512_add_epi32(a, b); }
    static __m512i sub(__m512i a, __m512i b) { return _mm512_sub_epi32(a, b); }
    static __m512i sra(__m512i a, __m128i n) { return _mm512_sra_epi32(a, n); }
    static __m512i srl(__m512i a, __m128i n) { return _mm512_srl_epi32(a, n); }
    static __m512i sll(__m512i a, __m128i n) { return _mm512_sll_epi32(a, n); }
    static __m512i minu(__m512i a, __m512i b) { return _mm512_min_epu32(a, b); }
    static __m512i mins(__m512i a, __m512i b) { return _mm512_min_epi32(a, b); }
    static __m512i maxs(__m512i a, __m512i b) { return _mm512_max_epi32(a, b); }
    static M gtu(__m512i a, __m512i b) { return _mm512_cmpgt_epu32_mask(a, b); }
    static __m512i add_if(__m512i a, M m, __m512i b) { return _mm512_mask_add_epi32(a, m, a, b); }
};

// A family on one element type: the exact result in wide lanes (two halves in
// the in-lane order of unpack, which the packs undo), the saturated f = 0
// result, and the narrowing back.
template <Fam F, class T>
struct IntFam {
    static constexpr int kWide = sizeof(T) == 1 ? 16 : 32;
    using W = Lanes<kWide>;
    // Whether s can be negative; decides the shifts and the saturation.
    static constexpr bool kSigned = F == Fam::Sub || std::is_signed_v<T>;
    // Products of unsigned types can exceed the signed range of the wide lane.
    static constexpr bool kBigUnsigned = F == Fam::Mul && !std::is_signed_v<T>;
    static constexpr int kMax = std::numeric_limits<T>::max();
    static constexpr int kMin = std::numeric_limits<T>::min();

    static void widen(__m512i v, __m512i& lo, __m512i& hi) {
        const __m512i z = _mm512_setzero_si512();
        if constexpr (sizeof(T) == 1) {
            lo = _mm512_unpacklo_epi8(v, z);
            hi = _mm512_unpackhi_epi8(v, z);
        } else if constexpr (std::is_signed_v<T>) {
            const __m512i s = _mm512_srai_epi16(v, 15);
            lo = _mm512_unpacklo_epi16(v, s);
            hi = _mm512_unpackhi_epi16(v, s);
        } else {
            lo = _mm512_unpacklo_epi16(v, z);
            hi = _mm512_unpackhi_epi16(v, z);
        }
    }

    static void exact(__m512i x, __m512i y, __m512i& lo, __m512i& hi) {
        if constexpr (F == Fam::Mul && sizeof(T) == 2) {
            const __m512i l = _mm512_mullo_epi16(x, y);
            const __m512i h = std::is_signed_v<T> ? _mm512_mulhi_epi16(x, y) : _mm512_mulhi_epu16(x, y);
            lo = _mm512_unpacklo_epi16(l, h);
            hi = _mm512_unpackhi_epi16(l, h);
        } else {
            __m512i xl, xh, yl, yh;
            widen(x, xl, xh);
            widen(y, yl, yh);
            if constexpr (F == Fam::Add) {
                lo = W::add(xl, yl);
                hi = W::add(xh, yh);
            } else if constexpr (F == Fam::Sub) {
                lo = W::sub(xl, yl);
                hi = W::sub(xh, yh);
            } else {
                lo = _mm512_mullo_epi16(xl, yl);
                hi = _mm512_mullo_epi16(xh, yh);
            }
        }
    }

    // Wide values to elements with saturation; unsigned wide values above the
    // signed range are first brought below it, since the packs read signed.
    static __m512i narrow(__m512i lo, __m512i hi, bool mayExceedSigned) {
        if (!kSigned && mayExceedSigned) {
            lo = W::minu(lo, W::set1(kMax));
            hi = W::minu(hi, W::set1(kMax));
        }
        if constexpr (sizeof(T) == 1) return _mm512_packus_epi16(lo, hi);
        else if constexpr (std::is_signed_v<T>) return _mm512_packs_epi32(lo, hi);
        else return _mm512_packus_epi32(lo, hi);
    }

    static __m512i sat0(__m512i x, __m512i y) {
        if constexpr (F == Fam::Add) {
            if constexpr (sizeof(T) == 1) return _mm512_adds_epu8(x, y);
            else if constexpr (std::is_signed_v<T>) return _mm512_adds_epi16(x, y);
            else return _mm512_adds_epu16(x, y);
        } else if constexpr (F == Fam::Sub) {
            if constexpr (sizeof(T) == 1) return _mm512_subs_epu8(x, y);
            else if constexpr (std::is_signed_v<T>) return _mm512_subs_epi16(x, y);
            else return _mm512_subs_epu16(x, y);
        } else if constexpr (std::is_same_v<T, Tav16u>) {
            // A product above 65535 has a non-zero high half.
            const __m512i l = _mm512_mullo_epi16(x, y);
            const __m512i h = _mm512_mulhi_epu16(x, y);
            return _mm512_mask_mov_epi16(l, _mm512_test_epi16_mask(h, h), _mm512_set1_epi32(-1));
        } else {
            __m512i lo, hi;
            exact(x, y, lo, hi);
            return narrow(lo, hi, true);
        }
    }
};

// f = 0: saturating arithmetic on the elements themselves.
template <Fam F, class T>
struct OpSat {
    __m512i operator()(__m512i x, __m512i y) const { return IntFam<F, T>::sat0(x, y); }
};

// f = 1 of the 8u sum: the rounding average, less one where it rounded a
// half up to an odd value (ties go to even).
struct OpAvg8u {
    __m512i operator()(__m512i x, __m512i y) const {
        const __m512i r = _mm512_avg_epu8(x, y);
        const __m512i fix = _mm512_and_si512(_mm512_and_si512(_mm512_xor_si512(x, y), r), _mm512_set1_epi8(1));
        return _mm512_sub_epi8(r, fix);
    }
};

// 0 < f: division by 2^f, ties to even.
template <Fam F, class T>
struct OpPos {
    using Fm = IntFam<F, T>;
    using W = typename Fm::W;
    __m128i cnt;
    __m512i bias, one, low, half;

    explicit OpPos(int f)
        : cnt(_mm_cvtsi32_si128(f)),
          bias(W::set1(static_cast<int>((uint64_t{1} << (f - 1)) - 1))),
          one(W::set1(1)),
          low(W::set1(static_cast<int>((uint64_t{1} << f) - 1))),
          half(W::set1(static_cast<int>(uint64_t{1} << (f - 1)))) {}

    __m512i round(__m512i s) const {
        if constexpr (Fm::kBigUnsigned) {
            // (s + odd + half - 1) could leave the lane: compare the remainder
            // with one half instead.
            const __m512i q = W::srl(s, cnt);
            const __m512i rem = _mm512_and_si512(s, low);
            const __m512i t = W::add(rem, _mm512_and_si512(q, one));
            return W::add_if(q, W::gtu(t, half), one);
        } else {
            const __m512i odd = _mm512_and_si512(W::sra(s, cnt), one);
            return W::sra(W::add(W::add(s, bias), odd), cnt);
        }
    }
    __m512i operator()(__m512i x, __m512i y) const {
        __m512i lo, hi;
        Fm::exact(x, y, lo, hi);
        return Fm::narrow(round(lo), round(hi), false);
    }
};

// f < 0 down to the family's bound: multiplication by 2^-f. Products are first
// clamped just past the range so the shift stays within the lane.
template <Fam F, class T>
struct OpNeg {
    using Fm = IntFam<F, T>;
    using W = typename Fm::W;
    __m128i cnt;

    explicit OpNeg(int f) : cnt(_mm_cvtsi32_si128(-f)) {}

    __m512i shift(__m512i s) const {
        if constexpr (F == Fam::Mul) {
            if constexpr (Fm::kSigned) s = W::maxs(W::mins(s, W::set1(Fm::kMax + 1)), W::set1(Fm::kMin - 1));
            else s = W::minu(s, W::set1(Fm::kMax + 1));
        }
        return W::sll(s, cnt);
    }
    __m512i operator()(__m512i x, __m512i y) const {
        __m512i lo, hi;
        Fm::exact(x, y, lo, hi);
        return Fm::narrow(shift(lo), shift(hi), true);
    }
};

// Below the negative bound any non-zero s saturates: the result is the range
// end of its sign. The saturated f = 0 result keeps the sign of s.
template <Fam F, class T>
struct OpSign {
    __m512i operator()(__m512i x, __m512i y) const {
        const __m512i r = IntFam<F, T>::sat0(x, y);
        if constexpr (sizeof(T) == 1) {
            return _mm512_maskz_mov_epi8(_mm512_test_epi8_mask(r, r), _mm512_set1_epi32(-1));
        } else if constexpr (std::is_signed_v<T>) {
            const __m512i ends = _mm512_xor_si512(_mm512_srai_epi16(r, 15), _mm512_set1_epi16(0x7fff));
            return _mm512_maskz_mov_epi16(_mm512_test_epi16_mask(r, r), ends);
        } else {
            return _mm512_maskz_mov_epi16(_mm512_test_epi16_mask(r, r), _mm512_set1_epi32(-1));
        }
    }
};

enum class Path { Zero, One, Pos, Above, Neg, Below };

// The bounds of the five paths: up to kPosMax the result is computed, above
// it every element rounds to 0; from kNegMin the shift is computed, below it
// every non-zero result saturates.
template <Fam F, class T>
struct Bounds;
template <> struct Bounds<Fam::Add, Tav8u> { static constexpr int kPosMax = 9, kNegMin = -7; };
template <> struct Bounds<Fam::Add, Tav16u> { static constexpr int kPosMax = 17, kNegMin = -15; };
template <> struct Bounds<Fam::Add, Tav16s> { static constexpr int kPosMax = 16, kNegMin = -15; };
template <> struct Bounds<Fam::Sub, Tav8u> { static constexpr int kPosMax = 8, kNegMin = -7; };
template <> struct Bounds<Fam::Sub, Tav16u> { static constexpr int kPosMax = 16, kNegMin = -15; };
template <> struct Bounds<Fam::Sub, Tav16s> { static constexpr int kPosMax = 16, kNegMin = -15; };
template <> struct Bounds<Fam::Mul, Tav8u> { static constexpr int kPosMax = 16, kNegMin = -7; };
template <> struct Bounds<Fam::Mul, Tav16u> { static constexpr int kPosMax = 32, kNegMin = -15; };
template <> struct Bounds<Fam::Mul, Tav16s> { static constexpr int kPosMax = 30, kNegMin = -14; };

template <Fam F, class T>
constexpr Path path_of(int f) {
    if (f == 0) return Path::Zero;
    if (f == 1 && F == Fam::Add && sizeof(T) == 1) return Path::One;
    if (f > 0) return f <= Bounds<F, T>::kPosMax ? Path::Pos : Path::Above;
    return f >= Bounds<F, T>::kNegMin ? Path::Neg : Path::Below;
}

}  // namespace tav::arith
