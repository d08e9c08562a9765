// Vector minimum and maximum by element type, and the per-lane extrema policy
// shared by taviMin, taviMax, taviMinMax, taviMinIndx and taviMaxIndx.
//
// The 32f forms keep the accumulator as the first operand: an unordered
// comparison yields the second, so a lane that meets a NaN takes it, and
// drops it (with what it had) at its next element. Scalar folds use plain
// comparisons, which are false for NaN.
#pragma once

#include <cfloat>

#include "stats/reduce.h"

namespace tav::stats {

template <class T>
struct VecOps;

template <>
struct VecOps<Tav8u> {
    using V = __m512i;
    static V min(V a, V b) { return _mm512_min_epu8(a, b); }
    static V max(V a, V b) { return _mm512_max_epu8(a, b); }
    static V min(V a, __mmask64 m, V b) { return _mm512_mask_min_epu8(a, m, a, b); }
    static V max(V a, __mmask64 m, V b) { return _mm512_mask_max_epu8(a, m, a, b); }
    static V set1(Tav8u v) { return _mm512_set1_epi8(static_cast<char>(v)); }
    static __mmask64 lt(V a, V b) { return _mm512_cmplt_epu8_mask(a, b); }
    static __mmask64 eq(V a, V b) { return _mm512_cmpeq_epi8_mask(a, b); }
    static Tav8u hmin(V v) {
        const __m256i a = _mm256_min_epu8(_mm512_castsi512_si256(v), _mm512_extracti64x4_epi64(v, 1));
        const __m128i b = _mm_min_epu8(_mm256_castsi256_si128(a), _mm256_extracti128_si256(a, 1));
        const __m128i w = _mm_min_epu16(_mm_and_si128(b, _mm_set1_epi16(0xff)), _mm_srli_epi16(b, 8));
        return static_cast<Tav8u>(_mm_cvtsi128_si32(_mm_minpos_epu16(w)));
    }
    // The largest byte is the complement of the smallest complement.
    static Tav8u hmax(V v) { return static_cast<Tav8u>(~hmin(_mm512_ternarylogic_epi32(v, v, v, 0x55))); }
};

template <>
struct VecOps<Tav16u> {
    using V = __m512i;
    static V min(V a, V b) { return _mm512_min_epu16(a, b); }
    static V max(V a, V b) { return _mm512_max_epu16(a, b); }
    static V min(V a, __mmask32 m, V b) { return _mm512_mask_min_epu16(a, m, a, b); }
    static V max(V a, __mmask32 m, V b) { return _mm512_mask_max_epu16(a, m, a, b); }
    static V set1(Tav16u v) { return _mm512_set1_epi16(static_cast<short>(v)); }
    static __mmask32 lt(V a, V b) { return _mm512_cmplt_epu16_mask(a, b); }
    static __mmask32 eq(V a, V b) { return _mm512_cmpeq_epi16_mask(a, b); }
    static Tav16u hmin(V v) { return static_cast<Tav16u>(minpos(v, 0)); }
    static Tav16u hmax(V v) { return static_cast<Tav16u>(~minpos(v, -1)); }
    // Smallest word of v ^ flip, through the 8-lane minimum position.
    static int minpos(V v, int flip) {
        const __m512i x = _mm512_xor_si512(v, _mm512_set1_epi16(static_cast<short>(flip)));
        const __m256i a = _mm256_min_epu16(_mm512_castsi512_si256(x), _mm512_extracti64x4_epi64(x, 1));
        const __m128i b = _mm_min_epu16(_mm256_castsi256_si128(a), _mm256_extracti128_si256(a, 1));
        return _mm_cvtsi128_si32(_mm_minpos_epu16(b)) & 0xffff;
    }
};

template <>
struct VecOps<Tav16s> {
    using V = __m512i;
    static V min(V a, V b) { return _mm512_min_epi16(a, b); }
    static V max(V a, V b) { return _mm512_max_epi16(a, b); }
    static V min(V a, __mmask32 m, V b) { return _mm512_mask_min_epi16(a, m, a, b); }
    static V max(V a, __mmask32 m, V b) { return _mm512_mask_max_epi16(a, m, a, b); }
    static V set1(Tav16s v) { return _mm512_set1_epi16(v); }
    static __mmask32 lt(V a, V b) { return _mm512_cmplt_epi16_mask(a, b); }
    static __mmask32 eq(V a, V b) { return _mm512_cmpeq_epi16_mask(a, b); }
    // Signed order is unsigned order with the sign bit flipped.
    static Tav16s hmin(V v) { return static_cast<Tav16s>(VecOps<Tav16u>::minpos(v, 0x8000) ^ 0x8000); }
    static Tav16s hmax(V v) { return static_cast<Tav16s>(~VecOps<Tav16u>::minpos(v, 0x7fff) ^ 0x8000); }
};

template <>
struct VecOps<Tav32f> {
    using V = __m512;
    static V min(V a, V b) { return _mm512_min_ps(a, b); }
    static V max(V a, V b) { return _mm512_max_ps(a, b); }
    static V min(V a, __mmask16 m, V b) { return _mm512_mask_min_ps(a, m, a, b); }
    static V max(V a, __mmask16 m, V b) { return _mm512_mask_max_ps(a, m, a, b); }
    static V set1(Tav32f v) { return _mm512_set1_ps(v); }
    static __mmask16 lt(V a, V b) { return _mm512_cmp_ps_mask(a, b, _CMP_LT_OQ); }
    static __mmask16 eq(V a, V b) { return _mm512_cmp_ps_mask(a, b, _CMP_EQ_OQ); }
    static Tav32f hmin(V v) { return _mm512_reduce_min_ps(v); }
    static Tav32f hmax(V v) { return _mm512_reduce_max_ps(v); }
};

template <class T>
inline auto vload(const T* p) {
    return simd::load(p);
}

// Identity seeds of the integer types; 32f seeds come from the image.
template <class T>
constexpr T lowest() {
    return std::numeric_limits<T>::lowest();
}
template <class T>
constexpr T highest() {
    return std::numeric_limits<T>::max();
}

// Scalar steps: a plain comparison, false for NaN.
template <class T>
inline void keep_min(T& m, T x) {
    if (x < m) m = x;
}
template <class T>
inline void keep_max(T& m, T x) {
    if (x > m) m = x;
}

// Per-lane minima and/or maxima of the elements of each step position.
template <class T, Layout L, bool Min, bool Max, int Unroll = 2>
struct Extrema {
    using O = VecOps<T>;
    using V = typename O::V;
    static constexpr int kElems = 64 / sizeof(T), kSteps = block_steps<L>(Unroll);
    static constexpr int kBlock = kElems * kSteps;
    V mn[kSteps], mx[kSteps];

    // Lanes seeded by channel from seed[] (one value a channel of the period).
    void seed(const T* seedMin, const T* seedMax) {
        alignas(64) T l[kBlock];
        if constexpr (Min) {
            for (int p = 0; p < kBlock; ++p) l[p] = seedMin[p % kPeriod<L>];
            for (int k = 0; k < kSteps; ++k) mn[k] = vload(l + k * kElems);
        }
        if constexpr (Max) {
            for (int p = 0; p < kBlock; ++p) l[p] = seedMax[p % kPeriod<L>];
            for (int k = 0; k < kSteps; ++k) mx[k] = vload(l + k * kElems);
        }
    }
    void seed_all(T vMin, T vMax) {
        for (int k = 0; k < kSteps; ++k) {
            if constexpr (Min) mn[k] = O::set1(vMin);
            if constexpr (Max) mx[k] = O::set1(vMax);
        }
    }
    template <int K, bool Full>
    void step(int64_t valid, const T* p) {
        if constexpr (Full) {
            const V x = simd::load(p);
            if constexpr (Min) mn[K] = O::min(mn[K], x);
            if constexpr (Max) mx[K] = O::max(mx[K], x);
        } else {
            const auto m = simd::first_lanes<T>(valid);
            const V x = simd::load(p, m);
            if constexpr (Min) mn[K] = O::min(mn[K], m, x);
            if constexpr (Max) mx[K] = O::max(mx[K], m, x);
        }
    }
    int64_t room() const { return kNoLimit; }
    void use(int64_t) {}
    void flush() {}

    // Folds lanes into per-channel results that already hold their seeds.
    void fold(T* outMin, T* outMax) const {
        alignas(64) T l[kBlock];
        if constexpr (Min) {
            for (int k = 0; k < kSteps; ++k) simd::store(l + k * kElems, mn[k]);
            for (int p = 0; p < kBlock; ++p)
                if (p % kPeriod<L> < kOut<L>) keep_min(outMin[p % kPeriod<L>], l[p]);
        }
        if constexpr (Max) {
            for (int k = 0; k < kSteps; ++k) simd::store(l + k * kElems, mx[k]);
            for (int p = 0; p < kBlock; ++p)
                if (p % kPeriod<L> < kOut<L>) keep_max(outMax[p % kPeriod<L>], l[p]);
        }
    }
};

}  // namespace tav::stats
