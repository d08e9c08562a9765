// taviMinIndx, taviMaxIndx: extrema of each channel with their first
// position in raster order.
//
// Pass one reduces each row in per-lane accumulators and compares it with
// the running extremes; only a row with a lane strictly better is folded into
// channels, and a channel takes that row only if its own fold is strictly
// better, so an equal extreme in a later row never wins. Pass two finds the
// first equal element of each channel in its winning row.
#include "stats/extrema.h"

namespace tav::stats {
namespace {

// First pixel of row `p` (n elements) whose channel c equals v, or the
// width when there is none.
template <class T, Layout L>
int find_first(const T* p, int64_t n, int c, T v) {
    using O = VecOps<T>;
    constexpr int C = kPeriod<L>;
    constexpr int64_t E = 64 / sizeof(T);
    using M = simd::Mask<T>;
    M pattern[3];  // lanes of channel c for a vector starting at element offset o (mod C)
    for (int o = 0; o < 3; ++o) {
        uint64_t m = 0;
        for (int j = 0; j < E; ++j)
            if ((o + j) % C == c) m |= uint64_t{1} << j;
        pattern[o] = static_cast<M>(m);
    }
    const auto key = O::set1(v);
    for (int64_t i = 0; i < n; i += E) {
        const M live = simd::first_lanes<T>(static_cast<std::size_t>(n - i));
        const auto v = n - i >= E ? simd::load(p + i) : simd::load(p + i, live);
        const M hit = O::eq(v, key) & live & pattern[(i % C) % 3];
        if (hit) return static_cast<int>((i + __builtin_ctzll(hit)) / C);
    }
    return static_cast<int>(n / C);
}

template <class T, Layout L, bool IsMin>
void indx(const T* src, std::ptrdiff_t step, TaviSize roi, T* outV, int* outX, int* outY) {
    using O = VecOps<T>;
    using P = Extrema<T, L, IsMin, !IsMin, L == Layout::C1 ? 4 : 2>;
    constexpr int C = kPeriod<L>, NO = kOut<L>;
    constexpr bool kFloat = std::is_same_v<T, Tav32f>;
    // Row lanes start from values no element beats; 32f from the infinities.
    constexpr T kWorst = kFloat ? (IsMin ? std::numeric_limits<T>::infinity() : -std::numeric_limits<T>::infinity())
                                : (IsMin ? highest<T>() : lowest<T>());
    const int64_t n = row_elems<L>(roi.width);

    T best[4];
    int row[4] = {0, 0, 0, 0}, col[4] = {-1, -1, -1, -1};
    // Seeds: the first pixel for 32f and for 8u C3, the largest finite value
    // for the 32f C1 minimum, the type's bound otherwise. The 32f C1 maximum
    // keeps the first position with its seed.
    constexpr bool kFirstSeed = (kFloat && !(L == Layout::C1 && IsMin)) || (std::is_same_v<T, Tav8u> && L == Layout::C3);
    constexpr bool kKeepPos = kFloat && L == Layout::C1 && !IsMin;
    for (int c = 0; c < 4; ++c) best[c] = kFirstSeed ? src[c % C] : kFloat ? FLT_MAX : (IsMin ? highest<T>() : lowest<T>());
    if (kKeepPos) col[0] = 0;

    auto better = [](T a, T b) { return IsMin ? a < b : b < a; };
    typename O::V bv[P::kSteps];
    auto load_best = [&] {
        // Alpha lanes of AC4 get a value that nothing beats.
        T l[4] = {best[0], best[1], best[2], best[3]};
        if (L == Layout::AC4) l[3] = kFloat ? -kWorst : (IsMin ? lowest<T>() : highest<T>());
        alignas(64) T lanes[P::kBlock];
        for (int p = 0; p < P::kBlock; ++p) lanes[p] = l[p % C];
        for (int k = 0; k < P::kSteps; ++k) bv[k] = simd::load(lanes + k * P::kElems);
    };
    load_best();

    auto done = [&] {
        // Stops where the running extreme can't improve.
        if constexpr ((std::is_same_v<T, Tav8u> || std::is_same_v<T, Tav16u>) && IsMin) {
            for (int c = 0; c < NO; ++c)
                if (best[c] != 0) return false;
            return true;
        } else if constexpr (std::is_same_v<T, Tav8u> && L == Layout::C3 && !IsMin) {
            return int(best[0]) + best[1] + best[2] == 765;
        } else {
            return false;
        }
    };

    const T* p = src;
    const bool pf = streaming<T>(n, roi.height);
    for (int y = 0; y < roi.height; ++y, p = advance(p, step)) {
        P r;
        r.seed_all(kWorst, kWorst);
        walk_any(pf, r, n, p);
        simd::Mask<T> any = 0;
        for (int k = 0; k < P::kSteps; ++k) {
            if constexpr (IsMin) any |= O::lt(r.mn[k], bv[k]);
            else any |= O::lt(bv[k], r.mx[k]);
        }
        if (!any) continue;
        T rv[4] = {kWorst, kWorst, kWorst, kWorst};
        r.fold(rv, rv);
        bool changed = false;
        for (int c = 0; c < NO; ++c) {
            if (better(rv[c], best[c])) {
                best[c] = rv[c];
                row[c] = y;
                col[c] = kKeepPos ? find_first<T, L>(p, n, c, rv[c]) : -1;
                changed = true;
            }
        }
        if (changed) {
            load_best();
            if (done()) break;
        }
    }
    for (int c = 0; c < NO; ++c) {
        if (col[c] < 0) col[c] = find_first<T, L>(advance(src, std::ptrdiff_t(row[c]) * step), n, c, best[c]);
        outV[c] = best[c];
        outX[c] = col[c];
        outY[c] = row[c];
    }
}

template <class T, Layout L, bool IsMin>
TavStatus entry(const T* src, int step, TaviSize roi, T* v, int* x, int* y) {
    if (any_null(src, v) || any_null(x, y)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    indx<T, L, IsMin>(src, step, roi, v, x, y);
    return tavOk;
}

}  // namespace
}  // namespace tav::stats

using tav::Layout;
using tav::stats::entry;

TavStatus own_taviMinIndx_8u_C1R(const Tav8u* p, int s, TaviSize r, Tav8u* v, int* x, int* y) { return entry<Tav8u, Layout::C1, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_8u_C3R(const Tav8u* p, int s, TaviSize r, Tav8u* v, int* x, int* y) { return entry<Tav8u, Layout::C3, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_8u_C4R(const Tav8u* p, int s, TaviSize r, Tav8u* v, int* x, int* y) { return entry<Tav8u, Layout::C4, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_8u_AC4R(const Tav8u* p, int s, TaviSize r, Tav8u* v, int* x, int* y) { return entry<Tav8u, Layout::AC4, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_16u_C1R(const Tav16u* p, int s, TaviSize r, Tav16u* v, int* x, int* y) { return entry<Tav16u, Layout::C1, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_16u_C3R(const Tav16u* p, int s, TaviSize r, Tav16u* v, int* x, int* y) { return entry<Tav16u, Layout::C3, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_16u_C4R(const Tav16u* p, int s, TaviSize r, Tav16u* v, int* x, int* y) { return entry<Tav16u, Layout::C4, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_16u_AC4R(const Tav16u* p, int s, TaviSize r, Tav16u* v, int* x, int* y) { return entry<Tav16u, Layout::AC4, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_16s_C1R(const Tav16s* p, int s, TaviSize r, Tav16s* v, int* x, int* y) { return entry<Tav16s, Layout::C1, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_16s_C3R(const Tav16s* p, int s, TaviSize r, Tav16s* v, int* x, int* y) { return entry<Tav16s, Layout::C3, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_16s_C4R(const Tav16s* p, int s, TaviSize r, Tav16s* v, int* x, int* y) { return entry<Tav16s, Layout::C4, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_16s_AC4R(const Tav16s* p, int s, TaviSize r, Tav16s* v, int* x, int* y) { return entry<Tav16s, Layout::AC4, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_32f_C1R(const Tav32f* p, int s, TaviSize r, Tav32f* v, int* x, int* y) { return entry<Tav32f, Layout::C1, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_32f_C3R(const Tav32f* p, int s, TaviSize r, Tav32f* v, int* x, int* y) { return entry<Tav32f, Layout::C3, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_32f_C4R(const Tav32f* p, int s, TaviSize r, Tav32f* v, int* x, int* y) { return entry<Tav32f, Layout::C4, true>(p, s, r, v, x, y); }
TavStatus own_taviMinIndx_32f_AC4R(const Tav32f* p, int s, TaviSize r, Tav32f* v, int* x, int* y) { return entry<Tav32f, Layout::AC4, true>(p, s, r, v, x, y); }

TavStatus own_taviMaxIndx_8u_C1R(const Tav8u* p, int s, TaviSize r, Tav8u* v, int* x, int* y) { return entry<Tav8u, Layout::C1, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_8u_C3R(const Tav8u* p, int s, TaviSize r, Tav8u* v, int* x, int* y) { return entry<Tav8u, Layout::C3, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_8u_C4R(const Tav8u* p, int s, TaviSize r, Tav8u* v, int* x, int* y) { return entry<Tav8u, Layout::C4, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_8u_AC4R(const Tav8u* p, int s, TaviSize r, Tav8u* v, int* x, int* y) { return entry<Tav8u, Layout::AC4, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_16u_C1R(const Tav16u* p, int s, TaviSize r, Tav16u* v, int* x, int* y) { return entry<Tav16u, Layout::C1, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_16u_C3R(const Tav16u* p, int s, TaviSize r, Tav16u* v, int* x, int* y) { return entry<Tav16u, Layout::C3, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_16u_C4R(const Tav16u* p, int s, TaviSize r, Tav16u* v, int* x, int* y) { return entry<Tav16u, Layout::C4, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_16u_AC4R(const Tav16u* p, int s, TaviSize r, Tav16u* v, int* x, int* y) { return entry<Tav16u, Layout::AC4, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_16s_C1R(const Tav16s* p, int s, TaviSize r, Tav16s* v, int* x, int* y) { return entry<Tav16s, Layout::C1, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_16s_C3R(const Tav16s* p, int s, TaviSize r, Tav16s* v, int* x, int* y) { return entry<Tav16s, Layout::C3, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_16s_C4R(const Tav16s* p, int s, TaviSize r, Tav16s* v, int* x, int* y) { return entry<Tav16s, Layout::C4, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_16s_AC4R(const Tav16s* p, int s, TaviSize r, Tav16s* v, int* x, int* y) { return entry<Tav16s, Layout::AC4, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_32f_C1R(const Tav32f* p, int s, TaviSize r, Tav32f* v, int* x, int* y) { return entry<Tav32f, Layout::C1, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_32f_C3R(const Tav32f* p, int s, TaviSize r, Tav32f* v, int* x, int* y) { return entry<Tav32f, Layout::C3, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_32f_C4R(const Tav32f* p, int s, TaviSize r, Tav32f* v, int* x, int* y) { return entry<Tav32f, Layout::C4, false>(p, s, r, v, x, y); }
TavStatus own_taviMaxIndx_32f_AC4R(const Tav32f* p, int s, TaviSize r, Tav32f* v, int* x, int* y) { return entry<Tav32f, Layout::AC4, false>(p, s, r, v, x, y); }
