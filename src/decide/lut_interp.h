// Interpolation between LUT levels, in double precision, written once for a
// scalar and for eight lanes (GCC vector of doubles), so that the integer
// tables built at Init and the 32f search at work time compute alike.
//
// Linear on [l0, l1): v0 + (v1 - v0) * (x - l0) / (l1 - l0).
// Cubic: the Lagrange polynomial through four neighbouring level pairs, the
// window starting one level before the interval and moved inward at the ends
// of the table. A channel with fewer than four levels, or a window whose
// levels don't strictly ascend, interpolates linearly.
#pragma once

#include <algorithm>

#pragma GCC push_options
#pragma GCC optimize("fp-contract=off")

namespace tav::decide::lut {

typedef double d8 __attribute__((vector_size(64)));

template <class S>
struct Levels {
    const S* values;
    const S* levels;
    int n;
};

template <class D>
inline D splat(double v) {
    if constexpr (std::is_same_v<D, double>) return v;
    else return D{} + v;
}

template <class D, class S>
inline D linear(const Levels<S>& lv, int k, D x) {
    const double v0 = lv.values[k], v1 = lv.values[k + 1];
    const double l0 = lv.levels[k], l1 = lv.levels[k + 1];
    return v0 + (v1 - v0) * (x - l0) / (l1 - l0);
}

template <class D, class S>
inline D cubic(const Levels<S>& lv, int k, D x) {
    if (lv.n < 4) return linear(lv, k, x);
    const int j0 = std::clamp(k - 1, 0, lv.n - 4);
    double l[4], v[4];
    for (int a = 0; a < 4; ++a) {
        l[a] = lv.levels[j0 + a];
        v[a] = lv.values[j0 + a];
    }
    if (!(l[0] < l[1] && l[1] < l[2] && l[2] < l[3])) return linear(lv, k, x);
    D r = splat<D>(0.0);
    for (int a = 0; a < 4; ++a) {
        D term = splat<D>(v[a]);
        for (int b = 0; b < 4; ++b)
            if (b != a) term = term * (x - l[b]) / (l[a] - l[b]);
        r = r + term;
    }
    return r;
}

}  // namespace tav::decide::lut

#pragma GCC pop_options
