// Pieces shared by the decision kernels: typed vector comparisons and
// selections, per-channel constants laid along a row, the AC4 store mask at
// any phase, and the argument checks of a unary image call.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "frame/entry.h"
#include "simd/vec.h"

namespace tav::decide {

using simd::first_lanes;
using simd::kLanes;
using simd::Mask;

// Comparisons and selections for one element type. Float comparisons are
// ordered: a not-a-number operand makes every test false.
template <class T>
struct Vec {
    using V = decltype(simd::load(static_cast<const T*>(nullptr)));
    using M = Mask<T>;

    static V set1(T x) {
        if constexpr (std::is_same_v<T, float>) return _mm512_set1_ps(x);
        else if constexpr (sizeof(T) == 1) return _mm512_set1_epi8(static_cast<char>(x));
        else return _mm512_set1_epi16(static_cast<short>(x));
    }
    static M lt(V a, V b) {
        if constexpr (std::is_same_v<T, float>) return _mm512_cmp_ps_mask(a, b, _CMP_LT_OQ);
        else if constexpr (std::is_same_v<T, std::uint8_t>) return _mm512_cmplt_epu8_mask(a, b);
        else if constexpr (std::is_same_v<T, std::uint16_t>) return _mm512_cmplt_epu16_mask(a, b);
        else return _mm512_cmplt_epi16_mask(a, b);
    }
    static M le(V a, V b) {
        if constexpr (std::is_same_v<T, float>) return _mm512_cmp_ps_mask(a, b, _CMP_LE_OQ);
        else if constexpr (std::is_same_v<T, std::uint8_t>) return _mm512_cmple_epu8_mask(a, b);
        else if constexpr (std::is_same_v<T, std::uint16_t>) return _mm512_cmple_epu16_mask(a, b);
        else return _mm512_cmple_epi16_mask(a, b);
    }
    static M eq(V a, V b) {
        if constexpr (std::is_same_v<T, float>) return _mm512_cmp_ps_mask(a, b, _CMP_EQ_OQ);
        else if constexpr (sizeof(T) == 1) return _mm512_cmpeq_epi8_mask(a, b);
        else return _mm512_cmpeq_epi16_mask(a, b);
    }
    // m ? b : a
    static V blend(M m, V a, V b) {
        if constexpr (std::is_same_v<T, float>) return _mm512_mask_blend_ps(m, a, b);
        else if constexpr (sizeof(T) == 1) return _mm512_mask_blend_epi8(m, a, b);
        else return _mm512_mask_blend_epi16(m, a, b);
    }
    // x > t ? t : x. The float minimum returns its second operand when the
    // first is not smaller, so a not-a-number x comes back unchanged.
    static V cap(V x, V t) {
        if constexpr (std::is_same_v<T, float>) return _mm512_maskz_min_ps(0xFFFF, t, x);  // the plain form trips a false uninitialised warning
        else if constexpr (std::is_same_v<T, std::uint8_t>) return _mm512_min_epu8(x, t);
        else if constexpr (std::is_same_v<T, std::uint16_t>) return _mm512_min_epu16(x, t);
        else return _mm512_min_epi16(x, t);
    }
    // x < t ? t : x, with the same care for not-a-number.
    static V floor(V x, V t) {
        if constexpr (std::is_same_v<T, float>) return _mm512_maskz_max_ps(0xFFFF, t, x);
        else if constexpr (std::is_same_v<T, std::uint8_t>) return _mm512_max_epu8(x, t);
        else if constexpr (std::is_same_v<T, std::uint16_t>) return _mm512_max_epu16(x, t);
        else return _mm512_max_epi16(x, t);
    }
};

// Vectors until the channel pattern of a row repeats: a C3 pixel never
// straddles three whole vectors, the other layouts repeat in one.
template <Layout L>
inline constexpr int kPhases = L == Layout::C3 ? 3 : 1;

// N constants a channel, laid along a row so that a vector starting at any
// element offset can be loaded: pattern[j][i] is constant j of channel i % nch.
template <class T, Layout L, int N>
struct RowConsts {
    static constexpr int kCh = kChannels<L>;
    alignas(64) T pattern[N][kPhases<L> * kLanes<T> + 4];

    explicit RowConsts(const std::array<std::array<T, 4>, N>& perChannel) {
        for (int j = 0; j < N; ++j)
            for (std::size_t i = 0; i < std::size(pattern[j]); ++i) pattern[j][i] = perChannel[j][i % kCh];
    }
    // Constant j in the vector of phase k, for a span that starts `rot`
    // elements past a pixel boundary.
    typename Vec<T>::V at(int j, unsigned rot, int k) const {
        return simd::load(pattern[j] + rot + k * kLanes<T>);
    }
};

// Lanes a store may write: all, or for AC4 every lane but alpha, for a span
// that starts `rot` elements past a pixel boundary.
template <class T, Layout L>
inline Mask<T> keep_lanes(unsigned rot) {
    if constexpr (L != Layout::AC4) {
        return simd::kAll<T>;
    } else {
        const std::uint64_t p = 0x7777777777777777ull;
        return static_cast<Mask<T>>(rot ? (p >> rot) | (p << (64 - rot)) : p);
    }
}

// A value argument: a scalar for C1, one entry a channel otherwise.
template <class T>
constexpr bool is_null(T) { return false; }
template <class T>
constexpr bool is_null(const T* p) { return p == nullptr; }

// Channels that carry a value: AC4 has none for alpha.
template <Layout L>
inline constexpr int kValueChannels = L == Layout::C1 ? 1 : L == Layout::C4 ? 4 : 3;

template <Layout L, class T>
std::array<T, 4> per_channel(T v) { return {v, v, v, v}; }
template <Layout L, class T>
std::array<T, 4> per_channel(const T* v) {
    std::array<T, 4> a{};
    for (int c = 0; c < kValueChannels<L>; ++c) a[c] = v[c];
    return a;
}

// Source and destination of a unary call; an in-place call names one image twice.
template <class T>
struct Io {
    const T* src;
    int srcStep;
    T* dst;
    int dstStep;
};
template <class T>
Io<T> io(const T* s, int ss, T* d, int ds) { return {s, ss, d, ds}; }
template <class T>
Io<T> io(T* p, int step) { return {p, step, p, step}; }

// Pointers, size, steps: the first failing status, or tavOk.
template <class T>
TavStatus check_unary(const Io<T>& a, TaviSize r) {
    if (any_null(a.src, a.dst)) return tavErrNullPtr;
    if (bad_size(r)) return tavErrSize;
    if (bad_step(a.srcStep, a.dstStep)) return tavErrStep;
    return tavOk;
}

// Out-of-place calls whose reads and writes together reach this many bytes
// write around the cache. The gate is fixed: apart from the 16u thresholds,
// these families never ask the core module for its cache size.
inline constexpr std::int64_t kStreamTrafficBytes = std::int64_t{16} << 20;

// Rows with no gap between them (every step equal to its image's row bytes)
// are walked as one long row.
struct Rows {
    std::int64_t elems, height;
};
inline Rows rows_of(std::int64_t rowElems, std::int64_t height, bool contiguous) {
    return contiguous ? Rows{rowElems * height, 1} : Rows{rowElems, height};
}

}  // namespace tav::decide
