// Scalar models of the point decisions: thresholds, compares and Otsu's
// threshold, written from the rules one element at a time.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#pragma GCC push_options
#pragma GCC optimize("fp-contract=off")

namespace tavref {

enum class Thr { Limit, Cap, Floor, Replace, ReplaceAbove, ReplaceBelow, ReplaceOutside };

// Per-channel arguments of one threshold call; cmp 4 is greater, 0 less.
template <class T>
struct ThrArgs {
    T t[4], v[4], tl[4], vl[4], tg[4], vg[4];
    int cmp = 4;
};

template <class T>
T threshold(Thr kind, T x, const ThrArgs<T>& a, int c) {
    switch (kind) {
        case Thr::Limit: return a.cmp == 4 ? (x > a.t[c] ? a.t[c] : x) : (x < a.t[c] ? a.t[c] : x);
        case Thr::Cap: return x > a.t[c] ? a.t[c] : x;
        case Thr::Floor: return x < a.t[c] ? a.t[c] : x;
        case Thr::Replace: return a.cmp == 4 ? (x > a.t[c] ? a.v[c] : x) : (x < a.t[c] ? a.v[c] : x);
        case Thr::ReplaceAbove: return x > a.t[c] ? a.v[c] : x;
        case Thr::ReplaceBelow: return x < a.t[c] ? a.v[c] : x;
        case Thr::ReplaceOutside: return x < a.tl[c] ? a.vl[c] : (x > a.tg[c] ? a.vg[c] : x);
    }
    return x;
}

// Compare codes 0..4: less, less or equal, equal, greater or equal, greater.
template <class T>
bool compare(int op, T a, T b) {
    switch (op) {
        case 0: return a < b;
        case 1: return a <= b;
        case 2: return a == b;
        case 3: return a >= b;
        case 4: return a > b;
    }
    return false;
}

inline bool near_eps(float a, float b, float eps) { return std::fabs(a - b) <= eps; }

// Otsu's threshold from the pixels of an image, by the steps of its rule.
// The sums need no particular order: they are exact in double for any image
// below 2^43 pixels. With lowerSumInsideTest false the running sum of the
// lower class counts every bin (the textbook form), which tests use to show
// that a case tells the two apart.
inline std::uint8_t otsu(const std::vector<std::uint8_t>& pixels, bool lowerSumInsideTest = true) {
    double h[256] = {};
    for (std::uint8_t p : pixels) h[p] += 1;
    double n = 0, s = 0;
    for (int i = 0; i < 256; ++i) {
        n += h[i];
        s += (i + 0.5) * h[i];
    }
    const double eps = 1.1920928955078125e-7;
    const double inv = n > eps ? 1.0 / n : 0.0;
    const double mu = s * inv;
    double w = 0, m = 0, best = 0, t = 0;
    for (int i = 0; i < 256; ++i) {
        const double p = inv * h[i];
        w = w + p;
        const double q = 1.0 - w;
        if (!lowerSumInsideTest) m = m + (i + 0.5) * p;
        if (std::fmin(w, q) > eps && std::fmax(w, q) < 0.9999998807907104) {
            if (lowerSumInsideTest) m = m + (i + 0.5) * p;
            const double d = (w + q) * m - mu * w;
            const double sigma = d * d / (w * q);
            if (sigma > best) {
                best = sigma;
                t = i + 0.5;
            }
        }
    }
    return static_cast<std::uint8_t>(std::trunc(t));
}

}  // namespace tavref

#pragma GCC pop_options
