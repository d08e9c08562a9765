// The row driver of the point-arithmetic and logic families.
//
// A family is an op policy with one vector form, `apply(x, y, c, lanes)`:
// x is the first operand in formula order, y the second source (binary
// shapes), c the constant of the row at this position (constant shapes), and
// lanes the elements that count (the op may keep a status from them).
// The driver walks a row of n elements: a masked peel up to the destination's
// 64-byte boundary for long rows, an unrolled main loop, single vectors, and a
// masked tail. It never touches memory outside the row; AC4 rows store through
// a mask that skips every fourth element, so alpha is neither read into the
// result nor written.
#pragma once

#include <immintrin.h>

// GCC 12 reports the self-initialised "undefined" pass-through vector inside
// several 512-bit shift intrinsics as maybe uninitialised once they inline
// into a row loop; the value is never used.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "frame/cache.h"
#include "frame/entry.h"
#include "simd/vec.h"

namespace tav::arith {

using simd::kLanes;
using simd::Mask;

template <class T>
struct VecOf {
    using type = __m512i;
};
template <>
struct VecOf<float> {
    using type = __m512;
};
template <>
struct VecOf<double> {
    using type = __m512d;
};
template <class T>
using Vec = typename VecOf<T>::type;

template <class T>
inline Vec<T> vzero() {
    if constexpr (std::is_same_v<T, float>) return _mm512_setzero_ps();
    else if constexpr (std::is_same_v<T, double>) return _mm512_setzero_pd();
    else return _mm512_setzero_si512();
}

// The constant of a row repeated with its channel period, long enough that the
// vector for any phase of the period is one unaligned load.
template <class T>
struct Konst {
    T e[4 * kLanes<T>];
    int period;

    // v holds `channels` values (AC4 passes 3; its fourth lane is never stored).
    Konst(const T* v, int channels, int period_) : period(period_) {
        for (std::size_t i = 0; i < 4 * kLanes<T>; ++i) {
            const int ch = static_cast<int>(i % period_);
            e[i] = ch < channels ? v[ch] : T{};
        }
    }
    Vec<T> at(std::size_t phase, std::size_t j) const { return simd::load<T>(e + phase % period + j * kLanes<T>); }
};

// The AC4 store mask for a vector starting `phase` elements past a pixel start.
template <class T>
inline Mask<T> ac4_mask(std::size_t phase) {
    return static_cast<Mask<T>>(std::rotr(0x7777777777777777ull, static_cast<int>(phase % 4)));
}

enum class Store { Plain, Stream };

// P: vectors in one period of the constant (3 for a three-channel constant,
// else 1). NSrc: sources read (2 for binary shapes).
template <class T, int NSrc, int P, bool Ac4, Store S = Store::Plain, class Op>
inline void run_row(Op& op, const T* x, const T* y, T* d, std::size_t n, const Konst<T>* k) {
    constexpr std::size_t N = kLanes<T>;
    constexpr int U = P == 1 ? 2 : 1;
    if constexpr (S == Store::Stream) {
        // Streaming stores need element-aligned rows to reach a 64-byte boundary.
        if (reinterpret_cast<std::uintptr_t>(d) % sizeof(T) != 0) return run_row<T, NSrc, P, Ac4>(op, x, y, d, n, k);
    }  // vectors of one period, unrolled to about two
    auto one = [&](std::size_t i, Mask<T> m, Vec<T> c, bool full) __attribute__((always_inline)) {
        Vec<T> a = full ? simd::load(x + i) : simd::load(x + i, m);
        Vec<T> b = vzero<T>();
        if constexpr (NSrc == 2) b = full ? simd::load(y + i) : simd::load(y + i, m);
        Vec<T> r = op.apply(a, b, c, m);
        if constexpr (S == Store::Stream) {
            if (full) {
                if constexpr (std::is_same_v<T, float>) _mm512_stream_ps(d + i, r);
                else _mm512_stream_si512(reinterpret_cast<__m512i*>(d + i), r);
                return;
            }
        }
        if (full && !Ac4) simd::store(d + i, r);
        else simd::store(d + i, m, r);
    };
    std::size_t i = 0;
    Vec<T> c[P];
    const Mask<T> am0 = Ac4 ? simd::kAc4<T> : simd::kAll<T>;
    // Long rows first reach the destination's 64-byte boundary; streaming
    // stores need it for every row.
    const std::uintptr_t mis = reinterpret_cast<std::uintptr_t>(d) & 63;
    if (mis != 0 && mis % sizeof(T) == 0 && (n >= 4 * N || S == Store::Stream)) {
        const std::size_t p = std::min<std::size_t>((64 - mis) / sizeof(T), n);
        one(0, simd::first_lanes<T>(p) & am0, k ? k->at(0, 0) : vzero<T>(), false);
        i = p;
    }
    for (int j = 0; j < P; ++j) c[j] = k ? k->at(i, j) : vzero<T>();
    const Mask<T> am = Ac4 ? ac4_mask<T>(i) : simd::kAll<T>;
    for (; i + P * U * N <= n; i += P * U * N)
        for (int u = 0; u < U; ++u)
            for (int j = 0; j < P; ++j) one(i + (u * P + j) * N, am, c[j], true);
    int j = 0;
    for (; i + N <= n; i += N) {
        one(i, am, c[j], true);
        j = j + 1 == P ? 0 : j + 1;
    }
    if (i < n) one(i, simd::first_lanes<T>(n - i) & am, c[j], false);
}

// Whether rows are contiguous (every step equal to the row length in bytes).
inline bool contiguous(int64_t rowBytes, int64_t height, std::ptrdiff_t xStep, std::ptrdiff_t dStep, std::ptrdiff_t yStep) {
    return height > 1 && xStep == rowBytes && dStep == rowBytes && yStep == rowBytes;
}

// Rows of an image; contiguous rows (every step equal to the row length in
// bytes) are walked as one long row, which changes nothing in the result.
template <class T, class RowFn>
inline void for_image(const T* x, std::ptrdiff_t xStep, const T* y, std::ptrdiff_t yStep, T* d, std::ptrdiff_t dStep,
                      int64_t rowElems, int64_t height, RowFn&& row) {
    const std::ptrdiff_t rowBytes = static_cast<std::ptrdiff_t>(rowElems * int64_t(sizeof(T)));
    if (contiguous(rowBytes, height, xStep, dStep, y == nullptr ? rowBytes : yStep)) {
        row(x, y, d, static_cast<std::size_t>(rowElems * height));
        return;
    }
    for (int64_t r = 0; r < height; ++r) {
        row(x, y, d, static_cast<std::size_t>(rowElems));
        x = advance(x, xStep);
        if (y) y = advance(y, yStep);
        d = advance(d, dStep);
    }
}

// Streaming gates; callers ask only out of place.
// Logic with a constant asks the cache size only from 0x180001 bytes on, so
// small calls never pay for the query: a row (contiguous rows count as one)
// streams when above a quarter of the cache.
inline bool stream_row(int64_t rowBytes) {
    if (rowBytes < 0x180001) return false;
    const long long c = cache_bytes();
    return c >= 0 && rowBytes > c / 4;
}

// The other point families are not among the cache-steered ones, so they
// never ask the core module: an image streams when everything the call reads
// and writes passes a fixed size. The last-level cache is shared, so a working
// set of two thirds of its nominal size already misses often enough that
// skipping the destination's read for ownership wins; well below that, a
// destination kept in the cache is cheaper than one written around it.
inline constexpr int64_t kStreamImageBytes = int64_t{20} << 20;
inline bool stream_image(int64_t trafficBytes) { return trafficBytes >= kStreamImageBytes; }

}  // namespace tav::arith
