// taviMin, taviMax, taviMinMax, taviMinIndx, taviMaxIndx: sweeps against the
// plain raster scan, ties, seeds, early stops, NaN and infinities, statuses.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "stats/stats_fns.h"
#include "support/image.h"
#include "support/ref_stats.h"

namespace {

using namespace tavtest;

template <class T>
std::pair<double, double> range_of(bool narrow) {
    if (narrow) return {0, 6};  // many ties
    if constexpr (std::is_same_v<T, float>) return {-1e6, 1e6};
    return {double(std::numeric_limits<T>::lowest()), double(std::numeric_limits<T>::max())};
}

template <class T, Lay L>
void sweep_extrema() {
    constexpr int C = kPer<L>, R = kRes<L>;
    const T sentinel = T(77);
    for (bool narrow : {false, true}) {
        for (int w : sweep_widths(sizeof(T) * C)) {
            for (int h : {1, 4}) {
                for (int pad : {0, int(3 * sizeof(T))}) {
                    Image<T> img(w * C, h, std::ptrdiff_t(w) * C * sizeof(T) + pad);
                    const auto [lo, hi] = range_of<T>(narrow);
                    img.fill(lo, hi);
                    const T* p = img.ptr();
                    const int s = img.step();
                    T mn[5], mx[5], a[5], b[5], vi[5], vx[5];
                    int xi[5], yi[5], xx[5], yx[5];
                    for (T* t : {mn, mx, a, b, vi, vx}) std::fill(t, t + 5, sentinel);
                    ASSERT_EQ((min_fn<T, L>()(p, s, {w, h}, mn)), tavOk);
                    ASSERT_EQ((max_fn<T, L>()(p, s, {w, h}, mx)), tavOk);
                    ASSERT_EQ((minmax_fn<T, L>()(p, s, {w, h}, a, b)), tavOk);
                    ASSERT_EQ((minindx_fn<T, L>()(p, s, {w, h}, vi, xi, yi)), tavOk);
                    ASSERT_EQ((maxindx_fn<T, L>()(p, s, {w, h}, vx, xx, yx)), tavOk);
                    for (int c = 0; c < R; ++c) {
                        const T rmin = tavref::min_of(p, s, w, h, c, C), rmax = tavref::max_of(p, s, w, h, c, C);
                        const auto pmin = tavref::first_extreme<T, true>(p, s, w, h, c, C);
                        const auto pmax = tavref::first_extreme<T, false>(p, s, w, h, c, C);
                        const auto where = ::testing::Message() << "w=" << w << " h=" << h << " pad=" << pad << " c=" << c;
                        ASSERT_EQ(mn[c], rmin) << where;
                        ASSERT_EQ(mx[c], rmax) << where;
                        ASSERT_EQ(a[c], rmin) << where;
                        ASSERT_EQ(b[c], rmax) << where;
                        ASSERT_EQ(vi[c], rmin) << where;
                        ASSERT_EQ(vx[c], rmax) << where;
                        ASSERT_EQ(xi[c], pmin.x) << where;
                        ASSERT_EQ(yi[c], pmin.y) << where;
                        ASSERT_EQ(xx[c], pmax.x) << where;
                        ASSERT_EQ(yx[c], pmax.y) << where;
                    }
                    // Nothing past the channels the layout delivers.
                    for (T* t : {mn, mx, a, b, vi, vx}) ASSERT_EQ(t[R], sentinel);
                }
            }
        }
    }
}

template <class T>
void sweep_extrema_layouts() {
    for_layouts<Lay::C1, Lay::C3, Lay::C4, Lay::AC4>([](auto l) { sweep_extrema<T, l.value>(); });
}

TEST(Extrema, SweepAgainstRasterScan8u) { sweep_extrema_layouts<Tav8u>(); }
TEST(Extrema, SweepAgainstRasterScan16u) { sweep_extrema_layouts<Tav16u>(); }
TEST(Extrema, SweepAgainstRasterScan16s) { sweep_extrema_layouts<Tav16s>(); }
TEST(Extrema, SweepAgainstRasterScan32f) { sweep_extrema_layouts<Tav32f>(); }

TEST(Indx, TiesResolveToTheFirstRowThenColumn) {
    for (int w : {6, 40, 200}) {
        Image<Tav16s> img(w, 5);
        img.fill(0, 1000);
        img.at(5, 1) = -7;
        img.at(2, 3) = -7;
        img.at(4, 4) = 2000;
        img.at(1, 4) = 2000;
        Tav16s v;
        int x, y;
        ASSERT_EQ(taviMinIndx_16s_C1R(img.ptr(), img.step(), {w, 5}, &v, &x, &y), tavOk);
        EXPECT_EQ(v, -7);
        EXPECT_EQ(x, 5);
        EXPECT_EQ(y, 1);
        ASSERT_EQ(taviMaxIndx_16s_C1R(img.ptr(), img.step(), {w, 5}, &v, &x, &y), tavOk);
        EXPECT_EQ(x, 1);
        EXPECT_EQ(y, 4);
    }
    // All equal, and a single pixel: (0, 0).
    Image<float> one(3, 1);
    one.fill_with([](int, int) { return 2.5f; });
    float v[3];
    int x[3], y[3];
    ASSERT_EQ(taviMaxIndx_32f_C3R(one.ptr(), one.step(), {1, 1}, v, x, y), tavOk);
    for (int c = 0; c < 3; ++c) EXPECT_TRUE(v[c] == 2.5f && x[c] == 0 && y[c] == 0);
    Image<Tav8u> flat(4 * 50, 9);
    flat.fill_with([](int, int) { return Tav8u(9); });
    Tav8u b[3];
    ASSERT_EQ(taviMinIndx_8u_AC4R(flat.ptr(), flat.step(), {50, 9}, b, x, y), tavOk);
    for (int c = 0; c < 3; ++c) EXPECT_TRUE(b[c] == 9 && x[c] == 0 && y[c] == 0);
}

// An image whose rows from `valid` on lie in an unreadable page: a scan that
// looks at them crashes the test.
template <class T>
struct ShortImage {
    int w, elems, h;
    std::ptrdiff_t step;
    GuardedBytes mem;
    ShortImage(int widthElems, int validRows, int pad)
        : w(widthElems), elems(widthElems), h(validRows), step(std::ptrdiff_t(widthElems) * sizeof(T) + pad),
          mem(std::size_t(validRows) * step) {
        fill_bytes_random(mem.data(), mem.size());
    }
    T& at(int x, int y) { return reinterpret_cast<T*>(mem.data() + y * step)[x]; }
    const T* ptr() const { return reinterpret_cast<const T*>(mem.data()); }
};

TEST(Indx, EarlyStopsLeaveLaterRowsUnread) {
    // Channel minima in different rows; all three reach 0 in row 3 of a
    // nominal 8 rows, of which only 4 exist.
    ShortImage<Tav8u> img(3 * 70, 4, 5);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 210; ++x) img.at(x, y) = Tav8u(20 + (x * 7 + y) % 200);
    img.at(3 * 9 + 0, 3) = 0;
    img.at(3 * 2 + 1, 1) = 3;
    img.at(3 * 5 + 1, 3) = 0;
    img.at(3 * 60 + 2, 3) = 0;
    img.at(3 * 61 + 2, 3) = 0;
    Tav8u v[3];
    int x[3], y[3];
    ASSERT_EQ(taviMinIndx_8u_C3R(img.ptr(), img.step, {70, 8}, v, x, y), tavOk);
    EXPECT_TRUE(v[0] == 0 && x[0] == 9 && y[0] == 3);
    EXPECT_TRUE(v[1] == 0 && x[1] == 5 && y[1] == 3);
    EXPECT_TRUE(v[2] == 0 && x[2] == 60 && y[2] == 3);
    // Different rows per channel when the scan runs to the end.
    img.at(3 * 9 + 0, 3) = 1;
    img.at(3 * 5 + 1, 3) = 50;
    ASSERT_EQ(taviMinIndx_8u_C3R(img.ptr(), img.step, {70, 4}, v, x, y), tavOk);
    EXPECT_TRUE(v[0] == 1 && y[0] == 3 && x[0] == 9);
    EXPECT_TRUE(v[1] == 3 && y[1] == 1 && x[1] == 2);
    EXPECT_TRUE(v[2] == 0 && y[2] == 3 && x[2] == 60);

    // The maxima of 8u C3 stop at 255 in every channel.
    for (int i = 0; i < 210; ++i) img.at(i, 2) = 255;
    ASSERT_EQ(taviMaxIndx_8u_C3R(img.ptr(), img.step, {70, 50}, v, x, y), tavOk);
    for (int c = 0; c < 3; ++c) EXPECT_TRUE(v[c] == 255 && x[c] == 0 && y[c] == 2);

    // The one-channel 8u minimum stops at 0.
    ShortImage<Tav8u> one(300, 2, 3);
    for (int i = 0; i < 300; ++i) one.at(i, 0) = 9, one.at(i, 1) = Tav8u(5 + i % 7);
    one.at(299, 1) = 0;
    Tav8u m;
    ASSERT_EQ(taviMin_8u_C1R(one.ptr(), one.step, {300, 1000}, &m), tavOk);
    EXPECT_EQ(m, 0);
    ShortImage<Tav16u> u(40, 3, 2);
    for (int yy = 0; yy < 3; ++yy)
        for (int i = 0; i < 40; ++i) u.at(i, yy) = Tav16u(100 + i);
    u.at(17, 2) = 0;
    Tav16u mv;
    int mx, my;
    ASSERT_EQ(taviMinIndx_16u_C1R(u.ptr(), u.step, {40, 900}, &mv, &mx, &my), tavOk);
    EXPECT_TRUE(mv == 0 && mx == 17 && my == 2);
}

TEST(Indx, FloatSeedsAndInfinities) {
    const float inf = std::numeric_limits<float>::infinity(), nan = std::numeric_limits<float>::quiet_NaN();
    for (int w : {5, 40}) {
        Image<float> img(w, 3);
        img.fill_with([&](int x, int) { return x % 2 ? inf : nan; });
        float v;
        int x, y;
        // Nothing below the largest finite value: the seed stays, and the
        // search in row 0 runs off the end.
        ASSERT_EQ(taviMinIndx_32f_C1R(img.ptr(), img.step(), {w, 3}, &v, &x, &y), tavOk);
        EXPECT_EQ(v, FLT_MAX);
        EXPECT_EQ(x, w);
        EXPECT_EQ(y, 0);
        // A NaN first element wins the maximum for good.
        img.fill(-5, 5);
        img.at(0, 0) = nan;
        ASSERT_EQ(taviMaxIndx_32f_C1R(img.ptr(), img.step(), {w, 3}, &v, &x, &y), tavOk);
        EXPECT_TRUE(std::isnan(v));
        EXPECT_EQ(x, 0);
        EXPECT_EQ(y, 0);
    }
}

TEST(MinMax, FloatInfinitiesAndTheStop) {
    const float inf = std::numeric_limits<float>::infinity();
    for (int w : {5, 10, 11, 16, 40}) {
        Image<float> img(w, 4);
        img.fill_with([&](int, int) { return inf; });
        float mn, mx;
        ASSERT_EQ(taviMinMax_32f_C1R(img.ptr(), img.step(), {w, 4}, &mn, &mx), tavOk);
        // Lanes seeded with the largest finite value beat +inf from width 11.
        EXPECT_EQ(mn, w < 11 ? inf : FLT_MAX) << w;
        EXPECT_EQ(mx, inf);
        if (w < 11) continue;
        // Both finite bounds seen in row 0: row 1 and its -inf are not looked at.
        img.fill(-1, 1);
        img.at(3, 0) = -FLT_MAX;
        img.at(w - 1, 0) = FLT_MAX;
        img.at(2, 1) = -inf;
        ASSERT_EQ(taviMinMax_32f_C1R(img.ptr(), img.step(), {w, 4}, &mn, &mx), tavOk);
        EXPECT_EQ(mn, -FLT_MAX);
        EXPECT_EQ(mx, FLT_MAX);
    }
}

TEST(Extrema, NaNIsDroppedByTheLaneThatMeetsIt) {
    for (int w : {5, 9, 33, 300}) {
        Image<float> img(w, 40);
        img.fill(0, 100);
        img.at(1, 0) = std::numeric_limits<float>::quiet_NaN();
        img.at(w / 3, 20) = -3;
        img.at(w - 1, 21) = 300;
        float mn, mx;
        ASSERT_EQ(taviMin_32f_C1R(img.ptr(), img.step(), {w, 40}, &mn), tavOk);
        ASSERT_EQ(taviMax_32f_C1R(img.ptr(), img.step(), {w, 40}, &mx), tavOk);
        EXPECT_EQ(mn, -3.0f) << w;
        EXPECT_EQ(mx, 300.0f) << w;
    }
}

TEST(Extrema, Statuses) {
    Tav16u px[8] = {};
    Tav16u v[4];
    int x[4], y[4];
    EXPECT_EQ(taviMin_16u_C4R(nullptr, 8, {0, 0}, v), tavErrNullPtr);
    EXPECT_EQ(taviMax_16u_C4R(px, 8, {1, 1}, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviMax_16u_C4R(px, 8, {1, 0}, v), tavErrSize);
    EXPECT_EQ(taviMinMax_16u_C1R(px, 2, {1, 1}, v, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviMinMax_16u_C1R(px, 2, {-1, 1}, v, v + 1), tavErrSize);
    EXPECT_EQ(taviMinIndx_16u_C1R(px, 2, {0, 1}, v, x, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviMaxIndx_16u_C1R(px, 2, {1, 1}, v, nullptr, y), tavErrNullPtr);
    EXPECT_EQ(taviMaxIndx_16u_C1R(px, 2, {1, 0}, v, x, y), tavErrSize);
    // No step test: a zero step is walked as given.
    px[0] = 4;
    EXPECT_EQ(taviMinMax_16u_C1R(px, 0, {1, 3}, v, v + 1), tavOk);
    EXPECT_TRUE(v[0] == 4 && v[1] == 4);
}

}  // namespace
