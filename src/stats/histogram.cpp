// taviHistogram: per-channel pixel counts in bins described by a spec.
//
// Integer data count every value once into a full table in pBuffer (256 or
// 65536 counters a channel) and then add the table's runs per bin, so the
// cost per pixel does not depend on the levels. 32f finds each pixel's bin
// directly: a binary search over the levels, or for uniform levels a fused
// multiply-subtract corrected against the neighbouring levels.
#include <atomic>
#include <cmath>
#include <cstring>

#include "stats/reduce.h"

// The spec record, 80 bytes of head followed by one level table a channel.
struct TaviHistogramSpec {
    int32_t dataType;
    int32_t numChannels;
    int32_t uniform;
    uint32_t id;           // "hist", written last by the Init functions
    int32_t nLevels[4];    // 0 for channels not in use
    void* pLevels[4];      // into the tables behind the head; null when unused
    float step[4];         // 32f uniform: (upper - lower) / (nLevels - 1)
};
static_assert(sizeof(TaviHistogramSpec) == 80, "the head of the spec takes 80 bytes");

namespace tav::stats {
namespace {

constexpr uint32_t kHistId = 0x74736968;  // the bytes "hist"

bool known_type(int t) { return t == tav8u || t == tav16u || t == tav16s || t == tav32f; }
bool known_channels(int n) { return n == 1 || n == 3 || n == 4; }

// Truncation toward zero with the converting instruction's answer for NaN
// and out-of-range values (the most negative int).
inline int32_t trunc32(double v) { return _mm_cvttsd_si32(_mm_set_sd(v)); }

// Unaligned access to the caller's buffer.
using U32u = uint32_t __attribute__((aligned(1)));

int32_t* int_levels(TaviHistogramSpec* s, int c) { return static_cast<int32_t*>(s->pLevels[c]); }
const int32_t* int_levels(const TaviHistogramSpec* s, int c) { return static_cast<const int32_t*>(s->pLevels[c]); }
const float* float_levels(const TaviHistogramSpec* s, int c) { return static_cast<const float*>(s->pLevels[c]); }

// Fills the head; the id is written by the caller once the tables are in.
void lay_out(TaviHistogramSpec* s, int type, int channels, int uniform, const int* nLevels) {
    s->dataType = type;
    s->numChannels = channels;
    s->uniform = uniform;
    char* table = reinterpret_cast<char*>(s) + sizeof(TaviHistogramSpec);
    for (int c = 0; c < 4; ++c) {
        const bool used = c < channels;
        s->nLevels[c] = used ? nLevels[c] : 0;
        s->pLevels[c] = used ? table : nullptr;
        s->step[c] = 0;
        if (used) table += 4 * std::size_t(nLevels[c]);
    }
}

void seal(TaviHistogramSpec* s) {
    // The id last: a spec caught half-written is refused.
    std::atomic_signal_fence(std::memory_order_seq_cst);
    s->id = kHistId;
}

// ---- integer counting -------------------------------------------------------

// One-channel bytes: two tables of 16-bit counters in turn, so that
// neighbouring equal values don't wait on one counter, and the tables stay
// small in the first-level cache (measured fastest on the target, ahead of
// 32-bit counters, more tables and wide loads split in registers). A counter
// can't pass 65535 before the tables are added into the caller's counts.
constexpr int64_t kByteRun = 65535;

void count_bytes_c1(const Tav8u* row, int64_t w, uint16_t (*t)[256]) {
    int64_t x = 0;
    for (; x + 32 <= w; x += 32) {
#pragma GCC unroll 32
        for (int k = 0; k < 32; ++k) ++t[k & 1][row[x + k]];
    }
    for (; x < w; ++x) ++t[x & 1][row[x]];
}

// Adds both tables into the counts and clears them.
void drain_bytes(uint16_t (*t)[256], uint32_t* counts) {
    for (int v = 0; v < 256; ++v) counts[v] += uint32_t(t[0][v]) + t[1][v];
    std::memset(t, 0, 2 * 256 * sizeof(uint16_t));
}

// Counts of every value of each channel into tables[c] (size 256 or 65536).
template <class T, int C>
void count_values(const T* src, std::ptrdiff_t step, TaviSize roi, U32u* const* tables) {
    constexpr uint32_t kOffset = std::is_same_v<T, Tav16s> ? 32768 : 0;
    if constexpr (std::is_same_v<T, Tav8u> && C == 1) {
        alignas(64) uint16_t t[2][256] = {};
        alignas(64) uint32_t counts[256] = {};
        int64_t w = roi.width;
        int h = roi.height;
        join_rows<T>(w, h, {step});
        int64_t room = kByteRun;
        for (int y = 0; y < h; ++y, src = advance(src, step)) {
            for (int64_t x = 0; x < w;) {
                const int64_t run = std::min(w - x, room);
                count_bytes_c1(src + x, run, t);
                x += run;
                room -= run;
                if (room == 0) {
                    drain_bytes(t, counts);
                    room = kByteRun;
                }
            }
        }
        drain_bytes(t, counts);
        for (int v = 0; v < 256; ++v) tables[0][v] = counts[v];
    } else {
        for (int y = 0; y < roi.height; ++y, src = advance(src, step))
            for (int x = 0; x < roi.width; ++x)
                for (int c = 0; c < C; ++c) ++tables[c][static_cast<uint32_t>(src[x * C + c] + kOffset) & 0xffff];
    }
}

uint32_t sum_run(const U32u* t, int64_t n) {
    if (n < 16) {
        // Short runs (one value a bin and the like) don't pay for a vector fold.
        uint32_t s = 0;
        for (int64_t i = 0; i < n; ++i) s += t[i];
        return s;
    }
    __m512i acc = _mm512_setzero_si512();
    int64_t i = 0;
    for (; i + 16 <= n; i += 16) acc = _mm512_add_epi32(acc, _mm512_loadu_si512(t + i));
    if (i < n) acc = _mm512_add_epi32(acc, _mm512_maskz_loadu_epi32(simd::first_lanes<uint32_t>(n - i), t + i));
    return static_cast<uint32_t>(_mm512_reduce_add_epi32(acc));
}

// Bin k adds the table from L[k] to L[k + 1] - 1, both clamped to the table.
// A 256-entry table goes through its running sums; longer tables add each
// bin's run in vectors.
void bins_from_table(const U32u* table, int range, int offset, const int32_t* L, int n, Tav32u* hist) {
    auto clamp = [&](int32_t v) { return std::clamp<int64_t>(int64_t(v) + offset, 0, range); };
    if (range == 256) {
        uint32_t before[257];
        before[0] = 0;
        for (int v = 0; v < 256; ++v) before[v + 1] = before[v] + table[v];
        for (int k = 0; k + 1 < n; ++k) {
            const int64_t lo = clamp(L[k]), hi = clamp(L[k + 1]);
            hist[k] = hi > lo ? before[hi] - before[lo] : 0;
        }
        return;
    }
    for (int k = 0; k + 1 < n; ++k) {
        const int64_t lo = clamp(L[k]), hi = clamp(L[k + 1]);
        hist[k] = hi > lo ? sum_run(table + lo, hi - lo) : 0;
    }
}

template <class T, int C>
void histogram_int(const T* src, std::ptrdiff_t step, TaviSize roi, Tav32u* const* hist, const TaviHistogramSpec* s,
                   Tav8u* buffer) {
    constexpr int kRange = std::is_same_v<T, Tav8u> ? 256 : 65536;
    constexpr int kOffset = std::is_same_v<T, Tav16s> ? 32768 : 0;
    U32u* tables[C];
    for (int c = 0; c < C; ++c) {
        tables[c] = reinterpret_cast<U32u*>(buffer) + std::size_t(c) * kRange;
        std::memset(tables[c], 0, 4 * std::size_t(kRange));
    }
    count_values<T, C>(src, step, roi, tables);
    for (int c = 0; c < C; ++c)
        if (s->nLevels[c] >= 2) bins_from_table(tables[c], kRange, kOffset, int_levels(s, c), s->nLevels[c], hist[c]);
}

// ---- 32f -----------------------------------------------------------------------

// Per-lane constants of one vector position of a block: lanes hold the
// channel of their element, so each lane reads its channel's levels.
struct LaneLevels {
    __m512i base;    // offset of the channel's table from channel 0's
    __m512i last;    // nLevels - 1
    __m512 lower, upper;  // L[0], L[n - 1]
    __m512 inv, c;   // uniform: 1 / step and L[0] * inv, in single precision
    __m512 near, far;  // uniform: x * inv - c with a fraction outside [near, far] may be off by a bin
};

// How far x * inv - c can stray from x's true place among uniform levels, in
// bins: the rounding of inv, of c and of the fused step, and the rounding of
// the stored levels, each a few units of 2^-24 of the largest |level| / step,
// bounded here with a margin of four. Beyond a quarter bin the check is
// always made.
inline float doubt(const float* L, int n, double step) {
    const double r = std::max(std::fabs(double(L[0])), std::fabs(double(L[n - 1]))) / step;
    const double d = r * 0x1p-19 + 0x1p-20;
    return d < 0.25 && std::isfinite(d) ? float(d) : 2.0f;
}

template <int C>
void lane_levels(const TaviHistogramSpec* s, LaneLevels (&lv)[C == 3 ? 3 : 1]) {
    const float* t0 = float_levels(s, 0);
    for (int k = 0; k < (C == 3 ? 3 : 1); ++k) {
        alignas(64) int32_t base[16], last[16];
        alignas(64) float lo[16], hi[16], inv[16], cc[16], nr[16], fr[16];
        for (int j = 0; j < 16; ++j) {
            const int ch = (k * 16 + j) % C;
            const float* L = float_levels(s, ch);
            const int n = s->nLevels[ch];
            if (n < 2 || !L) {
                // A channel the spec doesn't have: nothing is in its range.
                base[j] = 0;
                last[j] = 1;
                lo[j] = HUGE_VALF;
                hi[j] = -HUGE_VALF;
                inv[j] = cc[j] = 0;
                nr[j] = 2, fr[j] = -1;
                continue;
            }
            base[j] = static_cast<int32_t>(L - t0);
            last[j] = n - 1;
            lo[j] = L[0];
            hi[j] = L[n - 1];
            inv[j] = 1.0f / s->step[ch];
            cc[j] = lo[j] * inv[j];
            nr[j] = doubt(L, n, s->step[ch]);
            fr[j] = 1.0f - nr[j];
        }
        lv[k] = {_mm512_load_si512(base), _mm512_load_si512(last), _mm512_load_ps(lo), _mm512_load_ps(hi),
                 _mm512_load_ps(inv),      _mm512_load_ps(cc),      _mm512_load_ps(nr), _mm512_load_ps(fr)};
    }
}

// Bins of sixteen elements (valid lanes only): -1 for a lane outside the levels.
inline __m512i bins_16(__m512 x, __mmask16 valid, const LaneLevels& lv, const float* t0, bool uniform) {
    const __mmask16 in = valid & _mm512_cmp_ps_mask(x, lv.lower, _CMP_GE_OQ) & _mm512_cmp_ps_mask(x, lv.upper, _CMP_LT_OQ);
    const __m512i one = _mm512_set1_epi32(1);
    __m512i k;
    if (uniform) {
        const __m512i top = _mm512_sub_epi32(lv.last, one);  // n - 2
        const __m512 t = _mm512_fmsub_ps(x, lv.inv, lv.c);
        k = _mm512_cvttps_epi32(t);
        const __m512 frac = _mm512_sub_ps(t, _mm512_cvtepi32_ps(k));
        const __mmask16 doubtful = in & ~(_mm512_cmp_ps_mask(frac, lv.near, _CMP_GE_OQ) &
                                          _mm512_cmp_ps_mask(frac, lv.far, _CMP_LE_OQ));
        k = _mm512_min_epi32(_mm512_max_epi32(k, _mm512_setzero_si512()), top);
        if (doubtful) {
            // Near a level the table decides among k - 1, k, k + 1.
            const __m512i at = _mm512_add_epi32(lv.base, k);
            const __m512 lk = _mm512_mask_i32gather_ps(x, doubtful, at, t0, 4);
            const __m512 lk1 = _mm512_mask_i32gather_ps(x, doubtful, _mm512_add_epi32(at, one), t0, 4);
            const __mmask16 down =
                doubtful & _mm512_cmp_ps_mask(x, lk, _CMP_LT_OQ) & _mm512_cmpgt_epi32_mask(k, _mm512_setzero_si512());
            const __mmask16 up = doubtful & _mm512_cmp_ps_mask(x, lk1, _CMP_GE_OQ) & _mm512_cmplt_epi32_mask(k, top) & ~down;
            k = _mm512_mask_sub_epi32(k, down, k, one);
            k = _mm512_mask_add_epi32(k, up, k, one);
        }
    } else {
        // Halve the span, going down where the middle level is above x.
        __m512i lo = _mm512_setzero_si512(), hi = lv.last;
        for (__mmask16 open = in & _mm512_cmpge_epi32_mask(_mm512_sub_epi32(hi, lo), _mm512_set1_epi32(2)); open;
             open &= _mm512_cmpge_epi32_mask(_mm512_sub_epi32(hi, lo), _mm512_set1_epi32(2))) {
            const __m512i mid = _mm512_srli_epi32(_mm512_add_epi32(lo, hi), 1);
            const __m512 lm = _mm512_mask_i32gather_ps(x, open, _mm512_add_epi32(lv.base, mid), t0, 4);
            const __mmask16 above = _mm512_cmp_ps_mask(lm, x, _CMP_GT_OQ);
            hi = _mm512_mask_mov_epi32(hi, open & above, mid);
            lo = _mm512_mask_mov_epi32(lo, open & ~above, mid);
        }
        k = lo;
    }
    return _mm512_mask_mov_epi32(_mm512_set1_epi32(-1), in, k);
}

template <int C>
void histogram_32f(const float* src, std::ptrdiff_t step, TaviSize roi, Tav32u* const* hist, const TaviHistogramSpec* s) {
    for (int c = 0; c < C; ++c) std::memset(hist[c], 0, 4 * std::size_t(std::max(s->nLevels[c] - 1, 0)));
    constexpr int V = C == 3 ? 3 : 1;
    LaneLevels lv[V];
    lane_levels<C>(s, lv);
    const float* t0 = float_levels(s, 0);
    const bool uniform = s->uniform != 0;
    const int64_t n = int64_t(roi.width) * C;
    alignas(64) int32_t k[16];
    for (int y = 0; y < roi.height; ++y, src = advance(src, step)) {
        for (int64_t i = 0; i < n; i += 16 * V) {
            for (int v = 0; v < V && i + 16 * v < n; ++v) {
                const int64_t at = i + 16 * v;
                const __mmask16 valid = simd::first_lanes<float>(static_cast<std::size_t>(n - at));
                const __m512 x = valid == 0xffff ? _mm512_loadu_ps(src + at) : _mm512_maskz_loadu_ps(valid, src + at);
                const __m512i bins = bins_16(x, valid, lv[v], t0, uniform);
                _mm512_store_si512(k, bins);
                if (_mm512_movepi32_mask(bins) == 0) {
                    // All sixteen counted: no test a lane.
                    for (int j = 0; j < 16; ++j) ++hist[(v * 16 + j) % C][k[j]];
                } else {
                    for (int j = 0; j < 16; ++j)
                        if (k[j] >= 0) ++hist[(v * 16 + j) % C][k[j]];
                }
            }
        }
    }
}

// ---- entries ------------------------------------------------------------------

template <class T, int C>
TavStatus histogram(const T* src, int step, TaviSize roi, Tav32u* const* hist, const TaviHistogramSpec* s, Tav8u* buffer) {
    if (!src || !hist || !s || (!std::is_same_v<T, Tav32f> && !buffer)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (step < int64_t(roi.width) * C * int64_t(sizeof(T)) || step < 1) return tavErrStep;
    if (s->id != kHistId) return tavErrBadArg;
    if constexpr (std::is_same_v<T, Tav32f>) histogram_32f<C>(src, step, roi, hist, s);
    else histogram_int<T, C>(src, step, roi, hist, s, buffer);
    return tavOk;
}

}  // namespace
}  // namespace tav::stats

using namespace tav::stats;

TavStatus own_taviHistogramGetBufferSize(TavDataType type, TaviSize roi, const int* nLevels, int channels, int,
                                         int* pSpecSize, int* pBufferSize) {
    if (!nLevels || !pSpecSize || !pBufferSize) return tavErrNullPtr;
    if (tav::bad_size(roi)) return tavErrSize;
    if (!known_channels(channels)) return tavErrChannelCount;
    int spec = sizeof(TaviHistogramSpec);
    for (int c = 0; c < channels; ++c) {
        if (nLevels[c] < 2) return tavErrHistogramLevels;
        spec += 4 * nLevels[c];
    }
    *pSpecSize = spec;
    // The data type is tested last, after the spec size is out.
    if (!known_type(type)) return tavErrDataType;
    *pBufferSize = type == tav8u ? 1024 * channels : type == tav32f ? 0 : 262144 * channels;
    return tavOk;
}

TavStatus own_taviHistogramInit(TavDataType type, const Tav32f* const* pLevels, const int* nLevels, int channels,
                                TaviHistogramSpec* s) {
    if (!known_type(type)) return tavErrDataType;
    if (!pLevels || !nLevels || !s) return tavErrNullPtr;
    if (!known_channels(channels)) return tavErrChannelCount;
    for (int c = 0; c < channels; ++c) {
        if (!pLevels[c]) return tavErrNullPtr;
        if (nLevels[c] < 2) return tavErrHistogramLevels;
        for (int i = 1; i < nLevels[c]; ++i)
            if (!(pLevels[c][i - 1] < pLevels[c][i])) return tavErrRange;
    }
    lay_out(s, type, channels, 0, nLevels);
    for (int c = 0; c < channels; ++c) {
        for (int i = 0; i < nLevels[c]; ++i) {
            const float v = pLevels[c][i];
            if (type == tav32f) {
                static_cast<float*>(s->pLevels[c])[i] = v;
            } else {
                // The smallest integer not below the level.
                const int32_t t = trunc32(v);
                int_levels(s, c)[i] = v > double(t) ? t + 1 : t;
            }
        }
    }
    seal(s);
    return tavOk;
}

TavStatus own_taviHistogramUniformInit(TavDataType type, const Tav32f* lower, const Tav32f* upper, const int* nLevels,
                                       int channels, TaviHistogramSpec* s) {
    if (!known_type(type)) return tavErrDataType;
    if (!lower || !upper || !nLevels || !s) return tavErrNullPtr;
    if (!known_channels(channels)) return tavErrChannelCount;
    for (int c = 0; c < channels; ++c) {
        if (nLevels[c] < 2) return tavErrHistogramLevels;
        if (lower[c] >= upper[c]) return tavErrRange;
    }
    lay_out(s, type, channels, 1, nLevels);
    TavStatus st = tavOk;
    for (int c = 0; c < channels; ++c) {
        const int n = nLevels[c];
        const double lo = lower[c], step = (double(upper[c]) - lo) / (n - 1);
        if (type == tav32f) {
            float* L = static_cast<float*>(s->pLevels[c]);
            for (int i = 0; i < n; ++i) L[i] = static_cast<float>(std::fma(double(i), step, lo));
            s->step[c] = static_cast<float>(step);
        } else {
            // Truncations, not ceilings: the two Inits differ on purpose.
            int32_t* L = int_levels(s, c);
            L[0] = trunc32(lo);
            for (int i = 1; i + 1 < n; ++i) L[i] = trunc32(std::fma(double(i), step, lo));
            L[n - 1] = trunc32(upper[c]);
            if (step < 1.0) st = tavWarnSize;
        }
    }
    seal(s);
    return st;
}

TavStatus own_taviHistogramGetLevels(const TaviHistogramSpec* s, Tav32f** pLevels) {
    if (!s || !pLevels) return tavErrNullPtr;
    if (s->id != kHistId) return tavErrBadArg;
    for (int c = 0; c < s->numChannels && c < 4; ++c)
        if (!pLevels[c]) return tavErrNullPtr;
    for (int c = 0; c < s->numChannels && c < 4; ++c) {
        for (int i = 0; i < s->nLevels[c]; ++i)
            pLevels[c][i] = s->dataType == tav32f ? float_levels(s, c)[i] : static_cast<float>(int_levels(s, c)[i]);
    }
    return tavOk;
}

TavStatus own_taviHistogram_8u_C1R(const Tav8u* p, int st, TaviSize r, Tav32u* h, const TaviHistogramSpec* s, Tav8u* b) { return histogram<Tav8u, 1>(p, st, r, &h, s, b); }
TavStatus own_taviHistogram_8u_C3R(const Tav8u* p, int st, TaviSize r, Tav32u* const* h, const TaviHistogramSpec* s, Tav8u* b) { return histogram<Tav8u, 3>(p, st, r, h, s, b); }
TavStatus own_taviHistogram_8u_C4R(const Tav8u* p, int st, TaviSize r, Tav32u* const* h, const TaviHistogramSpec* s, Tav8u* b) { return histogram<Tav8u, 4>(p, st, r, h, s, b); }
TavStatus own_taviHistogram_16u_C1R(const Tav16u* p, int st, TaviSize r, Tav32u* h, const TaviHistogramSpec* s, Tav8u* b) { return histogram<Tav16u, 1>(p, st, r, &h, s, b); }
TavStatus own_taviHistogram_16u_C3R(const Tav16u* p, int st, TaviSize r, Tav32u* const* h, const TaviHistogramSpec* s, Tav8u* b) { return histogram<Tav16u, 3>(p, st, r, h, s, b); }
TavStatus own_taviHistogram_16u_C4R(const Tav16u* p, int st, TaviSize r, Tav32u* const* h, const TaviHistogramSpec* s, Tav8u* b) { return histogram<Tav16u, 4>(p, st, r, h, s, b); }
TavStatus own_taviHistogram_16s_C1R(const Tav16s* p, int st, TaviSize r, Tav32u* h, const TaviHistogramSpec* s, Tav8u* b) { return histogram<Tav16s, 1>(p, st, r, &h, s, b); }
TavStatus own_taviHistogram_16s_C3R(const Tav16s* p, int st, TaviSize r, Tav32u* const* h, const TaviHistogramSpec* s, Tav8u* b) { return histogram<Tav16s, 3>(p, st, r, h, s, b); }
TavStatus own_taviHistogram_16s_C4R(const Tav16s* p, int st, TaviSize r, Tav32u* const* h, const TaviHistogramSpec* s, Tav8u* b) { return histogram<Tav16s, 4>(p, st, r, h, s, b); }
TavStatus own_taviHistogram_32f_C1R(const Tav32f* p, int st, TaviSize r, Tav32u* h, const TaviHistogramSpec* s) { return histogram<Tav32f, 1>(p, st, r, &h, s, nullptr); }
TavStatus own_taviHistogram_32f_C3R(const Tav32f* p, int st, TaviSize r, Tav32u* const* h, const TaviHistogramSpec* s) { return histogram<Tav32f, 3>(p, st, r, h, s, nullptr); }
TavStatus own_taviHistogram_32f_C4R(const Tav32f* p, int st, TaviSize r, Tav32u* const* h, const TaviHistogramSpec* s) { return histogram<Tav32f, 4>(p, st, r, h, s, nullptr); }
