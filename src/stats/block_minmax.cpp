// taviBlockMinMax: extrema of each block of the source, and of the whole.
//
// A band of block rows is reduced column-wise first (one vector operation a
// vector of pixels), in column pieces that fit on the stack; each block then
// folds its columns of the piece once a band. Right and bottom blocks that
// the source cuts short cover only the pixels that exist.
#include "stats/extrema.h"

namespace tav::stats {
namespace {

template <class T>
struct BlockJob {
    const T* src;
    std::ptrdiff_t srcStep;
    int w, h, bw, bh;
    T *dmin, *dmax;
    std::ptrdiff_t dminStep, dmaxStep;
};

template <class T>
void block_minmax(const BlockJob<T>& j, T& gmin, T& gmax) {
    using O = VecOps<T>;
    constexpr int64_t E = 64 / sizeof(T);
    constexpr int64_t kPiece = 4096 / sizeof(T) * 2;  // 8 KiB a column array
    alignas(64) T cmin[kPiece], cmax[kPiece];
    bool first = true;
    for (int y0 = 0; y0 < j.h; y0 += j.bh) {
        const int rows = std::min(j.bh, j.h - y0);
        const int by = y0 / j.bh;
        T* rmin = j.dmin ? advance(j.dmin, by * j.dminStep) : nullptr;
        T* rmax = j.dmax ? advance(j.dmax, by * j.dmaxStep) : nullptr;
        for (int x0 = 0; x0 < j.w; x0 += static_cast<int>(kPiece)) {
            const int64_t cw = std::min<int64_t>(kPiece, j.w - x0);
            const T* row = advance(j.src, y0 * j.srcStep) + x0;
            // Column extrema over the band's rows, row by row.
            for (int y = 0; y < rows; ++y, row = advance(row, j.srcStep)) {
                for (int64_t i = 0; i < cw; i += E) {
                    // Unmasked loads where the row allows: masked ones defeat the
                    // streaming of some cores. The column arrays hold whole vectors.
                    const auto v = cw - i >= E ? simd::load(row + i)
                                               : simd::load(row + i, simd::first_lanes<T>(std::size_t(cw - i)));
                    simd::store(cmin + i, y ? O::min(simd::load(cmin + i), v) : v);
                    simd::store(cmax + i, y ? O::max(simd::load(cmax + i), v) : v);
                }
            }
            // Each block's share of this piece of columns.
            for (int64_t b0 = x0 - x0 % j.bw; b0 < x0 + cw; b0 += j.bw) {
                const int64_t s = std::max<int64_t>(b0, x0) - x0;
                const int64_t e = std::min<int64_t>(b0 + j.bw, x0 + cw) - x0;
                // Lanes past the segment keep its first element.
                auto vn = O::set1(cmin[s]), vx = O::set1(cmax[s]);
                for (int64_t i = s; i < e; i += E) {
                    const auto m = simd::first_lanes<T>(static_cast<std::size_t>(e - i));
                    vn = O::min(vn, m, simd::load(cmin + i, m));
                    vx = O::max(vx, m, simd::load(cmax + i, m));
                }
                T bn = O::hmin(vn), bx = O::hmax(vx);
                if (first) {
                    gmin = bn;
                    gmax = bx;
                    first = false;
                } else {
                    keep_min(gmin, bn);
                    keep_max(gmax, bx);
                }
                const int64_t bi = b0 / j.bw;
                // A block cut by a piece boundary merges with its earlier part.
                const bool cont = b0 < x0;
                if (rmin) {
                    if (cont) keep_min(rmin[bi], bn);
                    else rmin[bi] = bn;
                }
                if (rmax) {
                    if (cont) keep_max(rmax[bi], bx);
                    else rmax[bi] = bx;
                }
            }
        }
    }
}

template <class T>
TavStatus entry(const T* src, int srcStep, TaviSize size, T* dmin, int dminStep, T* dmax, int dmaxStep, TaviSize block,
                T* gmin, T* gmax) {
    if (!src || (!dmin && !dmax)) return tavErrNullPtr;
    if (bad_size(size) || bad_size(block)) return tavErrSize;
    if (srcStep < int64_t(size.width) * int64_t(sizeof(T))) return tavErrStep;
    const int64_t across = (int64_t(size.width) + block.width - 1) / block.width;
    if (dmin && dminStep < across * int64_t(sizeof(T))) return tavErrStep;
    if (dmax && dmaxStep < across * int64_t(sizeof(T))) return tavErrStep;
    T gn, gx;
    block_minmax<T>({src, srcStep, size.width, size.height, block.width, block.height, dmin, dmax, dminStep, dmaxStep},
                    gn, gx);
    if (gmin) *gmin = gn;
    if (gmax) *gmax = gx;
    return tavOk;
}

}  // namespace
}  // namespace tav::stats

using tav::stats::entry;

TavStatus own_taviBlockMinMax_8u_C1R(const Tav8u* p, int s, TaviSize sz, Tav8u* a, int as, Tav8u* b, int bs, TaviSize bl, Tav8u* g, Tav8u* G) { return entry(p, s, sz, a, as, b, bs, bl, g, G); }
TavStatus own_taviBlockMinMax_16u_C1R(const Tav16u* p, int s, TaviSize sz, Tav16u* a, int as, Tav16u* b, int bs, TaviSize bl, Tav16u* g, Tav16u* G) { return entry(p, s, sz, a, as, b, bs, bl, g, G); }
TavStatus own_taviBlockMinMax_16s_C1R(const Tav16s* p, int s, TaviSize sz, Tav16s* a, int as, Tav16s* b, int bs, TaviSize bl, Tav16s* g, Tav16s* G) { return entry(p, s, sz, a, as, b, bs, bl, g, G); }
TavStatus own_taviBlockMinMax_32f_C1R(const Tav32f* p, int s, TaviSize sz, Tav32f* a, int as, Tav32f* b, int bs, TaviSize bl, Tav32f* g, Tav32f* G) { return entry(p, s, sz, a, as, b, bs, bl, g, G); }
