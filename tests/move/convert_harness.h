// Running a unary conversion against an element-wise reference over many
// geometries: widths through every peel and tail, padded steps, start
// addresses off alignment, one and several rows (tight rows take the
// one-row merge). The whole destination span is compared, padding and
// alpha included.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "support/image.h"
#include "tavi.h"

namespace convtest {

using tavtest::Image;

template <class S, class D>
using Unary = std::function<TavStatus(const S*, int, D*, int, TaviSize)>;

struct Geometry {
    int width, height;      // pixels, rows
    int srcOff, dstOff;     // elements before the first pixel of each row
    int srcPad, dstPad;     // bytes after each row
};

template <class S, class D>
struct Case {
    int channels = 1;  // elements a pixel
    bool ac4 = false;  // the fourth element of each pixel is never written
    Unary<S, D> fn;
    std::function<D(S)> ref;
    std::function<S()> gen;  // source values
    // Accepts a result that differs from the reference (kernels that may be
    // off by a unit); empty: results must be exact.
    std::function<bool(double actual, double expected, double source)> close = nullptr;
};

template <class T>
double as_double(T v) {
    return static_cast<double>(v);
}

// One call on one geometry.
template <class S, class D>
::testing::AssertionResult run_one(const Case<S, D>& c, const Geometry& g) {
    const int ew = g.width * c.channels;
    const int srcStep = (ew + g.srcOff) * int(sizeof(S)) + g.srcPad;
    const int dstStep = (ew + g.dstOff) * int(sizeof(D)) + g.dstPad;
    Image<S> src(ew + g.srcOff, g.height, srcStep);
    Image<D> dst(ew + g.dstOff, g.height, dstStep);
    for (int y = 0; y < g.height; ++y)
        for (int x = 0; x < ew; ++x) src.row(y)[g.srcOff + x] = c.gen();
    std::vector<std::uint8_t> expected = tavtest::expected_from(dst, [&](int x, int y, D& v) {
        x -= g.dstOff;
        return x >= 0 && !(c.ac4 && x % 4 == 3) && (v = c.ref(src.row(y)[g.srcOff + x]), true);
    });
    const TavStatus st = c.fn(src.row(0) + g.srcOff, srcStep, dst.row(0) + g.dstOff, dstStep, {g.width, g.height});
    if (st != tavOk) return ::testing::AssertionFailure() << "status " << st;
    if (c.close) {
        // Accepted results are taken into the expectation.
        for (int y = 0; y < g.height; ++y)
            for (int x = 0; x < ew; ++x) {
                D a, e;
                std::uint8_t* pe = expected.data() + std::size_t(y) * dstStep + (g.dstOff + x) * sizeof(D);
                std::memcpy(&a, reinterpret_cast<std::uint8_t*>(dst.row(y)) + (g.dstOff + x) * sizeof(D), sizeof(D));
                std::memcpy(&e, pe, sizeof(D));
                if (c.close(as_double(a), as_double(e), as_double(src.row(y)[g.srcOff + x]))) std::memcpy(pe, &a, sizeof(D));
            }
    }
    return tavtest::same_bytes(dst, expected) << " width " << g.width << " height " << g.height << " offsets "
                                                << g.srcOff << "," << g.dstOff << " pads " << g.srcPad << ","
                                                << g.dstPad;
}

// The sweep: every width of the vector loops' peels and tails, cycling
// through offsets, paddings and heights.
template <class S, class D>
void sweep(const Case<S, D>& c) {
    const std::size_t narrow = std::min(sizeof(S), sizeof(D));
    const std::vector<int> widths = tavtest::sweep_widths(narrow);
    const int pads[] = {0, 0, int(sizeof(S) * sizeof(D)), 64 + 4};
    const int offs[] = {0, 1, 3, 0, 5};
    int k = 0;
    for (int w : widths) {
        for (int h : {1, 3}) {
            ++k;
            const Geometry g{w, h, offs[k % 5], offs[(k / 5) % 5], pads[k % 4], pads[(k / 3) % 4] * int(sizeof(D))};
            ASSERT_TRUE(run_one(c, g));
        }
    }
}

// Every value of a small source type once, in a 256-wide image.
template <class S, class D>
void exhaustive(Case<S, D> c) {
    static_assert(sizeof(S) <= 2);
    const long long lo = std::numeric_limits<S>::lowest(), count = 1LL << (8 * sizeof(S));
    long long next = lo;
    c.gen = [&next] { return static_cast<S>(next++); };
    const int rows = static_cast<int>(count / 256 / c.channels) + 1;
    ASSERT_TRUE(run_one(c, Geometry{256, rows, 0, 0, 0, 0}));
}

// A list of values each appearing at every lane position of a 16- and
// 64-lane vector, tails included.
template <class S, class D>
void values(Case<S, D> c, const std::vector<S>& v) {
    std::size_t i = 0;
    c.gen = [&] { return v[i++ % v.size()]; };
    for (int w : {int(v.size()) + 63, 97}) ASSERT_TRUE(run_one(c, Geometry{w, 2, 1, 0, 0, 0}));
}

template <class T>
std::function<T()> uniform(double lo, double hi) {
    return [lo, hi] { return tavtest::random_value<T>(lo, hi); };
}
template <class T>
std::function<T()> full_range() {
    if constexpr (std::is_floating_point_v<T>) return uniform<T>(-1e6, 1e6);
    else return uniform<T>(double(std::numeric_limits<T>::lowest()), double(std::numeric_limits<T>::max()));
}

template <class F>
struct Named {
    std::string name;
    F run;
};

}  // namespace convtest
