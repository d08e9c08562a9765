// Channel shuffles in 16-byte lanes. A lane holds whole pixels in one of
// three arrangements, so that one in-lane byte shuffle serves every element
// size:
//   C3 lane      12 bytes: 4/es pixels of three channels (4 bytes unused)
//   C4 lane      16 bytes: 4/es pixels of four channels
//   planar lane  dword c holds channel c of the lane's 4/es pixels
// Blocks are 64/es pixels: three vectors of a three-channel row spread into
// four vectors of C3 lanes, four vectors of a four-channel row are C4 lanes
// as loaded, and one vector of each plane fills dword c of four vectors.
//
// run_row walks a row in blocks with a masked tail: it reads nothing and
// writes nothing outside the row's bytes, and writes only the kept bytes of
// each output vector.
#pragma once

#include <immintrin.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include "move/keep_mask.h"

namespace tav::move::lanes {

using V = __m512i;
using byte = std::uint8_t;

using Idx = std::array<int, 16>;
template <class F>
constexpr Idx make_idx(F f) {
    Idx a{};
    for (int i = 0; i < 16; ++i) a[i] = f(i);
    return a;
}
inline V vec(const Idx& a) { return _mm512_loadu_si512(a.data()); }

// Whole-vector permutes through their zero-masking forms: the plain forms'
// undefined pass-through upsets this compiler's uninitialised-use warning.
inline V perm32(V idx, V v) { return _mm512_maskz_permutexvar_epi32(0xFFFF, idx, v); }
inline V lane_broadcast(__m128i x) { return _mm512_maskz_broadcast_i32x4(0xFFFF, x); }
template <int Imm>
inline V shuffle_lanes(V a, V b) {
    return _mm512_maskz_shuffle_i64x2(0xFF, a, b, Imm);
}

// Three vectors of a three-channel row to four vectors of C3 lanes: lane l
// of vector k holds dwords 12k + 3l + 0..2 of the 48.
inline void spread3(const V* in, V* g) {
    static constexpr Idx i0 = make_idx([](int i) { return i % 4 == 3 ? 0 : 3 * (i / 4) + i % 4; });
    static constexpr Idx i1 = make_idx([](int i) { return i % 4 == 3 ? 0 : 12 + 3 * (i / 4) + i % 4; });
    static constexpr Idx i2 = make_idx([](int i) { return i % 4 == 3 ? 0 : 8 + 3 * (i / 4) + i % 4; });
    static constexpr Idx i3 = make_idx([](int i) { return i % 4 == 3 ? 0 : 4 + 3 * (i / 4) + i % 4; });
    g[0] = perm32(vec(i0), in[0]);
    g[1] = _mm512_permutex2var_epi32(in[0], vec(i1), in[1]);
    g[2] = _mm512_permutex2var_epi32(in[1], vec(i2), in[2]);
    g[3] = perm32(vec(i3), in[2]);
}

// The inverse: four vectors of C3 lanes to three vectors of a row.
inline void compact3(const V* g, V* out) {
    // Output dword o comes from vector o / 12, lane (o % 12) / 3, dword o % 3;
    // each output vector draws on two neighbouring lane vectors.
    static constexpr auto from = [](int o, int first) {
        const int k = o / 12, r = o % 12;
        return (k == first ? 0 : 16) + 4 * (r / 3) + r % 3;
    };
    static constexpr Idx c0 = make_idx([](int i) { return from(i, 0); });
    static constexpr Idx c1 = make_idx([](int i) { return from(16 + i, 1); });
    static constexpr Idx c2 = make_idx([](int i) { return from(32 + i, 2); });
    out[0] = _mm512_permutex2var_epi32(g[0], vec(c0), g[1]);
    out[1] = _mm512_permutex2var_epi32(g[1], vec(c1), g[2]);
    out[2] = _mm512_permutex2var_epi32(g[2], vec(c2), g[3]);
}

// Dword c of every lane of four vectors, in order: one plane's 64 bytes.
inline V gather_plane(const V* g, int c) {
    const V idx = _mm512_add_epi32(
        _mm512_set1_epi32(c), vec(make_idx([](int i) { return (i % 8) / 4 * 16 + (i % 4) * 4; })));
    const V lo = _mm512_permutex2var_epi32(g[0], idx, g[1]);
    const V hi = _mm512_permutex2var_epi32(g[2], idx, g[3]);
    return shuffle_lanes<_MM_SHUFFLE(1, 0, 1, 0)>(lo, hi);
}

// The inverse of gather_plane for vector k: dword 0 of lane l is dword
// 4k + l of one plane.
inline V plane_to_lanes(V plane, int k) {
    return perm32(_mm512_add_epi32(_mm512_set1_epi32(4 * k), vec(make_idx([](int i) { return i / 4; }))),
                                    plane);
}

// Planar lanes of vector k from three or four planes: dword c of lane l is
// dword 4k + l of plane c.
inline V planes_to_lanes(const V* p, int planes, int k) {
    const V base = _mm512_set1_epi32(4 * k);
    const V i01 = _mm512_add_epi32(base, vec(make_idx([](int i) { return i / 4 + (i % 4 == 1 ? 16 : 0); })));
    const V i23 = _mm512_add_epi32(base, vec(make_idx([](int i) { return i / 4 + (i % 4 == 3 ? 16 : 0); })));
    const V t01 = _mm512_permutex2var_epi32(p[0], i01, p[1]);
    if (planes == 3) return _mm512_mask_permutexvar_epi32(t01, 0x4444, i23, p[2]);
    return _mm512_mask_blend_epi32(0xCCCC, t01, _mm512_permutex2var_epi32(p[2], i23, p[3]));
}

// Byte positions inside a lane.
enum class Lane { C3, C4, Planar };
constexpr int lane_pos(Lane l, int es, int pixel, int channel, int b) {
    switch (l) {
        case Lane::C3: return (3 * pixel + channel) * es + b;
        case Lane::C4: return (4 * pixel + channel) * es + b;
        default: return 4 * channel + pixel * es + b;
    }
}

// An in-lane byte shuffle: output channel c of each pixel takes input
// channel from[c]; from[c] < 0 leaves zero (for a later blend).
struct LaneTable {
    std::int8_t t[16];
};
constexpr LaneTable lane_table(int es, Lane out, int outChannels, Lane in, const int* from) {
    LaneTable r{};
    for (int i = 0; i < 16; ++i) r.t[i] = -128;
    for (int p = 0; p < 4 / es; ++p)
        for (int c = 0; c < outChannels; ++c)
            for (int b = 0; b < es; ++b)
                if (from[c] >= 0)
                    r.t[lane_pos(out, es, p, c, b)] = static_cast<std::int8_t>(lane_pos(in, es, p, from[c], b));
    return r;
}
inline V lane_vec(const LaneTable& t) {
    return lane_broadcast(_mm_loadu_si128(reinterpret_cast<const __m128i*>(t.t)));
}
inline V lane_shuffle(int es, Lane out, int outChannels, Lane in, const int* from) {
    return lane_vec(lane_table(es, out, outChannels, in, from));
}

// Byte lanes of output channel c in a lane arrangement (for blends).
inline __mmask64 lane_channel_bytes(int es, Lane l, int c) {
    std::uint64_t m = 0;
    for (int p = 0; p < 4 / es; ++p)
        for (int b = 0; b < es; ++b)
            for (int lane = 0; lane < 4; ++lane) m |= 1ull << (16 * lane + lane_pos(l, es, p, c, b));
    return m;
}

inline __mmask64 byte_lanes(std::ptrdiff_t n) {
    return n <= 0 ? 0 : n >= 64 ? ~0ull : _bzhi_u64(~0ull, static_cast<unsigned>(n));
}

// One side of a conversion: an interleaved row of `channels` (the pointer on
// a pixel, or with `coi` on one channel of its pixel), or planes.
struct Side {
    int vecs;      // vectors a block
    bool planar;   // one vector from each of `vecs` planes
    int channels;  // elements a pixel of an interleaved row
    bool coi;      // the row's pointer stands on a channel: its last pixel is cut short

    // Bytes of each stream that `pixels` pixels cover.
    constexpr std::ptrdiff_t span(std::ptrdiff_t pixels, int es) const {
        if (planar) return pixels * es;
        return (coi ? channels * (pixels - 1) + 1 : channels * pixels) * es;
    }
};
inline constexpr Side kC1{1, false, 1, false};
inline constexpr Side kC3{3, false, 3, false};
inline constexpr Side kC4{4, false, 4, false};
inline constexpr Side kP3{3, true, 1, false};
inline constexpr Side kP4{4, true, 1, false};
inline constexpr Side kC3Coi{3, false, 3, true};
inline constexpr Side kC4Coi{4, false, 4, true};

enum class Store { Cached, Streaming };

inline constexpr std::size_t kAhead = 4096;

// Walks a row of `pixels` through kernel k, which maps In.vecs vectors to
// Out.vecs vectors; output vector j is written under keep.at(64 j).
template <int Es, Side In, Side Out, Store How = Store::Cached, class K>
inline void run_row(const K& k, const byte* const* src, byte* const* dst, std::size_t pixels, const KeepMask& keep) {
    constexpr std::size_t per = 64 / Es;
    constexpr std::size_t inStride = In.planar ? 64 : 64 * In.vecs;
    constexpr std::size_t outStride = Out.planar ? 64 : 64 * Out.vecs;
    auto in_at = [&](int j, std::size_t off) { return src[In.planar ? j : 0] + off + (In.planar ? 0 : 64 * j); };
    auto out_at = [&](int j, std::size_t off) { return dst[Out.planar ? j : 0] + off + (Out.planar ? 0 : 64 * j); };
    __mmask64 m[4];
    for (int j = 0; j < Out.vecs; ++j) m[j] = keep.at(static_cast<std::size_t>(64 * j) % 192);
    V a[4], b[4];
    // A row whose pointer stands on a channel ends short of a whole pixel:
    // its last pixel always goes through the masked tail.
    const std::size_t full = (In.coi || Out.coi) ? (pixels - 1) / per : pixels / per;
    std::size_t inOff = 0, outOff = 0;
    for (std::size_t blk = 0; blk < full; ++blk, inOff += inStride, outOff += outStride) {
        // Every input line asked for ahead (a hint, never a read): the
        // streams of a large image outrun the hardware's own fetching.
        for (int j = 0; j < In.vecs; ++j)
            _mm_prefetch(reinterpret_cast<const char*>(in_at(j, inOff)) + kAhead, _MM_HINT_T0);
        for (int j = 0; j < In.vecs; ++j) a[j] = _mm512_loadu_si512(in_at(j, inOff));
        k(a, b);
        for (int j = 0; j < Out.vecs; ++j) {
            if (!keep.all) _mm512_mask_storeu_epi8(out_at(j, outOff), m[j], b[j]);
            else if constexpr (How == Store::Streaming) _mm512_stream_si512(reinterpret_cast<V*>(out_at(j, outOff)), b[j]);
            else _mm512_storeu_si512(out_at(j, outOff), b[j]);
        }
    }
    const std::ptrdiff_t r = static_cast<std::ptrdiff_t>(pixels - full * per);
    if (r <= 0) return;
    const std::ptrdiff_t inSpan = In.span(r, Es), outSpan = Out.span(r, Es);
    for (int j = 0; j < In.vecs; ++j)
        a[j] = _mm512_maskz_loadu_epi8(byte_lanes(In.planar ? inSpan : inSpan - 64 * j), in_at(j, inOff));
    k(a, b);
    for (int j = 0; j < Out.vecs; ++j)
        _mm512_mask_storeu_epi8(out_at(j, outOff), byte_lanes(Out.planar ? outSpan : outSpan - 64 * j) & m[j], b[j]);
}

}  // namespace tav::move::lanes
