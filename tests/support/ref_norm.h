// Scalar reference models of the norms, dot products and range counts,
// from their definitions: exact integer sums, long double for floats.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "support/ref_stats.h"

namespace tavref {

enum class NormKind { Inf, L1, L2 };

// Per channel: the largest |v|, the sum of |v| and the sum of v * v, where v
// is x (b null) or x - x2; integers exactly, floats in long double.
struct NormSums {
    std::vector<long double> inf, l1, l2;
};

template <class T>
NormSums norm_sums(const T* a, std::ptrdiff_t sa, const T* b, std::ptrdiff_t sb, int w, int h, int ch) {
    NormSums r{std::vector<long double>(ch, 0), std::vector<long double>(ch, 0), std::vector<long double>(ch, 0)};
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            for (int c = 0; c < ch; ++c) {
                const long double v = b ? (long double)px(a, sa, x, y, c, ch) - (long double)px(b, sb, x, y, c, ch)
                                        : (long double)px(a, sa, x, y, c, ch);
                const long double m = std::fabs(v);
                if (m > r.inf[c]) r.inf[c] = m;
                r.l1[c] += m;
                r.l2[c] += v * v;
            }
    return r;
}

// The value a norm kind takes from its sums (exact sums give exact results).
inline double norm_of(const NormSums& s, NormKind k, int c) {
    switch (k) {
        case NormKind::Inf: return double(s.inf[c]);
        case NormKind::L1: return double(s.l1[c]);
        default: return std::sqrt(double(s.l2[c]));
    }
}

// The relative form: numerator over the norm of the second image; a zero
// denominator gives infinity, or a NaN with the sign bit over a zero numerator.
inline double relative_of(const NormSums& num, const NormSums& den, NormKind k, int c, bool& warned) {
    const double n = k == NormKind::Inf ? double(num.inf[c]) : k == NormKind::L1 ? double(num.l1[c]) : double(num.l2[c]);
    const double d = k == NormKind::Inf ? double(den.inf[c]) : k == NormKind::L1 ? double(den.l1[c]) : double(den.l2[c]);
    if (d == 0) {
        warned = true;
        if (n != 0) return HUGE_VAL;
        const uint64_t bits = 0xFFF8000000000000ull;
        double nan;
        std::memcpy(&nan, &bits, 8);
        return nan;
    }
    return k == NormKind::L2 ? std::sqrt(n / d) : n / d;
}

// Dot product per channel: integers exactly (rounded once to double at the
// end by the caller's conversion), floats in long double.
template <class T>
std::vector<long double> dot(const T* a, std::ptrdiff_t sa, const T* b, std::ptrdiff_t sb, int w, int h, int ch) {
    std::vector<long double> r(ch, 0);
    for (int c = 0; c < ch; ++c) {
        __int128 exact = 0;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                if constexpr (std::is_integral_v<T>) exact += (__int128)px(a, sa, x, y, c, ch) * px(b, sb, x, y, c, ch);
                else r[c] += (long double)px(a, sa, x, y, c, ch) * (long double)px(b, sb, x, y, c, ch);
            }
        if constexpr (std::is_integral_v<T>) r[c] = (long double)(double)exact;
    }
    return r;
}

// The four-channel form with alpha skipped: one running fused step a channel,
// pixel after pixel in row order.
template <class T>
std::vector<double> dot_ac4(const T* a, std::ptrdiff_t sa, const T* b, std::ptrdiff_t sb, int w, int h) {
    std::vector<double> r(3, 0.0);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            for (int c = 0; c < 3; ++c) r[c] = std::fma(double(px(a, sa, x, y, c, 4)), double(px(b, sb, x, y, c, 4)), r[c]);
    return r;
}

// Values of channel c with lower <= v <= upper (a NaN never counts).
template <class T>
int count_in_range(const T* p, std::ptrdiff_t s, int w, int h, int c, int ch, T lower, T upper) {
    int n = 0;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const T v = px(p, s, x, y, c, ch);
            n += lower <= v && v <= upper;
        }
    return n;
}

}  // namespace tavref
