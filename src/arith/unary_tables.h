// Exact integer results of sqrt and exp for the scaled members, the 8u tables
// derived from them at compile time, and the small-table lookup ops the
// kernels use.
//
// Square roots are decided in integers. Exponentials are decided in
// double-double: exp of an integer is never a half-integer times a power of
// two (apart from exp(0)), so 32 digits settle every rounding.
#pragma once

#include <immintrin.h>

#include <array>
#include <cstdint>

#include "simd/ddouble.h"

namespace tav::arith {

// floor(sqrt(y)) for y below 2^62.
constexpr std::uint64_t isqrt(std::uint64_t y) {
    std::uint64_t r = 0;
    for (std::uint64_t bit = 1ull << 31; bit; bit >>= 1) {
        const std::uint64_t t = r | bit;
        if (t * t <= y) r = t;
    }
    return r;
}

// round(sqrt(x) * 2^k), k >= 0, ties impossible: the nearest integer to
// sqrt(x * 4^k). Saturated to `cap`; x * 4^k must stay below 2^62.
constexpr int sqrt_scaled_up(std::uint64_t x, int k, int cap) {
    const std::uint64_t y = x << (2 * k);
    const std::uint64_t n = isqrt(y);
    const std::uint64_t r = y - n * n > n ? n + 1 : n;  // (n + 1/2)^2 = n^2 + n + 1/4
    return r > static_cast<std::uint64_t>(cap) ? cap : static_cast<int>(r);
}

// round(sqrt(x) * 2^-f), f >= 1, ties to even: m is the floor of
// sqrt(x) / 2^f, and the half-way point (m + 1/2) 2^f squared is compared
// with x exactly.
constexpr int sqrt_scaled_down(std::uint64_t x, int f) {
    if (f >= 31) return 0;
    const std::uint64_t n = isqrt(x);
    const std::uint64_t m = n >> f;
    // 4x against ((2m + 1) 2^f)^2.
    const std::uint64_t h = (2 * m + 1) << f;
    const std::uint64_t lhs = 4 * x, rhs = h * h;
    if (lhs > rhs || (lhs == rhs && (m & 1))) return static_cast<int>(m + 1);
    return static_cast<int>(m);
}

// round(sqrt(x) * 2^-f) saturated to cap, any f.
constexpr int sqrt_scaled(std::uint64_t x, int f, int cap) {
    if (f <= 0) {
        if (x == 0) return 0;
        if (f <= -24) return cap;  // 2^24 is beyond every cap here
        return sqrt_scaled_up(x, -f, cap);
    }
    const int r = sqrt_scaled_down(x, f);
    return r > cap ? cap : r;
}

// floor(exp(x) * 2^-f + 1/2), saturated to cap.
constexpr int exp_scaled(int x, int f, int cap) {
    const dd::DD t = dd::sub(dd::DD{static_cast<double>(x), 0}, dd::mul(dd::kLn2, static_cast<double>(f)));
    if (t.hi > 12) return cap;  // e^12 is above every cap here
    if (t.hi < -2) return 0;
    const dd::DD v = dd::add(dd::exp(t), dd::DD{0.5, 0});
    const double r = dd::floor(v);
    return r >= cap ? cap : static_cast<int>(r);
}

// The 8u square-root tables, one for each -scaleFactor from 0 to 7. Rows 6
// and 7 hold only the entries below saturation.
struct Sqrt8uTables {
    std::array<std::array<std::uint8_t, 256>, 6> full{};
    std::array<std::uint8_t, 16> row6{};
    std::array<std::uint8_t, 4> row7{};
};
constexpr Sqrt8uTables make_sqrt8u() {
    Sqrt8uTables t;
    for (int k = 0; k < 6; ++k)
        for (int x = 0; x < 256; ++x) t.full[k][x] = static_cast<std::uint8_t>(sqrt_scaled_up(x, k, 255));
    for (int x = 0; x < 16; ++x) t.row6[x] = static_cast<std::uint8_t>(sqrt_scaled_up(x, 6, 255));
    for (int x = 0; x < 4; ++x) t.row7[x] = static_cast<std::uint8_t>(sqrt_scaled_up(x, 7, 255));
    return t;
}
inline constexpr Sqrt8uTables kSqrt8u = make_sqrt8u();

// The 8u exponential table: scaleFactor -6 to 8, 17 entries a row
// (x from 16 on is 255 in every row).
inline constexpr int kExp8uMinSf = -6, kExp8uMaxSf = 8;
constexpr std::array<std::array<std::uint8_t, 17>, 15> make_exp8u() {
    std::array<std::array<std::uint8_t, 17>, 15> t{};
    for (int f = kExp8uMinSf; f <= kExp8uMaxSf; ++f)
        for (int x = 0; x < 17; ++x) t[f - kExp8uMinSf][x] = static_cast<std::uint8_t>(exp_scaled(x, f, 255));
    return t;
}
inline constexpr auto kExp8u = make_exp8u();

// exp(x) for x = 0..255 rounded to double: the double-precision path of the
// 8u members with a large scaleFactor.
constexpr std::array<double, 256> make_exp_doubles() {
    std::array<double, 256> t{};
    for (int x = 0; x < 256; ++x) t[x] = dd::exp(static_cast<double>(x)).hi;
    return t;
}
inline constexpr std::array<double, 256> kExpDoubles = make_exp_doubles();

// Byte lookup through a 16-entry table: x below lo gives 0, x - lo above
// bound gives 255, anything else table[x - lo].
template <bool kHasLo>
struct ByteWindow {
    __m512i table, lo, bound;
    ByteWindow(const std::uint8_t* entries, int count, int lo_, int bound_)
        : lo(_mm512_set1_epi8(static_cast<char>(lo_))), bound(_mm512_set1_epi8(static_cast<char>(bound_))) {
        alignas(16) std::uint8_t t[16];
        for (int i = 0; i < 16; ++i) t[i] = i < count ? entries[i] : 255;
        table = _mm512_broadcast_i32x4(_mm_load_si128(reinterpret_cast<const __m128i*>(t)));
    }
    __m512i operator()(__m512i x) const {
        const __m512i d = kHasLo ? _mm512_sub_epi8(x, lo) : x;
        __m512i r = _mm512_shuffle_epi8(table, d);
        r = _mm512_mask_mov_epi8(r, _mm512_cmpgt_epu8_mask(d, bound), _mm512_set1_epi8(-1));
        if constexpr (kHasLo) r = _mm512_maskz_mov_epi8(_mm512_cmpge_epu8_mask(x, lo), r);
        return r;
    }
};

// The same for 32-bit lanes: x below lo gives 0, x - lo from 15 on gives
// table[15], anything else table[x - lo].
struct I32Window {
    __m512i table, lo;
    I32Window(const std::array<int, 16>& t, int lo_) : table(_mm512_loadu_si512(t.data())), lo(_mm512_set1_epi32(lo_)) {}
    __m512i operator()(__m512i x) const {
        const __m512i d = _mm512_sub_epi32(x, lo);
        const __m512i r = _mm512_permutexvar_epi32(_mm512_min_epu32(d, _mm512_set1_epi32(15)), table);
        return _mm512_maskz_mov_epi32(_mm512_cmpge_epi32_mask(x, lo), r);
    }
};

}  // namespace tav::arith
