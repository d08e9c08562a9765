// The LUT spec record and what Init, work and palette functions share.
//
// The record stands at the first 64-byte boundary of the caller's block; its
// data (tables, or level and value copies for 32f) follow at kDataOffset.
// Integer types hold one complete table a channel, 256 bytes for 8u and
// 65536 elements for 16u and 16s (16s indexed with a bias of 32768).
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include "frame/entry.h"
#include "simd/vec.h"

namespace tav::decide::lut {

struct Spec {
    std::uint32_t id;
    std::int32_t channels;  // the channel code: 1, 3, 4, or 9 for AC4
    const void* table;
    const float* values[4];
    const float* levels[4];
    std::int32_t nLevels[4];
};

inline constexpr std::size_t kDataOffset = 128;
static_assert(sizeof(Spec) <= kDataOffset);

// Interpolation kinds of a spec identifier.
enum Kind : int { kNearest = 0, kLinear = 1, kCubic = 2 };

inline constexpr std::uint32_t kIdBase = 0x1234567;

template <class T>
inline constexpr int kTypeIndex = std::is_same_v<T, Tav8u> ? 0 : std::is_same_v<T, Tav16u> ? 1
                                 : std::is_same_v<T, Tav16s> ? 2 : 3;

inline constexpr int layout_index(Layout L) {
    return L == Layout::C1 ? 0 : L == Layout::C3 ? 1 : L == Layout::C4 ? 2 : 3;
}

template <class T, Layout L>
constexpr std::uint32_t spec_id(int kind) {
    return kIdBase + 4 * kTypeIndex<T> + layout_index(L) + 16 * kind;
}

template <class P>
P* align64(P* p) {
    const auto a = (reinterpret_cast<std::uintptr_t>(p) + 63) & ~std::uintptr_t{63};
    return reinterpret_cast<P*>(a);
}

// A byte table of 256 entries held as sixteen 16-byte tables, one for each
// high nibble, so that 64 pixels are mapped with byte shuffles: each table
// answers for the low nibble, and the high nibble's four bits pick among the
// sixteen answers.
class ByteTable {
public:
    explicit ByteTable(const Tav8u* t256) {
        for (int h = 0; h < 16; ++h)
            part_[h] = _mm512_maskz_broadcast_i32x4(0xffff, _mm_loadu_si128(reinterpret_cast<const __m128i*>(t256 + 16 * h)));
    }
    __m512i map(__m512i x) const {
        const __m512i lo = _mm512_and_si512(x, _mm512_set1_epi8(0x0f));
        __m512i r[16];
        for (int h = 0; h < 16; ++h) r[h] = _mm512_shuffle_epi8(part_[h], lo);
        for (int bit = 0, n = 16; bit < 4; ++bit, n /= 2) {
            const __mmask64 hi = _mm512_test_epi8_mask(x, _mm512_set1_epi8(static_cast<char>(0x10 << bit)));
            for (int j = 0; j < n / 2; ++j) r[j] = _mm512_mask_blend_epi8(hi, r[2 * j], r[2 * j + 1]);
        }
        return r[0];
    }

private:
    __m512i part_[16];
};

// dst[i] = table[src[i] & mask] for a row of n bytes; src may equal dst.
inline void map_bytes(const Tav8u* s, Tav8u* d, std::size_t n, const ByteTable& t, Tav8u mask) {
    const __m512i m = _mm512_set1_epi8(static_cast<char>(mask));
    std::size_t i = 0;
    for (; i + 128 <= n; i += 128) {
        const __m512i a = _mm512_and_si512(_mm512_loadu_si512(s + i), m);
        const __m512i b = _mm512_and_si512(_mm512_loadu_si512(s + i + 64), m);
        _mm512_storeu_si512(d + i, t.map(a));
        _mm512_storeu_si512(d + i + 64, t.map(b));
    }
    for (; i < n; i += 64) {
        const __mmask64 k = simd::first_lanes<Tav8u>(n - i);
        _mm512_mask_storeu_epi8(d + i, k, t.map(_mm512_and_si512(_mm512_maskz_loadu_epi8(k, s + i), m)));
    }
}

}  // namespace tav::decide::lut
