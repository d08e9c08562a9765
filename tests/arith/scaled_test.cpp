// Sum, difference and product: every path of the scale rule on every type,
// layout and form, against the scalar rule.
#include "arith/forms.h"
#include "support/ref_arith.h"

using namespace arithtest;
using tavref::Op;

namespace {

// Scale factors on both sides of every path bound of every family.
const int kFactors[] = {-40, -17, -16, -15, -14, -13, -8, -7, -6, -3, -1, 0, 1, 2, 3, 7, 8, 9, 10, 11,
                        15, 16, 17, 18, 19, 29, 30, 31, 32, 33, 34, 60};

template <class T, class Fns>
void sweep_binary(Op op, const Fns (&table)[4], const char* name) {
    for (const auto& fns : table)
        for (int f : kFactors) {
            const BinForms<T> forms = fns.forms(f);
            for (const Shape& s : shapes())
                check_binary<T>(fns.L, s.w, s.h, s.pad, forms,
                                [&](T x, T y, int) { return tavref::scaled<T>(op, x, y, f); }, tavOk,
                                std::string(name) + " f=" + std::to_string(f));
        }
}

#define FOUR(M, fam, t) {M(fam, t, C1), M(fam, t, C3), M(fam, t, C4), M(fam, t, AC4)}

#define SCALED_TYPE(t)                                                                                        \
    do {                                                                                                      \
        const BinFns<Tav##t, int> add[4] = FOUR(ARITH_SFS, Add, t), sub[4] = FOUR(ARITH_SFS, Sub, t),          \
                                  mul[4] = FOUR(ARITH_SFS, Mul, t);                                           \
        sweep_binary<Tav##t>(Op::Add, add, "Add_" #t);                                                        \
        sweep_binary<Tav##t>(Op::Sub, sub, "Sub_" #t);                                                        \
        sweep_binary<Tav##t>(Op::Mul, mul, "Mul_" #t);                                                        \
    } while (0)

TEST(Scaled, TwoImagesEveryPath) {
    SCALED_TYPE(8u);
    SCALED_TYPE(16u);
    SCALED_TYPE(16s);
}

// The constant model: below the negative bound, the 8u sum and difference
// with a constant give 255 wherever the source or the constant is non-zero.
template <class T>
T const_model(Op op, T x, T c, int f) {
    if (sizeof(T) == 1 && op != Op::Mul && f < -7) return (x != 0 || c != 0) ? T(255) : T(0);
    return tavref::scaled<T>(op, x, c, f);
}

template <class T, class F1, class FN>
void sweep_const(Op op, const F1& c1, const FN (&cn)[3], const char* name) {
    const T sets[][4] = {{T(3), T(200), T(1), T(77)}, {T(0), T(5), T(0), T(9)}, {T(7), T(7), T(7), T(7)},
                         {T(0), T(0), T(0), T(0)},   {T(1), T(1), T(1), T(1)}, {std::numeric_limits<T>::max(), T(2), std::numeric_limits<T>::min(), T(1)}};
    int round = 0;
    for (int f : kFactors)
        for (int k = 0; k < 2; ++k) {
            const T* v = sets[(round++) % 6];
            const std::string what = std::string(name) + " f=" + std::to_string(f) + " v0=" + std::to_string(v[0]);
            auto model = [&](T x, T c, int) { return const_model<T>(op, x, c, f); };
            for (const Shape& s : shapes()) {
                check_const<T>(Lay::C1, s.w, s.h, s.pad, v, c1.forms(f), model, tavOk, what);
                for (const auto& fns : cn) check_const<T>(fns.L, s.w, s.h, s.pad, v, fns.forms(f), model, tavOk, what);
            }
        }
}

#define THREE(M, fam, t) {M(fam, t, C3), M(fam, t, C4), M(fam, t, AC4)}

#define SCALED_CONST_TYPE(t)                                                                                       \
    do {                                                                                                           \
        const ConstFns<Tav##t, const Tav##t*, int> add[3] = THREE(ARITH_CN_SFS, AddC, t),                          \
                                                   sub[3] = THREE(ARITH_CN_SFS, SubC, t),                          \
                                                   mul[3] = THREE(ARITH_CN_SFS, MulC, t);                          \
        sweep_const<Tav##t>(Op::Add, ARITH_C1_SFS(AddC, t), add, "AddC_" #t);                                      \
        sweep_const<Tav##t>(Op::Sub, ARITH_C1_SFS(SubC, t), sub, "SubC_" #t);                                      \
        sweep_const<Tav##t>(Op::Mul, ARITH_C1_SFS(MulC, t), mul, "MulC_" #t);                                      \
    } while (0)

TEST(Scaled, WithConstantEveryPath) {
    SCALED_CONST_TYPE(8u);
    SCALED_CONST_TYPE(16u);
    SCALED_CONST_TYPE(16s);
}

#define F_OP(fam, expr)                                                                                     \
    FloatOp {                                                                                                \
        {ARITH_F(fam, C1), ARITH_F(fam, C3), ARITH_F(fam, C4), ARITH_F(fam, AC4)}, ARITH_C1_F(fam##C),       \
            {ARITH_CN_F(fam##C, C3), ARITH_CN_F(fam##C, C4), ARITH_CN_F(fam##C, AC4)},                       \
            [](float x, float y, int) { return expr; }                                                       \
    }

struct FloatOp {
    BinFns<Tav32f> two[4];
    ConstFns<Tav32f, Tav32f> c1;
    ConstFns<Tav32f, const Tav32f*> cn[3];
    float (*model)(float, float, int);
};

TEST(Scaled, SinglePrecision) {
    const FloatOp ops[] = {F_OP(Add, x + y), F_OP(Sub, x - y), F_OP(Mul, x * y)};
    const float v[4] = {1.5f, -3.25f, 1e-3f, 7.0f};
    for (const FloatOp& op : ops)
        for (const Shape& s : shapes()) {
            for (const auto& fns : op.two) check_binary<float>(fns.L, s.w, s.h, s.pad, fns.forms(), op.model);
            check_const<float>(Lay::C1, s.w, s.h, s.pad, v, op.c1.forms(), op.model);
            for (const auto& fns : op.cn) check_const<float>(fns.L, s.w, s.h, s.pad, v, fns.forms(), op.model);
        }
}

// Widths through every peel and tail, with destination offsets that move the
// 64-byte boundary, on one path of each kind.
TEST(Scaled, WidthsAndAlignments) {
    const auto add = ARITH_SFS(Add, 16s, C1);
    const auto sub = ARITH_SFS(Sub, 8u, AC4);
    const auto mulc = ARITH_CN_SFS(MulC, 8u, C3);
    const Tav8u v[3] = {3, 90, 255};
    for (int w : tavtest::sweep_widths(2))
        for (int pad : {0, 2, 6, 34}) {
            check_binary<Tav16s>(Lay::C1, w, 3, pad, add.forms(3), [](Tav16s x, Tav16s y, int) { return tavref::scaled<Tav16s>(Op::Add, x, y, 3); });
            check_binary<Tav8u>(Lay::AC4, w, 2, pad, sub.forms(-2), [](Tav8u x, Tav8u y, int) { return tavref::scaled<Tav8u>(Op::Sub, x, y, -2); });
            check_const<Tav8u>(Lay::C3, w, 2, pad, v, mulc.forms(5), [](Tav8u x, Tav8u c, int) { return tavref::scaled<Tav8u>(Op::Mul, x, c, 5); });
        }
}

TEST(Scaled, NamedCases) {
    struct Case {
        Tav8u a, b;
        int f;
        Tav8u sum;
    } cases[] = {{200, 100, 0, 255}, {200, 100, 1, 150}, {3, 2, 1, 2}, {1, 2, 1, 2}, {100, 100, 10, 0}, {0, 0, -8, 0}, {0, 1, -8, 255}};
    for (const Case& c : cases) {
        Tav8u d = 9;
        EXPECT_EQ(taviAdd_8u_C1RSfs(&c.a, 1, &c.b, 1, &d, 1, {1, 1}, c.f), tavOk);
        EXPECT_EQ(d, c.sum) << int(c.a) << "+" << int(c.b) << " f=" << c.f;
    }
    const Tav8u src1 = 10, src2 = 5;
    Tav8u d = 9;
    EXPECT_EQ(taviSub_8u_C1RSfs(&src1, 1, &src2, 1, &d, 1, {1, 1}, 0), tavOk);
    EXPECT_EQ(d, 0);  // src2 - src1, saturated
}

// Sum, difference and product check pointers and size, never steps.
TEST(Scaled, Statuses) {
    Tav8u a[8] = {1, 2, 3, 4, 5, 6, 7, 8}, d[8] = {};
    EXPECT_EQ(taviAdd_8u_C1RSfs(nullptr, 1, a, 1, d, 1, {0, 1}, 0), tavErrNullPtr);
    EXPECT_EQ(taviAdd_8u_C1RSfs(a, 1, a, 1, nullptr, 1, {1, 1}, 0), tavErrNullPtr);
    EXPECT_EQ(taviMul_16s_C3RSfs(reinterpret_cast<Tav16s*>(a), 2, nullptr, 2, reinterpret_cast<Tav16s*>(d), 2, {1, 1}, 0), tavErrNullPtr);
    EXPECT_EQ(taviAdd_8u_C1RSfs(a, 1, a, 1, d, 1, {0, 1}, 0), tavErrSize);
    EXPECT_EQ(taviAdd_8u_C1RSfs(a, 1, a, 1, d, 1, {1, -1}, 0), tavErrSize);
    // A step of 0 is accepted and revisits the same row.
    EXPECT_EQ(taviAdd_8u_C1RSfs(a, 0, a, 0, d, 0, {4, 2}, 0), tavOk);
    EXPECT_EQ(d[3], 8);
    const Tav8u v3[3] = {1, 1, 1};
    EXPECT_EQ(taviAddC_8u_C3RSfs(a, 3, nullptr, d, 3, {1, 1}, 0), tavErrNullPtr);
    EXPECT_EQ(taviAddC_8u_C3RSfs(a, -3, v3, d, 0, {1, 1}, 0), tavOk);
    EXPECT_EQ(taviSubC_32f_C1R(reinterpret_cast<float*>(a), 4, 1.0f, reinterpret_cast<float*>(d), 4, {0, 0}), tavErrSize);
    // The fill path checks as the set implementation does: a null destination first.
    EXPECT_EQ(taviAdd_8u_C1RSfs(a, 1, a, 1, nullptr, 1, {0, 0}, 20), tavErrNullPtr);
}

// The 16u constant product: a zero constant or f of 33 and above reads no
// source; f = 0 with a constant of 1 copies.
TEST(Scaled, MulC16uShortcutsReadNoSource) {
    tavtest::Image<Tav16u> d(40, 3);
    const Tav16u* unreadable = reinterpret_cast<const Tav16u*>(std::uintptr_t{64});  // any read faults
    EXPECT_EQ(taviMulC_16u_C1RSfs(unreadable, 80, 0, d.ptr(), d.step(), {40, 3}, 4), tavOk);
    EXPECT_EQ(taviMulC_16u_C1RSfs(unreadable, 80, 9, d.ptr(), d.step(), {40, 3}, 33), tavOk);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 40; ++x) ASSERT_EQ(d.at(x, y), 0);
    EXPECT_EQ(taviMulC_16u_C1RSfs(nullptr, 80, 0, d.ptr(), d.step(), {40, 3}, 4), tavErrNullPtr);
    tavtest::Image<Tav16u> s(40, 3);
    s.fill(0, 65535);
    EXPECT_EQ(taviMulC_16u_C1RSfs(s.ptr(), s.step(), 1, d.ptr(), d.step(), {40, 3}, 0), tavOk);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 40; ++x) ASSERT_EQ(d.at(x, y), s.at(x, y));
    // 8u sum with a constant non-zero in every channel, far below: a fill of 255.
    tavtest::Image<Tav8u> d8(12, 2);
    const Tav8u v[3] = {1, 2, 3};
    EXPECT_EQ(taviAddC_8u_C3RSfs(reinterpret_cast<const Tav8u*>(std::uintptr_t{64}), 12, v, d8.ptr(), d8.step(), {4, 2}, -9), tavOk);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 12; ++x) ASSERT_EQ(d8.at(x, y), 255);
}

}  // namespace
