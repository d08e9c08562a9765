// Vector exp and log for 16 floats (and log for 8 doubles), table driven.
// Contracts:
//   exp_ps: |x| below about 2900 (callers clamp); within an ulp over the
//     normal range, overflow to +inf and gradual underflow by scalef;
//     non-finite inputs are not special-cased here (callers blend).
//   log_ps_normal: inputs that are positive, normal and finite; callers
//     pre-scale denormals and blend the special values.
//   log_pd_int: integers from 2 to 2^31, a few ulp of a double.
// Tables are derived at compile time in double-double.
#pragma once

#include <immintrin.h>

// GCC 12 reports the self-initialised "undefined" pass-through vector of many
// 512-bit intrinsics as maybe uninitialised once they inline; it is never used.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

#include <array>
#include <bit>
#include <cstdint>

#include "simd/ddouble.h"

namespace tav::simd {

namespace vmath_detail {

constexpr float hi_of(dd::DD v) { return static_cast<float>(v.hi); }
constexpr float lo_of(dd::DD v) {
    float h = static_cast<float>(v.hi);
    return static_cast<float>(dd::add(v, dd::DD{-static_cast<double>(h), 0}).hi);
}

// 2^(j/16) split into a float and the float of the rest.
struct ExpTable {
    std::array<float, 16> hi{}, lo{};
};
constexpr ExpTable make_exp_table() {
    ExpTable t;
    for (int j = 0; j < 16; ++j) {
        dd::DD v = dd::exp(dd::mul(dd::kLn2, j / 16.0));
        t.hi[j] = hi_of(v);
        t.lo[j] = lo_of(v);
    }
    return t;
}
inline constexpr ExpTable kExp = make_exp_table();
inline constexpr float kExpHi16 = hi_of(dd::mul(dd::kLn2, 1.0 / 16));  // ln2 / 16
inline constexpr float kExpLo16 = lo_of(dd::mul(dd::kLn2, 1.0 / 16));
inline constexpr float k16OverLn2 = static_cast<float>(dd::div(dd::DD{16, 0}, dd::kLn2).hi);

// Buckets of the mantissa m in [0.75, 1.5): 16 of width 1/64 below 1, 16 of
// width 1/32 above. Each holds 1/c and -ln(1/c) (as hi + lo) for its centre c;
// the two buckets next to 1 use c = 1 so that results near ln(1) = 0 keep
// their relative precision.
struct LogTable {
    std::array<float, 32> invc{}, hi{}, lo{};
};
constexpr LogTable make_log_table() {
    LogTable t;
    for (int j = 0; j < 32; ++j) {
        double c = j < 16 ? 0.75 + (j + 0.5) / 64 : 1.0 + (j - 16 + 0.5) / 32;
        if (j == 15 || j == 16) c = 1.0;
        float inv = static_cast<float>(1.0 / c);
        dd::DD l = dd::neg(dd::log(static_cast<double>(inv)));
        t.invc[j] = inv;
        t.hi[j] = j == 15 || j == 16 ? 0.0f : hi_of(l);
        t.lo[j] = j == 15 || j == 16 ? 0.0f : lo_of(l);
    }
    return t;
}
inline constexpr LogTable kLog = make_log_table();
// ln 2 with a short head so that e * head is exact for any float exponent.
inline constexpr float kLn2Head = 0.693145751953125f;  // 0x1.62e4p-1
inline constexpr float kLn2Tail = static_cast<float>(dd::sub(dd::kLn2, dd::DD{0.693145751953125, 0}).hi);

inline __m512 load16(const std::array<float, 32>& a, int at) { return _mm512_loadu_ps(a.data() + at); }

}  // namespace vmath_detail

// e^x for |x| up to about 2900 (beyond, callers clamp first).
inline __m512 exp_ps(__m512 x) {
    using namespace vmath_detail;
    // x 16/ln2 rounded to the integer n by adding 1.5 2^23: n lands in the
    // low mantissa bits of t, whose low four bits index the table.
    const __m512 magic = _mm512_set1_ps(12582912.0f);
    const __m512 t = _mm512_fmadd_ps(x, _mm512_set1_ps(k16OverLn2), magic);
    const __m512 n = _mm512_sub_ps(t, magic);
    __m512 r = _mm512_fnmadd_ps(n, _mm512_set1_ps(kExpHi16), x);
    r = _mm512_fnmadd_ps(n, _mm512_set1_ps(kExpLo16), r);
    const __m512i j = _mm512_castps_si512(t);
    const __m512 th = _mm512_permutexvar_ps(j, _mm512_loadu_ps(kExp.hi.data()));
    const __m512 tl = _mm512_permutexvar_ps(j, _mm512_loadu_ps(kExp.lo.data()));
    __m512 p = _mm512_fmadd_ps(r, _mm512_set1_ps(1.0f / 24), _mm512_set1_ps(1.0f / 6));
    p = _mm512_fmadd_ps(p, r, _mm512_set1_ps(0.5f));
    p = _mm512_fmadd_ps(p, r, _mm512_set1_ps(1.0f));
    const __m512 q = _mm512_mul_ps(p, r);  // e^r - 1
    const __m512 v = _mm512_add_ps(_mm512_fmadd_ps(th, q, tl), th);
    // scalef takes the floor of its exponent: 2^floor(n / 16).
    return _mm512_scalef_ps(v, _mm512_mul_ps(n, _mm512_set1_ps(0.0625f)));
}

// ln x for positive, normal, finite x; eadj is added to the exponent (for
// callers that pre-scaled denormals).
inline __m512 log_ps_normal(__m512 x, __m512i eadj) {
    using namespace vmath_detail;
    const __m512i bits = _mm512_castps_si512(x);
    const __m512i i = _mm512_sub_epi32(bits, _mm512_set1_epi32(0x3F400000));  // bits of 0.75
    const __m512i ei = _mm512_srai_epi32(i, 23);
    const __m512 m = _mm512_castsi512_ps(_mm512_sub_epi32(bits, _mm512_slli_epi32(ei, 23)));
    const __m512i j = _mm512_srli_epi32(i, 18);
    const __m512 invc = _mm512_permutex2var_ps(load16(kLog.invc, 0), j, load16(kLog.invc, 16));
    const __m512 lh = _mm512_permutex2var_ps(load16(kLog.hi, 0), j, load16(kLog.hi, 16));
    const __m512 ll = _mm512_permutex2var_ps(load16(kLog.lo, 0), j, load16(kLog.lo, 16));
    const __m512 r = _mm512_fmsub_ps(m, invc, _mm512_set1_ps(1.0f));
    __m512 a = _mm512_fmadd_ps(r, _mm512_set1_ps(0.2f), _mm512_set1_ps(-0.25f));
    a = _mm512_fmadd_ps(a, r, _mm512_set1_ps(1.0f / 3));
    a = _mm512_fmadd_ps(a, r, _mm512_set1_ps(-0.5f));
    const __m512 p = _mm512_fmadd_ps(a, _mm512_mul_ps(r, r), r);  // ln(1 + r)
    const __m512 e = _mm512_cvtepi32_ps(_mm512_add_epi32(ei, eadj));
    // e * head is exact and at least as large as lh whenever e is not 0, so
    // the rounding error of their sum is recovered exactly.
    const __m512 big = _mm512_mul_ps(e, _mm512_set1_ps(kLn2Head));
    const __m512 hi = _mm512_add_ps(big, lh);
    const __m512 err = _mm512_add_ps(_mm512_sub_ps(big, hi), lh);
    const __m512 lo = _mm512_add_ps(_mm512_fmadd_ps(e, _mm512_set1_ps(kLn2Tail), ll), err);
    return _mm512_add_ps(hi, _mm512_add_ps(p, lo));
}

// ln x in double precision for integers x >= 2 held in 8 doubles.
inline __m512d log_pd_int(__m512d x) {
    const __m512i bits = _mm512_castpd_si512(x);
    const __m512i i = _mm512_sub_epi64(bits, _mm512_set1_epi64(0x3FE8000000000000ll));  // bits of 0.75
    const __m512i ei = _mm512_srai_epi64(i, 52);
    const __m512d m = _mm512_castsi512_pd(_mm512_sub_epi64(bits, _mm512_slli_epi64(ei, 52)));
    const __m512d f = _mm512_sub_pd(m, _mm512_set1_pd(1.0));
    const __m512d s = _mm512_div_pd(f, _mm512_add_pd(f, _mm512_set1_pd(2.0)));
    const __m512d z = _mm512_mul_pd(s, s);
    // 2 atanh(s) = 2s (1 + z/3 + z^2/5 + ...), |s| <= 0.2.
    __m512d p = _mm512_set1_pd(1.0 / 23);
    for (int k = 21; k >= 1; k -= 2) p = _mm512_fmadd_pd(p, z, _mm512_set1_pd(1.0 / k));
    const __m512d lm = _mm512_mul_pd(_mm512_add_pd(s, s), p);
    const __m512d e = _mm512_cvtepi64_pd(ei);
    return _mm512_fmadd_pd(e, _mm512_set1_pd(dd::kLn2.hi), _mm512_fmadd_pd(e, _mm512_set1_pd(dd::kLn2.lo), lm));
}

}  // namespace tav::simd
