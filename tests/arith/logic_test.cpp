// Bitwise families, the complement and the shifts: every type and layout
// against the scalar models, the reductions of equal constants, large counts,
// and the check order pointers, steps, size.
#include "arith/forms.h"
#include "support/ref_logic.h"

using namespace arithtest;
using tavref::Bit;

namespace {

template <class T>
BinFns<T> bin(Lay L, TavStatus (*r)(const T*, int, const T*, int, T*, int, TaviSize), TavStatus (*ir)(const T*, int, T*, int, TaviSize)) {
    return {L, r, ir, nullptr, nullptr};
}

#define LOGIC_BIN(fam, t, L) bin<Tav##t>(Lay::L, tavi##fam##_##t##_##L##R, tavi##fam##_##t##_##L##IR)
#define LOGIC_ALL(fam, t) {LOGIC_BIN(fam, t, C1), LOGIC_BIN(fam, t, C3), LOGIC_BIN(fam, t, C4), LOGIC_BIN(fam, t, AC4)}

template <class T>
void sweep_bits(Bit b, const BinFns<T> (&table)[4]) {
    for (const auto& fns : table)
        for (const Shape& s : shapes())
            check_binary<T>(fns.L, s.w, s.h, s.pad, fns.forms(), [&](T x, T y, int) { return tavref::bitwise(b, x, y); });
}

#define LOGIC_TYPE(t)                                                                                         \
    do {                                                                                                      \
        const BinFns<Tav##t> a[4] = LOGIC_ALL(And, t), o[4] = LOGIC_ALL(Or, t), x[4] = LOGIC_ALL(Xor, t);     \
        sweep_bits(Bit::And, a);                                                                              \
        sweep_bits(Bit::Or, o);                                                                               \
        sweep_bits(Bit::Xor, x);                                                                              \
    } while (0)

TEST(Logic, TwoImages) {
    LOGIC_TYPE(8u);
    LOGIC_TYPE(16u);
    LOGIC_TYPE(32s);
    const BinFns<Tav8u> and8[4] = LOGIC_ALL(And, 8u);
    for (int w : tavtest::sweep_widths(1))
        for (int pad : {0, 1, 5})
            check_binary<Tav8u>(Lay::C1, w, 2, pad, and8[0].forms(), [](Tav8u x, Tav8u y, int) { return Tav8u(x & y); });
}

template <class T>
ConstFns<T, T> k1(TavStatus (*r)(const T*, int, T, T*, int, TaviSize), TavStatus (*ir)(T, T*, int, TaviSize)) {
    return {Lay::C1, r, ir, nullptr, nullptr};
}
template <class T>
ConstFns<T, const T*> kn(Lay L, TavStatus (*r)(const T*, int, const T*, T*, int, TaviSize), TavStatus (*ir)(const T*, T*, int, TaviSize)) {
    return {L, r, ir, nullptr, nullptr};
}
#define LOGIC_KN(fam, t, L) kn<Tav##t>(Lay::L, tavi##fam##_##t##_##L##R, tavi##fam##_##t##_##L##IR)

template <class T, class FN>
void sweep_bits_const(Bit b, const ConstFns<T, T>& c1, const FN (&cn)[3]) {
    const T sets[][4] = {{T(0x5a), T(0x0f), T(-1), T(0x33)}, {T(7), T(7), T(7), T(7)}, {T(0), T(0), T(0), T(1)}};
    for (const auto& v : sets) {
        auto model = [&](T x, T c, int) { return tavref::bitwise(b, x, c); };
        for (const Shape& s : shapes()) {
            check_const<T>(Lay::C1, s.w, s.h, s.pad, v, c1.forms(), model);
            for (const auto& fns : cn) check_const<T>(fns.L, s.w, s.h, s.pad, v, fns.forms(), model);
        }
    }
}

#define LOGIC_CONST(fam, t)                                                                                      \
    sweep_bits_const<Tav##t>(Bit::fam, k1<Tav##t>(tavi##fam##C_##t##_C1R, tavi##fam##C_##t##_C1IR),             \
                             {LOGIC_KN(fam##C, t, C3), LOGIC_KN(fam##C, t, C4), LOGIC_KN(fam##C, t, AC4)})

TEST(Logic, WithConstant) {
    LOGIC_CONST(And, 8u), LOGIC_CONST(And, 16u), LOGIC_CONST(And, 32s);
    LOGIC_CONST(Or, 8u), LOGIC_CONST(Or, 16u), LOGIC_CONST(Or, 32s);
    LOGIC_CONST(Xor, 8u), LOGIC_CONST(Xor, 16u), LOGIC_CONST(Xor, 32s);
}

TEST(Logic, Complement) {
    const auto forms = [](Lay L, TavStatus (*r)(const Tav8u*, int, Tav8u*, int, TaviSize), TavStatus (*ir)(Tav8u*, int, TaviSize)) {
        ConstForms<Tav8u> f;
        f.push_back({[=](const Tav8u* s, int t, const Tav8u*, Tav8u* d, int td, TaviSize z) { return r(s, t, d, td, z); }, false});
        f.push_back({[=](const Tav8u*, int, const Tav8u*, Tav8u* d, int td, TaviSize z) { return ir(d, td, z); }, true});
        return std::make_pair(L, f);
    };
    const std::pair<Lay, ConstForms<Tav8u>> all[] = {forms(Lay::C1, taviNot_8u_C1R, taviNot_8u_C1IR), forms(Lay::C3, taviNot_8u_C3R, taviNot_8u_C3IR),
                                                     forms(Lay::C4, taviNot_8u_C4R, taviNot_8u_C4IR), forms(Lay::AC4, taviNot_8u_AC4R, taviNot_8u_AC4IR)};
    const Tav8u unused[4] = {};
    for (const auto& [L, f] : all)
        for (const Shape& s : shapes()) check_const<Tav8u>(L, s.w, s.h, s.pad, unused, f, [](Tav8u x, Tav8u, int) { return Tav8u(~x); });
}

// Shifts: the counts ride in the forms; the harness's constant is unused.
template <class T, bool Left>
void check_shift(Lay L, const uint32_t* n, const ConstForms<T>& f) {
    const T unused[4] = {};
    for (const Shape& s : shapes())
        check_const<T>(L, s.w, s.h, s.pad, unused, f, [&](T x, T, int c) {
            return Left ? tavref::shift_left<T>(x, n[c]) : tavref::shift_right<T>(x, n[c]);
        });
}

template <class T>
ConstForms<T> shift_forms1(uint32_t n, TavStatus (*r)(const T*, int, Tav32u, T*, int, TaviSize), TavStatus (*ir)(Tav32u, T*, int, TaviSize)) {
    return {{[=](const T* s, int t, const T*, T* d, int td, TaviSize z) { return r(s, t, n, d, td, z); }, false},
            {[=](const T*, int, const T*, T* d, int td, TaviSize z) { return ir(n, d, td, z); }, true}};
}
template <class T>
ConstForms<T> shift_formsN(const uint32_t* n, TavStatus (*r)(const T*, int, const Tav32u*, T*, int, TaviSize),
                           TavStatus (*ir)(const Tav32u*, T*, int, TaviSize)) {
    return {{[=](const T* s, int t, const T*, T* d, int td, TaviSize z) { return r(s, t, n, d, td, z); }, false},
            {[=](const T*, int, const T*, T* d, int td, TaviSize z) { return ir(n, d, td, z); }, true}};
}

const uint32_t kCounts[] = {0, 1, 3, 7, 8, 9, 15, 16, 17, 31, 32, 33, 1000, 0xffffffffu};
const uint32_t kCountSets[][4] = {{1, 2, 3, 4}, {0, 0, 0, 0}, {8, 9, 100, 8}, {5, 5, 5, 5}, {0, 40, 1, 2}, {16, 17, 32, 15}, {31, 31, 31, 0}};

#define SHIFT_TYPE(fam, t, left)                                                                                                  \
    do {                                                                                                                          \
        for (uint32_t n : kCounts) {                                                                                              \
            const uint32_t nn[4] = {n, n, n, n};                                                                                  \
            check_shift<Tav##t, left>(Lay::C1, nn, shift_forms1<Tav##t>(n, tavi##fam##_##t##_C1R, tavi##fam##_##t##_C1IR));        \
        }                                                                                                                         \
        for (const auto& n : kCountSets) {                                                                                        \
            check_shift<Tav##t, left>(Lay::C3, n, shift_formsN<Tav##t>(n, tavi##fam##_##t##_C3R, tavi##fam##_##t##_C3IR));          \
            check_shift<Tav##t, left>(Lay::C4, n, shift_formsN<Tav##t>(n, tavi##fam##_##t##_C4R, tavi##fam##_##t##_C4IR));          \
            check_shift<Tav##t, left>(Lay::AC4, n, shift_formsN<Tav##t>(n, tavi##fam##_##t##_AC4R, tavi##fam##_##t##_AC4IR));       \
        }                                                                                                                         \
    } while (0)

TEST(Logic, Shifts) {
    SHIFT_TYPE(LShiftC, 8u, true);
    SHIFT_TYPE(LShiftC, 16u, true);
    SHIFT_TYPE(LShiftC, 32s, true);
    SHIFT_TYPE(RShiftC, 8u, false);
    SHIFT_TYPE(RShiftC, 16u, false);
    SHIFT_TYPE(RShiftC, 16s, false);
    SHIFT_TYPE(RShiftC, 32s, false);
}

TEST(Logic, WideCountsReadNoSource) {
    tavtest::Image<Tav8u> d(9, 2);
    const Tav8u* unreadable = reinterpret_cast<const Tav8u*>(std::uintptr_t{64});
    EXPECT_EQ(taviLShiftC_8u_C1R(unreadable, 9, 8, d.ptr(), d.step(), {9, 2}), tavOk);
    EXPECT_EQ(taviRShiftC_8u_C1R(unreadable, 9, 8, d.ptr(), d.step(), {9, 2}), tavOk);
    const Tav32u wide[3] = {8, 9, 70};
    EXPECT_EQ(taviLShiftC_8u_C3R(unreadable, 9, wide, d.ptr(), d.step(), {3, 2}), tavOk);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 9; ++x) EXPECT_EQ(d.at(x, y), 0);
}

// Pointers (constant arrays included), then steps, then size.
TEST(Logic, CheckOrder) {
    Tav8u a[16] = {}, d[16] = {};
    const Tav8u v3[3] = {1, 2, 3};
    const Tav32u n3[3] = {1, 2, 3};
    struct Case {
        const char* what;
        TavStatus got, want;
    } cases[] = {
        {"step before size", taviAnd_8u_C1R(a, 0, a, 1, d, 1, {0, 0}), tavErrStep},
        {"null before step", taviAnd_8u_C1R(a, 0, nullptr, 1, d, 1, {0, 0}), tavErrNullPtr},
        {"size", taviOr_16u_C3R(reinterpret_cast<Tav16u*>(a), 6, reinterpret_cast<Tav16u*>(a), 6, reinterpret_cast<Tav16u*>(d), 6, {1, 0}), tavErrSize},
        {"null constant array", taviXorC_8u_C3R(a, 3, nullptr, d, 3, {1, 1}), tavErrNullPtr},
        {"negative step", taviAndC_8u_C3R(a, 3, v3, d, -3, {1, 1}), tavErrStep},
        {"complement step", taviNot_8u_C1R(a, 1, d, 0, {0, 1}), tavErrStep},
        {"null counts", taviRShiftC_16s_C3R(reinterpret_cast<Tav16s*>(a), 6, nullptr, reinterpret_cast<Tav16s*>(d), 6, {1, 1}), tavErrNullPtr},
        {"shift step before size", taviLShiftC_8u_C3R(a, 0, n3, d, 3, {0, 1}), tavErrStep},
        {"shift size", taviLShiftC_8u_C1R(a, 1, 2, d, 1, {-1, 1}), tavErrSize},
        {"wide count size", taviLShiftC_8u_C1R(a, 1, 9, d, 1, {0, 1}), tavErrSize},
    };
    for (const Case& c : cases) EXPECT_EQ(c.got, c.want) << c.what;
}

}  // namespace
