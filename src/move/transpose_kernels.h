// Tile transposes by pixel size. A tile of TH source rows of TW pixels is
// loaded into registers, transposed there and stored as TW rows of TH
// pixels. Pixels of 1 and 2 bytes go as four lane blocks side by side
// (16 x 16 bytes, 8 x 8 words), pixels of 4, 8 and 16 bytes as whole vectors
// (16 x 16, 8 x 8, 4 x 4); three-channel pixels of 3, 6 and 12 bytes are
// widened to 4, 8 and 16 on loading and narrowed again on storing. The
// anti-diagonal form reverses each stored row; its caller places the rows.
// Pixels outside whole tiles go through the scalar kernel.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "move/lanes.h"

namespace tav::move::transpose {

using lanes::V;
using byte = std::uint8_t;

template <int P>
struct Geometry {
    static constexpr bool kLaneBlocks = P <= 2;
    static constexpr bool kNarrow = P == 3 || P == 6 || P == 12;  // widened to W on load
    static constexpr int W = kNarrow ? P / 3 * 4 : P;             // bytes a pixel in registers
    static constexpr int TH = kLaneBlocks ? 16 / P : 64 / W;      // source rows of a tile
    static constexpr int TW = kLaneBlocks ? 64 / P : 64 / W;      // source pixels a tile row
};

// Four lanes of four vectors transposed: out k = lane k of x0, x1, x2, x3.
inline void lanes4x4(const V* x, V* out) {
    const V c0 = lanes::shuffle_lanes<_MM_SHUFFLE(1, 0, 1, 0)>(x[0], x[1]);
    const V c1 = lanes::shuffle_lanes<_MM_SHUFFLE(3, 2, 3, 2)>(x[0], x[1]);
    const V c2 = lanes::shuffle_lanes<_MM_SHUFFLE(1, 0, 1, 0)>(x[2], x[3]);
    const V c3 = lanes::shuffle_lanes<_MM_SHUFFLE(3, 2, 3, 2)>(x[2], x[3]);
    out[0] = lanes::shuffle_lanes<_MM_SHUFFLE(2, 0, 2, 0)>(c0, c2);
    out[1] = lanes::shuffle_lanes<_MM_SHUFFLE(3, 1, 3, 1)>(c0, c2);
    out[2] = lanes::shuffle_lanes<_MM_SHUFFLE(2, 0, 2, 0)>(c1, c3);
    out[3] = lanes::shuffle_lanes<_MM_SHUFFLE(3, 1, 3, 1)>(c1, c3);
}

// The low (or high) halves of each lane's elements of a and b, interleaved.
template <int E, bool High>
inline V unpack(V a, V b) {
    if constexpr (E == 1) return High ? _mm512_unpackhi_epi8(a, b) : _mm512_unpacklo_epi8(a, b);
    else if constexpr (E == 2) return High ? _mm512_unpackhi_epi16(a, b) : _mm512_unpacklo_epi16(a, b);
    else if constexpr (E == 4)
        return High ? _mm512_maskz_unpackhi_epi32(0xFFFF, a, b) : _mm512_maskz_unpacklo_epi32(0xFFFF, a, b);
    else return High ? _mm512_maskz_unpackhi_epi64(0xFF, a, b) : _mm512_maskz_unpacklo_epi64(0xFF, a, b);
}

// L rows of L elements of E bytes in each lane transposed in that lane:
// log2(L) rounds of pairing row i with row i + L/2.
template <int E, int L>
inline void lane_transpose(V* r) {
    for (int round = 1; round < L; round *= 2) {
        V t[L];
        for (int i = 0; i < L / 2; ++i) {
            t[2 * i] = unpack<E, false>(r[i], r[i + L / 2]);
            t[2 * i + 1] = unpack<E, true>(r[i], r[i + L / 2]);
        }
        for (int i = 0; i < L; ++i) r[i] = t[i];
    }
}

// Whole-vector transposes: R rows of R elements of 64 / R bytes.
template <int R>
inline void vector_transpose(V* r) {
    if constexpr (R == 4) {
        V x[4] = {r[0], r[1], r[2], r[3]};
        lanes4x4(x, r);
    } else {
        constexpr int E = 64 / R;   // 4 or 8 bytes
        constexpr int G = 16 / E;   // rows a lane block: 4 or 2
        // Lane blocks of G x G first; then vector g * G + j holds column
        // 4 k + j in lane k for rows g G .. g G + G - 1.
        for (int g = 0; g < R / G; ++g) lane_transpose<E, G>(r + g * G);
        V out[R];
        for (int j = 0; j < G; ++j) {
            V x[4], y[4];
            for (int g = 0; g < 4; ++g) x[g] = r[g * G + j];
            lanes4x4(x, y);
            for (int k = 0; k < 4; ++k) out[G * k + j] = y[k];
        }
        for (int i = 0; i < R; ++i) r[i] = out[i];
    }
}

// Element reversal of a whole vector.
template <int E>
inline V reverse(V v) {
    if constexpr (E == 1) {
        const V ctl = _mm512_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9,
                                      10, 11, 12, 13, 14, 15, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0, 1,
                                      2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
        return lanes::shuffle_lanes<_MM_SHUFFLE(0, 1, 2, 3)>(_mm512_shuffle_epi8(v, ctl), _mm512_shuffle_epi8(v, ctl));
    } else if constexpr (E == 2) {
        static constexpr lanes::Idx idx = lanes::make_idx([](int i) { return (31 - 2 * i) | (30 - 2 * i) << 16; });
        return _mm512_maskz_permutexvar_epi16(~0u, lanes::vec(idx), v);
    } else if constexpr (E == 4) {
        return lanes::perm32(lanes::vec(lanes::make_idx([](int i) { return 15 - i; })), v);
    } else if constexpr (E == 8) {
        return _mm512_maskz_permutexvar_epi64(0xFF, _mm512_set_epi64(0, 1, 2, 3, 4, 5, 6, 7), v);
    } else {
        return lanes::shuffle_lanes<_MM_SHUFFLE(0, 1, 2, 3)>(v, v);
    }
}

// Element reversal inside each 16-byte lane.
template <int E>
inline V reverse_in_lanes(V v) {
    alignas(16) std::int8_t t[16];
    for (int i = 0; i < 16; ++i) t[i] = static_cast<std::int8_t>((15 / E - i / E) * E + i % E);
    return _mm512_shuffle_epi8(v, lanes::lane_broadcast(_mm_load_si128(reinterpret_cast<const __m128i*>(t))));
}

// Widening of 48 bytes of three-channel pixels (the low 48 of a register)
// to four-element pixels, the fourth zero, and back to the low 48 bytes.
template <int Es>
inline V widen_reg(V v) {
    static constexpr lanes::Idx idx = lanes::make_idx([](int i) { return i % 4 == 3 ? 0 : 3 * (i / 4) + i % 4; });
    static constexpr int order[3] = {0, 1, 2};
    static constexpr lanes::LaneTable ctl = lanes::lane_table(Es, lanes::Lane::C4, 3, lanes::Lane::C3, order);
    return _mm512_shuffle_epi8(lanes::perm32(lanes::vec(idx), v), lanes::lane_vec(ctl));
}
template <int Es>
inline V narrow_reg(V v) {
    static constexpr lanes::Idx idx = lanes::make_idx([](int i) { return i < 12 ? 4 * (i / 3) + i % 3 : 0; });
    static constexpr int order[3] = {0, 1, 2};
    static constexpr lanes::LaneTable ctl = lanes::lane_table(Es, lanes::Lane::C3, 3, lanes::Lane::C4, order);
    const V t = _mm512_shuffle_epi8(v, lanes::lane_vec(ctl));
    return lanes::perm32(lanes::vec(idx), t);
}
template <int Es>
inline V widen(const byte* p) {
    return widen_reg<Es>(_mm512_maskz_loadu_epi32(0x0FFF, p));
}
template <int Es>
inline void narrow(byte* p, V v) {
    _mm512_mask_storeu_epi32(p, 0x0FFF, narrow_reg<Es>(v));
}

// One tile from s (rows ss apart) to d (rows ds apart). Anti reverses each
// stored row; Stream stores whole lines non-temporally (d on a line).
template <int P, bool Anti, bool Stream>
inline void tile(const byte* s, std::ptrdiff_t ss, byte* d, std::ptrdiff_t ds) {
    using G = Geometry<P>;
    if constexpr (G::kLaneBlocks) {
        constexpr int L = G::TH;
        V r[L];
        for (int i = 0; i < L; ++i) r[i] = _mm512_loadu_si512(s + i * ss);
        lane_transpose<P, L>(r);
        // Lane k of vector j is destination row k L + j.
        for (int j = 0; j < L; ++j) {
            const V v = Anti ? reverse_in_lanes<P>(r[j]) : r[j];
            _mm_storeu_si128(reinterpret_cast<__m128i*>(d + (0 * L + j) * ds), _mm512_maskz_extracti32x4_epi32(0xF, v, 0));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(d + (1 * L + j) * ds), _mm512_maskz_extracti32x4_epi32(0xF, v, 1));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(d + (2 * L + j) * ds), _mm512_maskz_extracti32x4_epi32(0xF, v, 2));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(d + (3 * L + j) * ds), _mm512_maskz_extracti32x4_epi32(0xF, v, 3));
        }
    } else {
        constexpr int R = G::TH;
        V r[R];
        for (int i = 0; i < R; ++i) {
            if constexpr (G::kNarrow) r[i] = widen<P / 3>(s + i * ss);
            else r[i] = _mm512_loadu_si512(s + i * ss);
        }
        vector_transpose<R>(r);
        for (int j = 0; j < R; ++j) {
            const V v = Anti ? reverse<G::W>(r[j]) : r[j];
            byte* row = d + j * ds;
            if constexpr (G::kNarrow) narrow<P / 3>(row, v);
            else if constexpr (Stream) _mm512_stream_si512(reinterpret_cast<V*>(row), v);
            else _mm512_storeu_si512(row, v);
        }
    }
}

// The whole image: tiles, then the pixels outside whole tiles one by one.
// Destination row x holds source column x; with Anti, destination row
// w - 1 - x holds it reversed.
template <int P, bool Anti, bool Stream = false>
void image(const byte* s, std::ptrdiff_t ss, byte* d, std::ptrdiff_t ds, int w, int h) {
    using G = Geometry<P>;
    const int wt = w - w % G::TW, ht = h - h % G::TH;
    auto at = [&](int x, int y) {
        return Anti ? d + std::ptrdiff_t(w - 1 - x) * ds + std::ptrdiff_t(h - 1 - y) * P
                    : d + std::ptrdiff_t(x) * ds + std::ptrdiff_t(y) * P;
    };
    for (int x0 = 0; x0 < wt; x0 += G::TW)
        for (int y0 = 0; y0 < ht; y0 += G::TH) {
            const byte* st = s + std::ptrdiff_t(y0) * ss + std::ptrdiff_t(x0) * P;
            if constexpr (Anti) tile<P, true, Stream>(st, ss, at(x0, y0 + G::TH - 1), -ds);
            else tile<P, false, Stream>(st, ss, at(x0, y0), ds);
        }
    auto one = [&](int x, int y) { std::memcpy(at(x, y), s + std::ptrdiff_t(y) * ss + std::ptrdiff_t(x) * P, P); };
    for (int y = 0; y < h; ++y)
        for (int x = wt; x < w; ++x) one(x, y);
    for (int y = ht; y < h; ++y)
        for (int x = 0; x < wt; ++x) one(x, y);
    if constexpr (Stream) _mm_sfence();
}

}  // namespace tav::move::transpose
