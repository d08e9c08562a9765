// taviSum, taviMean: exact integer sums across widths, steps and layouts,
// lane flushes near their limits, the 32f accumulation paths, statuses.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

#include "stats/stats_fns.h"
#include "support/image.h"
#include "support/ref_stats.h"

namespace {

using namespace tavtest;

template <class T, Lay L>
TavStatus call_sum(const T* p, int step, TaviSize r, double* out, int hint = 0) {
    if constexpr (std::is_same_v<T, Tav32f>) return sum_fn<T, L>()(p, step, r, out, hint);
    else return sum_fn<T, L>()(p, step, r, out);
}
template <class T, Lay L>
TavStatus call_mean(const T* p, int step, TaviSize r, double* out, int hint = 0) {
    if constexpr (std::is_same_v<T, Tav32f>) return mean_fn<T, L>()(p, step, r, out, hint);
    else return mean_fn<T, L>()(p, step, r, out);
}

template <class T>
constexpr double lo_of() {
    return double(std::numeric_limits<T>::lowest());
}
template <class T>
constexpr double hi_of() {
    return double(std::numeric_limits<T>::max());
}

// Exact sums and means over widths that reach every block tail, padded steps
// that misalign rows, and single and several rows.
template <class T, Lay L>
void sweep_exact() {
    constexpr int C = kPer<L>;
    for (int w : sweep_widths(sizeof(T) * C)) {
        for (int h : {1, 3}) {
            for (int pad : sweep_paddings(sizeof(T))) {
                Image<T> img(w * C, h, std::ptrdiff_t(w) * C * sizeof(T) + pad);
                img.fill(lo_of<T>(), hi_of<T>());
                double s[4] = {}, m[4] = {};
                ASSERT_EQ((call_sum<T, L>(img.ptr(), img.step(), {w, h}, s)), tavOk);
                ASSERT_EQ((call_mean<T, L>(img.ptr(), img.step(), {w, h}, m)), tavOk);
                const auto ref = tavref::sum_int(img.ptr(), img.step(), w, h, C);
                const double n = double(w) * h;
                for (int c = 0; c < C; ++c) {
                    ASSERT_EQ(s[c], double(ref[c])) << "w=" << w << " h=" << h << " pad=" << pad << " c=" << c;
                    // One channel divides; several multiply by one reciprocal.
                    const double mean = C == 1 ? double(ref[c]) / n : double(ref[c]) * (1.0 / n);
                    ASSERT_EQ(m[c], mean) << "w=" << w << " h=" << h << " c=" << c;
                }
            }
        }
    }
}

TEST(Sum, IntegerSumsAndMeansAreExact) {
    auto layouts = [](auto t) {
        for_layouts<Lay::C1, Lay::C3, Lay::C4>([](auto l) { sweep_exact<decltype(t), l.value>(); });
    };
    layouts(Tav8u{});
    layouts(Tav16u{});
    layouts(Tav16s{});
}

// Extreme values over enough pixels that the narrow lanes flush many times;
// each channel gets its own value so a channel mix-up shows.
template <class T, Lay L>
void extreme_run(int w, int h, double base, double delta, bool padded) {
    constexpr int C = kPer<L>;
    Image<T> img(w * C, h, std::ptrdiff_t(w) * C * sizeof(T) + (padded ? 64 : 0));
    img.fill_with([&](int x, int) { return T(base + delta * (x % C)); });
    double s[4];
    ASSERT_EQ((call_sum<T, L>(img.ptr(), img.step(), {w, h}, s)), tavOk);
    for (int c = 0; c < C; ++c) EXPECT_EQ(s[c], (base + delta * c) * double(w) * h) << "c=" << c << " padded=" << padded;
}

TEST(Sum, NarrowLanesFlushExactlyNearTheirLimits) {
    for (bool padded : {false, true}) {
        extreme_run<Tav8u, Lay::C1>(4000, 300, 255, 0, padded);
        extreme_run<Tav8u, Lay::C3>(2000, 100, 255, -1, padded);
        extreme_run<Tav8u, Lay::C4>(2000, 100, 255, -1, padded);
        // 16-bit values in 32-bit lanes: over 2^22 elements a channel.
        extreme_run<Tav16u, Lay::C1>(2100, 2100, 65535, 0, padded);
        extreme_run<Tav16u, Lay::C3>(1400, 1600, 65535, -1, padded);
        extreme_run<Tav16s, Lay::C1>(2100, 2100, -32768, 0, padded);
        extreme_run<Tav16s, Lay::C4>(1100, 1100, -32768, 1, padded);
        extreme_run<Tav16s, Lay::C3>(1400, 1600, 32767, -1, padded);
    }
}

// Integers in floats whose exact total is not a float: a path that
// accumulates in 64 bits returns the exact total, a 32-bit path a float.
struct PathCase {
    Lay lay;
    int width, hint;
    bool wide64;
};

template <Lay L>
void run_path(const PathCase& pc) {
    constexpr int C = kPer<L>;
    const int h = 61;
    Image<float> img(pc.width * C, h);
    img.fill_with([](int x, int y) { return float(1048577 + ((x * 7 + y * 13) % 97)); });
    auto ref = tavref::sum_float(img.ptr(), img.step(), pc.width, h, C);
    for (int c = 0; c < C; ++c) {
        // Totals are near 2^28: one more makes any float-sized total odd.
        if (double(float(ref.sum[c])) == double(ref.sum[c])) img.at(c, 0) += 1;
    }
    ref = tavref::sum_float(img.ptr(), img.step(), pc.width, h, C);
    double s[4];
    ASSERT_EQ((call_sum<float, L>(img.ptr(), img.step(), {pc.width, h}, s, pc.hint)), tavOk);
    for (int c = 0; c < C; ++c) {
        const double exact = double(ref.sum[c]);
        ASSERT_NE(double(float(exact)), exact);
        if (pc.wide64) {
            EXPECT_EQ(s[c], exact) << "width " << pc.width << " hint " << pc.hint;
        } else {
            EXPECT_EQ(s[c], double(float(s[c]))) << "width " << pc.width << " hint " << pc.hint;
            // 24-bit accumulators: each partial sum rounds at most once an element.
            const double per_lane = double(pc.width) * C * h / 16 + 16;
            EXPECT_LE(std::fabs(s[c] - exact), per_lane * double(ref.mag[c]) * FLT_EPSILON);
        }
    }
}

TEST(Sum, FloatAccumulationFollowsLayoutWidthAndHint) {
    const PathCase cases[] = {
        {Lay::C1, 16, 0, true},  {Lay::C1, 17, 0, false}, {Lay::C1, 17, 1, false}, {Lay::C1, 17, 2, true},
        {Lay::C1, 17, 9, false}, {Lay::C1, 300, 2, true}, {Lay::C1, 8, 1, true},   {Lay::C1, 301, 0, false},
        {Lay::C3, 13, 0, true},  {Lay::C3, 14, 0, false}, {Lay::C3, 14, 2, true},  {Lay::C3, 100, 1, false},
        {Lay::C4, 17, 0, true},  {Lay::C4, 200, 7, true}, {Lay::C4, 17, 1, false}, {Lay::C4, 200, 2, true},
        {Lay::C4, 3, 1, false},
    };
    for (const PathCase& pc : cases) {
        if (pc.lay == Lay::C1) run_path<Lay::C1>(pc);
        else if (pc.lay == Lay::C3) run_path<Lay::C3>(pc);
        else run_path<Lay::C4>(pc);
    }
}

// The 32f result depends on the pixels and the width, not on the step.
TEST(Sum, FloatSumsIgnorePaddingAndMeanDivides) {
    for (int w : sweep_widths(4)) {
        Image<float> a(w, 5), b(w, 5, std::ptrdiff_t(w) * 4 + 36);
        a.fill(-1000, 1000);
        b.fill_with([&](int x, int y) { return a.at(x, y); });
        for (int hint : {0, 1, 2}) {
            double sa, sb, m;
            ASSERT_EQ(taviSum_32f_C1R(a.ptr(), a.step(), {w, 5}, &sa, hint), tavOk);
            ASSERT_EQ(taviSum_32f_C1R(b.ptr(), b.step(), {w, 5}, &sb, hint), tavOk);
            ASSERT_EQ(taviMean_32f_C1R(b.ptr(), b.step(), {w, 5}, &m, hint), tavOk);
            EXPECT_EQ(sa, sb) << "w=" << w;
            EXPECT_EQ(m, sb / (w * 5.0)) << "w=" << w;
        }
    }
}

TEST(Sum, StepsAreWalkedAsGiven) {
    Image<Tav16s> img(4 * 3, 3);
    img.fill(-500, 500);
    const auto row0 = tavref::sum_int(img.ptr(), 0, 4, 1, 3);
    double s[3];
    // A zero step reads the first row three times.
    ASSERT_EQ(taviSum_16s_C3R(img.ptr(), 0, {4, 3}, s), tavOk);
    for (int c = 0; c < 3; ++c) EXPECT_EQ(s[c], 3.0 * row0[c]);
    // A negative step walks upwards from the last row.
    const auto all = tavref::sum_int(img.ptr(), img.step(), 4, 3, 3);
    ASSERT_EQ(taviSum_16s_C3R(img.row(2), -img.step(), {4, 3}, s), tavOk);
    for (int c = 0; c < 3; ++c) EXPECT_EQ(s[c], double(all[c]));
}

TEST(Sum, Statuses) {
    Tav8u px[4] = {1, 2, 3, 4};
    double out[4] = {7, 7, 7, 7};
    struct Case {
        const Tav8u* src;
        double* out;
        TaviSize size;
        TavStatus expect;
    };
    const Case cases[] = {
        {nullptr, out, {0, 1}, tavErrNullPtr}, {px, nullptr, {1, 1}, tavErrNullPtr}, {px, out, {0, 1}, tavErrSize},
        {px, out, {1, -1}, tavErrSize},        {px, out, {1, 1}, tavOk},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(taviSum_8u_C4R(c.src, 4, c.size, c.out), c.expect);
        if (c.expect != tavOk) {
            EXPECT_EQ(out[0], 7.0);
        }
    }
    // The mean tests its own pointer first, then returns the sum's status.
    out[0] = 7;
    EXPECT_EQ(taviMean_8u_C1R(nullptr, 1, {0, 0}, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviMean_8u_C1R(px, 1, {0, 0}, out), tavErrSize);
    EXPECT_EQ(taviMean_32f_C3R(nullptr, 1, {1, 1}, out, 0), tavErrNullPtr);
    EXPECT_EQ(out[0], 7.0);
    double m;
    ASSERT_EQ(taviMean_8u_C1R(px, 1, {1, 1}, &m), tavOk);
    EXPECT_EQ(m, 1.0);
}

}  // namespace
