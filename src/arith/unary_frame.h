// Shared frame of the unary math families: argument checks, row walking with
// the family's step rounding, the ways row statuses combine, and the chunk
// walker every row kernel is built on.
//
// Row kernels read and write only the elements of their row: full chunks go
// unmasked, the tail and every AC4 chunk go through lane masks (AC4 chunks
// start on pixel boundaries, so one repeating mask keeps alpha out).
#pragma once

#include <immintrin.h>

// GCC 12 reports the self-initialised "undefined" pass-through vector of many
// 512-bit intrinsics as maybe uninitialised once they inline; it is never used.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "frame/entry.h"
#include "simd/vec.h"

namespace tav::arith {

// How the statuses of the rows make the status of a call.
enum class Combine {
    First,       // the first non-zero row status
    Last,        // the status of the last row, whatever came before
    LnZeroWins,  // tavWarnLnZeroArg if any row met a zero, else the first other warning
};

template <class T>
inline TavStatus check_unary(const T* src, int srcStep, const T* dst, int dstStep, TaviSize roi) {
    if (any_null(src, dst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (bad_step(srcStep, dstStep)) return tavErrStep;
    return tavOk;
}

// Runs row(src, dst) over the rows, each pointer advanced by its step with the
// low bits of stepMask cleared (some members walk whole elements only).
template <Combine C, int kStepLowBits, class T, class Row>
inline TavStatus run_rows(const T* src, int srcStep, T* dst, int dstStep, int height, Row&& row) {
    constexpr std::ptrdiff_t keep = ~static_cast<std::ptrdiff_t>(kStepLowBits);
    const std::ptrdiff_t ss = srcStep & keep, ds = dstStep & keep;
    TavStatus result = tavOk;
    for (int y = 0; y < height; ++y) {
        const TavStatus st = row(src, dst);
        if constexpr (C == Combine::Last) {
            result = st;
        } else if constexpr (C == Combine::First) {
            if (result == tavOk) result = st;
        } else {
            if (st == tavWarnLnZeroArg || result == tavOk) result = st != tavOk ? st : result;
        }
        src = advance(src, ss);
        dst = advance(dst, ds);
    }
    return result;
}

// Lanes of a chunk of kStep elements as a 64-bit pattern.
template <int kStep>
inline constexpr std::uint64_t kFullLanes = kStep == 64 ? ~0ull : (1ull << kStep) - 1;

// Calls f.template operator()<kFull>(offset, lanes) for each chunk of kStep
// elements of an n-element row: kUnroll full chunks an iteration, then the
// rest one chunk at a time. kFull is true only for chunks with every lane on.
template <int kStep, int kUnroll, Layout L, class F>
inline void for_chunks(std::int64_t n, F&& f) {
    constexpr std::uint64_t full = kFullLanes<kStep>;
    constexpr std::uint64_t pattern = L == Layout::AC4 ? full & 0x7777777777777777ull : full;
    constexpr bool all = L != Layout::AC4;
    std::int64_t i = 0;
    for (; i + kStep * kUnroll <= n; i += kStep * kUnroll) {
        for (int u = 0; u < kUnroll; ++u) f.template operator()<all>(i + u * kStep, pattern);
    }
    for (; i < n; i += kStep) {
        const std::int64_t left = n - i;
        if (left >= kStep) {
            f.template operator()<all>(i, pattern);
        } else {
            f.template operator()<false>(i, ((1ull << left) - 1) & pattern);
        }
    }
}

// Native-width access: a chunk is one 512-bit vector of T.
template <class T, bool kFull>
inline auto load_chunk(const T* p, std::uint64_t lanes) {
    if constexpr (kFull) return simd::load(p);
    else return simd::load(p, static_cast<simd::Mask<T>>(lanes));
}

template <class T, bool kFull, class V>
inline void store_chunk(T* p, std::uint64_t lanes, V v) {
    if constexpr (kFull) simd::store(p, v);
    else simd::store(p, static_cast<simd::Mask<T>>(lanes), v);
}

// Maps a row through op(vector, lanes) -> vector at native width.
template <class T, Layout L, int kUnroll, class Op>
inline void map_row(const T* s, T* d, std::int64_t n, Op& op) {
    constexpr int kStep = static_cast<int>(simd::kLanes<T>);
    for_chunks<kStep, kUnroll, L>(n, [&]<bool kFull>(std::int64_t i, std::uint64_t lanes) {
        store_chunk<T, kFull>(d + i, lanes, op(load_chunk<T, kFull>(s + i, lanes), lanes));
    });
}

template <class T, class V>
inline void stream(T* p, V v) {
    if constexpr (std::is_same_v<T, float>) _mm512_stream_ps(p, v);
    else _mm512_stream_si512(reinterpret_cast<__m512i*>(p), v);
}

// The same with non-temporal stores: a masked head up to the destination's
// next 64-byte boundary, whole vectors streamed, a masked tail. A destination
// that is not element-aligned can never reach the boundary and takes the
// plain loop. Not for AC4, whose stores must stay masked.
template <class T, int kUnroll, class Op>
inline void map_row_streaming(const T* s, T* d, std::int64_t n, Op& op) {
    constexpr std::int64_t kStep = simd::kLanes<T>;
    const std::uintptr_t at = reinterpret_cast<std::uintptr_t>(d);
    if (at % sizeof(T)) return map_row<T, Layout::C1, kUnroll>(s, d, n, op);
    std::int64_t i = std::min<std::int64_t>(n, ((64 - (at & 63)) & 63) / sizeof(T));
    if (i) {
        const std::uint64_t lanes = (1ull << i) - 1;
        store_chunk<T, false>(d, lanes, op(load_chunk<T, false>(s, lanes), lanes));
    }
    for (; i + kStep * kUnroll <= n; i += kStep * kUnroll) {
        for (int u = 0; u < kUnroll; ++u) stream(d + i + u * kStep, op(simd::load(s + i + u * kStep), kFullLanes<kStep>));
    }
    for (; i + kStep <= n; i += kStep) stream(d + i, op(simd::load(s + i), kFullLanes<kStep>));
    if (i < n) {
        const std::uint64_t lanes = (1ull << (n - i)) - 1;
        store_chunk<T, false>(d + i, lanes, op(load_chunk<T, false>(s + i, lanes), lanes));
    }
}

// Out-of-place images whose source and destination together exceed this
// stream their results: they would evict the whole last-level cache of the
// machines we target and never be read back from it. No cache query is made,
// so the decision costs nothing and no result depends on it.
inline constexpr std::int64_t kStreamGateBytes = 32ll << 20;

// Sixteen elements of an integer type widened to 32-bit lanes (zero- or
// sign-extended by the type).
template <class T>
inline __m512i load_i32(const T* p, __mmask16 m) {
    if constexpr (std::is_same_v<T, std::uint8_t>) return _mm512_cvtepu8_epi32(_mm_maskz_loadu_epi8(m, p));
    else if constexpr (std::is_same_v<T, std::uint16_t>) return _mm512_cvtepu16_epi32(_mm256_maskz_loadu_epi16(m, p));
    else return _mm512_cvtepi16_epi32(_mm256_maskz_loadu_epi16(m, p));
}

// Stores 32-bit lanes saturated to T; lanes must already be non-negative for
// the unsigned types.
template <class T>
inline void store_i32(T* p, __mmask16 m, __m512i v) {
    if constexpr (std::is_same_v<T, std::uint8_t>) _mm512_mask_cvtusepi32_storeu_epi8(p, m, v);
    else if constexpr (std::is_same_v<T, std::uint16_t>) _mm512_mask_cvtusepi32_storeu_epi16(p, m, v);
    else _mm512_mask_cvtsepi32_storeu_epi16(p, m, v);
}

// Maps a row of an integer type through op(int32 lanes, lanes) -> int32 lanes,
// sixteen elements a chunk.
template <class T, Layout L, int kUnroll, class Op>
inline void map_row_i32(const T* s, T* d, std::int64_t n, Op& op) {
    for_chunks<16, kUnroll, L>(n, [&]<bool kFull>(std::int64_t i, std::uint64_t lanes) {
        const __mmask16 m = static_cast<__mmask16>(lanes);
        store_i32(d + i, m, op(load_i32(s + i, m), m));
    });
}

// Ops without a warning of their own.
struct NoStatus {
    static constexpr TavStatus row_status() { return tavOk; }
};

// The row loop of a unary function over a native-width op; after each row
// the op reports (and clears) its row status.
template <class T, Layout L, int kUnroll, int kStepLowBits, Combine C = Combine::First, class Op>
inline TavStatus map_rows(const T* s, int ss, T* d, int ds, TaviSize roi, Op& op) {
    const std::int64_t n = row_elems<L>(roi.width);
    const bool streaming = L != Layout::AC4 && static_cast<const void*>(s) != static_cast<const void*>(d) &&
                           2 * n * std::int64_t(sizeof(T)) * roi.height >= kStreamGateBytes;
    if (streaming) {
        const TavStatus st = run_rows<C, kStepLowBits>(s, ss, d, ds, roi.height, [&](const T* a, T* b) {
            map_row_streaming<T, kUnroll>(a, b, n, op);
            return op.row_status();
        });
        _mm_sfence();
        return st;
    }
    return run_rows<C, kStepLowBits>(s, ss, d, ds, roi.height, [&](const T* a, T* b) {
        map_row<T, L, kUnroll>(a, b, n, op);
        return op.row_status();
    });
}

// A member with no argument of its own: the checks, then Op over the rows.
template <class Op, class T, Layout L, int kUnroll, int kStepLowBits, Combine C = Combine::First>
TavStatus unary_op(const T* s, int ss, T* d, int ds, TaviSize roi) {
    if (TavStatus st = check_unary(s, ss, d, ds, roi)) return st;
    Op op;
    return map_rows<T, L, kUnroll, kStepLowBits, C>(s, ss, d, ds, roi, op);
}

// The same over an op on 32-bit lanes.
template <class T, Layout L, int kUnroll, int kStepLowBits, Combine C = Combine::First, class Op>
inline TavStatus map_rows_i32(const T* s, int ss, T* d, int ds, TaviSize roi, Op& op) {
    const std::int64_t n = row_elems<L>(roi.width);
    return run_rows<C, kStepLowBits>(s, ss, d, ds, roi.height, [&](const T* a, T* b) {
        map_row_i32<T, L, kUnroll>(a, b, n, op);
        return op.row_status();
    });
}

// The largest value of an integer element type.
template <class T>
inline constexpr int kMaxOf = std::is_same_v<T, std::uint8_t> ? 255 : std::is_same_v<T, std::uint16_t> ? 65535 : 32767;

}  // namespace tav::arith
