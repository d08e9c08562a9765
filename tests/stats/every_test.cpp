// taviMinEvery, taviMaxEvery, taviBlockMinMax, taviMedian_8u_P3C1R: whole
// destination buffers against plain models (padding and alpha included).
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "stats/stats_fns.h"
#include "support/image.h"
#include "support/ref_stats.h"

namespace {

using namespace tavtest;

template <class T, Lay L>
void sweep_every_ir() {
    constexpr int C = kPer<L>;
    for (int w : sweep_widths(sizeof(T) * C)) {
        for (int pad : sweep_paddings(sizeof(T))) {
            const int h = 3;
            Image<T> src(w * C, h, std::ptrdiff_t(w) * C * sizeof(T) + pad);
            Image<T> dst(w * C, h, std::ptrdiff_t(w) * C * sizeof(T) + 2 * pad);
            src.fill(0, 255);
            dst.fill(0, 255);
            for (bool isMin : {true, false}) {
                const auto expected = expected_from(dst, [&](int x, int y, T& v) {
                    v = isMin ? tavref::pick_min(src.at(x, y), dst.at(x, y)) : tavref::pick_max(src.at(x, y), dst.at(x, y));
                    return L != Lay::AC4 || x % 4 != 3;
                });
                const auto fn = isMin ? minevery_fn<T, L>() : maxevery_fn<T, L>();
                ASSERT_EQ(fn(src.ptr(), src.step(), dst.ptr(), dst.step(), {w, h}), tavOk);
                ASSERT_TRUE(same_bytes(dst, expected)) << "w=" << w << " pad=" << pad << " min=" << isMin;
            }
        }
    }
}

TEST(Every, InPlaceSweep) {
    sweep_every_ir<Tav8u, Lay::C1>();
    sweep_every_ir<Tav8u, Lay::C3>();
    sweep_every_ir<Tav8u, Lay::AC4>();
    sweep_every_ir<Tav16u, Lay::C4>();
    sweep_every_ir<Tav16u, Lay::AC4>();
    sweep_every_ir<Tav16s, Lay::C1>();
    sweep_every_ir<Tav16s, Lay::C3>();
    sweep_every_ir<Tav32f, Lay::C1>();
    sweep_every_ir<Tav32f, Lay::C4>();
    sweep_every_ir<Tav32f, Lay::AC4>();
}

template <class T>
void sweep_every_r(TavStatus (*fn)(const T*, int, const T*, int, T*, int, TaviSize), bool isMin) {
    for (int w : sweep_widths(sizeof(T))) {
        for (int pad : {0, int(sizeof(T)), 64}) {
            const int h = 2;
            Image<T> a(w, h, std::ptrdiff_t(w) * sizeof(T) + pad), b(w, h), d(w, h, std::ptrdiff_t(w) * sizeof(T) + 2 * pad);
            a.fill(0, 1000);
            b.fill(0, 1000);
            const auto expected = expected_from(d, [&](int x, int y, T& v) {
                v = isMin ? tavref::pick_min(a.at(x, y), b.at(x, y)) : tavref::pick_max(a.at(x, y), b.at(x, y));
                return true;
            });
            ASSERT_EQ(fn(a.ptr(), a.step(), b.ptr(), b.step(), d.ptr(), d.step(), {w, h}), tavOk);
            ASSERT_TRUE(same_bytes(d, expected)) << "w=" << w << " pad=" << pad;
        }
    }
}

TEST(Every, ThreeImageSweep) {
    sweep_every_r<Tav8u>(taviMinEvery_8u_C1R, true);
    sweep_every_r<Tav16u>(taviMinEvery_16u_C1R, true);
    sweep_every_r<Tav32f>(taviMinEvery_32f_C1R, true);
    sweep_every_r<Tav8u>(taviMaxEvery_8u_C1R, false);
    sweep_every_r<Tav16u>(taviMaxEvery_16u_C1R, false);
    sweep_every_r<Tav32f>(taviMaxEvery_32f_C1R, false);
}

TEST(Every, NaNKeepsTheDestination) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (int w : {3, 16, 37}) {
        Image<float> s(w, 1), d(w, 1);
        s.fill_with([&](int x, int) { return x % 3 == 0 ? nan : float(x); });
        d.fill_with([&](int x, int) { return x % 3 == 1 ? nan : float(-x); });
        ASSERT_EQ(taviMaxEvery_32f_C1IR(s.ptr(), s.step(), d.ptr(), d.step(), {w, 1}), tavOk);
        for (int x = 0; x < w; ++x) {
            if (x % 3 == 0) EXPECT_EQ(d.at(x, 0), float(-x)) << x;  // NaN source: destination kept
            else if (x % 3 == 1) EXPECT_TRUE(std::isnan(d.at(x, 0))) << x;  // NaN destination stays
            else EXPECT_EQ(d.at(x, 0), float(x)) << x;
        }
    }
}

TEST(Every, Statuses) {
    Tav8u a[4] = {}, b[4] = {};
    EXPECT_EQ(taviMinEvery_8u_C1IR(nullptr, 0, b, 0, {0, 0}), tavErrNullPtr);
    EXPECT_EQ(taviMinEvery_8u_C1IR(a, 0, b, 4, {0, 1}), tavErrSize);
    EXPECT_EQ(taviMinEvery_8u_C1IR(a, 0, b, 4, {1, 1}), tavErrStep);
    EXPECT_EQ(taviMaxEvery_8u_C1R(a, 4, b, 4, nullptr, 4, {1, 1}), tavErrNullPtr);
    EXPECT_EQ(taviMaxEvery_8u_C1R(a, 4, b, 4, b, 4, {1, 0}), tavErrSize);
    EXPECT_EQ(taviMaxEvery_8u_C1R(a, 4, b, 4, b, -4, {1, 1}), tavErrStep);
}

// Block extrema by their definition.
template <class T>
void expect_blocks(const Image<T>& src, int w, int h, int bw, int bh, bool withMin, bool withMax) {
    const int bx = (w + bw - 1) / bw, by = (h + bh - 1) / bh;
    Image<T> dmin(bx, by, std::ptrdiff_t(bx) * sizeof(T) + 2 * sizeof(T)), dmax(bx, by, std::ptrdiff_t(bx) * sizeof(T) + 8);
    Image<T> emin(bx, by, dmin.step()), emax(bx, by, dmax.step());
    std::memcpy(emin.bytes(), dmin.bytes(), dmin.span());
    std::memcpy(emax.bytes(), dmax.bytes(), dmax.span());
    for (int j = 0; j < by; ++j)
        for (int i = 0; i < bx; ++i) {
            T mn = src.at(i * bw, j * bh), mx = mn;
            for (int y = j * bh; y < std::min(h, (j + 1) * bh); ++y)
                for (int x = i * bw; x < std::min(w, (i + 1) * bw); ++x) {
                    mn = std::min(mn, src.at(x, y));
                    mx = std::max(mx, src.at(x, y));
                }
            emin.at(i, j) = mn;
            emax.at(i, j) = mx;
        }
    T gmin = T(1), gmax = T(1);
    // A suppressed output is left as it was.
    if (!withMin) std::memcpy(emin.bytes(), dmin.bytes(), dmin.span());
    if (!withMax) std::memcpy(emax.bytes(), dmax.bytes(), dmax.span());
    const TavStatus st = Fns<T>::block(src.ptr(), src.step(), {w, h}, withMin ? dmin.ptr() : nullptr, dmin.step(),
                                       withMax ? dmax.ptr() : nullptr, dmax.step(), {bw, bh}, &gmin, &gmax);
    ASSERT_EQ(st, tavOk);
    const auto where = ::testing::Message() << w << "x" << h << " block " << bw << "x" << bh;
    ASSERT_TRUE(same_bytes(dmin, emin.snapshot())) << where;
    ASSERT_TRUE(same_bytes(dmax, emax.snapshot())) << where;
    T rmin = src.at(0, 0), rmax = rmin;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) rmin = std::min(rmin, src.at(x, y)), rmax = std::max(rmax, src.at(x, y));
    ASSERT_EQ(gmin, rmin) << where;
    ASSERT_EQ(gmax, rmax) << where;
}

template <class T>
void sweep_blocks() {
    struct Shape {
        int w, h;
    };
    const Shape images[] = {{1, 1}, {5, 3}, {16, 16}, {33, 17}, {100, 40}, {257, 9}};
    const Shape blocks[] = {{1, 1}, {3, 2}, {16, 16}, {17, 5}, {64, 1}, {1, 64}, {300, 300}};
    for (const Shape& s : images) {
        Image<T> src(s.w, s.h, std::ptrdiff_t(s.w) * sizeof(T) + 3 * sizeof(T));
        src.fill(-20000, 20000);
        if constexpr (!std::is_same_v<T, Tav16s> && !std::is_same_v<T, float>) src.fill(0, 60000);
        for (const Shape& b : blocks) {
            expect_blocks(src, s.w, s.h, b.w, b.h, true, true);
            expect_blocks(src, s.w, s.h, b.w, b.h, true, false);
            expect_blocks(src, s.w, s.h, b.w, b.h, false, true);
        }
    }
    // Rows longer than the column pieces, with blocks across their seams.
    Image<T> wide(9000, 5);
    wide.fill(0, 200);
    for (int bw : {7, 100, 5000, 9000}) expect_blocks(wide, 9000, 5, bw, 2, true, true);
}

TEST(BlockMinMax, SweepAgainstDefinition) {
    sweep_blocks<Tav8u>();
    sweep_blocks<Tav16u>();
    sweep_blocks<Tav16s>();
    sweep_blocks<float>();
}

TEST(BlockMinMax, Statuses) {
    Tav8u img[64] = {}, dmin[8], dmax[8];
    Tav8u g;
    struct Case {
        const Tav8u* src;
        Tav8u *mn, *mx;
        int srcStep, minStep, maxStep;
        TaviSize size, block;
        TavStatus expect;
    };
    const Case cases[] = {
        {nullptr, dmin, dmax, 8, 8, 8, {8, 8}, {4, 4}, tavErrNullPtr},
        {img, nullptr, nullptr, 8, 8, 8, {8, 8}, {4, 4}, tavErrNullPtr},
        {img, dmin, nullptr, 8, 8, 8, {8, 0}, {4, 4}, tavErrSize},
        {img, dmin, nullptr, 8, 8, 8, {8, 8}, {0, 4}, tavErrSize},
        {img, dmin, nullptr, 7, 8, 8, {8, 8}, {4, 4}, tavErrStep},
        {img, dmin, nullptr, 8, 2, 0, {8, 8}, {3, 4}, tavErrStep},  // 3 blocks across need 3 bytes
        {img, dmin, dmax, 8, 3, 2, {8, 8}, {3, 4}, tavErrStep},
        {img, dmin, nullptr, 8, 3, 0, {8, 8}, {3, 4}, tavOk},
    };
    for (const Case& c : cases)
        EXPECT_EQ(taviBlockMinMax_8u_C1R(c.src, c.srcStep, c.size, c.mn, c.minStep, c.mx, c.maxStep, c.block, &g, nullptr),
                  c.expect);
}

TEST(Median, SweepAgainstDefinition) {
    for (int w : sweep_widths(1)) {
        for (int pad : {0, 5, 64}) {
            const int h = 3;
            const std::ptrdiff_t step = w + pad;
            Image<Tav8u> a(w, h, step), b(w, h, step), c(w, h, step), d(w, h, step + 7);
            a.fill(0, 255);
            b.fill(0, 255);
            c.fill(0, 255);
            const auto e = expected_from(d, [&](int x, int y, Tav8u& v) { return v = tavref::median3(a.at(x, y), b.at(x, y), c.at(x, y)), true; });
            const Tav8u* planes[3] = {a.ptr(), b.ptr(), c.ptr()};
            ASSERT_EQ(taviMedian_8u_P3C1R(planes, int(step), d.ptr(), d.step(), {w, h}), tavOk);
            ASSERT_TRUE(same_bytes(d, e)) << "w=" << w;
        }
    }
    Tav8u px[1] = {};
    const Tav8u* ok[3] = {px, px, px};
    const Tav8u* holed[3] = {px, nullptr, px};
    EXPECT_EQ(taviMedian_8u_P3C1R(nullptr, 1, px, 1, {1, 1}), tavErrNullPtr);
    EXPECT_EQ(taviMedian_8u_P3C1R(ok, 1, nullptr, 1, {0, 1}), tavErrNullPtr);
    EXPECT_EQ(taviMedian_8u_P3C1R(holed, 1, px, 1, {0, 1}), tavErrSize);  // size before the planes
    EXPECT_EQ(taviMedian_8u_P3C1R(holed, 1, px, 1, {1, 1}), tavErrNullPtr);
    EXPECT_EQ(taviMedian_8u_P3C1R(ok, 0, px, -3, {1, 1}), tavOk);  // steps are not tested
}

}  // namespace
