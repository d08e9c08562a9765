// Scalar reference models of the sums and extrema, written from the rules
// alone: plain loops in raster order, plain comparisons.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace tavref {

// Element (x, y) of channel c of an image of `ch` interleaved channels.
template <class T>
const T& px(const T* base, std::ptrdiff_t step, int x, int y, int c, int ch) {
    return reinterpret_cast<const T*>(reinterpret_cast<const char*>(base) + y * step)[x * ch + c];
}

// Exact integer sum of each channel (ch = period of the layout).
template <class T>
std::vector<int64_t> sum_int(const T* p, std::ptrdiff_t step, int w, int h, int ch) {
    std::vector<int64_t> s(ch, 0);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            for (int c = 0; c < ch; ++c) s[c] += px(p, step, x, y, c, ch);
    return s;
}

// Sum of each channel in long double (for tolerances of float sums), and
// the sum of magnitudes (the scale of the rounding error).
struct FloatSum {
    std::vector<long double> sum, mag;
};
inline FloatSum sum_float(const float* p, std::ptrdiff_t step, int w, int h, int ch) {
    FloatSum r{std::vector<long double>(ch, 0), std::vector<long double>(ch, 0)};
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            for (int c = 0; c < ch; ++c) {
                const long double v = px(p, step, x, y, c, ch);
                r.sum[c] += v;
                r.mag[c] += std::fabs(v);
            }
    return r;
}

// Extrema of channel c over the image, first element as the seed.
template <class T>
T min_of(const T* p, std::ptrdiff_t step, int w, int h, int c, int ch) {
    T m = px(p, step, 0, 0, c, ch);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            if (px(p, step, x, y, c, ch) < m) m = px(p, step, x, y, c, ch);
    return m;
}
template <class T>
T max_of(const T* p, std::ptrdiff_t step, int w, int h, int c, int ch) {
    T m = px(p, step, 0, 0, c, ch);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            if (px(p, step, x, y, c, ch) > m) m = px(p, step, x, y, c, ch);
    return m;
}

// First position in raster order of the extreme of channel c.
struct Pos {
    int x, y;
};
template <class T, bool IsMin>
Pos first_extreme(const T* p, std::ptrdiff_t step, int w, int h, int c, int ch) {
    const T v = IsMin ? min_of(p, step, w, h, c, ch) : max_of(p, step, w, h, c, ch);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            if (px(p, step, x, y, c, ch) == v) return {x, y};
    return {-1, -1};
}

// Per-element extremum, unordered comparison yielding the second operand.
template <class T>
T pick_min(T a, T b) {
    return a < b ? a : b;
}
template <class T>
T pick_max(T a, T b) {
    return a > b ? a : b;
}

// Median of three by its definition: the middle value after sorting.
inline uint8_t median3(uint8_t a, uint8_t b, uint8_t c) {
    uint8_t v[3] = {a, b, c};
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 2 - i; ++j)
            if (v[j] > v[j + 1]) std::swap(v[j], v[j + 1]);
    return v[1];
}

}  // namespace tavref
