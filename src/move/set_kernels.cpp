// Fill kernels: a broadcast vector or a periodic pattern stored over a row.
#include "move/set_kernels.h"

#include <cstring>

#include "frame/cache.h"

namespace tav::move {
namespace {

inline __mmask64 lanes(std::size_t n) { return n >= 64 ? ~0ull : _bzhi_u64(~0ull, static_cast<unsigned>(n)); }
inline std::size_t to_line(const void* d) { return (0 - reinterpret_cast<std::uintptr_t>(d)) & 63; }

template <Stores How>
inline void put(byte* d, __m512i v) {
    if constexpr (How == Stores::Streaming) _mm512_stream_si512(reinterpret_cast<__m512i*>(d), v);
    else _mm512_store_si512(d, v);
}

template <Stores How>
void fill_lines(byte* d, std::size_t n, __m512i v) {
    std::size_t i = 0;
    for (; i + 512 <= n; i += 512)
        for (int k = 0; k < 8; ++k) put<How>(d + i + 64 * k, v);
    for (; i + 64 <= n; i += 64) put<How>(d + i, v);
}

// The processor's string store: past the second level of cache it outruns a
// vector loop, since it needs no read for ownership of the lines.
constexpr std::size_t kStringFill = 0x100000;

void string_fill(byte* d, std::size_t n, __m512i v, std::size_t elemBytes) {
    std::uint64_t x;
    std::memcpy(&x, &v, sizeof x);
    std::size_t count = n / elemBytes;
    switch (elemBytes) {
        case 1: asm volatile("rep stosb" : "+D"(d), "+c"(count) : "a"(x) : "memory"); break;
        case 2: asm volatile("rep stosw" : "+D"(d), "+c"(count) : "a"(x) : "memory"); break;
        case 4: asm volatile("rep stosl" : "+D"(d), "+c"(count) : "a"(x) : "memory"); break;
        default: asm volatile("rep stosq" : "+D"(d), "+c"(count) : "a"(x) : "memory"); break;
    }
}

}  // namespace

bool set_row_streams(const void* d, std::size_t rowBytes, std::size_t elemBytes) {
    const bool aligned = (reinterpret_cast<std::uintptr_t>(d) & (elemBytes - 1)) == 0;
    if (!aligned) return false;
    if (elemBytes == 8) {
        if (rowBytes < 0x40001) return false;
        long long c = cache_bytes();
        return c >= 0 && rowBytes > static_cast<std::size_t>(c / 8);
    }
    if (rowBytes < 0x200001) return false;
    long long c = cache_bytes();
    return c >= 1 && rowBytes > static_cast<std::size_t>(c);
}

void fill_vector(byte* d, std::size_t n, __m512i v, std::size_t elemBytes, Stores how) {
    std::size_t i = 0;
    if ((reinterpret_cast<std::uintptr_t>(d) & (elemBytes - 1)) == 0) {
        // Element-aligned: the line boundary keeps the phase.
        i = to_line(d);
        if (i > n) i = n;
        _mm512_mask_storeu_epi8(d, lanes(i), v);
        if (how == Stores::Cached && n - i >= kStringFill) return string_fill(d + i, n - i, v, elemBytes);
        const std::size_t whole = (n - i) & ~std::size_t{63};
        if (how == Stores::Streaming) fill_lines<Stores::Streaming>(d + i, whole, v);
        else fill_lines<Stores::Cached>(d + i, whole, v);
        i += whole;
    } else {
        for (; i + 256 <= n; i += 256) {
            _mm512_storeu_si512(d + i, v);
            _mm512_storeu_si512(d + i + 64, v);
            _mm512_storeu_si512(d + i + 128, v);
            _mm512_storeu_si512(d + i + 192, v);
        }
        for (; i + 64 <= n; i += 64) _mm512_storeu_si512(d + i, v);
    }
    if (i < n) _mm512_mask_storeu_epi8(d + i, lanes(n - i), v);
}

Pattern::Pattern(const void* pixel, int pixelBytes, int keepBytes) : keep(pixelBytes, keepBytes) {
    const auto* px = static_cast<const byte*>(pixel);
    for (int i = 0; i < 256; ++i) bytes[i] = px[i % pixelBytes];
}

void fill_pattern(byte* d, std::size_t n, const Pattern& p, Stores how) {
    std::size_t head = to_line(d);
    if (head > n) head = n;
    _mm512_mask_storeu_epi8(d, lanes(head) & p.keep.at(0), _mm512_load_si512(p.bytes));
    // From the line boundary on, the pattern continues at phase `head`.
    __m512i v[3];
    __mmask64 k[3];
    for (int j = 0; j < p.keep.vecs; ++j) {
        v[j] = _mm512_loadu_si512(p.bytes + head + 64 * j);
        k[j] = p.keep.at(head + 64 * j);
    }
    byte* q = d + head;
    std::size_t left = n - head;
    const std::size_t period = 64 * static_cast<std::size_t>(p.keep.vecs);
    if (p.keep.vecs == 1 && p.keep.all) {
        const std::size_t whole = left & ~std::size_t{63};
        if (how == Stores::Streaming) fill_lines<Stores::Streaming>(q, whole, v[0]);
        else fill_lines<Stores::Cached>(q, whole, v[0]);
        q += whole;
        left -= whole;
    } else if (p.keep.all) {
        for (; left >= period; left -= period, q += period) {
            if (how == Stores::Streaming) {
                put<Stores::Streaming>(q, v[0]);
                put<Stores::Streaming>(q + 64, v[1]);
                put<Stores::Streaming>(q + 128, v[2]);
            } else {
                put<Stores::Cached>(q, v[0]);
                put<Stores::Cached>(q + 64, v[1]);
                put<Stores::Cached>(q + 128, v[2]);
            }
        }
    } else {
        for (; left >= period; left -= period, q += period)
            for (int j = 0; j < p.keep.vecs; ++j) _mm512_mask_storeu_epi8(q + 64 * j, k[j], v[j]);
    }
    for (int j = 0; left > 0; ++j) {
        const std::size_t part = left < 64 ? left : 64;
        _mm512_mask_storeu_epi8(q, lanes(part) & k[j], v[j]);
        q += part;
        left -= part;
    }
}

}  // namespace tav::move
