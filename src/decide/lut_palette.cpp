// Palettes: dst = table[src & ((1 << nBitSize) - 1)].
//
// 8u C1 maps with byte shuffles: a palette of up to 16 entries is one
// 16-byte vector and a single shuffle maps 64 pixels; a larger one goes
// through the sixteen-table shuffle of the LUT. Every other member looks up
// element by element.
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "decide/decide_vec.h"
#include "decide/lut_spec.h"

namespace tav::decide::lut {
namespace {

template <class S, class D, Layout L>
void palette_row(const S* s, D* d, std::size_t width, const D* const* tables, unsigned mask) {
    constexpr int C = kChannels<L>;
    for (std::size_t x = 0; x < width; ++x)
        for (int c = 0; c < kValueChannels<L>; ++c) d[x * C + c] = tables[c][s[x * C + c] & mask];
}

// Three bytes of each 32-bit entry, the low-order ones.
template <class S>
void palette_row_24(const S* s, Tav8u* d, std::size_t width, const Tav32u* table, unsigned mask) {
    for (std::size_t x = 0; x < width; ++x) {
        const Tav32u e = table[s[x] & mask];
        std::memcpy(d + 3 * x, &e, 3);
    }
}

template <class S, Layout L, class Tables>
TavStatus check(const S* s, int sStep, const void* d, int dStep, TaviSize r, Tables tables, int nBitSize) {
    if (any_null(s, d, tables)) return tavErrNullPtr;
    if constexpr (L != Layout::C1) {
        for (int c = 0; c < kValueChannels<L>; ++c)
            if (!tables[c]) return tavErrNullPtr;
    }
    if (bad_size(r)) return tavErrSize;
    if (nBitSize < 1 || nBitSize > int(8 * sizeof(S))) return tavErrOutOfRange;
    if (sStep < r.width || dStep < r.width) return tavErrStep;
    return tavOk;
}

unsigned mask_of(int nBitSize) { return (1u << nBitSize) - 1; }

// 8u C1 walks the destination by srcStep as well: dstStep is checked but
// not used.
TavStatus palette_8u_c1(const Tav8u* s, int sStep, Tav8u* d, int dStep, TaviSize r, const Tav8u* table, int nBitSize) {
    if (TavStatus st = check<Tav8u, Layout::C1>(s, sStep, d, dStep, r, table, nBitSize)) return st;
    const std::size_t entries = std::size_t{1} << nBitSize;
    alignas(64) Tav8u full[256] = {};
    std::memcpy(full, table, entries);
    const auto mask = static_cast<Tav8u>(mask_of(nBitSize));
    const std::size_t width = static_cast<std::size_t>(r.width);
    if (entries <= 16) {
        const __m512i t = _mm512_maskz_broadcast_i32x4(0xffff, _mm_load_si128(reinterpret_cast<const __m128i*>(full)));
        const __m512i m = _mm512_set1_epi8(static_cast<char>(mask));
        for_rows(s, sStep, d, sStep, r.height, [&](const Tav8u* a, Tav8u* b) {
            for (std::size_t i = 0; i < width; i += 64) {
                const __mmask64 k = first_lanes<Tav8u>(width - i);
                const __m512i x = _mm512_and_si512(_mm512_maskz_loadu_epi8(k, a + i), m);
                _mm512_mask_storeu_epi8(b + i, k, _mm512_shuffle_epi8(t, x));
            }
        });
    } else {
        const ByteTable t(full);
        for_rows(s, sStep, d, sStep, r.height, [&](const Tav8u* a, Tav8u* b) { map_bytes(a, b, width, t, mask); });
    }
    return tavOk;
}

// Same-type palettes of every layout but 8u C1.
template <class T, Layout L, class Tables>
TavStatus palette(const T* s, int sStep, T* d, int dStep, TaviSize r, Tables tables, int nBitSize) {
    if (TavStatus st = check<T, L>(s, sStep, d, dStep, r, tables, nBitSize)) return st;
    const T* t[4] = {};
    if constexpr (L == Layout::C1) t[0] = tables;
    else for (int c = 0; c < kValueChannels<L>; ++c) t[c] = tables[c];
    const unsigned mask = mask_of(nBitSize);
    const auto width = static_cast<std::size_t>(r.width);
    for_rows(s, sStep, d, dStep, r.height, [&](const T* a, T* b) { palette_row<T, T, L>(a, b, width, t, mask); });
    return tavOk;
}

// Palettes to another type, one channel.
template <class S, class D, class E>
TavStatus palette_to(const S* s, int sStep, D* d, int dStep, TaviSize r, const E* table, int nBitSize) {
    if (TavStatus st = check<S, Layout::C1>(s, sStep, d, dStep, r, table, nBitSize)) return st;
    const unsigned mask = mask_of(nBitSize);
    const auto width = static_cast<std::size_t>(r.width);
    for_rows(s, sStep, d, dStep, r.height, [&](const S* a, D* b) {
        if constexpr (std::is_same_v<D, Tav8u> && std::is_same_v<E, Tav32u>) palette_row_24(a, b, width, table, mask);
        else palette_row<S, D, Layout::C1>(a, b, width, &table, mask);
    });
    return tavOk;
}

constexpr Layout C1 = Layout::C1, C3 = Layout::C3, C4 = Layout::C4, AC4 = Layout::AC4;

}  // namespace
}  // namespace tav::decide::lut

using namespace tav::decide::lut;

// clang-format off
TavStatus own_taviLUTPalette_8u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, int n) { return palette_8u_c1(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_8u_C3R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* const t[3], int n) { return palette<Tav8u, C3>(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_8u_C4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* const t[4], int n) { return palette<Tav8u, C4>(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_8u_AC4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* const t[3], int n) { return palette<Tav8u, AC4>(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_16u_C1R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* t, int n) { return palette<Tav16u, C1>(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_16u_C3R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* const t[3], int n) { return palette<Tav16u, C3>(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_16u_C4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* const t[4], int n) { return palette<Tav16u, C4>(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_16u_AC4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav16u* const t[3], int n) { return palette<Tav16u, AC4>(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_8u24u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav32u* t, int n) { return palette_to(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_16u24u_C1R(const Tav16u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav32u* t, int n) { return palette_to(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_8u32u_C1R(const Tav8u* s, int ss, Tav32u* d, int ds, TaviSize r, const Tav32u* t, int n) { return palette_to(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_16u32u_C1R(const Tav16u* s, int ss, Tav32u* d, int ds, TaviSize r, const Tav32u* t, int n) { return palette_to(s, ss, d, ds, r, t, n); }
TavStatus own_taviLUTPalette_16u8u_C1R(const Tav16u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* t, int n) { return palette_to(s, ss, d, ds, r, t, n); }
// clang-format on
