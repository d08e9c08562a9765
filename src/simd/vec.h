// Small vector helpers shared by the row kernels: tail masks, the AC4 lane
// pattern, typed masked loads and stores, and the rounding-control guard.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace tav::simd {

// Lanes of a 512-bit vector for element type T.
template <class T>
inline constexpr std::size_t kLanes = 64 / sizeof(T);

// The mask type wide enough for kLanes<T> lanes.
template <class T>
using Mask = std::conditional_t<sizeof(T) == 1, __mmask64,
             std::conditional_t<sizeof(T) == 2, __mmask32,
             std::conditional_t<sizeof(T) == 4, __mmask16, __mmask8>>>;

template <class T>
inline constexpr Mask<T> kAll = static_cast<Mask<T>>(~0ull);

// The first n lanes (all of them when n reaches the vector).
template <class T>
inline Mask<T> first_lanes(std::size_t n) {
    return n >= kLanes<T> ? kAll<T> : static_cast<Mask<T>>((1ull << n) - 1);
}

// Three lanes of every four: an AC4 row walked from a pixel boundary.
template <class T>
inline constexpr Mask<T> kAc4 = static_cast<Mask<T>>(0x7777777777777777ull);

// Masked memory access typed by element; masked-off lanes are neither read
// (no fault, no value) nor written.
template <class T>
inline auto load(const T* p, Mask<T> m) {
    if constexpr (std::is_same_v<T, float>) return _mm512_maskz_loadu_ps(m, p);
    else if constexpr (std::is_same_v<T, double>) return _mm512_maskz_loadu_pd(m, p);
    else if constexpr (sizeof(T) == 1) return _mm512_maskz_loadu_epi8(m, p);
    else if constexpr (sizeof(T) == 2) return _mm512_maskz_loadu_epi16(m, p);
    else if constexpr (sizeof(T) == 4) return _mm512_maskz_loadu_epi32(m, p);
    else return _mm512_maskz_loadu_epi64(m, p);
}

template <class T>
inline auto load(const T* p) {
    if constexpr (std::is_same_v<T, float>) return _mm512_loadu_ps(p);
    else if constexpr (std::is_same_v<T, double>) return _mm512_loadu_pd(p);
    else return _mm512_loadu_si512(p);
}

template <class T, class V>
inline void store(T* p, Mask<T> m, V v) {
    if constexpr (std::is_same_v<T, float>) _mm512_mask_storeu_ps(p, m, v);
    else if constexpr (std::is_same_v<T, double>) _mm512_mask_storeu_pd(p, m, v);
    else if constexpr (sizeof(T) == 1) _mm512_mask_storeu_epi8(p, m, v);
    else if constexpr (sizeof(T) == 2) _mm512_mask_storeu_epi16(p, m, v);
    else if constexpr (sizeof(T) == 4) _mm512_mask_storeu_epi32(p, m, v);
    else _mm512_mask_storeu_epi64(p, m, v);
}

template <class T, class V>
inline void store(T* p, V v) {
    if constexpr (std::is_same_v<T, float>) _mm512_storeu_ps(p, v);
    else if constexpr (std::is_same_v<T, double>) _mm512_storeu_pd(p, v);
    else _mm512_storeu_si512(p, v);
}

// Saves the rounding control, sets the requested mode, and restores it on
// every return path.
class RoundGuard {
public:
    // mode: _MM_ROUND_NEAREST, _MM_ROUND_DOWN, _MM_ROUND_UP or _MM_ROUND_TOWARD_ZERO.
    explicit RoundGuard(unsigned mode) : saved_(_mm_getcsr()) {
        _mm_setcsr((saved_ & ~_MM_ROUND_MASK) | mode);
    }
    ~RoundGuard() { _mm_setcsr(saved_); }
    RoundGuard(const RoundGuard&) = delete;
    RoundGuard& operator=(const RoundGuard&) = delete;

private:
    unsigned saved_;
};

}  // namespace tav::simd
