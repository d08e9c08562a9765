// Reduction machinery of the statistics families.
//
// A row is walked in blocks of kSteps vector steps of kElems elements. A block
// starts on a pixel boundary and holds a whole number of pixels, so a given
// lane of a given step always sees the same channel: accumulators stay
// per-lane in the hot loop and are folded to channels only at the end. Narrow
// integer accumulators have a capacity in blocks; the walker flushes them into
// exact 64-bit totals kept per position of the block before they can overflow.
// Masked tails read nothing past the row (zero-filled or merged lanes).
#pragma once

#include <immintrin.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

#include "frame/entry.h"
#include "simd/vec.h"

// GCC 12 takes the deliberately undefined pass-through operand inside some
// AVX-512 intrinsics (min, max, extract, reduce) for an uninitialised value.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

namespace tav::stats {

// The 512-bit vector of a floating type.
template <class A>
struct FVec;
template <>
struct FVec<float> {
    using V = __m512;
};
template <>
struct FVec<double> {
    using V = __m512d;
};

// Calls f(integral_constant<int, K>) for K = 0 .. N-1, unrolled.
template <int N, class F>
inline void unroll(F&& f) {
    [&]<int... K>(std::integer_sequence<int, K...>) {
        (f(std::integral_constant<int, K>{}), ...);
    }(std::make_integer_sequence<int, N>{});
}

inline constexpr int64_t kNoLimit = std::numeric_limits<int64_t>::max();

// Channels of the period a block must cover: AC4 walks like C4.
template <Layout L>
inline constexpr int kPeriod = L == Layout::C1 ? 1 : L == Layout::C3 ? 3 : 4;

// Results a layout delivers: AC4 gives three.
template <Layout L>
inline constexpr int kOut = L == Layout::C1 ? 1 : L == Layout::C3 ? 3 : L == Layout::C4 ? 4 : 3;

// Steps a block needs so that it holds whole pixels, at least `unroll` steps.
template <Layout L>
constexpr int block_steps(int unroll) {
    return kPeriod<L> == 3 ? 3 * ((unroll + 2) / 3) : unroll;
}

// Software prefetch well ahead of a streaming read: on the target cores it
// lifts single-thread streaming from memory and the last-level cache far
// above what the hardware prefetchers reach alone, but costs issue slots
// when the data sits in the core's own caches, so only reads of more than
// kStreamBytes in all take it. A prefetch never faults, so running past the
// end of the data is harmless.
inline constexpr int64_t kStreamBytes = int64_t{1} << 20;
inline constexpr std::ptrdiff_t kPrefetchAhead = 32768;

template <class S>
inline void prefetch_ahead(const S* p, std::size_t bytes) {
    const char* c = reinterpret_cast<const char*>(p) + kPrefetchAhead;
    for (std::size_t o = 0; o < bytes; o += 64) _mm_prefetch(c + o, _MM_HINT_T0);
}

// Walks n elements of one row. The policy P provides kElems, kSteps,
// step<K, Full>(valid, srcs...) (valid is the count of real elements of the
// step when !Full), room() (blocks before a flush is due), use(blocks) and
// flush().
template <bool Prefetch = false, class P, class... S>
inline void walk(P& p, int64_t n, const S*... src) {
    constexpr int64_t E = P::kElems, V = P::kSteps, B = E * V;
    int64_t i = 0;
    int64_t blocks = n / B;
    while (blocks > 0) {
        int64_t m = std::min(blocks, p.room());
        for (int64_t b = 0; b < m; ++b, i += B) {
            if constexpr (Prefetch) (prefetch_ahead(src + i, B * sizeof(S)), ...);
            unroll<V>([&](auto k) { p.template step<k, true>(E, (src + i + k * E)...); });
        }
        p.use(m);
        blocks -= m;
        if (p.room() == 0) p.flush();
    }
    if (i < n) {
        unroll<V>([&](auto k) {
            const int64_t r = n - i - k * E;
            if (r > 0) p.template step<k, false>(r, (src + i + k * E)...);
        });
        p.use(1);
        if (p.room() == 0) p.flush();
    }
}

// Exact per-position totals of a block of B elements.
template <class W, int B>
struct PosTotals {
    W v[B] = {};
    // Adds the lanes of an accumulator whose lane j holds position base + j * stride.
    template <class Lane, int N>
    void add(const Lane (&lanes)[N], int base, int stride, W weight) {
        for (int j = 0; j < N; ++j) v[base + j * stride] += static_cast<W>(lanes[j]) * weight;
    }
    // Channel totals: position p belongs to channel p % C.
    template <int C, class O>
    void fold(O* out) const {
        for (int c = 0; c < C; ++c) out[c] = 0;
        for (int p = 0; p < B; ++p) out[p % C] += v[p];
    }
};

// Spills vector x, read as N lanes of Lane, into totals at base + j * stride.
template <class Lane, class W, int B, class V>
inline void spill(PosTotals<W, B>& t, V x, int base, int stride, W weight = 1) {
    constexpr int N = 64 / sizeof(Lane);
    alignas(64) Lane lanes[N];
    _mm512_store_si512(reinterpret_cast<__m512i*>(lanes), x);
    t.add(lanes, base, stride, weight);
}

// ---- exact integer accumulation ---------------------------------------------
// A bank keeps kAcc narrow accumulators for each step of a block. The lane
// policy `Lanes` says how a step's vectors add into them, which element
// position of the step lane j of accumulator i holds (base[i] + j * stride)
// and with what weight, and how many blocks fit before the lanes could
// overflow; the bank then spills them into exact per-position totals. Lanes
// that add a bias to each call (kBias, one-channel only) get it taken off.
template <class Lanes>
constexpr typename Lanes::Total weight_of(int i) {
    if constexpr (requires { Lanes::weight; }) return Lanes::weight[i];
    else return 1;
}

template <class Lanes, int V>
struct Bank {
    static constexpr int kBlock = Lanes::kElems * V;
    __m512i acc[V][Lanes::kAcc];
    int64_t used = 0, calls = 0;
    PosTotals<typename Lanes::Total, kBlock> tot;
    Bank() { clear(); }
    void clear() {
        for (auto& step : acc)
            for (auto& a : step) a = _mm512_setzero_si512();
        used = 0;
    }
    template <int K, class... X>
    void add(X... x) {
        Lanes::add(acc[K], x...);
        if constexpr (requires { Lanes::kBias; }) ++calls;
    }
    int64_t room() const { return Lanes::kCap - used; }
    void use(int64_t b) {
        if constexpr (Lanes::kCap != kNoLimit) used += b;
    }
    void flush() {
        if constexpr (requires { Lanes::settle(acc[0]); })
            for (auto& step : acc) Lanes::settle(step);
        for (int k = 0; k < V; ++k)
            for (int i = 0; i < Lanes::kAcc; ++i)
                spill<typename Lanes::Lane>(tot, acc[k][i], k * Lanes::kElems + Lanes::base[i], Lanes::stride,
                                            weight_of<Lanes>(i));
        clear();
        if constexpr (requires { Lanes::kBias; }) {
            tot.v[0] -= calls * Lanes::kBias;
            calls = 0;
        }
    }
    // Channel totals of a layout of period C, after a last flush.
    template <int C, class O>
    void finish(O* out) {
        flush();
        typename Lanes::Total t[C];
        tot.template fold<C>(t);
        for (int c = 0; c < C; ++c) out[c] = static_cast<O>(t[c]);
    }
};

// Bytes in 16-bit lanes, even and odd bytes apart: 257 * 255 fits.
struct BytesLanes {
    using Lane = uint16_t;
    using Total = uint64_t;
    static constexpr int kElems = 64, kAcc = 2, stride = 2;
    static constexpr int base[kAcc] = {0, 1};
    static constexpr int64_t kCap = 257;
    static void add(__m512i (&a)[kAcc], __m512i x) {
        a[0] = _mm512_add_epi16(a[0], _mm512_and_si512(x, _mm512_set1_epi16(0xff)));
        a[1] = _mm512_add_epi16(a[1], _mm512_srli_epi16(x, 8));
    }
};

// Bytes of one channel: the sum of absolute differences (against zero, or
// of two rows) adds eight bytes into a 64-bit lane at once.
struct SadLanes {
    using Lane = uint64_t;
    using Total = uint64_t;
    static constexpr int kElems = 64, kAcc = 1, stride = 8;
    static constexpr int base[kAcc] = {0};
    static constexpr int64_t kCap = kNoLimit;
    static void add(__m512i (&a)[kAcc], __m512i x, __m512i y = _mm512_setzero_si512()) {
        a[0] = _mm512_add_epi64(a[0], _mm512_sad_epu8(x, y));
    }
};

// Unsigned 16-bit values in 32-bit lanes: 65537 * 65535 fits.
struct U16Lanes {
    using Lane = uint32_t;
    using Total = uint64_t;
    static constexpr int kElems = 32, kAcc = 2, stride = 2;
    static constexpr int base[kAcc] = {0, 1};
    static constexpr int64_t kCap = 65537;
    static void add(__m512i (&a)[kAcc], __m512i x) {
        a[0] = _mm512_add_epi32(a[0], _mm512_and_si512(x, _mm512_set1_epi32(0xffff)));
        a[1] = _mm512_add_epi32(a[1], _mm512_srli_epi32(x, 16));
    }
};

// Signed 16-bit values in 32-bit lanes, sign-extended by a multiply-add with
// a unit weight: 65535 * 32768 fits.
struct S16Lanes {
    using Lane = int32_t;
    using Total = int64_t;
    static constexpr int kElems = 32, kAcc = 2, stride = 2;
    static constexpr int base[kAcc] = {0, 1};
    static constexpr int64_t kCap = 65535;
    static void add(__m512i (&a)[kAcc], __m512i x) {
        a[0] = _mm512_add_epi32(a[0], _mm512_madd_epi16(x, _mm512_set1_epi32(0x00000001)));
        a[1] = _mm512_add_epi32(a[1], _mm512_madd_epi16(x, _mm512_set1_epi32(0x00010000)));
    }
};

// Products of bytes in 32-bit lanes, positions kept: 16-bit products of the
// even and odd bytes, each split again. 66051 * 65025 fits.
struct ProdBytesLanes {
    using Lane = uint32_t;
    using Total = uint64_t;
    static constexpr int kElems = 64, kAcc = 4, stride = 4;
    static constexpr int base[kAcc] = {0, 2, 1, 3};
    static constexpr int64_t kCap = 66051;
    static void add(__m512i (&a)[kAcc], __m512i x, __m512i y) {
        const __m512i m8 = _mm512_set1_epi16(0xff);
        const __m512i pe = _mm512_mullo_epi16(_mm512_and_si512(x, m8), _mm512_and_si512(y, m8));
        const __m512i po = _mm512_mullo_epi16(_mm512_srli_epi16(x, 8), _mm512_srli_epi16(y, 8));
        add_halves(a, pe, po);
    }
    // Whole dwords (wrapping) beside their high words; settle() leaves the
    // sums of the low words, exact below 2^32.
    static void add_halves(__m512i (&a)[kAcc], __m512i p, __m512i q) {
        a[0] = _mm512_add_epi32(a[0], p);
        a[1] = _mm512_add_epi32(a[1], _mm512_srli_epi32(p, 16));
        a[2] = _mm512_add_epi32(a[2], q);
        a[3] = _mm512_add_epi32(a[3], _mm512_srli_epi32(q, 16));
    }
    static void settle(__m512i (&a)[kAcc]) {
        a[0] = _mm512_sub_epi32(a[0], _mm512_slli_epi32(a[1], 16));
        a[2] = _mm512_sub_epi32(a[2], _mm512_slli_epi32(a[3], 16));
    }
};

// Products of bytes of one channel: multiply-adds of the even and of the odd
// bytes put four products in a 32-bit lane. 16512 * 4 * 65025 fits.
struct ProdBytesC1Lanes {
    using Lane = uint32_t;
    using Total = uint64_t;
    static constexpr int kElems = 64, kAcc = 1, stride = 4;
    static constexpr int base[kAcc] = {0};
    static constexpr int64_t kCap = 16512;
    static void add(__m512i (&a)[kAcc], __m512i x, __m512i y) {
        const __m512i m8 = _mm512_set1_epi16(0xff);
        const __m512i pe = _mm512_madd_epi16(_mm512_and_si512(x, m8), _mm512_and_si512(y, m8));
        const __m512i po = _mm512_madd_epi16(_mm512_srli_epi16(x, 8), _mm512_srli_epi16(y, 8));
        a[0] = _mm512_add_epi32(a[0], _mm512_add_epi32(pe, po));
    }
};

// Products of unsigned 16-bit values as their low and high 16-bit halves,
// each half summed as the byte products are, the high sums weighted by 2^16
// when spilled.
struct ProdU16Lanes {
    using Lane = uint32_t;
    using Total = uint64_t;
    static constexpr int kElems = 32, kAcc = 4, stride = 2;
    static constexpr int base[kAcc] = {0, 1, 0, 1};
    static constexpr Total weight[kAcc] = {1, 1, 65536, 65536};
    static constexpr int64_t kCap = 65537;
    static void add(__m512i (&a)[kAcc], __m512i x, __m512i y) {
        ProdBytesLanes::add_halves(a, _mm512_mullo_epi16(x, y), _mm512_mulhi_epu16(x, y));
    }
    static void settle(__m512i (&a)[kAcc]) { ProdBytesLanes::settle(a); }
};

// Products of signed 16-bit values, exact in 64-bit lanes: each dword holds a
// single product (the other half of one operand cleared), sign-extended.
struct ProdS16Lanes {
    using Lane = int64_t;
    using Total = int64_t;
    static constexpr int kElems = 32, kAcc = 4, stride = 4;
    static constexpr int base[kAcc] = {0, 2, 1, 3};
    static constexpr int64_t kCap = kNoLimit;
    static void add(__m512i (&a)[kAcc], __m512i x, __m512i y) {
        const __m512i pe = _mm512_madd_epi16(x, _mm512_and_si512(y, _mm512_set1_epi32(0x0000ffff)));
        const __m512i po = _mm512_madd_epi16(x, _mm512_and_si512(y, _mm512_set1_epi32(0xffff0000u)));
        a[0] = _mm512_add_epi64(a[0], _mm512_srai_epi64(_mm512_slli_epi64(pe, 32), 32));
        a[1] = _mm512_add_epi64(a[1], _mm512_srai_epi64(pe, 32));
        a[2] = _mm512_add_epi64(a[2], _mm512_srai_epi64(_mm512_slli_epi64(po, 32), 32));
        a[3] = _mm512_add_epi64(a[3], _mm512_srai_epi64(po, 32));
    }
};

// Products of signed 16-bit values of one channel: a multiply-add pairs two
// products in a dword, which wraps only for a sum of exactly 2^31. Biased by
// 2^31 - 2^16 the dword is unsigned without wrapping; it is zero-extended
// into 64-bit lanes and the bias of every call comes off at the end.
struct ProdS16C1Lanes {
    using Lane = uint64_t;
    using Total = int64_t;
    static constexpr int kElems = 32, kAcc = 2, stride = 4;
    static constexpr int base[kAcc] = {0, 2};
    static constexpr int64_t kCap = kNoLimit;
    static constexpr int64_t kBias = 16 * ((int64_t{1} << 31) - 65536);
    static void add(__m512i (&a)[kAcc], __m512i x, __m512i y) {
        const __m512i r = _mm512_add_epi32(_mm512_madd_epi16(x, y), _mm512_set1_epi32(0x7fff0000));
        a[0] = _mm512_add_epi64(a[0], _mm512_and_si512(r, _mm512_set1_epi64(0xffffffff)));
        a[1] = _mm512_add_epi64(a[1], _mm512_srli_epi64(r, 32));
    }
};

// Products of 32-bit values, exact: the 64-bit products of the even and the
// odd dwords are added whole (wrapping) and their high halves apart; at a
// flush the wrapped sums less the high sums times 2^32 are the exact sums of
// the low unsigned halves, which the capacity keeps below 2^63. The high
// sums are weighted by 2^32 into 128-bit totals.
template <bool Signed>
struct ProdI32Lanes {
    using Lane = int64_t;
    using Total = __int128;
    static constexpr int kElems = 16, kAcc = 4, stride = 2;
    static constexpr int base[kAcc] = {0, 0, 1, 1};
    static constexpr Total weight[kAcc] = {1, Total{1} << 32, 1, Total{1} << 32};
    static constexpr int64_t kCap = int64_t{1} << 30;
    static __m512i mul(__m512i x, __m512i y) { return Signed ? _mm512_mul_epi32(x, y) : _mm512_mul_epu32(x, y); }
    static __m512i high(__m512i p) { return Signed ? _mm512_srai_epi64(p, 32) : _mm512_srli_epi64(p, 32); }
    static void add(__m512i (&a)[kAcc], __m512i x, __m512i y) {
        const __m512i pe = mul(x, y), po = mul(_mm512_srli_epi64(x, 32), _mm512_srli_epi64(y, 32));
        a[0] = _mm512_add_epi64(a[0], pe);
        a[1] = _mm512_add_epi64(a[1], high(pe));
        a[2] = _mm512_add_epi64(a[2], po);
        a[3] = _mm512_add_epi64(a[3], high(po));
    }
    static void settle(__m512i (&a)[kAcc]) {
        a[0] = _mm512_sub_epi64(a[0], _mm512_slli_epi64(a[1], 32));
        a[2] = _mm512_sub_epi64(a[2], _mm512_slli_epi64(a[3], 32));
    }
};

// ---- image drivers ----------------------------------------------------------

// True when every (step, row bytes) pair describes rows that follow each other
// without a gap, so the image can be walked as one row.
inline bool contiguous(int64_t rowBytes, std::initializer_list<std::ptrdiff_t> steps) {
    for (std::ptrdiff_t s : steps)
        if (s != rowBytes) return false;
    return true;
}

// Turns contiguous rows into one row where the element count stays in 32 bits;
// used where the result does not depend on where rows end.
template <class T>
inline void join_rows(int64_t& n, int& h, std::initializer_list<std::ptrdiff_t> steps) {
    if (h > 1 && contiguous(n * int64_t(sizeof(T)), steps) && n * h <= INT32_MAX) {
        n *= h;
        h = 1;
    }
}

// True when a call reads enough to stream from beyond the core's caches.
template <class T>
inline bool streaming(int64_t rowElems, int height, int sources = 1) {
    return rowElems * int64_t(sizeof(T)) * height * sources > kStreamBytes;
}

// walk with prefetching chosen at run time.
template <class P, class... S>
inline void walk_any(bool prefetch, P& p, int64_t n, const S*... src) {
    if (prefetch) walk<true>(p, n, src...);
    else walk<false>(p, n, src...);
}

// Walks every row of a one-source image.
template <class P, class T>
inline void walk_rows(P& p, const T* src, std::ptrdiff_t step, int64_t rowElems, int height) {
    const bool pf = streaming<T>(rowElems, height);
    for (int y = 0; y < height; ++y, src = advance(src, step)) walk_any(pf, p, rowElems, src);
}

// Two sources: measured slower with the software prefetch, so without it.
template <class P, class T>
inline void walk_rows(P& p, const T* a, std::ptrdiff_t sa, const T* b, std::ptrdiff_t sb, int64_t rowElems,
                      int height) {
    for (int y = 0; y < height; ++y, a = advance(a, sa), b = advance(b, sb)) walk(p, rowElems, a, b);
}

// Horizontal folds.
inline double hsum(__m512d v) { return _mm512_reduce_add_pd(v); }

}  // namespace tav::stats
