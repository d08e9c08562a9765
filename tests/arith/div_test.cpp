// Division: the single-precision quotient rounded by the current mode or the
// requested one, zero divisors, the ranges of f, statuses and check order.
#include <cfenv>
#include <cmath>

#include "arith/forms.h"
#include "support/ref_arith.h"

using namespace arithtest;
using tavref::Rounding;

namespace {

const int kFactors[] = {-40, -32, -31, -30, -16, -15, -14, -8, -3, -1, 0, 1, 2, 5, 8, 9, 10, 16, 17, 18, 40};

template <class T, class Fns>
void sweep_div(const Fns (&table)[4], const char* name) {
    for (const auto& fns : table)
        for (int f : kFactors) {
            const BinForms<T> forms = fns.forms(f);
            for (const Shape& s : shapes())
                check_binary<T>(fns.L, s.w, s.h, s.pad, forms,
                                [&](T x, T y, int) { return tavref::divide<T>(x, y, f, Rounding::Current); },
                                kWarnIfZeroDivisor, std::string(name) + " f=" + std::to_string(f));
        }
}

#define FOUR(M, fam, t) {M(fam, t, C1), M(fam, t, C3), M(fam, t, C4), M(fam, t, AC4)}

TEST(Div, TwoImagesEveryRange) {
    const BinFns<Tav8u, int> d8[4] = FOUR(ARITH_SFS, Div, 8u);
    const BinFns<Tav16u, int> d16u[4] = FOUR(ARITH_SFS, Div, 16u);
    const BinFns<Tav16s, int> d16s[4] = FOUR(ARITH_SFS, Div, 16s);
    sweep_div<Tav8u>(d8, "Div_8u");
    sweep_div<Tav16u>(d16u, "Div_16u");
    sweep_div<Tav16s>(d16s, "Div_16s");
}

// The caller's rounding mode decides the last step, and is left as it was.
TEST(Div, FollowsTheCurrentRounding) {
    const auto fns = ARITH_SFS(Div, 16s, C1);
    const int modes[] = {FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO};
    for (int mode : modes) {
        for (int f : {0, 2, -3}) {
            ASSERT_EQ(std::fesetround(mode), 0);
            for (const Shape& s : shapes())
                check_binary<Tav16s>(Lay::C1, s.w, s.h, s.pad, fns.forms(f),
                                     [&](Tav16s x, Tav16s y, int) { return tavref::divide<Tav16s>(x, y, f, Rounding::Current); },
                                     kWarnIfZeroDivisor);
            EXPECT_EQ(std::fegetround(), mode);
            std::fesetround(FE_TONEAREST);
        }
    }
    const Tav8u a = 2, b = 7;  // 7 / 2 = 3.5
    Tav8u d = 0;
    std::fesetround(FE_UPWARD);
    taviDiv_8u_C1RSfs(&a, 1, &b, 1, &d, 1, {1, 1}, 0);
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(d, 4);
    taviDiv_8u_C1RSfs(&a, 1, &b, 1, &d, 1, {1, 1}, 1);  // 1.75
    EXPECT_EQ(d, 2);
}

TEST(Div, ZeroDivisors) {
    const Tav8u divisor[4] = {0, 0, 3, 0}, dividend[4] = {7, 0, 9, 1};
    Tav8u d[4] = {};
    EXPECT_EQ(taviDiv_8u_C1RSfs(divisor, 4, dividend, 4, d, 4, {4, 1}, 0), tavWarnDivByZero);
    EXPECT_EQ(d[0], 255);
    EXPECT_EQ(d[1], 0);
    EXPECT_EQ(d[2], 3);
    EXPECT_EQ(d[3], 255);
    const Tav16s sdiv[3] = {0, 0, 0}, sdend[3] = {-5, 5, 0};
    Tav16s sd[3] = {};
    EXPECT_EQ(taviDiv_16s_C1RSfs(sdiv, 6, sdend, 6, sd, 6, {3, 1}, 12), tavWarnDivByZero);
    EXPECT_EQ(sd[0], -32768);
    EXPECT_EQ(sd[1], 32767);
    EXPECT_EQ(sd[2], 0);
    // Zero divisors in the alpha lanes of AC4 are not counted.
    const Tav8u adiv[8] = {1, 1, 1, 0, 2, 2, 2, 0}, adend[8] = {4, 4, 4, 4, 4, 4, 4, 4};
    Tav8u ad[8] = {};
    EXPECT_EQ(taviDiv_8u_AC4RSfs(adiv, 8, adend, 8, ad, 8, {2, 1}, 0), tavOk);
    const float fdiv[2] = {0.0f, 2.0f}, fdend[2] = {1.0f, 3.0f};
    float fd[2] = {};
    EXPECT_EQ(taviDiv_32f_C1R(fdiv, 8, fdend, 8, fd, 8, {2, 1}), tavWarnDivByZero);
    EXPECT_TRUE(std::isinf(fd[0]));
    EXPECT_EQ(fd[1], 1.5f);
}

TEST(Div, RoundingCodes) {
    const BinFns<Tav8u, TavRoundMode, int> r8[4] = {
        {Lay::C1, taviDiv_Round_8u_C1RSfs, taviDiv_Round_8u_C1IRSfs, nullptr, nullptr},
        {Lay::C3, taviDiv_Round_8u_C3RSfs, taviDiv_Round_8u_C3IRSfs, nullptr, nullptr},
        {Lay::C4, taviDiv_Round_8u_C4RSfs, taviDiv_Round_8u_C4IRSfs, nullptr, nullptr},
        {Lay::AC4, taviDiv_Round_8u_AC4RSfs, taviDiv_Round_8u_AC4IRSfs, nullptr, nullptr}};
    const BinFns<Tav16u, TavRoundMode, int> r16u[2] = {{Lay::C1, taviDiv_Round_16u_C1RSfs, taviDiv_Round_16u_C1IRSfs, nullptr, nullptr},
                                                        {Lay::AC4, taviDiv_Round_16u_AC4RSfs, taviDiv_Round_16u_AC4IRSfs, nullptr, nullptr}};
    const BinFns<Tav16s, TavRoundMode, int> r16s[2] = {{Lay::C3, taviDiv_Round_16s_C3RSfs, taviDiv_Round_16s_C3IRSfs, nullptr, nullptr},
                                                        {Lay::C4, taviDiv_Round_16s_C4RSfs, taviDiv_Round_16s_C4IRSfs, nullptr, nullptr}};
    const std::pair<TavRoundMode, Rounding> modes[] = {{tavRndZero, Rounding::Zero}, {tavRndNear, Rounding::Near}, {tavRndFinancial, Rounding::Financial}};
    for (auto [code, rule] : modes)
        for (int f : {-16, -15, -4, 0, 1, 3, 8, 9, 17}) {
            for (const auto& fns : r8)
                for (const Shape& s : shapes())
                    check_binary<Tav8u>(fns.L, s.w, s.h, s.pad, fns.forms(code, f),
                                        [&](Tav8u x, Tav8u y, int) { return tavref::divide<Tav8u>(x, y, f, rule); }, kWarnIfZeroDivisor);
            for (const auto& fns : r16u)
                check_binary<Tav16u>(fns.L, 37, 2, 4, fns.forms(code, f),
                                     [&](Tav16u x, Tav16u y, int) { return tavref::divide<Tav16u>(x, y, f, rule); }, kWarnIfZeroDivisor);
            for (const auto& fns : r16s)
                check_binary<Tav16s>(fns.L, 37, 2, 4, fns.forms(code, f),
                                     [&](Tav16s x, Tav16s y, int) { return tavref::divide<Tav16s>(x, y, f, rule); }, kWarnIfZeroDivisor);
        }
    // Ties: 5 / 2 by each code.
    const Tav8u two = 2, five = 5;
    const Tav8u want[3] = {2, 2, 3};
    for (int code = 0; code < 3; ++code) {
        Tav8u d = 0;
        EXPECT_EQ(taviDiv_Round_8u_C1RSfs(&two, 1, &five, 1, &d, 1, {1, 1}, code, 0), tavOk);
        EXPECT_EQ(d, want[code]) << "code " << code;
    }
}

TEST(Div, WithConstant) {
    const Tav8u v8[4] = {3, 7, 255, 1};
    const Tav16s v16[4] = {-3, 1000, 7, -1};
    for (int f : {-16, -15, -2, 0, 3, 8, 9, 17}) {
        for (const Shape& s : shapes()) {
            auto m8 = [&](Tav8u x, Tav8u c, int) { return tavref::divide<Tav8u>(x, c, f, Rounding::Current); };
            auto m16 = [&](Tav16s x, Tav16s c, int) { return tavref::divide<Tav16s>(x, c, f, Rounding::Current); };
            check_const<Tav8u>(Lay::C1, s.w, s.h, s.pad, v8, ARITH_C1_SFS(DivC, 8u).forms(f), m8);
            check_const<Tav8u>(Lay::C3, s.w, s.h, s.pad, v8, ARITH_CN_SFS(DivC, 8u, C3).forms(f), m8);
            check_const<Tav8u>(Lay::AC4, s.w, s.h, s.pad, v8, ARITH_CN_SFS(DivC, 8u, AC4).forms(f), m8);
            check_const<Tav16s>(Lay::C4, s.w, s.h, s.pad, v16, ARITH_CN_SFS(DivC, 16s, C4).forms(f), m16);
            const Tav16u v16u[4] = {65535, 2, 3, 9};
            check_const<Tav16u>(Lay::C3, s.w, s.h, s.pad, v16u, ARITH_CN_SFS(DivC, 16u, C3).forms(f),
                                [&](Tav16u x, Tav16u c, int) { return tavref::divide<Tav16u>(x, c, f, Rounding::Current); });
        }
    }
    const float vf[4] = {3.0f, -0.5f, 7.0f, 1e-3f};
    for (const Shape& s : shapes()) {
        check_const<float>(Lay::C1, s.w, s.h, s.pad, vf, ARITH_C1_F(DivC).forms(), [](float x, float c, int) { return x / c; });
        check_const<float>(Lay::AC4, s.w, s.h, s.pad, vf, ARITH_CN_F(DivC, AC4).forms(), [](float x, float c, int) { return x / c; });
        check_binary<float>(Lay::C3, s.w, s.h, s.pad, ARITH_F(Div, C3).forms(), [](float x, float y, int) { return x / y; },
                            kWarnIfZeroDivisor);
    }
}

// Division checks pointers, size, steps, then its own argument.
TEST(Div, CheckOrder) {
    Tav8u a[4] = {1, 2, 3, 4}, d[4] = {9, 9, 9, 9};
    const Tav8u zero3[3] = {1, 0, 1};
    struct Case {
        const char* what;
        TavStatus got, want;
    } cases[] = {
        {"null before size", taviDiv_8u_C1RSfs(nullptr, 1, a, 1, d, 1, {0, 0}, 0), tavErrNullPtr},
        {"size before step", taviDiv_8u_C1RSfs(a, 0, a, 1, d, 1, {0, 1}, 0), tavErrSize},
        {"step", taviDiv_8u_C1RSfs(a, 0, a, 1, d, 1, {1, 1}, 0), tavErrStep},
        {"step of 32f", taviDiv_32f_C1R(reinterpret_cast<float*>(a), 4, reinterpret_cast<float*>(a), 4, reinterpret_cast<float*>(d), -4, {1, 1}), tavErrStep},
        {"round code after steps", taviDiv_Round_8u_C1RSfs(a, 0, a, 1, d, 1, {1, 1}, 3, 0), tavErrStep},
        {"round code", taviDiv_Round_8u_C1RSfs(a, 1, a, 1, d, 1, {1, 1}, 3, 0), tavErrRoundMode},
        {"zero constant after steps", taviDivC_8u_C1RSfs(a, 0, 0, d, 1, {1, 1}, 0), tavErrStep},
        {"zero constant", taviDivC_8u_C1RSfs(a, 1, 0, d, 1, {4, 1}, 0), tavErrDivByZero},
        {"zero in a constant array", taviDivC_8u_C3RSfs(a, 3, zero3, d, 3, {1, 1}, 0), tavErrDivByZero},
        {"zero 32f constant", taviDivC_32f_C1R(reinterpret_cast<float*>(a), 4, 0.0f, reinterpret_cast<float*>(d), 4, {1, 1}), tavErrDivByZero},
        {"zero constant, 64-bit rows in pieces", taviDivC_8u_C1RSfs_L(a, kHugeStep, 0, d, kHugeStep, {4, 1}, 0), tavErrDivByZero},
    };
    for (const Case& c : cases) EXPECT_EQ(c.got, c.want) << c.what;
    for (Tav8u v : d) EXPECT_EQ(v, 9);  // nothing written by a failing call
}

}  // namespace
