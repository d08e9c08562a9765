// Scalar reference model of the histogram: levels by each Init's rule, and
// counts by the bin rule L[k] <= x < L[k + 1] with a plain search.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "support/ref_stats.h"

namespace tavref {

// Levels an Init stores, as doubles: ceilings (Init) or truncations (the
// uniform Init) for integer data, floats as given or fma(i, step, lower)
// rounded to float for 32f.
inline std::vector<double> init_levels(const float* levels, int n, bool isFloat) {
    std::vector<double> L(n);
    for (int i = 0; i < n; ++i) L[i] = isFloat ? levels[i] : std::ceil(double(levels[i]));
    return L;
}
inline std::vector<double> uniform_levels(float lower, float upper, int n, bool isFloat) {
    const double step = (double(upper) - lower) / (n - 1);
    std::vector<double> L(n);
    for (int i = 0; i < n; ++i) {
        const double v = i == n - 1 && !isFloat ? double(upper) : std::fma(double(i), step, double(lower));
        L[i] = isFloat ? double(float(v)) : std::trunc(i == 0 ? double(lower) : v);
    }
    return L;
}

// Counts of channel c into n - 1 bins.
template <class T>
std::vector<uint32_t> histogram(const T* p, std::ptrdiff_t s, int w, int h, int c, int ch, const std::vector<double>& L) {
    std::vector<uint32_t> bins(L.size() - 1, 0);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const double v = px(p, s, x, y, c, ch);
            for (std::size_t k = 0; k + 1 < L.size(); ++k)
                if (L[k] <= v && v < L[k + 1]) {
                    ++bins[k];
                    break;
                }
        }
    return bins;
}

}  // namespace tavref
