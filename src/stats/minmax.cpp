// taviMin, taviMax, taviMinMax: extrema of each channel.
#include "stats/extrema.h"

namespace tav::stats {
namespace {

// Walks the image row by row and leaves the loop over rows once `stop` holds.
template <class P, class T, class Stop>
void walk_until(P& p, const T* src, std::ptrdiff_t step, int64_t n, int h, Stop stop) {
    const bool pf = streaming<T>(n, h);
    for (int y = 0; y < h; ++y, src = advance(src, step)) {
        walk_any(pf, p, n, src);
        if (stop()) return;
    }
}

// The 32f pair: a narrow row takes the plain step, which skips the maximum
// for an element that lowered the minimum; wide rows reduce lanes seeded
// with the largest finite values and stop once both bounds are reached.
void minmax_32f_c1(const Tav32f* src, std::ptrdiff_t step, TaviSize roi, Tav32f& mn, Tav32f& mx) {
    mn = mx = src[0];
    auto plain = [&](Tav32f x) {
        if (mn > x) mn = x;
        else keep_max(mx, x);
    };
    const int w = roi.width;
    if (w < 11) {
        for (int y = 0; y < roi.height; ++y, src = advance(src, step))
            for (int x = 0; x < w; ++x) plain(src[x]);
        return;
    }
    for (int y = 0; y < roi.height; ++y, src = advance(src, step)) {
        __m512 n0 = _mm512_set1_ps(FLT_MAX), n1 = n0, x0 = _mm512_set1_ps(-FLT_MAX), x1 = x0;
        int i = 0;
        for (; i + 32 <= w; i += 32) {
            const __m512 a = _mm512_loadu_ps(src + i), b = _mm512_loadu_ps(src + i + 16);
            n0 = _mm512_min_ps(n0, a);
            x0 = _mm512_max_ps(x0, a);
            n1 = _mm512_min_ps(n1, b);
            x1 = _mm512_max_ps(x1, b);
        }
        if (i + 16 <= w) {
            const __m512 a = _mm512_loadu_ps(src + i);
            n0 = _mm512_min_ps(n0, a);
            x0 = _mm512_max_ps(x0, a);
            i += 16;
        }
        keep_min(mn, _mm512_reduce_min_ps(_mm512_min_ps(n0, n1)));
        keep_max(mx, _mm512_reduce_max_ps(_mm512_max_ps(x0, x1)));
        for (; i < w; ++i) plain(src[i]);
        if (mn == -FLT_MAX && mx == FLT_MAX) return;
    }
}

template <class T, Layout L, bool Min, bool Max>
void extrema(const T* src, std::ptrdiff_t step, TaviSize roi, T* outMin, T* outMax) {
    constexpr bool kFloat = std::is_same_v<T, Tav32f>;
    T sMin[4], sMax[4];
    for (int c = 0; c < 4; ++c) {
        // 32f results start from the first pixel, integers from the type's bounds.
        sMin[c] = kFloat ? src[c % kPeriod<L>] : highest<T>();
        sMax[c] = kFloat ? src[c % kPeriod<L>] : lowest<T>();
    }
    const int64_t n = row_elems<L>(roi.width);
    if constexpr (kFloat && L == Layout::C1) {
        if constexpr (Min && Max) {
            minmax_32f_c1(src, step, roi, outMin[0], outMax[0]);
            return;
        }
        if (roi.width < 8) {
            const Tav32f* row = src;
            for (int y = 0; y < roi.height; ++y, row = advance(row, step))
                for (int x = 0; x < roi.width; ++x) {
                    if constexpr (Min) keep_min(sMin[0], row[x]);
                    if constexpr (Max) keep_max(sMax[0], row[x]);
                }
            if constexpr (Min) outMin[0] = sMin[0];
            if constexpr (Max) outMax[0] = sMax[0];
            return;
        }
    }
    Extrema<T, L, Min, Max, L == Layout::C1 ? 4 : 2> p;
    p.seed(sMin, sMax);
    int64_t len = n;
    int h = roi.height;
    if constexpr (std::is_same_v<T, Tav8u> && L == Layout::C1 && Min && !Max) {
        // The minimum can't go below 0: stop the scan once a lane holds it.
        walk_until(p, src, step, len, h, [&] {
            __mmask64 z = 0;
            for (auto v : p.mn) z |= _mm512_cmpeq_epi8_mask(v, _mm512_setzero_si512());
            return z != 0;
        });
    } else {
        join_rows<T>(len, h, {step});
        walk_rows(p, src, step, len, h);
    }
    p.fold(sMin, sMax);
    for (int c = 0; c < kOut<L>; ++c) {
        if constexpr (Min) outMin[c] = sMin[c];
        if constexpr (Max) outMax[c] = sMax[c];
    }
}

template <class T, Layout L>
TavStatus min(const T* src, int step, TaviSize roi, T* out) {
    if (any_null(src, out)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    extrema<T, L, true, false>(src, step, roi, out, nullptr);
    return tavOk;
}

template <class T, Layout L>
TavStatus max(const T* src, int step, TaviSize roi, T* out) {
    if (any_null(src, out)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    extrema<T, L, false, true>(src, step, roi, nullptr, out);
    return tavOk;
}

template <class T, Layout L>
TavStatus minmax(const T* src, int step, TaviSize roi, T* outMin, T* outMax) {
    if (any_null(src, outMin, outMax)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    extrema<T, L, true, true>(src, step, roi, outMin, outMax);
    return tavOk;
}

}  // namespace
}  // namespace tav::stats

using tav::Layout;
namespace st = tav::stats;

TavStatus own_taviMin_8u_C1R(const Tav8u* p, int s, TaviSize r, Tav8u* o) { return st::min<Tav8u, Layout::C1>(p, s, r, o); }
TavStatus own_taviMin_8u_C3R(const Tav8u* p, int s, TaviSize r, Tav8u* o) { return st::min<Tav8u, Layout::C3>(p, s, r, o); }
TavStatus own_taviMin_8u_C4R(const Tav8u* p, int s, TaviSize r, Tav8u* o) { return st::min<Tav8u, Layout::C4>(p, s, r, o); }
TavStatus own_taviMin_8u_AC4R(const Tav8u* p, int s, TaviSize r, Tav8u* o) { return st::min<Tav8u, Layout::AC4>(p, s, r, o); }
TavStatus own_taviMin_16u_C1R(const Tav16u* p, int s, TaviSize r, Tav16u* o) { return st::min<Tav16u, Layout::C1>(p, s, r, o); }
TavStatus own_taviMin_16u_C3R(const Tav16u* p, int s, TaviSize r, Tav16u* o) { return st::min<Tav16u, Layout::C3>(p, s, r, o); }
TavStatus own_taviMin_16u_C4R(const Tav16u* p, int s, TaviSize r, Tav16u* o) { return st::min<Tav16u, Layout::C4>(p, s, r, o); }
TavStatus own_taviMin_16u_AC4R(const Tav16u* p, int s, TaviSize r, Tav16u* o) { return st::min<Tav16u, Layout::AC4>(p, s, r, o); }
TavStatus own_taviMin_16s_C1R(const Tav16s* p, int s, TaviSize r, Tav16s* o) { return st::min<Tav16s, Layout::C1>(p, s, r, o); }
TavStatus own_taviMin_16s_C3R(const Tav16s* p, int s, TaviSize r, Tav16s* o) { return st::min<Tav16s, Layout::C3>(p, s, r, o); }
TavStatus own_taviMin_16s_C4R(const Tav16s* p, int s, TaviSize r, Tav16s* o) { return st::min<Tav16s, Layout::C4>(p, s, r, o); }
TavStatus own_taviMin_16s_AC4R(const Tav16s* p, int s, TaviSize r, Tav16s* o) { return st::min<Tav16s, Layout::AC4>(p, s, r, o); }
TavStatus own_taviMin_32f_C1R(const Tav32f* p, int s, TaviSize r, Tav32f* o) { return st::min<Tav32f, Layout::C1>(p, s, r, o); }
TavStatus own_taviMin_32f_C3R(const Tav32f* p, int s, TaviSize r, Tav32f* o) { return st::min<Tav32f, Layout::C3>(p, s, r, o); }
TavStatus own_taviMin_32f_C4R(const Tav32f* p, int s, TaviSize r, Tav32f* o) { return st::min<Tav32f, Layout::C4>(p, s, r, o); }
TavStatus own_taviMin_32f_AC4R(const Tav32f* p, int s, TaviSize r, Tav32f* o) { return st::min<Tav32f, Layout::AC4>(p, s, r, o); }

TavStatus own_taviMax_8u_C1R(const Tav8u* p, int s, TaviSize r, Tav8u* o) { return st::max<Tav8u, Layout::C1>(p, s, r, o); }
TavStatus own_taviMax_8u_C3R(const Tav8u* p, int s, TaviSize r, Tav8u* o) { return st::max<Tav8u, Layout::C3>(p, s, r, o); }
TavStatus own_taviMax_8u_C4R(const Tav8u* p, int s, TaviSize r, Tav8u* o) { return st::max<Tav8u, Layout::C4>(p, s, r, o); }
TavStatus own_taviMax_8u_AC4R(const Tav8u* p, int s, TaviSize r, Tav8u* o) { return st::max<Tav8u, Layout::AC4>(p, s, r, o); }
TavStatus own_taviMax_16u_C1R(const Tav16u* p, int s, TaviSize r, Tav16u* o) { return st::max<Tav16u, Layout::C1>(p, s, r, o); }
TavStatus own_taviMax_16u_C3R(const Tav16u* p, int s, TaviSize r, Tav16u* o) { return st::max<Tav16u, Layout::C3>(p, s, r, o); }
TavStatus own_taviMax_16u_C4R(const Tav16u* p, int s, TaviSize r, Tav16u* o) { return st::max<Tav16u, Layout::C4>(p, s, r, o); }
TavStatus own_taviMax_16u_AC4R(const Tav16u* p, int s, TaviSize r, Tav16u* o) { return st::max<Tav16u, Layout::AC4>(p, s, r, o); }
TavStatus own_taviMax_16s_C1R(const Tav16s* p, int s, TaviSize r, Tav16s* o) { return st::max<Tav16s, Layout::C1>(p, s, r, o); }
TavStatus own_taviMax_16s_C3R(const Tav16s* p, int s, TaviSize r, Tav16s* o) { return st::max<Tav16s, Layout::C3>(p, s, r, o); }
TavStatus own_taviMax_16s_C4R(const Tav16s* p, int s, TaviSize r, Tav16s* o) { return st::max<Tav16s, Layout::C4>(p, s, r, o); }
TavStatus own_taviMax_16s_AC4R(const Tav16s* p, int s, TaviSize r, Tav16s* o) { return st::max<Tav16s, Layout::AC4>(p, s, r, o); }
TavStatus own_taviMax_32f_C1R(const Tav32f* p, int s, TaviSize r, Tav32f* o) { return st::max<Tav32f, Layout::C1>(p, s, r, o); }
TavStatus own_taviMax_32f_C3R(const Tav32f* p, int s, TaviSize r, Tav32f* o) { return st::max<Tav32f, Layout::C3>(p, s, r, o); }
TavStatus own_taviMax_32f_C4R(const Tav32f* p, int s, TaviSize r, Tav32f* o) { return st::max<Tav32f, Layout::C4>(p, s, r, o); }
TavStatus own_taviMax_32f_AC4R(const Tav32f* p, int s, TaviSize r, Tav32f* o) { return st::max<Tav32f, Layout::AC4>(p, s, r, o); }

TavStatus own_taviMinMax_8u_C1R(const Tav8u* p, int s, TaviSize r, Tav8u* a, Tav8u* b) { return st::minmax<Tav8u, Layout::C1>(p, s, r, a, b); }
TavStatus own_taviMinMax_8u_C3R(const Tav8u* p, int s, TaviSize r, Tav8u* a, Tav8u* b) { return st::minmax<Tav8u, Layout::C3>(p, s, r, a, b); }
TavStatus own_taviMinMax_8u_C4R(const Tav8u* p, int s, TaviSize r, Tav8u* a, Tav8u* b) { return st::minmax<Tav8u, Layout::C4>(p, s, r, a, b); }
TavStatus own_taviMinMax_8u_AC4R(const Tav8u* p, int s, TaviSize r, Tav8u* a, Tav8u* b) { return st::minmax<Tav8u, Layout::AC4>(p, s, r, a, b); }
TavStatus own_taviMinMax_16u_C1R(const Tav16u* p, int s, TaviSize r, Tav16u* a, Tav16u* b) { return st::minmax<Tav16u, Layout::C1>(p, s, r, a, b); }
TavStatus own_taviMinMax_16u_C3R(const Tav16u* p, int s, TaviSize r, Tav16u* a, Tav16u* b) { return st::minmax<Tav16u, Layout::C3>(p, s, r, a, b); }
TavStatus own_taviMinMax_16u_C4R(const Tav16u* p, int s, TaviSize r, Tav16u* a, Tav16u* b) { return st::minmax<Tav16u, Layout::C4>(p, s, r, a, b); }
TavStatus own_taviMinMax_16u_AC4R(const Tav16u* p, int s, TaviSize r, Tav16u* a, Tav16u* b) { return st::minmax<Tav16u, Layout::AC4>(p, s, r, a, b); }
TavStatus own_taviMinMax_16s_C1R(const Tav16s* p, int s, TaviSize r, Tav16s* a, Tav16s* b) { return st::minmax<Tav16s, Layout::C1>(p, s, r, a, b); }
TavStatus own_taviMinMax_16s_C3R(const Tav16s* p, int s, TaviSize r, Tav16s* a, Tav16s* b) { return st::minmax<Tav16s, Layout::C3>(p, s, r, a, b); }
TavStatus own_taviMinMax_16s_C4R(const Tav16s* p, int s, TaviSize r, Tav16s* a, Tav16s* b) { return st::minmax<Tav16s, Layout::C4>(p, s, r, a, b); }
TavStatus own_taviMinMax_16s_AC4R(const Tav16s* p, int s, TaviSize r, Tav16s* a, Tav16s* b) { return st::minmax<Tav16s, Layout::AC4>(p, s, r, a, b); }
TavStatus own_taviMinMax_32f_C1R(const Tav32f* p, int s, TaviSize r, Tav32f* a, Tav32f* b) { return st::minmax<Tav32f, Layout::C1>(p, s, r, a, b); }
TavStatus own_taviMinMax_32f_C3R(const Tav32f* p, int s, TaviSize r, Tav32f* a, Tav32f* b) { return st::minmax<Tav32f, Layout::C3>(p, s, r, a, b); }
TavStatus own_taviMinMax_32f_C4R(const Tav32f* p, int s, TaviSize r, Tav32f* a, Tav32f* b) { return st::minmax<Tav32f, Layout::C4>(p, s, r, a, b); }
TavStatus own_taviMinMax_32f_AC4R(const Tav32f* p, int s, TaviSize r, Tav32f* a, Tav32f* b) { return st::minmax<Tav32f, Layout::AC4>(p, s, r, a, b); }
