// Products of values standing for 0..1, and the product with a double
// constant under each rounding code.
#include "arith/forms.h"
#include "support/ref_arith.h"

using namespace arithtest;

namespace {

#define MS(t, L) BinFns<Tav##t>{Lay::L, taviMulScale_##t##_##L##R, taviMulScale_##t##_##L##IR, nullptr, nullptr}
#define MCS1(t) ConstFns<Tav##t, Tav##t>{Lay::C1, taviMulCScale_##t##_C1R, taviMulCScale_##t##_C1IR, nullptr, nullptr}
#define MCSN(t, L) ConstFns<Tav##t, const Tav##t*>{Lay::L, taviMulCScale_##t##_##L##R, taviMulCScale_##t##_##L##IR, nullptr, nullptr}

TEST(MulScale, EveryTypeAndLayout) {
    const BinFns<Tav8u> m8[4] = {MS(8u, C1), MS(8u, C3), MS(8u, C4), MS(8u, AC4)};
    const BinFns<Tav16u> m16[4] = {MS(16u, C1), MS(16u, C3), MS(16u, C4), MS(16u, AC4)};
    const ConstFns<Tav8u, const Tav8u*> c8[3] = {MCSN(8u, C3), MCSN(8u, C4), MCSN(8u, AC4)};
    const ConstFns<Tav16u, const Tav16u*> c16[3] = {MCSN(16u, C3), MCSN(16u, C4), MCSN(16u, AC4)};
    const Tav8u v8[4] = {255, 128, 1, 0};
    const Tav16u v16[4] = {65535, 32768, 1, 40000};
    for (const Shape& s : shapes()) {
        for (int i = 0; i < 4; ++i) {
            check_binary<Tav8u>(m8[i].L, s.w, s.h, s.pad, m8[i].forms(), [](Tav8u x, Tav8u y, int) { return tavref::mul_scale(x, y); });
            check_binary<Tav16u>(m16[i].L, s.w, s.h, s.pad, m16[i].forms(), [](Tav16u x, Tav16u y, int) { return tavref::mul_scale(x, y); });
        }
        check_const<Tav8u>(Lay::C1, s.w, s.h, s.pad, v8 + 1, MCS1(8u).forms(), [](Tav8u x, Tav8u c, int) { return tavref::mul_scale(x, c); });
        check_const<Tav16u>(Lay::C1, s.w, s.h, s.pad, v16, MCS1(16u).forms(), [](Tav16u x, Tav16u c, int) { return tavref::mul_scale(x, c); });
        for (int i = 0; i < 3; ++i) {
            check_const<Tav8u>(c8[i].L, s.w, s.h, s.pad, v8, c8[i].forms(), [](Tav8u x, Tav8u c, int) { return tavref::mul_scale(x, c); });
            check_const<Tav16u>(c16[i].L, s.w, s.h, s.pad, v16, c16[i].forms(), [](Tav16u x, Tav16u c, int) { return tavref::mul_scale(x, c); });
        }
    }
}

// Every pair of 8-bit values, and the 16-bit products near each multiple of
// 65535 where rounding turns.
TEST(MulScale, ExhaustiveBytesAndTurningPoints) {
    std::vector<Tav8u> a(65536), b(65536), d(65536);
    for (int i = 0; i < 65536; ++i) {
        a[i] = Tav8u(i & 255);
        b[i] = Tav8u(i >> 8);
    }
    ASSERT_EQ(taviMulScale_8u_C1R(a.data(), 65536, b.data(), 65536, d.data(), 65536, {65536, 1}), tavOk);
    for (int i = 0; i < 65536; ++i) ASSERT_EQ(d[i], tavref::mul_scale(a[i], b[i])) << int(a[i]) << "*" << int(b[i]);
    EXPECT_EQ(d[255 * 256 + 255], 255);
    EXPECT_EQ(d[1 * 256 + 255], 1);
    EXPECT_EQ(d[128 * 256 + 128], 64);
    std::vector<Tav16u> x, y;
    for (uint32_t p : {1u, 2u, 255u, 257u, 32767u, 32768u, 65535u})
        for (uint32_t q = 65535 - 300; q <= 65535; ++q) {
            x.push_back(Tav16u(p));
            y.push_back(Tav16u(q));
        }
    std::vector<Tav16u> r(x.size());
    const int n = int(x.size());
    ASSERT_EQ(taviMulScale_16u_C1R(x.data(), 2 * n, y.data(), 2 * n, r.data(), 2 * n, {n, 1}), tavOk);
    for (int i = 0; i < n; ++i) ASSERT_EQ(r[i], tavref::mul_scale(x[i], y[i])) << x[i] << "*" << y[i];
}

TEST(MulScale, CheckOrder) {
    Tav8u a[4] = {}, d[4] = {};
    EXPECT_EQ(taviMulScale_8u_C1R(a, 0, a, 1, d, 1, {0, 1}), tavErrStep);  // steps before size
    EXPECT_EQ(taviMulScale_8u_C1R(a, 1, a, 1, d, 1, {0, 1}), tavErrSize);
    EXPECT_EQ(taviMulCScale_16u_C3R(reinterpret_cast<Tav16u*>(a), 6, nullptr, reinterpret_cast<Tav16u*>(d), 6, {1, 1}), tavErrNullPtr);
}

// The double constant: each code on each type and layout.
template <class T>
void check_c64f(Lay L, TavStatus (*r)(const T*, int, const double*, T*, int, TaviSize, TavHintAlgorithm, TavRoundMode),
                TavStatus (*ir)(const double*, T*, int, TaviSize, TavHintAlgorithm, TavRoundMode), const double* v) {
    for (int mode = 0; mode < 3; ++mode) {
        ConstForms<T> f = {{[=](const T* s, int t, const T*, T* d, int td, TaviSize z) { return r(s, t, v, d, td, z, 0, mode); }, false},
                           {[=](const T*, int, const T*, T* d, int td, TaviSize z) { return ir(v, d, td, z, 1, mode); }, true}};
        const T unused[4] = {};
        for (const Shape& s : shapes())
            check_const<T>(L, s.w, s.h, s.pad, unused, f, [&](T x, T, int c) { return tavref::mul_c64f<T>(x, v[c], mode); });
    }
}

#define C64F(t, L, v) check_c64f<Tav##t>(Lay::L, taviMulC64f_##t##_##L##R, taviMulC64f_##t##_##L##IR, v)
#define C64F_TYPE(t, v) C64F(t, C1, v), C64F(t, C3, v), C64F(t, C4, v)

TEST(MulC64f, RoundingCodes) {
    const double halves[4] = {0.5, 2.5, -1.5, 1.0 / 3};  // ties in every element
    const double wide[4] = {1e6, -7.25, 3.0e-3, 1e40};
    for (const double* v : {halves, wide}) {
        C64F_TYPE(8u, v);
        C64F_TYPE(16u, v);
        C64F_TYPE(16s, v);
        C64F_TYPE(32f, v);
    }
    Tav8u a = 5, d = 0;
    const double half = 0.5;  // 2.5 by each code
    const Tav8u want[3] = {2, 2, 3};
    for (int mode = 0; mode < 3; ++mode) {
        EXPECT_EQ(taviMulC64f_8u_C1R(&a, 1, &half, &d, 1, {1, 1}, 0, mode), tavOk);
        EXPECT_EQ(d, want[mode]);
    }
    EXPECT_EQ(taviMulC64f_8u_C1R(&a, 0, &half, &d, 1, {1, 1}, 0, 3), tavErrStep);
    EXPECT_EQ(taviMulC64f_8u_C1R(&a, 1, &half, &d, 1, {1, 1}, 0, 3), tavErrRoundMode);
    EXPECT_EQ(taviMulC64f_8u_C1R(&a, 1, nullptr, &d, 1, {1, 1}, 0, 1), tavErrNullPtr);
}

}  // namespace
