// The threshold family, written once for every type and layout.
//
// Row kernel contract: reads n elements from src and writes n elements to dst
// (never an AC4 alpha lane), no alignment assumed, nothing outside the row
// touched. src may equal dst. The streaming form peels up to a 64-byte
// boundary of dst and writes the whole vectors behind it with non-temporal
// stores; the caller fences.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <type_traits>

#include "decide/decide_vec.h"
#include "frame/cache.h"

namespace tav::decide::thr {

template <class T>
using V = typename Vec<T>::V;

// Operations: N constants a channel, applied to one vector.
template <class T>
struct Cap {  // x > t ? t : x
    static constexpr int N = 1;
    static V<T> apply(V<T> x, const V<T>* c) { return Vec<T>::cap(x, c[0]); }
};
template <class T>
struct Floor {  // x < t ? t : x
    static constexpr int N = 1;
    static V<T> apply(V<T> x, const V<T>* c) { return Vec<T>::floor(x, c[0]); }
};
template <class T>
struct ReplaceAbove {  // x > t ? v : x
    static constexpr int N = 2;
    static V<T> apply(V<T> x, const V<T>* c) { return Vec<T>::blend(Vec<T>::lt(c[0], x), x, c[1]); }
};
template <class T>
struct ReplaceBelow {  // x < t ? v : x
    static constexpr int N = 2;
    static V<T> apply(V<T> x, const V<T>* c) { return Vec<T>::blend(Vec<T>::lt(x, c[0]), x, c[1]); }
};
template <class T>
struct ReplaceOutside {  // x < tl ? vl : (x > tg ? vg : x)
    static constexpr int N = 4;
    static V<T> apply(V<T> x, const V<T>* c) {
        const V<T> above = Vec<T>::blend(Vec<T>::lt(c[2], x), x, c[3]);
        return Vec<T>::blend(Vec<T>::lt(x, c[0]), above, c[1]);
    }
};

template <class T, Layout L, class Op, bool Stream>
void span(const T* s, T* d, std::size_t n, const RowConsts<T, L, Op::N>& rc, unsigned rot) {
    constexpr std::size_t W = kLanes<T>;
    constexpr int K = kPhases<L>;
    constexpr int B = K == 1 ? 4 : 3;  // vectors a step: a whole number of phases
    V<T> c[K][Op::N];
    for (int k = 0; k < K; ++k)
        for (int j = 0; j < Op::N; ++j) c[k][j] = rc.at(j, rot, k);
    const Mask<T> keep = keep_lanes<T, L>(rot);
    std::size_t i = 0;
    for (; i + B * W <= n; i += B * W) {
        for (int b = 0; b < B; ++b) {
            const V<T> y = Op::apply(simd::load(s + i + b * W), c[b % K]);
            T* p = d + i + b * W;
            if constexpr (L == Layout::AC4) simd::store(p, keep, y);
            else if constexpr (Stream && std::is_same_v<T, float>) _mm512_stream_ps(p, y);
            else if constexpr (Stream) _mm512_stream_si512(reinterpret_cast<__m512i*>(p), y);
            else simd::store(p, y);
        }
    }
    for (int b = 0; i < n; ++b, i += W) {
        const auto m = static_cast<Mask<T>>(first_lanes<T>(n - i) & keep);
        simd::store(d + i, m, Op::apply(simd::load(s + i, m), c[b % K]));
    }
}

template <class T, Layout L, class Op>
void row(const T* s, T* d, std::size_t n, const RowConsts<T, L, Op::N>& rc, bool stream) {
    const auto addr = reinterpret_cast<std::uintptr_t>(d);
    // AC4 keeps alpha with masked stores, which have no streaming form; a
    // destination off its element grid never reaches a 64-byte boundary.
    if (L != Layout::AC4 && stream && addr % sizeof(T) == 0) {
        const std::size_t peel = std::min<std::size_t>((64 - addr % 64) % 64 / sizeof(T), n);
        span<T, L, Op, false>(s, d, peel, rc, 0);
        span<T, L, Op, true>(s + peel, d + peel, n - peel, rc, peel % kChannels<L>);
        return;
    }
    span<T, L, Op, false>(s, d, n, rc, 0);
}

// The 16u members write around the cache when an out-of-place image is large
// against it. The traffic is counted in 32-bit arithmetic.
inline bool stream_16u(TaviSize r, unsigned pixelBytes) {
    const auto t = static_cast<std::int32_t>(static_cast<std::uint32_t>(r.width) *
                                             static_cast<std::uint32_t>(r.height) * pixelBytes);
    if (t <= 0x40000) return false;
    const long long c = cache_bytes();
    return c >= 0 && t > c / 2;
}

template <class T, int N>
using Vals = std::array<std::array<T, 4>, N>;

template <Layout L, class Op, class T>
TavStatus run(const Io<T>& a, TaviSize r, const Vals<T, Op::N>& v) {
    const RowConsts<T, L, Op::N> rc(v);
    bool stream = false;
    const std::int64_t rowElems = row_elems<L>(r.width);
    const std::int64_t rowBytes = rowElems * static_cast<std::int64_t>(sizeof(T));
    if (a.src != a.dst) {
        if constexpr (std::is_same_v<T, Tav16u>) stream = stream_16u(r, sizeof(T) * kChannels<L>);
        else stream = 2 * rowBytes * r.height >= kStreamTrafficBytes;
    }
    const Rows rows = rows_of(rowElems, r.height, a.srcStep == rowBytes && a.dstStep == rowBytes);
    for_rows(a.src, a.srcStep, a.dst, a.dstStep, rows.height,
             [&](const T* s, T* d) { row<T, L, Op>(s, d, static_cast<std::size_t>(rows.elems), rc, stream); });
    if (stream) _mm_sfence();
    return tavOk;
}

// taviThreshold: cmpOp picks the side that is limited.
template <Layout L, class T, class A>
TavStatus limit(const Io<T>& a, TaviSize r, A t, TavCmpOp op) {
    if (TavStatus st = check_unary(a, r)) return st;
    if (is_null(t)) return tavErrNullPtr;
    if (op != tavCmpLess && op != tavCmpGreater) return tavErrNotSupportedMode;
    if (op == tavCmpGreater) return run<L, Cap<T>>(a, r, {per_channel<L>(t)});
    return run<L, Floor<T>>(a, r, {per_channel<L>(t)});
}

// taviThreshold_GT
template <Layout L, class T, class A>
TavStatus cap(const Io<T>& a, TaviSize r, A t) {
    if (TavStatus st = check_unary(a, r)) return st;
    if (is_null(t)) return tavErrNullPtr;
    return run<L, Cap<T>>(a, r, {per_channel<L>(t)});
}

// taviThreshold_LT
template <Layout L, class T, class A>
TavStatus floor(const Io<T>& a, TaviSize r, A t) {
    if (TavStatus st = check_unary(a, r)) return st;
    if (is_null(t)) return tavErrNullPtr;
    return run<L, Floor<T>>(a, r, {per_channel<L>(t)});
}

// taviThreshold_Val: cmpOp picks the side that is replaced.
template <Layout L, class T, class A>
TavStatus replace(const Io<T>& a, TaviSize r, A t, A v, TavCmpOp op) {
    if (TavStatus st = check_unary(a, r)) return st;
    if (is_null(t) || is_null(v)) return tavErrNullPtr;
    if (op != tavCmpLess && op != tavCmpGreater) return tavErrNotSupportedMode;
    if (op == tavCmpGreater) return run<L, ReplaceAbove<T>>(a, r, {per_channel<L>(t), per_channel<L>(v)});
    return run<L, ReplaceBelow<T>>(a, r, {per_channel<L>(t), per_channel<L>(v)});
}

// taviThreshold_GTVal
template <Layout L, class T, class A>
TavStatus replace_above(const Io<T>& a, TaviSize r, A t, A v) {
    if (TavStatus st = check_unary(a, r)) return st;
    if (is_null(t) || is_null(v)) return tavErrNullPtr;
    return run<L, ReplaceAbove<T>>(a, r, {per_channel<L>(t), per_channel<L>(v)});
}

// taviThreshold_LTVal
template <Layout L, class T, class A>
TavStatus replace_below(const Io<T>& a, TaviSize r, A t, A v) {
    if (TavStatus st = check_unary(a, r)) return st;
    if (is_null(t) || is_null(v)) return tavErrNullPtr;
    return run<L, ReplaceBelow<T>>(a, r, {per_channel<L>(t), per_channel<L>(v)});
}

// taviThreshold_LTValGTVal: equal thresholds are valid, a lower one above
// the upper in any channel is not.
template <Layout L, class T, class A>
TavStatus replace_outside(const Io<T>& a, TaviSize r, A tl, A vl, A tg, A vg) {
    if (TavStatus st = check_unary(a, r)) return st;
    if (is_null(tl) || is_null(vl) || is_null(tg) || is_null(vg)) return tavErrNullPtr;
    const auto lo = per_channel<L>(tl), hi = per_channel<L>(tg);
    for (int c = 0; c < kValueChannels<L>; ++c)
        if (lo[c] > hi[c]) return tavErrThresholdOrder;
    return run<L, ReplaceOutside<T>>(a, r, {lo, per_channel<L>(vl), hi, per_channel<L>(vg)});
}

}  // namespace tav::decide::thr
