// Scalar models of the lookup tables: the value of one element through
// levels and values.
//
// Interpolation: nearest takes the value of the interval; linear is
// v0 + (v1 - v0) * (x - l0) / (l1 - l0) in double; cubic is the Lagrange
// polynomial through the four level pairs starting one before the interval
// (moved inward at the table ends), linear where a channel has fewer than
// four levels or the four levels don't strictly ascend. Integer results
// saturate, then truncate toward zero.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#pragma GCC push_options
#pragma GCC optimize("fp-contract=off")

namespace tavref {

// kind: 1 nearest, 2 linear, 6 cubic (the interpolation codes).
template <class S>
double lut_interval(int kind, const std::vector<S>& v, const std::vector<S>& l, int k, double x) {
    auto lin = [&](int i) {
        const double v0 = v[i], v1 = v[i + 1], l0 = l[i], l1 = l[i + 1];
        return v0 + (v1 - v0) * (x - l0) / (l1 - l0);
    };
    if (kind == 1) return v[k];
    const int n = static_cast<int>(l.size());
    if (kind == 2 || n < 4) return lin(k);
    const int j0 = std::min(std::max(k - 1, 0), n - 4);
    for (int a = 0; a < 3; ++a)
        if (!(double(l[j0 + a]) < double(l[j0 + a + 1]))) return lin(k);
    double r = 0;
    for (int a = 0; a < 4; ++a) {
        double term = v[j0 + a];
        for (int b = 0; b < 4; ++b)
            if (b != a) term = term * (x - double(l[j0 + b])) / (double(l[j0 + a]) - double(l[j0 + b]));
        r = r + term;
    }
    return r;
}

// An integer element: the last interval that holds x decides, as the table
// is written interval after interval; x outside all of them keeps its value.
template <class T>
T lut_int(int kind, const std::vector<std::int32_t>& v, const std::vector<std::int32_t>& l, T x) {
    T out = x;
    for (int k = 0; k + 1 < static_cast<int>(l.size()); ++k) {
        if (l[k] <= x && x < l[k + 1]) {
            const double d = lut_interval(kind, v, l, k, x);
            const double lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
            out = d <= lo ? T(lo) : d >= hi ? T(hi) : T(std::trunc(d));
        }
    }
    return out;
}

// A 32f element: the first interval that holds x decides.
inline float lut_32f(int kind, const std::vector<float>& v, const std::vector<float>& l, float x) {
    for (int k = 0; k + 1 < static_cast<int>(l.size()); ++k)
        if (x >= l[k] && x < l[k + 1]) return static_cast<float>(lut_interval(kind, v, l, k, x));
    return x;
}

}  // namespace tavref

#pragma GCC pop_options
