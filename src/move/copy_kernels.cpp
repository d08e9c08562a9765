// Row copy and image block copy. The path depends on the size, the addresses
// and, for large copies only, the cache size; the bytes written never do.
#include "move/copy_kernels.h"

#include "frame/cache.h"

namespace tav::move {
namespace {

inline std::size_t to_line(const void* d) { return (0 - reinterpret_cast<std::uintptr_t>(d)) & 63; }

// Four 64-byte blocks with aligned stores (d is on a 64-byte boundary).
inline void blocks4_aligned(const byte* s, byte* d) {
    __m512i a = _mm512_loadu_si512(s), b = _mm512_loadu_si512(s + 64);
    __m512i c = _mm512_loadu_si512(s + 128), e = _mm512_loadu_si512(s + 192);
    _mm512_store_si512(d, a);
    _mm512_store_si512(d + 64, b);
    _mm512_store_si512(d + 128, c);
    _mm512_store_si512(d + 192, e);
}

inline void blocks4_stream(const byte* s, byte* d) {
    __m512i a = _mm512_loadu_si512(s), b = _mm512_loadu_si512(s + 64);
    __m512i c = _mm512_loadu_si512(s + 128), e = _mm512_loadu_si512(s + 192);
    _mm512_stream_si512(reinterpret_cast<__m512i*>(d), a);
    _mm512_stream_si512(reinterpret_cast<__m512i*>(d + 64), b);
    _mm512_stream_si512(reinterpret_cast<__m512i*>(d + 128), c);
    _mm512_stream_si512(reinterpret_cast<__m512i*>(d + 192), e);
}

// The string copy: beyond the first level of cache the processor's own
// string move outruns a vector loop, since it needs no read for ownership
// of the destination lines.
inline void string_copy(const byte* s, byte* d, std::size_t n) {
    asm volatile("rep movsb" : "+D"(d), "+S"(s), "+c"(n) : : "memory");
}

// Forward copy of a long row: the destination is brought to a cache line,
// then the string copy moves the rest.
void copy_forward(const byte* s, byte* d, std::size_t n) {
    std::size_t head = to_line(d);
    if (head > n) head = n;
    copy_masked(s, d, byte_lanes(head));
    string_copy(s + head, d + head, n - head);
}

// Destination just above the source modulo 4 KiB: the unaligned end first,
// then the whole lines by a kernel of their own, then the head, so that the
// pieces at both ends never trail the lines' stores.
void copy_page_aliased(const byte* s, byte* d, std::size_t n) {
    std::size_t tail = (reinterpret_cast<std::uintptr_t>(d) + n) & 63;
    if (tail > n) tail = n;
    const std::size_t m = n - tail;
    copy_plain(s + m, d + m, tail);
    const std::size_t head = m & 63;
    string_copy(s + head, d + head, m - head);
    copy_plain(s, d, head);
}

// The destination brought to a cache line, then whole lines with aligned
// stores (cached or non-temporal; a streaming caller fences).
template <bool Stream>
void copy_lines(const byte* s, byte* d, std::size_t n) {
    std::size_t head = to_line(d);
    if (head > n) head = n;
    copy_masked(s, d, byte_lanes(head));
    std::size_t i = head;
    for (; i + 256 <= n; i += 256) {
        if constexpr (Stream) blocks4_stream(s + i, d + i);
        else blocks4_aligned(s + i, d + i);
    }
    for (; i + 64 <= n; i += 64) {
        if constexpr (Stream) _mm512_stream_si512(reinterpret_cast<__m512i*>(d + i), _mm512_loadu_si512(s + i));
        else _mm512_store_si512(d + i, _mm512_loadu_si512(s + i));
    }
    copy_plain(s + i, d + i, n - i);
}
void copy_row_vectors(const byte* s, byte* d, std::size_t n) { copy_lines<false>(s, d, n); }
void copy_streaming(const byte* s, byte* d, std::size_t n) { copy_lines<true>(s, d, n); }

// Equal steps with the destination just above the source modulo 4 KiB: the
// loads run 256 bytes ahead of the stores, farther than the 160 bytes by
// which a store could match a later load in the low 12 bits.
void copy_row_lookahead(const byte* s, byte* d, std::size_t n) {
    std::size_t head = to_line(d);
    if (head > n) head = n;
    copy_masked(s, d, byte_lanes(head));
    std::size_t i = head;
    if (i + 512 <= n) {
        __m512i a = _mm512_loadu_si512(s + i), b = _mm512_loadu_si512(s + i + 64);
        __m512i c = _mm512_loadu_si512(s + i + 128), e = _mm512_loadu_si512(s + i + 192);
        for (; i + 512 <= n; i += 256) {
            __m512i na = _mm512_loadu_si512(s + i + 256), nb = _mm512_loadu_si512(s + i + 320);
            __m512i nc = _mm512_loadu_si512(s + i + 384), ne = _mm512_loadu_si512(s + i + 448);
            _mm512_store_si512(d + i, a);
            _mm512_store_si512(d + i + 64, b);
            _mm512_store_si512(d + i + 128, c);
            _mm512_store_si512(d + i + 192, e);
            a = na, b = nb, c = nc, e = ne;
        }
        _mm512_store_si512(d + i, a);
        _mm512_store_si512(d + i + 64, b);
        _mm512_store_si512(d + i + 128, c);
        _mm512_store_si512(d + i + 192, e);
        i += 256;
    }
    copy_plain(s + i, d + i, n - i);
}

// Destination rows and width on 32-byte multiples: at most one half line
// at each end of a row.
void copy_aligned32(const byte* s, byte* d, std::size_t n) {
    std::size_t i = 0;
    if (reinterpret_cast<std::uintptr_t>(d) & 32) {
        _mm256_store_si256(reinterpret_cast<__m256i*>(d), _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s)));
        i = 32;
    }
    for (; i + 256 <= n; i += 256) blocks4_aligned(s + i, d + i);
    for (; i + 64 <= n; i += 64) _mm512_store_si512(d + i, _mm512_loadu_si512(s + i));
    if (i < n)
        _mm256_store_si256(reinterpret_cast<__m256i*>(d + i),
                           _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i)));
}

void copy_aligned32_streaming(const byte* s, byte* d, std::size_t n) {
    std::size_t i = 0;
    for (; i + 256 <= n; i += 256) blocks4_stream(s + i, d + i);
    for (; i + 64 <= n; i += 64) _mm512_stream_si512(reinterpret_cast<__m512i*>(d + i), _mm512_loadu_si512(s + i));
    if (i < n)
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + i),
                            _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i)));
}

// Rows below 512 bytes: whole vectors and one masked tail a row, the tail
// mask computed once.
void copy_small_rows(const byte* s, std::ptrdiff_t ss, byte* d, std::ptrdiff_t ds, std::size_t w, std::int64_t h) {
    const std::size_t whole = w & ~std::size_t{63};
    const __mmask64 tail = byte_lanes(w - whole);
    if (tail == 0) {
        // Rows of whole vectors: no masked pair at all.
        for (std::int64_t y = 0; y < h; ++y, s += ss, d += ds)
            for (std::size_t i = 0; i < whole; i += 64) _mm512_storeu_si512(d + i, _mm512_loadu_si512(s + i));
        return;
    }
    for (std::int64_t y = 0; y < h; ++y, s += ss, d += ds) {
        for (std::size_t i = 0; i < whole; i += 64) _mm512_storeu_si512(d + i, _mm512_loadu_si512(s + i));
        copy_masked(s + whole, d + whole, tail);
    }
}

template <void (*Row)(const byte*, byte*, std::size_t)>
void rows(const byte* s, std::ptrdiff_t ss, byte* d, std::ptrdiff_t ds, std::size_t w, std::int64_t h) {
    for (std::int64_t y = 0; y < h; ++y, s += ss, d += ds) Row(s, d, w);
}

constexpr std::size_t kPlainRow = 32768;
constexpr std::size_t kRowGate = 0x400000;
constexpr std::int64_t kBlockGate = 0x300001;

}  // namespace

void copy_row(const void* src, void* dst, std::size_t n) {
    auto s = static_cast<const byte*>(src);
    auto d = static_cast<byte*>(dst);
    if (n < kPlainRow) return copy_plain(s, d, n);
    if (n > kRowGate) {
        long long c = cache_bytes();
        if (c >= 0 && n >= static_cast<std::size_t>(c / 2)) {
            copy_streaming(s, d, n);
            _mm_sfence();
            return;
        }
    }
    if (page_aliased(s, d)) return copy_page_aliased(s, d, n);
    copy_forward(s, d, n);
}

void copy_block(const void* src, std::ptrdiff_t ss, void* dst, std::ptrdiff_t ds, std::int64_t w, std::int64_t h) {
    auto s = static_cast<const byte*>(src);
    auto d = static_cast<byte*>(dst);
    const auto uw = static_cast<std::size_t>(w);
    const std::int64_t total = w * h;
    if (total <= 0x7fffffff) {
        if (w == ss && w == ds) return copy_row(s, d, static_cast<std::size_t>(total));
        if (w < 512) return copy_small_rows(s, ss, d, ds, uw, h);
        long long c = total < kBlockGate ? -1 : cache_bytes();
        if (c < 0 || total < c / 2) {
            if (((ds | reinterpret_cast<std::intptr_t>(d) | w) & 31) != 0) return rows<copy_row_vectors>(s, ss, d, ds, uw, h);
            if (ss == ds && page_aliased(s, d)) return rows<copy_row_lookahead>(s, ss, d, ds, uw, h);
            return rows<copy_aligned32>(s, ss, d, ds, uw, h);
        }
    }
    if (((ds | reinterpret_cast<std::intptr_t>(d)) & 63) == 0 && (w & 31) == 0)
        rows<copy_aligned32_streaming>(s, ss, d, ds, uw, h);
    else
        rows<copy_streaming>(s, ss, d, ds, uw, h);
    _mm_sfence();
}

void copy_rows(const void* src, std::ptrdiff_t ss, void* dst, std::ptrdiff_t ds, std::size_t w, std::int64_t h,
               bool stream) {
    auto s = static_cast<const byte*>(src);
    auto d = static_cast<byte*>(dst);
    if (stream) rows<copy_streaming>(s, ss, d, ds, w, h);
    else if (w < 512) copy_small_rows(s, ss, d, ds, w, h);
    else if (((ds | reinterpret_cast<std::intptr_t>(d) | static_cast<std::ptrdiff_t>(w)) & 31) == 0)
        rows<copy_aligned32>(s, ss, d, ds, w, h);
    else rows<copy_row_vectors>(s, ss, d, ds, w, h);
}

void copy_row_keep(const void* src, void* dst, std::size_t n, const KeepMask& k) {
    auto s = static_cast<const byte*>(src);
    auto d = static_cast<byte*>(dst);
    std::size_t head = to_line(d);
    if (head > n) head = n;
    copy_masked(s, d, byte_lanes(head) & k.at(0));
    __mmask64 m[3];
    for (int j = 0; j < k.vecs; ++j) m[j] = k.at(head + 64 * j);
    std::size_t i = head;
    const std::size_t period = 64 * static_cast<std::size_t>(k.vecs);
    if (k.vecs == 1) {
        for (; i + 256 <= n; i += 256) {
            __m512i a = _mm512_maskz_loadu_epi8(m[0], s + i), b = _mm512_maskz_loadu_epi8(m[0], s + i + 64);
            __m512i c = _mm512_maskz_loadu_epi8(m[0], s + i + 128), e = _mm512_maskz_loadu_epi8(m[0], s + i + 192);
            _mm512_mask_storeu_epi8(d + i, m[0], a);
            _mm512_mask_storeu_epi8(d + i + 64, m[0], b);
            _mm512_mask_storeu_epi8(d + i + 128, m[0], c);
            _mm512_mask_storeu_epi8(d + i + 192, m[0], e);
        }
    }
    for (; i + period <= n; i += period)
        for (int j = 0; j < k.vecs; ++j) copy_masked(s + i + 64 * j, d + i + 64 * j, m[j]);
    for (int j = 0; i < n; ++j, i += 64) copy_masked(s + i, d + i, byte_lanes(n - i) & m[j]);
}

}  // namespace tav::move
