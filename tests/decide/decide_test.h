// Helpers of the decision tests: layouts read from export names, the image
// geometries of the sweeps, and element values that favour ties with the
// thresholds and, for 32f, the special values.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/image.h"

namespace dtest {

struct Layout {
    int channels;  // interleaved elements a pixel
    int values;    // channels that take a value and are processed (3 for AC4)
};

// The layout token at the end of an export name: ..._C3R, ..._AC4IR.
inline Layout layout_of(const std::string& name) {
    const auto tail = name.substr(name.rfind('_') + 1);
    if (tail.rfind("AC4", 0) == 0) return {4, 3};
    if (tail.rfind("C3", 0) == 0) return {3, 3};
    if (tail.rfind("C4", 0) == 0) return {4, 4};
    return {1, 1};
}

struct Geometry {
    int width, height, padBytes;
    tavtest::GuardAt guard;
};

// Widths over every peel and tail of the vector loops, each with a few
// heights, paddings and start positions.
inline std::vector<Geometry> sweep(std::size_t elemBytes) {
    std::vector<Geometry> g;
    const auto pads = tavtest::sweep_paddings(elemBytes);
    int i = 0;
    for (int w : tavtest::sweep_widths(elemBytes)) {
        g.push_back({w, 1, 0, tavtest::GuardAt::End});
        g.push_back({w, 3, pads[1 + i % 3], i % 2 ? tavtest::GuardAt::Start : tavtest::GuardAt::End});
        ++i;
    }
    g.push_back({5, 4, 0, tavtest::GuardAt::Start});
    g.push_back({70, 2, 0, tavtest::GuardAt::End});
    return g;
}

template <class T>
bool is_float() { return std::is_floating_point_v<T>; }

// A value near one of the anchors (ties and neighbours), or anywhere in the
// type, or for floats a special value.
template <class T>
T near_value(const std::vector<T>& anchors) {
    auto& r = tavtest::rng();
    const int pick = static_cast<int>(r() % 16);
    if constexpr (std::is_floating_point_v<T>) {
        if (pick == 0) return std::numeric_limits<T>::quiet_NaN();
        if (pick == 1) return (r() & 1) ? std::numeric_limits<T>::infinity() : -std::numeric_limits<T>::infinity();
        if (pick == 2) return (r() & 1) ? T(0.0) : T(-0.0);
        if (pick < 9 && !anchors.empty()) {
            const T a = anchors[r() % anchors.size()];
            return pick < 6 ? a : std::nextafter(a, (r() & 1) ? T(1e30) : T(-1e30));
        }
        return tavtest::random_value<T>(-100, 100);
    } else {
        if (pick < 8 && !anchors.empty()) {
            const long long a = anchors[r() % anchors.size()];
            const long long v = a + static_cast<long long>(r() % 3) - 1;
            return static_cast<T>(std::clamp<long long>(v, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
        }
        return tavtest::random_value<T>(std::numeric_limits<T>::min(), std::numeric_limits<T>::max());
    }
}

// Anywhere in the type, the extremes of integer types now and then.
template <class T>
T any_value() {
    if constexpr (std::is_floating_point_v<T>) {
        return tavtest::random_value<T>(-100, 100);
    } else {
        const auto pick = tavtest::rng()() % 8;
        if (pick < 2) return pick ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
        return tavtest::random_value<T>(std::numeric_limits<T>::min(), std::numeric_limits<T>::max());
    }
}

}  // namespace dtest
