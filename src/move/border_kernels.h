// Row kernels of the border copies. Elements move as bits, so every type is
// handled in integer lanes of its own width.
//
// compose_row writes one destination row of N elements as three parts: a
// left pattern [0, L), the source [L, L + M), a right pattern [L + M, N),
// one 64-byte vector at a time; a pattern is a pixel repeated (the edge
// pixel, or the constant). The side kernels write mirrored or wrapped sides.
// Nothing outside the row is read or written; AC4 rows never read or write
// the fourth element of a pixel.
#pragma once

#include "move/convert_lanes.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace tav::move::border {

template <class T>
inline constexpr int kLanes = 64 / sizeof(T);

inline uint64_t low_lanes(int64_t n) { return n >= 64 ? ~0ull : _bzhi_u64(~0ull, static_cast<unsigned>(n)); }

template <class T>
inline constexpr uint64_t kAllLanes = kLanes<T> == 64 ? ~0ull : (1ull << kLanes<T>) - 1;

// Three of every four lanes: AC4 rows start on a pixel and every vector
// holds whole pixels.
template <class T, bool Ac4>
inline constexpr uint64_t kLive = Ac4 ? kAllLanes<T> & 0x7777777777777777ull : kAllLanes<T>;

template <class T>
inline __m512i load(uint64_t m, const T* p) {
    if constexpr (sizeof(T) == 1) return _mm512_maskz_loadu_epi8(m, p);
    else if constexpr (sizeof(T) == 2) return _mm512_maskz_loadu_epi16(static_cast<__mmask32>(m), p);
    else if constexpr (sizeof(T) == 4) return _mm512_maskz_loadu_epi32(static_cast<__mmask16>(m), p);
    else return _mm512_maskz_loadu_epi64(static_cast<__mmask8>(m), p);
}
// Lanes of m from p over v.
template <class T>
inline __m512i load_over(__m512i v, uint64_t m, const T* p) {
    if constexpr (sizeof(T) == 1) return _mm512_mask_loadu_epi8(v, m, p);
    else if constexpr (sizeof(T) == 2) return _mm512_mask_loadu_epi16(v, static_cast<__mmask32>(m), p);
    else return _mm512_mask_loadu_epi32(v, static_cast<__mmask16>(m), p);
}
template <class T>
inline __m512i blend(uint64_t m, __m512i a, __m512i b) {
    if constexpr (sizeof(T) == 1) return _mm512_mask_blend_epi8(m, a, b);
    else if constexpr (sizeof(T) == 2) return _mm512_mask_blend_epi16(static_cast<__mmask32>(m), a, b);
    else return _mm512_mask_blend_epi32(static_cast<__mmask16>(m), a, b);
}
template <class T>
inline void store(T* p, uint64_t m, __m512i v) {
    if constexpr (sizeof(T) == 1) _mm512_mask_storeu_epi8(p, m, v);
    else if constexpr (sizeof(T) == 2) _mm512_mask_storeu_epi16(p, static_cast<__mmask32>(m), v);
    else if constexpr (sizeof(T) == 4) _mm512_mask_storeu_epi32(p, static_cast<__mmask16>(m), v);
    else _mm512_mask_storeu_epi64(p, static_cast<__mmask8>(m), v);
}
// A whole vector, or the lanes of m; NT streams whole vectors (the caller
// has brought the destination to 64 bytes).
template <class T, bool NT>
inline void put(T* p, uint64_t m, __m512i v) {
    if (m == kAllLanes<T>) {
        if constexpr (NT) _mm512_stream_si512(reinterpret_cast<__m512i*>(p), v);
        else _mm512_storeu_si512(p, v);
    } else {
        store(p, m, v);
    }
}

// In-lane byte indices that spread one pixel (at the start of every 128-bit
// lane) over a vector, the first element being channel `phase`.
template <class T, int Ch>
constexpr std::array<std::array<uint8_t, 64>, 3> pattern_indices() {
    std::array<std::array<uint8_t, 64>, 3> idx{};
    for (int phase = 0; phase < 3; ++phase)
        for (int b = 0; b < 64; ++b) {
            const int element = b / int(sizeof(T)), channel = (element + phase) % Ch;
            idx[phase][b] = static_cast<uint8_t>(channel * sizeof(T) + b % sizeof(T));
        }
    return idx;
}
template <class T, int Ch>
alignas(64) inline constexpr auto kPatternIdx = pattern_indices<T, Ch>();

// The pixel at px (the first `count` of its Ch elements; AC4 constants have
// three) repeated over a vector, in the three phases a C3 row can start a
// vector with.
template <class T, int Ch>
struct Pattern {
    __m512i v[3];
    Pattern() : v{_mm512_setzero_si512(), _mm512_setzero_si512(), _mm512_setzero_si512()} {}
    Pattern(const T* px, int count) {
        // Whole pixels of 1, 2, 4 or 8 bytes are one broadcast.
        if (count == Ch && Ch * sizeof(T) <= 8 && Ch != 3) {
            uint64_t bits = 0;
            std::memcpy(&bits, px, Ch * sizeof(T));
            if constexpr (Ch * sizeof(T) == 1) v[0] = _mm512_set1_epi8(static_cast<char>(bits));
            else if constexpr (Ch * sizeof(T) == 2) v[0] = _mm512_set1_epi16(static_cast<short>(bits));
            else if constexpr (Ch * sizeof(T) == 4) v[0] = _mm512_set1_epi32(static_cast<int>(bits));
            else v[0] = _mm512_set1_epi64(static_cast<long long>(bits));
            return;
        }
        const __m128i p = _mm_maskz_loadu_epi8(static_cast<__mmask16>(_bzhi_u32(0xffffu, count * sizeof(T))), px);
        const __m512i b = _mm512_broadcast_i32x4(p);
        for (int k = 0; k < (Ch == 3 ? 3 : 1); ++k)
            v[k] = _mm512_shuffle_epi8(b, _mm512_load_si512(kPatternIdx<T, Ch>[k].data()));
    }
    __m512i at(int64_t element) const { return Ch == 3 ? v[element % 3] : v[0]; }

    // The pixel of Ch elements at px over a vector starting at an element
    // of the given phase, made alone.
    static __m512i one(const T* px, int phase) {
        if constexpr (Ch * sizeof(T) <= 8 && Ch != 3) {
            return Pattern(px, Ch).v[0];
        } else {
            const __m128i p = _mm_maskz_loadu_epi8(static_cast<__mmask16>(_bzhi_u32(0xffffu, Ch * sizeof(T))), px);
            return _mm512_shuffle_epi8(_mm512_broadcast_i32x4(p), _mm512_load_si512(kPatternIdx<T, Ch>[phase].data()));
        }
    }
};

// One destination row: [0, L) left pattern, [L, L + M) source, [L + M, N)
// right pattern (element counts). src may be null when M is 0.
template <class T, int Ch, bool Ac4, bool NT>
void compose_row(const T* src, int64_t M, T* dst, int64_t L, int64_t N, const Pattern<T, Ch>& lp,
                 const Pattern<T, Ch>& rp) {
    constexpr int B = kLanes<T>;
    constexpr uint64_t live = kLive<T, Ac4>;
    const auto srcAt = [src, L](int64_t o) {
        return reinterpret_cast<const T*>(reinterpret_cast<uintptr_t>(src) + (o - L) * int64_t{sizeof(T)});
    };
    // A vector that may hold pattern lanes on either side of the source.
    const auto mixed = [&](int64_t o, bool nt) {
        const uint64_t left = low_lanes(std::clamp<int64_t>(L - o, 0, B));
        const uint64_t inside = low_lanes(std::clamp<int64_t>(L + M - o, 0, B)) & ~left;
        const uint64_t m = live & low_lanes(N - o);
        __m512i v = blend<T>(left, rp.at(o), lp.at(o));
        if (inside & m) v = load_over(v, inside & m, srcAt(o));
        if (nt) put<T, NT>(dst + o, m, v);
        else put<T, false>(dst + o, m, v);
    };
    int64_t o = 0;
    if constexpr (NT && !Ac4) {
        // Brought to a cache line with plain stores; whole lines stream after.
        if (reinterpret_cast<uintptr_t>(dst) % sizeof(T) == 0) {
            const int64_t head = std::min<int64_t>(N, ((0 - reinterpret_cast<uintptr_t>(dst)) & 63) / sizeof(T));
            if (head > 0) {
                const uint64_t left = low_lanes(std::clamp<int64_t>(L, 0, head));
                const uint64_t inside = low_lanes(std::clamp<int64_t>(L + M, 0, head)) & ~left;
                __m512i v = blend<T>(left, rp.at(0), lp.at(0));
                if (inside) v = load_over(v, inside, srcAt(0));
                store(dst, low_lanes(head), v);
                o = head;
            }
        } else {
            // A destination off its element alignment cannot reach a line.
            compose_row<T, Ch, Ac4, false>(src, M, dst, L, N, lp, rp);
            return;
        }
    }
    for (; o < N && o < L; o += B) mixed(o, true);
    if constexpr (NT && !Ac4) {
        // Streaming rows are long and their source far from the core: the
        // source asked for 4 KiB ahead (a hint, never a read).
        constexpr int64_t ahead = 4096 / sizeof(T);
        for (; o + 2 * B <= L + M; o += 2 * B) {
            _mm_prefetch(reinterpret_cast<const char*>(srcAt(o) + ahead), _MM_HINT_T0);
            _mm_prefetch(reinterpret_cast<const char*>(srcAt(o + B) + ahead), _MM_HINT_T0);
            const __m512i a = _mm512_loadu_si512(srcAt(o)), b = _mm512_loadu_si512(srcAt(o + B));
            _mm512_stream_si512(reinterpret_cast<__m512i*>(dst + o), a);
            _mm512_stream_si512(reinterpret_cast<__m512i*>(dst + o + B), b);
        }
    }
    for (; o + B <= L + M; o += B) {
        const __m512i v = Ac4 ? load<T>(live, srcAt(o)) : _mm512_loadu_si512(srcAt(o));
        if constexpr (Ac4) store(dst + o, live, v);
        else put<T, NT>(dst + o, kAllLanes<T>, v);
    }
    for (; o < N; o += B) mixed(o, true);
}

// The vectors of a row that are not plain copies of the source, worked out
// once for all rows of a call: which lanes take the left pattern, which the
// source, which are written. Rows whose edges need more pieces than fit
// here take compose_row.
struct RowPlan {
    struct Piece {
        int64_t o;
        uint64_t left, inside, store;
    };
    static constexpr int kMax = 12;
    Piece head[kMax], tail[kMax];
    int heads = 0, tails = 0;
    int64_t from = 0, to = 0;  // whole source vectors: [from, to)
    bool fits = false;
};

template <class T, bool Ac4>
inline RowPlan plan_row(int64_t M, int64_t L, int64_t N) {
    constexpr int B = kLanes<T>;
    RowPlan p;
    const auto piece = [&](int64_t o) {
        const uint64_t left = low_lanes(std::clamp<int64_t>(L - o, 0, B));
        const uint64_t inside = low_lanes(std::clamp<int64_t>(L + M - o, 0, B)) & ~left;
        return RowPlan::Piece{o, left, inside, kLive<T, Ac4> & low_lanes(N - o)};
    };
    int64_t o = 0;
    for (; o < N && o < L; o += B) {
        if (p.heads == RowPlan::kMax) return p;
        p.head[p.heads++] = piece(o);
    }
    p.from = o;
    for (; o + B <= L + M; o += B) {}
    p.to = o;
    for (; o < N; o += B) {
        if (p.tails == RowPlan::kMax) return p;
        p.tail[p.tails++] = piece(o);
    }
    p.fits = true;
    return p;
}

// compose_row by a plan, plain stores.
template <class T, int Ch, bool Ac4>
void compose_planned(const T* src, T* dst, int64_t L, const RowPlan& p, const Pattern<T, Ch>& lp,
                     const Pattern<T, Ch>& rp) {
    constexpr int B = kLanes<T>;
    const auto srcAt = [src, L](int64_t o) {
        return reinterpret_cast<const T*>(reinterpret_cast<uintptr_t>(src) + (o - L) * int64_t{sizeof(T)});
    };
    const auto piece = [&](const RowPlan::Piece& q) {
        __m512i v = blend<T>(q.left, rp.at(q.o), lp.at(q.o));
        if (q.inside) v = load_over(v, q.inside, srcAt(q.o));
        put<T, false>(dst + q.o, q.store, v);
    };
    for (int i = 0; i < p.heads; ++i) piece(p.head[i]);
    for (int64_t o = p.from; o < p.to; o += B) {
        if constexpr (Ac4) store(dst + o, kLive<T, true>, load<T>(kLive<T, true>, srcAt(o)));
        else _mm512_storeu_si512(dst + o, _mm512_loadu_si512(srcAt(o)));
    }
    for (int i = 0; i < p.tails; ++i) piece(p.tail[i]);
}

// M >= B elements by whole vectors, the last one overlapping the one
// before: plain loads and stores only.
template <class T>
__attribute__((always_inline)) inline void copy_overlapping(const T* src, int64_t M, T* dst) {
    constexpr int B = kLanes<T>;
    int64_t i = 0;
    for (; i + 4 * B <= M; i += 4 * B) {
        const __m512i a = _mm512_loadu_si512(src + i), b = _mm512_loadu_si512(src + i + B);
        const __m512i c = _mm512_loadu_si512(src + i + 2 * B), e = _mm512_loadu_si512(src + i + 3 * B);
        _mm512_storeu_si512(dst + i, a);
        _mm512_storeu_si512(dst + i + B, b);
        _mm512_storeu_si512(dst + i + 2 * B, c);
        _mm512_storeu_si512(dst + i + 3 * B, e);
    }
    for (; i + B <= M; i += B) _mm512_storeu_si512(dst + i, _mm512_loadu_si512(src + i));
    if (i < M) _mm512_storeu_si512(dst + M - B, _mm512_loadu_si512(src + M - B));
}

// Mirrored sides that fit, with the edge pixel, in K bytes at either end of
// the source row: one permutation each of the K bytes there (32 bytes by
// two in-lane byte shuffles for one- and two-byte elements, 64 by a dword
// permutation for wider ones; the word permutation is slow here). Lanes
// past a side are left for the source part to overwrite.
template <class T>
struct SmallMirror {
    static constexpr int K = sizeof(T) <= 2 ? 32 : 64;
    __m512i left[2], right[2];

    static bool fits(int64_t L, int64_t R, int P) { return (L + 1) * P <= K && (R + 1) * P <= K; }

    SmallMirror() : left{}, right{} {}
    SmallMirror(int64_t L, int64_t R, int P) {
        // Source byte of destination byte j: left pixel p is source pixel
        // L - p; right pixel q is w - 2 - q, counted from the K bytes that end
        // the source row. -1: a lane past the side.
        int from[2][K];
        const int64_t rightFrom = K - R * P;
        for (int j = 0; j < K; ++j) {
            from[0][j] = j < L * P ? static_cast<int>((L - j / P) * P + j % P) : -1;
            const int64_t k = j - rightFrom;
            from[1][j] = k >= 0 ? static_cast<int>(K - (k / P + 2) * P + k % P) : -1;
        }
        for (int side = 0; side < 2; ++side) {
            alignas(64) uint8_t idx[2][64] = {};
            if constexpr (K == 32) {
                // Same 16-byte lane from the row as loaded, the other from
                // its lanes swapped; 0x80 zeroes a lane.
                for (int j = 0; j < 32; ++j) {
                    const int f = from[side][j] < 0 ? j : from[side][j];
                    const bool same = f / 16 == j / 16;
                    idx[0][j] = same ? static_cast<uint8_t>(f % 16) : 0x80;
                    idx[1][j] = same ? 0x80 : static_cast<uint8_t>(f % 16);
                }
            } else {
                for (int j = 0; j < 16; ++j) idx[0][4 * j] = static_cast<uint8_t>(from[side][4 * j] < 0 ? j : from[side][4 * j] / 4);
            }
            (side ? right : left)[0] = _mm512_load_si512(idx[0]);
            (side ? right : left)[1] = _mm512_load_si512(idx[1]);
        }
    }
    static void put(const uint8_t* s, uint8_t* d, const __m512i (&idx)[2]) {
        if constexpr (K == 32) {
            const __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s));
            const __m256i b = _mm256_permute4x64_epi64(a, 0x4e);
            const __m256i r = _mm256_or_si256(_mm256_shuffle_epi8(a, _mm512_castsi512_si256(idx[0])),
                                              _mm256_shuffle_epi8(b, _mm512_castsi512_si256(idx[1])));
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(d), r);
        } else {
            _mm512_storeu_si512(d, _mm512_permutexvar_epi32(idx[0], _mm512_loadu_si512(s)));
        }
    }
    // Row of `bytes` source bytes at s (at least K); the destination row
    // starts at d and ends at dEnd.
    void sides(const void* s, int64_t bytes, void* d, void* dEnd) const {
        const auto* sb = static_cast<const uint8_t*>(s);
        put(sb, static_cast<uint8_t*>(d), left);
        put(sb + bytes - K, static_cast<uint8_t*>(dEnd) - K, right);
    }
};

// Reverses units of U bytes (1, 2, 4, 8 or 16) within a vector.
template <int U>
inline __m512i reverse_units(__m512i v) {
    if constexpr (U == 1) {
        const __m512i r = _mm512_set4_epi32(0x00010203, 0x04050607, 0x08090a0b, 0x0c0d0e0f);
        return _mm512_shuffle_i64x2(_mm512_shuffle_epi8(v, r), _mm512_shuffle_epi8(v, r), 0x1b);
    } else if constexpr (U == 2) {
        return _mm512_permutexvar_epi16(_mm512_set_epi16(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17,
                                                         18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31),
                                        v);
    } else if constexpr (U == 4) {
        return _mm512_permutexvar_epi32(_mm512_set_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15), v);
    } else if constexpr (U == 8) {
        return _mm512_permutexvar_epi64(_mm512_set_epi64(0, 1, 2, 3, 4, 5, 6, 7), v);
    } else {
        return _mm512_shuffle_i64x2(v, v, 0x1b);
    }
}

// dst pixel i = src pixel n - 1 - i, for n pixels of Ch elements.
template <class T, int Ch>
void reverse_pixels(const T* src, int64_t n, T* dst) {
    constexpr int P = Ch * sizeof(T);
    // A few pixels cost less one by one than a masked vector.
    if (n * P <= 16) {
        for (int64_t i = 0; i < n; ++i) std::memcpy(dst + i * Ch, src + (n - 1 - i) * Ch, P);
        return;
    }
    if constexpr (P == 1 || P == 2 || P == 4 || P == 8 || P == 16) {
        constexpr int K = 64 / P, B = kLanes<T>;
        for (int64_t i = 0; i < n; i += K) {
            const int64_t r = std::min<int64_t>(K, n - i);
            // The vector ends at source pixel n - i; lanes before the row's
            // start are masked off.
            const T* from = reinterpret_cast<const T*>(reinterpret_cast<uintptr_t>(src) + (n - i - K) * int64_t{P});
            const uint64_t in = kAllLanes<T> & ~low_lanes(B - r * Ch);
            store(dst + i * Ch, low_lanes(r * Ch), reverse_units<P>(load<T>(in, from)));
        }
    } else {
        for (int64_t i = 0; i < n; ++i) std::memcpy(dst + i * Ch, src + (n - 1 - i) * Ch, P);
    }
}

// n pixels copied forward, within one row.
template <class T, int Ch>
void copy_pixels(const T* src, int64_t n, T* dst) {
    constexpr int B = kLanes<T>;
    if (n * Ch * int64_t{sizeof(T)} <= 16) {
        for (int64_t i = 0; i < n; ++i) std::memcpy(dst + i * Ch, src + i * Ch, Ch * sizeof(T));
        return;
    }
    const int64_t e = n * Ch;
    for (int64_t i = 0; i < e; i += B) {
        const uint64_t m = low_lanes(e - i);
        store(dst + i, m, load<T>(m, src + i));
    }
}

// A row copied with alpha left alone (AC4 frame rows).
template <class T>
void copy_row_ac4(const T* src, T* dst, int64_t elems) {
    constexpr int B = kLanes<T>;
    for (int64_t i = 0; i < elems; i += B) {
        const uint64_t m = kLive<T, true> & low_lanes(elems - i);
        store(dst + i, m, load<T>(m, src + i));
    }
}

// Source index of outside position p (any integer) under mirroring without a
// repeated edge: period 2n - 2, and the single pixel when n is 1.
inline int64_t reflect(int64_t p, int64_t n) {
    if (n == 1) return 0;
    const int64_t period = 2 * n - 2;
    int64_t q = p % period;
    if (q < 0) q += period;
    return q < n ? q : period - q;
}

inline int64_t wrap(int64_t p, int64_t n) {
    const int64_t q = p % n;
    return q < 0 ? q + n : q;
}

}  // namespace tav::move::border
