// Fill row kernels: one element broadcast over a row, and periodic pixel
// patterns (three- and four-channel values, alpha or all channels but one
// left alone).
//
// Contract: nothing outside the row's bytes is written; bytes that a pattern
// skips are neither read nor written. Long rows of 1-, 2-, 4- or 8-byte
// elements may ask the core module for the cache size and then write with
// non-temporal stores, ending with a fence; the bytes are the same.
#pragma once

#include <immintrin.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "move/keep_mask.h"

namespace tav::move {

using byte = std::uint8_t;

// How a fill writes its whole lines.
enum class Stores { Cached, Streaming };

// n bytes of a vector of elements of elemBytes (1, 2, 4 or 8), from its
// first element on.
void fill_vector(byte* d, std::size_t n, __m512i v, std::size_t elemBytes, Stores how);

// Whether a one-element fill of n elements of `elemBytes` at d streams: long
// rows only, and only for an element-aligned destination.
bool set_row_streams(const void* d, std::size_t rowBytes, std::size_t elemBytes);

template <class T>
inline __m512i broadcast(T v) {
    if constexpr (sizeof(T) == 1) return _mm512_set1_epi8(std::bit_cast<char>(v));
    else if constexpr (sizeof(T) == 2) return _mm512_set1_epi16(std::bit_cast<short>(v));
    else if constexpr (sizeof(T) == 4) return _mm512_set1_epi32(std::bit_cast<int>(v));
    else return _mm512_set1_epi64(std::bit_cast<long long>(v));
}

// The one-element fill: n elements of v.
template <class T>
inline void set_row(T* d, T v, std::size_t n) {
    static_assert(sizeof(T) == 1 || sizeof(T) == 2 || sizeof(T) == 4 || sizeof(T) == 8);
    const std::size_t bytes = n * sizeof(T);
    const Stores how = set_row_streams(d, bytes, sizeof(T)) ? Stores::Streaming : Stores::Cached;
    fill_vector(reinterpret_cast<byte*>(d), bytes, broadcast(v), sizeof(T), how);
    if (how == Stores::Streaming) _mm_sfence();
}

// A pixel value repeated over 256 bytes from phase 0, and which of its
// bytes are written.
struct Pattern {
    alignas(64) byte bytes[256];
    KeepMask keep;

    // pixel: pixelBytes bytes; of each pixel the bytes [0, keepBytes) are written.
    Pattern(const void* pixel, int pixelBytes, int keepBytes);
};

// n bytes of the pattern from phase 0 at d; the row must start on a pixel.
void fill_pattern(byte* d, std::size_t n, const Pattern& p, Stores how);

}  // namespace tav::move
