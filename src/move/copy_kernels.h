// The row copy and the image block copy: the library's memcpy. Every family
// that moves a block of bytes calls these.
//
// Contract: bytes move forward from source to destination; overlapping
// ranges get whatever the chosen path's order of work gives, with no promise
// beyond that. Nothing outside [s, s+n) is read, nothing outside [d, d+n)
// written. Large copies may query the core module for the cache size and
// then write with non-temporal stores; the bytes written are the same.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include "move/keep_mask.h"

namespace tav::move {

using byte = std::uint8_t;

// The first n of 64 byte lanes (all of them from 64 on).
inline __mmask64 byte_lanes(std::size_t n) { return n >= 64 ? ~0ull : _bzhi_u64(~0ull, static_cast<unsigned>(n)); }

// Up to 64 bytes under a mask.
inline void copy_masked(const byte* s, byte* d, __mmask64 m) {
    _mm512_mask_storeu_epi8(d, m, _mm512_maskz_loadu_epi8(m, s));
}

// The plain vector copy: short rows and the ends the large kernels leave.
inline void copy_plain(const byte* s, byte* d, std::size_t n) {
    std::size_t i = 0;
    for (; i + 256 <= n; i += 256) {
        __m512i a = _mm512_loadu_si512(s + i), b = _mm512_loadu_si512(s + i + 64);
        __m512i c = _mm512_loadu_si512(s + i + 128), e = _mm512_loadu_si512(s + i + 192);
        _mm512_storeu_si512(d + i, a);
        _mm512_storeu_si512(d + i + 64, b);
        _mm512_storeu_si512(d + i + 128, c);
        _mm512_storeu_si512(d + i + 192, e);
    }
    for (; i + 64 <= n; i += 64) _mm512_storeu_si512(d + i, _mm512_loadu_si512(s + i));
    if (i < n) copy_masked(s + i, d + i, byte_lanes(n - i));
}

// True when the destination sits just above the source modulo a 4-KiB page,
// where a forward loop's loads would falsely depend on its recent stores.
inline bool page_aliased(const void* s, const void* d) {
    auto ds = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(d) & 0xfff);
    auto ss = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(s) & 0xfff);
    return ds - ss < 160u;
}

// The central row copy of n bytes.
void copy_row(const void* s, void* d, std::size_t n);

// The image block copy: height rows of widthBytes, rows srcStep and dstStep
// bytes apart (any sign). Contiguous images go through copy_row as one row.
void copy_block(const void* s, std::ptrdiff_t srcStep, void* d, std::ptrdiff_t dstStep, std::int64_t widthBytes,
                std::int64_t height);

// Rows of the block copy without its decisions: rows below 512 bytes by the
// small-row kernel, longer ones brought to a line, with whole lines
// non-temporal when `stream` (the caller fences).
void copy_rows(const void* s, std::ptrdiff_t srcStep, void* d, std::ptrdiff_t dstStep, std::size_t widthBytes,
               std::int64_t height, bool stream);

// A row copy of n bytes that reads and writes only the kept bytes of each
// pixel (alpha skipped, or one channel of several); the row starts on a pixel.
void copy_row_keep(const void* s, void* d, std::size_t n, const KeepMask& k);

}  // namespace tav::move
