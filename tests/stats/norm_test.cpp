// taviNorm, taviNormDiff, taviNormRel: exact integer norms over widths,
// steps and layouts, lane flushes near their limits, the wide 8u L2 strips,
// the 32f hint paths, the zero-denominator rules and statuses.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstring>
#include <limits>

#include "stats/stats_fns.h"
#include "support/image.h"
#include "support/ref_norm.h"

namespace {

using namespace tavtest;
using tavref::NormKind;

template <class T, Nk K, Nf F, Lay L>
TavStatus call_norm(const T* a, int sa, const T* b, int sb, TaviSize r, double* out, int hint = 0) {
    constexpr auto fn = norm_fn<T, K, F, L>();
    constexpr bool kHint = std::is_same_v<T, float> && K != Nk::Inf;
    if constexpr (F == Nf::Plain) {
        if constexpr (kHint) return fn(a, sa, r, out, hint);
        else return fn(a, sa, r, out);
    } else {
        if constexpr (kHint) return fn(a, sa, b, sb, r, out, hint);
        else return fn(a, sa, b, sb, r, out);
    }
}

bool same_double(double a, double b) { return std::memcmp(&a, &b, 8) == 0; }

// Expected results of one call from the reference sums.
template <class T, Nk K, Nf F, Lay L>
void expected(const Image<T>& a, const Image<T>& b, int w, int h, double* out, bool& warned) {
    constexpr int C = kPer<L>;
    const auto kind = NormKind(int(K));
    const auto num = tavref::norm_sums(a.ptr(), a.step(), F == Nf::Plain ? (const T*)nullptr : b.ptr(), b.step(), w, h, C);
    const auto den = tavref::norm_sums(b.ptr(), b.step(), (const T*)nullptr, 0, w, h, C);
    warned = false;
    for (int c = 0; c < C; ++c)
        out[c] = F == Nf::Rel ? tavref::relative_of(num, den, kind, c, warned) : tavref::norm_of(num, kind, c);
}

// Integers: results equal the exact sums, square roots and quotients.
template <class T, Nk K, Nf F, Lay L>
void sweep_int_norm() {
    constexpr int C = kPer<L>;
    const double lo = double(std::numeric_limits<T>::lowest()), hi = double(std::numeric_limits<T>::max());
    for (int w : sweep_widths(sizeof(T) * C)) {
        for (int h : {1, 2}) {
            // A padded, misaligned first image on one row height only.
            for (int pad : {0, h == 2 ? 64 + 2 * int(sizeof(T)) : 0}) {
                if (h == 1 && pad) continue;
                Image<T> a(w * C, h, std::ptrdiff_t(w) * C * sizeof(T) + pad), b(w * C, h);
                a.fill(lo, hi);
                b.fill(lo, hi);
                double got[4], want[4];
                bool warned;
                expected<T, K, F, L>(a, b, w, h, want, warned);
                const TavStatus st = call_norm<T, K, F, L>(a.ptr(), a.step(), b.ptr(), b.step(), {w, h}, got);
                ASSERT_EQ(st, warned ? tavWarnDivByZero : tavOk);
                for (int c = 0; c < C; ++c)
                    ASSERT_TRUE(same_double(got[c], want[c]))
                        << "kind " << int(K) << " form " << int(F) << " w=" << w << " h=" << h << " pad=" << pad
                        << " c=" << c << ": " << got[c] << " vs " << want[c];
            }
        }
    }
}

template <class T>
void sweep_all_kinds() {
    for_layouts<Lay::C1, Lay::C3, Lay::C4>([](auto l) {
        constexpr Lay L = l.value;
        sweep_int_norm<T, Nk::Inf, Nf::Plain, L>();
        sweep_int_norm<T, Nk::L1, Nf::Plain, L>();
        sweep_int_norm<T, Nk::L2, Nf::Plain, L>();
        sweep_int_norm<T, Nk::Inf, Nf::Diff, L>();
        sweep_int_norm<T, Nk::L1, Nf::Diff, L>();
        sweep_int_norm<T, Nk::L2, Nf::Diff, L>();
        sweep_int_norm<T, Nk::Inf, Nf::Rel, L>();
        sweep_int_norm<T, Nk::L1, Nf::Rel, L>();
        sweep_int_norm<T, Nk::L2, Nf::Rel, L>();
    });
}

TEST(Norm, IntegerSweep8u) { sweep_all_kinds<Tav8u>(); }
TEST(Norm, IntegerSweep16u) { sweep_all_kinds<Tav16u>(); }
TEST(Norm, IntegerSweep16s) { sweep_all_kinds<Tav16s>(); }

// Extreme constant images, a value a channel, with enough pixels that every
// narrow lane flushes; differences against a constant second image.
template <class T, Nk K, Nf F, Lay L>
void extreme_norm(int w, int h, double va, double vb) {
    constexpr int C = kPer<L>;
    Image<T> a(w * C, h), b(w * C, h);
    a.fill_with([&](int x, int) { return T(va - (x % C)); });
    b.fill_with([&](int, int) { return T(vb); });
    double got[4], want[4];
    bool warned;
    expected<T, K, F, L>(a, b, w, h, want, warned);
    ASSERT_EQ((call_norm<T, K, F, L>(a.ptr(), a.step(), b.ptr(), b.step(), {w, h}, got)), tavOk);
    for (int c = 0; c < C; ++c) EXPECT_TRUE(same_double(got[c], want[c])) << got[c] << " vs " << want[c] << " c=" << c;
}

TEST(Norm, NarrowLanesNearTheirLimits) {
    extreme_norm<Tav8u, Nk::L2, Nf::Plain, Lay::C1>(2048, 1100, 255, 0);
    extreme_norm<Tav8u, Nk::L2, Nf::Diff, Lay::C3>(4096, 1100, 255, 0);
    extreme_norm<Tav8u, Nk::L1, Nf::Rel, Lay::C4>(1000, 300, 255, 1);
    extreme_norm<Tav16u, Nk::L1, Nf::Diff, Lay::C1>(2100, 2100, 65535, 0);
    extreme_norm<Tav16u, Nk::L2, Nf::Plain, Lay::C4>(1100, 1100, 65535, 0);
    extreme_norm<Tav16s, Nk::L1, Nf::Plain, Lay::C1>(2100, 2100, -32768, 0);
    extreme_norm<Tav16s, Nk::L2, Nf::Diff, Lay::C3>(1400, 1600, -32768, 32767);
}

TEST(Norm, InfOf16sCountsMinus32768As32768) {
    Image<Tav16s> a(3 * 20, 2);
    a.fill_with([](int, int) { return Tav16s(-32768); });
    double v[3];
    ASSERT_EQ(taviNorm_Inf_16s_C3R(a.ptr(), a.step(), {20, 2}, v), tavOk);
    for (double x : v) EXPECT_EQ(x, 32768.0);
}

// Rows over 32768 pixels: each strip's norm squared into the total by a
// fused step, then the square root.
TEST(Norm, WideRows8uL2GoInStrips) {
    for (int w : {32768, 32769, 70000}) {
        Image<Tav8u> a(3 * w, 2);
        a.fill(0, 255);
        double got[3];
        ASSERT_EQ(taviNorm_L2_8u_C3R(a.ptr(), a.step(), {w, 2}, got), tavOk);
        for (int c = 0; c < 3; ++c) {
            double total = 0;
            int64_t all = 0;
            for (int x0 = 0; x0 < w; x0 += 32768) {
                int64_t s = 0;
                for (int y = 0; y < 2; ++y)
                    for (int x = x0; x < std::min(w, x0 + 32768); ++x) s += int64_t(a.at(3 * x + c, y)) * a.at(3 * x + c, y);
                const double n = std::sqrt(double(s));
                total = w > 32768 ? std::fma(n, n, total) : double(s);
                all += s;
            }
            EXPECT_TRUE(same_double(got[c], std::sqrt(total))) << "w=" << w;
            EXPECT_NEAR(got[c], std::sqrt(double(all)), 1e-6 * got[c]);
        }
    }
}

TEST(Norm, ZeroDenominators) {
    Image<Tav8u> a(9, 4), b(9, 4);
    a.fill_with([](int, int) { return Tav8u(0); });
    b.fill_with([](int, int) { return Tav8u(0); });
    double v;
    ASSERT_EQ(taviNormRel_L2_8u_C1R(a.ptr(), a.step(), b.ptr(), b.step(), {9, 4}, &v), tavWarnDivByZero);
    uint64_t bits;
    std::memcpy(&bits, &v, 8);
    EXPECT_EQ(bits, 0xFFF8000000000000ull);
    a.at(3, 2) = 1;
    ASSERT_EQ(taviNormRel_L2_8u_C1R(a.ptr(), a.step(), b.ptr(), b.step(), {9, 4}, &v), tavWarnDivByZero);
    EXPECT_EQ(v, HUGE_VAL);
    // Per channel: only the channel with a zero denominator gets the rule.
    Image<float> f(3 * 5, 2), g(3 * 5, 2);
    f.fill(-1, 1);
    g.fill_with([](int x, int) { return x % 3 == 1 ? 0.0f : 2.0f; });
    double r[3];
    ASSERT_EQ(taviNormRel_L1_32f_C3R(f.ptr(), f.step(), g.ptr(), g.step(), {5, 2}, r, 0), tavWarnDivByZero);
    EXPECT_EQ(r[1], HUGE_VAL);
    EXPECT_TRUE(std::isfinite(r[0]) && std::isfinite(r[2]));
    // Squares below the float range add up to zero in single precision.
    g.fill_with([](int, int) { return 1e-30f; });
    f.fill_with([](int, int) { return 1e-30f; });
    ASSERT_EQ(taviNormRel_L2_32f_C3R(f.ptr(), f.step(), g.ptr(), g.step(), {5, 2}, r, 0), tavWarnDivByZero);
    std::memcpy(&bits, &r[0], 8);
    EXPECT_EQ(bits, 0xFFF8000000000000ull);
    ASSERT_EQ(taviNormRel_L2_32f_C3R(f.ptr(), f.step(), g.ptr(), g.step(), {5, 2}, r, 2), tavOk);
    EXPECT_EQ(r[0], 0.0);
}

// Float norms of small integers are exact on every path: masked tails and
// lane folds add nothing of their own.
template <Nk K, Nf F, Lay L>
void sweep_float_exact() {
    constexpr int C = kPer<L>;
    for (int w : sweep_widths(4 * C)) {
        const int h = w > 200 ? 1 : 3;
        Image<float> a(w * C, h, std::ptrdiff_t(w) * C * 4 + 12), b(w * C, h);
        a.fill_with([](int x, int y) { return float((x * 5 + y * 3) % 17 - 8); });
        b.fill_with([](int x, int y) { return float((x * 3 + y * 7) % 13 - 6); });
        double want[4];
        bool warned;
        expected<float, K, F, L>(a, b, w, h, want, warned);
        for (int hint : {0, 1, 2}) {
            double got[4];
            const TavStatus st = call_norm<float, K, F, L>(a.ptr(), a.step(), b.ptr(), b.step(), {w, h}, got, hint);
            ASSERT_EQ(st, warned ? tavWarnDivByZero : tavOk);
            for (int c = 0; c < C; ++c)
                ASSERT_TRUE(same_double(got[c], want[c])) << "w=" << w << " hint " << hint << " c=" << c << ": " << got[c]
                                                          << " vs " << want[c];
        }
    }
}

TEST(Norm, FloatSmallIntegersAreExactOnEveryPath) {
    sweep_float_exact<Nk::Inf, Nf::Plain, Lay::C1>();
    sweep_float_exact<Nk::L1, Nf::Plain, Lay::C1>();
    sweep_float_exact<Nk::L2, Nf::Diff, Lay::C1>();
    sweep_float_exact<Nk::L2, Nf::Rel, Lay::C3>();
    sweep_float_exact<Nk::L1, Nf::Diff, Lay::C4>();
    sweep_float_exact<Nk::Inf, Nf::Rel, Lay::C4>();
    sweep_float_exact<Nk::L2, Nf::Plain, Lay::C3>();
}

// Random floats: within the precision of each path.
TEST(Norm, FloatPrecisionByHint) {
    for (int w : {17, 300, 1000}) {
        const int h = 50;
        Image<float> a(w, h), b(w, h);
        a.fill(-1, 1);
        b.fill(-1, 1);
        const auto s = tavref::norm_sums(a.ptr(), a.step(), b.ptr(), b.step(), w, h, 1);
        for (int hint : {0, 2}) {
            double l1, l2;
            ASSERT_EQ(taviNormDiff_L1_32f_C1R(a.ptr(), a.step(), b.ptr(), b.step(), {w, h}, &l1, hint), tavOk);
            ASSERT_EQ(taviNormDiff_L2_32f_C1R(a.ptr(), a.step(), b.ptr(), b.step(), {w, h}, &l2, hint), tavOk);
            // 24-bit lanes lose about one rounding an element of a lane; doubles next to nothing.
            const double tol = hint == 2 ? 1e-13 : (double(w) * h / 16 + 16) * FLT_EPSILON;
            EXPECT_NEAR(l1, double(s.l1[0]), tol * double(s.l1[0])) << "w=" << w << " hint " << hint;
            EXPECT_NEAR(l2 * l2, double(s.l2[0]), tol * double(s.l2[0])) << "w=" << w << " hint " << hint;
        }
    }
}

// The accurate hint keeps even and odd columns apart, and an odd last column
// joins the odd ones: 2^53 + 1 + 1 only survives when the two ones meet first.
TEST(Norm, AccurateHintSumsColumnParitiesApart) {
    const float big = 9007199254740992.0f;  // 2^53
    for (int w : {3, 4, 35, 36}) {
        Image<float> a(w, 2);
        a.fill_with([&](int x, int y) { return y == 0 && x == 0 ? big : 0.0f; });
        // One odd column and, for odd widths, the last column hold the ones.
        a.at(1, 1) = 1;
        a.at(w % 2 ? w - 1 : 3, 1) = 1;
        double v;
        ASSERT_EQ(taviNorm_L1_32f_C1R(a.ptr(), a.step(), {w, 2}, &v, 2), tavOk);
        EXPECT_EQ(v, 9007199254740994.0) << "w=" << w;
        // Single precision loses both ones.
        ASSERT_EQ(taviNorm_L1_32f_C1R(a.ptr(), a.step(), {w, 2}, &v, 0), tavOk);
        EXPECT_EQ(v, 9007199254740992.0) << "w=" << w;
    }
}

TEST(Norm, Statuses) {
    Tav16u a[4] = {}, b[4] = {};
    double v[4];
    EXPECT_EQ(taviNorm_L1_16u_C1R(nullptr, 0, {0, 0}, v), tavErrNullPtr);
    EXPECT_EQ(taviNorm_L1_16u_C1R(a, 0, {0, 1}, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviNorm_L1_16u_C1R(a, 0, {1, 0}, v), tavErrSize);
    EXPECT_EQ(taviNorm_L1_16u_C1R(a, 0, {1, 1}, v), tavErrStep);
    EXPECT_EQ(taviNormDiff_Inf_16u_C4R(a, 8, nullptr, 8, {1, 1}, v), tavErrNullPtr);
    EXPECT_EQ(taviNormDiff_Inf_16u_C4R(a, 8, b, -8, {1, 1}, v), tavErrStep);
    EXPECT_EQ(taviNormRel_L2_32f_C1R(nullptr, 4, nullptr, 4, {1, 1}, v, 2), tavErrNullPtr);
    EXPECT_EQ(taviNormRel_L2_16u_C3R(a, 0, b, 0, {-1, 1}, v), tavErrSize);
    EXPECT_EQ(taviNormRel_L2_16u_C3R(a, 0, b, 6, {1, 1}, v), tavErrStep);
}

}  // namespace
