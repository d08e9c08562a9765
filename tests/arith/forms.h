// Tables of the export forms of one operation, type and layout, as calls the
// harness can run: out of place, in place, their 64-bit twins, and the twins
// again with steps too large for 32 bits (one-row images only), which walk
// the row in pieces instead of forwarding.
#pragma once

#include "arith/harness.h"

namespace arithtest {

inline constexpr int64_t kHugeStep = int64_t{1} << 33;

template <class T, class... A>
struct BinFns {
    Lay L;
    TavStatus (*r)(const T*, int, const T*, int, T*, int, TaviSize, A...);
    TavStatus (*ir)(const T*, int, T*, int, TaviSize, A...);
    TavStatus (*rl)(const T*, int64_t, const T*, int64_t, T*, int64_t, TaviSizeL, A...);
    TavStatus (*irl)(const T*, int64_t, T*, int64_t, TaviSizeL, A...);

    BinForms<T> forms(A... a) const {
        BinForms<T> f;
        auto R = r;
        auto IR = ir;
        auto RL = rl;
        auto IRL = irl;
        f.push_back({[=](const T* s1, int t1, const T* s2, int t2, T* d, int td, TaviSize z) { return R(s1, t1, s2, t2, d, td, z, a...); }, false});
        if (IR) f.push_back({[=](const T* s1, int t1, const T*, int, T* d, int td, TaviSize z) { return IR(s1, t1, d, td, z, a...); }, true});
        if (RL) {
            f.push_back({[=](const T* s1, int t1, const T* s2, int t2, T* d, int td, TaviSize z) {
                             return RL(s1, t1, s2, t2, d, td, TaviSizeL{z.width, z.height}, a...);
                         }, false});
            f.push_back({[=](const T* s1, int t1, const T* s2, int t2, T* d, int td, TaviSize z) {
                             const bool one = z.height == 1;
                             return RL(s1, one ? kHugeStep : t1, s2, one ? -kHugeStep : t2, d, one ? kHugeStep : td,
                                       TaviSizeL{z.width, z.height}, a...);
                         }, false});
        }
        if (IRL) {
            f.push_back({[=](const T* s1, int t1, const T*, int, T* d, int td, TaviSize z) {
                             return IRL(s1, t1, d, td, TaviSizeL{z.width, z.height}, a...);
                         }, true});
            f.push_back({[=](const T* s1, int t1, const T*, int, T* d, int td, TaviSize z) {
                             const bool one = z.height == 1;
                             return IRL(s1, one ? kHugeStep : t1, d, one ? kHugeStep : td, TaviSizeL{z.width, z.height}, a...);
                         }, true});
        }
        return f;
    }
};

// Constant forms: V is the constant parameter as the export takes it (the
// element for C1, a pointer otherwise).
template <class T, class V, class... A>
struct ConstFns {
    Lay L;
    TavStatus (*r)(const T*, int, V, T*, int, TaviSize, A...);
    TavStatus (*ir)(V, T*, int, TaviSize, A...);
    TavStatus (*rl)(const T*, int64_t, V, T*, int64_t, TaviSizeL, A...);
    TavStatus (*irl)(V, T*, int64_t, TaviSizeL, A...);

    static V pass(const T* v) {
        if constexpr (std::is_pointer_v<V>) return v;
        else return v[0];
    }
    ConstForms<T> forms(A... a) const {
        ConstForms<T> f;
        auto R = r;
        auto IR = ir;
        auto RL = rl;
        auto IRL = irl;
        f.push_back({[=](const T* s, int t, const T* v, T* d, int td, TaviSize z) { return R(s, t, pass(v), d, td, z, a...); }, false});
        if (IR) f.push_back({[=](const T*, int, const T* v, T* d, int td, TaviSize z) { return IR(pass(v), d, td, z, a...); }, true});
        if (RL) {
            f.push_back({[=](const T* s, int t, const T* v, T* d, int td, TaviSize z) {
                             return RL(s, t, pass(v), d, td, TaviSizeL{z.width, z.height}, a...);
                         }, false});
            f.push_back({[=](const T* s, int t, const T* v, T* d, int td, TaviSize z) {
                             const bool one = z.height == 1;
                             return RL(s, one ? kHugeStep : t, pass(v), d, one ? -kHugeStep : td, TaviSizeL{z.width, z.height}, a...);
                         }, false});
        }
        if (IRL) {
            f.push_back({[=](const T*, int, const T* v, T* d, int td, TaviSize z) {
                             return IRL(pass(v), d, td, TaviSizeL{z.width, z.height}, a...);
                         }, true});
            f.push_back({[=](const T*, int, const T* v, T* d, int td, TaviSize z) {
                             return IRL(pass(v), d, z.height == 1 ? kHugeStep : td, TaviSizeL{z.width, z.height}, a...);
                         }, true});
        }
        return f;
    }
};

}  // namespace arithtest

// Name tables. Each expands to the forms of one layout.
#define ARITH_SFS(fam, t, L) \
    arithtest::BinFns<Tav##t, int>{arithtest::Lay::L, tavi##fam##_##t##_##L##RSfs, tavi##fam##_##t##_##L##IRSfs, tavi##fam##_##t##_##L##RSfs_L, tavi##fam##_##t##_##L##IRSfs_L}
#define ARITH_F(fam, L) \
    arithtest::BinFns<Tav32f>{arithtest::Lay::L, tavi##fam##_32f_##L##R, tavi##fam##_32f_##L##IR, tavi##fam##_32f_##L##R_L, tavi##fam##_32f_##L##IR_L}
#define ARITH_C1_SFS(fam, t) \
    arithtest::ConstFns<Tav##t, Tav##t, int>{arithtest::Lay::C1, tavi##fam##_##t##_C1RSfs, tavi##fam##_##t##_C1IRSfs, tavi##fam##_##t##_C1RSfs_L, tavi##fam##_##t##_C1IRSfs_L}
#define ARITH_CN_SFS(fam, t, L) \
    arithtest::ConstFns<Tav##t, const Tav##t*, int>{arithtest::Lay::L, tavi##fam##_##t##_##L##RSfs, tavi##fam##_##t##_##L##IRSfs, tavi##fam##_##t##_##L##RSfs_L, tavi##fam##_##t##_##L##IRSfs_L}
#define ARITH_C1_F(fam) \
    arithtest::ConstFns<Tav32f, Tav32f>{arithtest::Lay::C1, tavi##fam##_32f_C1R, tavi##fam##_32f_C1IR, tavi##fam##_32f_C1R_L, tavi##fam##_32f_C1IR_L}
#define ARITH_CN_F(fam, L) \
    arithtest::ConstFns<Tav32f, const Tav32f*>{arithtest::Lay::L, tavi##fam##_32f_##L##R, tavi##fam##_32f_##L##IR, tavi##fam##_32f_##L##R_L, tavi##fam##_32f_##L##IR_L}
