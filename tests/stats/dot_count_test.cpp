// taviDotProd, taviDotProdCol, taviCountInRange: exact integer products,
// the AC4 row-order loop, float precision, range counts, statuses.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "stats/stats_fns.h"
#include "support/image.h"
#include "support/ref_norm.h"

namespace {

using namespace tavtest;

bool same_double(double a, double b) { return std::memcmp(&a, &b, 8) == 0; }

template <class T>
std::pair<double, double> full_range() {
    if constexpr (std::is_same_v<T, float>) return {-100, 100};
    else if constexpr (sizeof(T) == 4) return {std::is_signed_v<T> ? -2e9 : 0, 4e9};
    else return {double(std::numeric_limits<T>::lowest()), double(std::numeric_limits<T>::max())};
}

// Integer types are exact (rounded once); AC4 equals the row-order fused loop
// on every type; 32f is within double rounding.
template <class T, Lay L>
void sweep_dot() {
    constexpr int C = kPer<L>;
    const auto [lo, hi] = full_range<T>();
    for (int w : sweep_widths(sizeof(T) * C)) {
        for (int pad : {0, 2 * int(sizeof(T))}) {
            const int h = 3;
            Image<T> a(w * C, h, std::ptrdiff_t(w) * C * sizeof(T) + pad), b(w * C, h);
            a.fill(lo, hi);
            b.fill(lo, hi);
            double got[4] = {5, 5, 5, 5};
            ASSERT_EQ((dot_fn<T, L>()(a.ptr(), a.step(), b.ptr(), b.step(), {w, h}, got)), tavOk);
            const auto where = ::testing::Message() << "w=" << w << " pad=" << pad;
            if constexpr (L == Lay::AC4) {
                const auto want = tavref::dot_ac4(a.ptr(), a.step(), b.ptr(), b.step(), w, h);
                for (int c = 0; c < 3; ++c) ASSERT_TRUE(same_double(got[c], want[c])) << where << " c=" << c;
                ASSERT_EQ(got[3], 5.0);
            } else {
                const auto want = tavref::dot(a.ptr(), a.step(), b.ptr(), b.step(), w, h, C);
                for (int c = 0; c < C; ++c) {
                    if constexpr (std::is_integral_v<T>) {
                        ASSERT_EQ(got[c], double(want[c])) << where << " c=" << c;
                    } else {
                        const auto mag = tavref::dot(a.ptr(), a.step(), a.ptr(), a.step(), w, h, C)[c] +
                                         tavref::dot(b.ptr(), b.step(), b.ptr(), b.step(), w, h, C)[c];
                        ASSERT_NEAR(got[c], double(want[c]), 1e-14 * double(mag)) << where << " c=" << c;
                    }
                }
            }
        }
    }
}

template <class T>
void sweep_dot_layouts() {
    for_layouts<Lay::C1, Lay::C3, Lay::C4, Lay::AC4>([](auto l) { sweep_dot<T, l.value>(); });
}

TEST(DotProd, Sweep8u) { sweep_dot_layouts<Tav8u>(); }
TEST(DotProd, Sweep16u) { sweep_dot_layouts<Tav16u>(); }
TEST(DotProd, Sweep16s) { sweep_dot_layouts<Tav16s>(); }
TEST(DotProd, Sweep32u) { sweep_dot_layouts<Tav32u>(); }
TEST(DotProd, Sweep32s) { sweep_dot_layouts<Tav32s>(); }
TEST(DotProd, Sweep32f) { sweep_dot_layouts<float>(); }

// The largest products over enough pixels that the integer lanes flush.
TEST(DotProd, ExactAtTheLimits) {
    struct Case {
        int w, h;
    };
    for (const Case& c : {Case{2048, 1100}, Case{3000, 777}}) {
        Image<Tav8u> a(c.w, c.h);
        a.fill_with([](int, int) { return Tav8u(255); });
        double v;
        ASSERT_EQ(taviDotProd_8u64f_C1R(a.ptr(), a.step(), a.ptr(), a.step(), {c.w, c.h}, &v), tavOk);
        EXPECT_EQ(v, 65025.0 * c.w * c.h);
    }
    Image<Tav8u> a3(3 * 4096, 1100);
    a3.fill_with([](int, int) { return Tav8u(255); });
    double v3[3];
    ASSERT_EQ(taviDotProd_8u64f_C3R(a3.ptr(), a3.step(), a3.ptr(), a3.step(), {4096, 1100}, v3), tavOk);
    for (double v : v3) EXPECT_EQ(v, 65025.0 * 4096 * 1100);
    Image<Tav16s> s(4 * 300, 200);
    s.fill_with([](int x, int) { return Tav16s(x % 4 == 1 ? 32767 : -32768); });
    double v4[4];
    ASSERT_EQ(taviDotProd_16s64f_C4R(s.ptr(), s.step(), s.ptr(), s.step(), {300, 200}, v4), tavOk);
    EXPECT_EQ(v4[0], 1073741824.0 * 60000);
    EXPECT_EQ(v4[1], 1073676289.0 * 60000);
    ASSERT_EQ(taviDotProd_16s64f_C1R(s.ptr(), s.step(), s.ptr(), s.step(), {1200, 200}, v4), tavOk);
    EXPECT_EQ(v4[0], (3 * 1073741824.0 + 1073676289.0) * 60000);
    // 32-bit extremes: each product's low and high halves at their limits.
    Image<Tav32s> i32(1000, 3);
    i32.fill_with([](int, int) { return std::numeric_limits<Tav32s>::min(); });
    ASSERT_EQ(taviDotProd_32s64f_C1R(i32.ptr(), i32.step(), i32.ptr(), i32.step(), {1000, 3}, v4), tavOk);
    EXPECT_EQ(v4[0], 0x1p62 * 3000);
    Image<Tav32u> u32(1000, 3);
    u32.fill_with([](int, int) { return std::numeric_limits<Tav32u>::max(); });
    ASSERT_EQ(taviDotProd_32u64f_C1R(u32.ptr(), u32.step(), u32.ptr(), u32.step(), {1000, 3}, v4), tavOk);
    EXPECT_EQ(v4[0], double(static_cast<unsigned __int128>(0xffffffffu) * 0xffffffffu * 3000));
}

TEST(DotProd, StepsAndStatuses) {
    Image<Tav16s> a(4 * 6, 3), b(4 * 6, 3);
    a.fill(-1000, 1000);
    b.fill(-1000, 1000);
    // The AC4 results don't depend on what the array held.
    double x[3] = {1e300, -7, 3}, y[3] = {0, 0, 0};
    ASSERT_EQ(taviDotProd_16s64f_AC4R(a.ptr(), a.step(), b.ptr(), b.step(), {6, 3}, x), tavOk);
    ASSERT_EQ(taviDotProd_16s64f_AC4R(a.ptr(), a.step(), b.ptr(), b.step(), {6, 3}, y), tavOk);
    for (int c = 0; c < 3; ++c) EXPECT_EQ(x[c], y[c]);
    // A negative step walks the rows upwards: the same sums.
    double up[4], down[4];
    ASSERT_EQ(taviDotProd_16s64f_C4R(a.row(2), -a.step(), b.row(2), -b.step(), {6, 3}, up), tavOk);
    ASSERT_EQ(taviDotProd_16s64f_C4R(a.ptr(), a.step(), b.ptr(), b.step(), {6, 3}, down), tavOk);
    for (int c = 0; c < 4; ++c) EXPECT_EQ(up[c], down[c]);
    Tav8u p[4] = {};
    double v;
    EXPECT_EQ(taviDotProd_8u64f_C1R(nullptr, 1, p, 1, {0, 0}, &v), tavErrNullPtr);
    EXPECT_EQ(taviDotProd_8u64f_C1R(p, 1, p, 1, {1, 1}, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviDotProd_8u64f_C1R(p, 0, p, 1, {1, 1}, &v), tavErrSize);  // a zero step is a size error
    EXPECT_EQ(taviDotProd_8u64f_C1R(p, 1, p, 0, {1, 1}, &v), tavErrSize);
    EXPECT_EQ(taviDotProd_8u64f_C1R(p, 1, p, 1, {0, 1}, &v), tavErrSize);
}

// Column dot products: row by row fused steps, so the order is fixed.
template <class T>
void sweep_dot_col(TavStatus (*fn)(const T* const*, const T*, int, T*, int)) {
    for (int len : sweep_widths(sizeof(T))) {
        for (int rows : {1, 3, 17}) {
            std::vector<Image<T>*> imgs;
            std::vector<const T*> ptrs;
            for (int i = 0; i < rows; ++i) {
                imgs.push_back(new Image<T>(len, 1));
                imgs.back()->fill(-10, 10);
                ptrs.push_back(imgs.back()->ptr());
            }
            Image<T> v(rows, 1), d(len, 1, 0, GuardAt::End), want(len, 1);
            v.fill(-3, 3);
            for (int j = 0; j < len; ++j) {
                T acc = 0;
                for (int i = 0; i < rows; ++i) acc = std::fma(ptrs[i][j], v.at(i, 0), acc);
                want.at(j, 0) = acc;
            }
            ASSERT_EQ(fn(ptrs.data(), v.ptr(), rows, d.ptr(), len), tavOk);
            ASSERT_TRUE(same_bytes(d, want.snapshot())) << "len=" << len << " rows=" << rows;
            for (auto* p : imgs) delete p;
        }
    }
}

TEST(DotProdCol, SweepAgainstRowOrderFma) {
    sweep_dot_col<float>(taviDotProdCol_32f_L2);
    sweep_dot_col<double>(taviDotProdCol_64f_L2);
    float r0[2] = {}, v[2] = {}, d[2];
    const float* rows[2] = {r0, nullptr};
    EXPECT_EQ(taviDotProdCol_32f_L2(nullptr, v, 1, d, 1), tavErrNullPtr);
    EXPECT_EQ(taviDotProdCol_32f_L2(rows, v, 2, d, 2), tavErrNullPtr);  // a null among the rows
    EXPECT_EQ(taviDotProdCol_32f_L2(rows, v, 1, nullptr, 2), tavErrNullPtr);
    EXPECT_EQ(taviDotProdCol_32f_L2(rows, v, 1, d, 0), tavErrSize);
    EXPECT_EQ(taviDotProdCol_32f_L2(rows, v, 0, d, 1), tavErrSize);
}

template <class T, Lay L>
void sweep_count(TavStatus (*fn)(const T*, int, TaviSize, int*, const T*, const T*)) {
    constexpr int C = kPer<L>, R = kRes<L>;
    for (int w : sweep_widths(sizeof(T) * C)) {
        for (int pad : {0, 1, 3 * int(sizeof(T))}) {
            const int h = 3;
            Image<T> a(w * C, h, std::ptrdiff_t(w) * C * sizeof(T) + pad);
            a.fill(0, 255);
            if constexpr (std::is_same_v<T, float>)
                for (int x = 0; x < w * C; x += 7) a.at(x, 1) = std::numeric_limits<float>::quiet_NaN();
            const T lower[3] = {T(10), T(0), T(200)}, upper[3] = {T(100), T(255), T(200.5)};
            int got[4] = {-1, -1, -1, -1};
            ASSERT_EQ(fn(a.ptr(), a.step(), {w, h}, got, lower, upper), tavOk);
            for (int c = 0; c < R; ++c)
                ASSERT_EQ(got[c], tavref::count_in_range(a.ptr(), a.step(), w, h, c, C, lower[c], upper[c]))
                    << "w=" << w << " pad=" << pad << " c=" << c;
            ASSERT_EQ(got[R], -1);
        }
    }
}

TavStatus count_8u_c1(const Tav8u* p, int s, TaviSize r, int* n, const Tav8u* lo, const Tav8u* hi) {
    return taviCountInRange_8u_C1R(p, s, r, n, lo[0], hi[0]);
}
TavStatus count_32f_c1(const float* p, int s, TaviSize r, int* n, const float* lo, const float* hi) {
    return taviCountInRange_32f_C1R(p, s, r, n, lo[0], hi[0]);
}

TEST(CountInRange, SweepAgainstCount) {
    sweep_count<Tav8u, Lay::C1>(count_8u_c1);
    sweep_count<Tav8u, Lay::C3>(taviCountInRange_8u_C3R);
    sweep_count<Tav8u, Lay::AC4>(taviCountInRange_8u_AC4R);
    sweep_count<float, Lay::C1>(count_32f_c1);
    sweep_count<float, Lay::C3>(taviCountInRange_32f_C3R);
    sweep_count<float, Lay::AC4>(taviCountInRange_32f_AC4R);
}

TEST(CountInRange, LargeCountsAndStatuses) {
    // More pixels than the byte counters hold before they are flushed.
    Image<Tav8u> big(3000, 500);
    big.fill_with([](int x, int) { return Tav8u(x % 3 ? 9 : 10); });
    int n;
    ASSERT_EQ(taviCountInRange_8u_C1R(big.ptr(), big.step(), {3000, 500}, &n, 10, 10), tavOk);
    EXPECT_EQ(n, 500000);
    Tav8u px[4] = {};
    EXPECT_EQ(taviCountInRange_8u_C1R(nullptr, 0, {0, 0}, &n, 1, 0), tavErrNullPtr);
    EXPECT_EQ(taviCountInRange_8u_C1R(px, 0, {0, 0}, &n, 1, 0), tavErrStep);  // step before size
    EXPECT_EQ(taviCountInRange_8u_C1R(px, 1, {0, 1}, &n, 1, 0), tavErrSize);
    EXPECT_EQ(taviCountInRange_8u_C1R(px, 1, {1, 1}, &n, 10, 9), tavErrRange);
    const float lo[3] = {0, 5, 0}, hi[3] = {1, 4, 1};
    int c3[3];
    EXPECT_EQ(taviCountInRange_32f_C3R(reinterpret_cast<const float*>(px), 12, {1, 1}, c3, lo, hi), tavErrRange);
    EXPECT_EQ(taviCountInRange_32f_C3R(reinterpret_cast<const float*>(px), 12, {1, 1}, c3, nullptr, hi), tavErrNullPtr);
}

}  // namespace
