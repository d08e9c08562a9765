// Shared driving of the arithmetic and logic tests: random guarded images
// with padded steps, each export form (out of place, in place, and their
// 64-bit twins) run on the same inputs, and the whole destination span
// compared with the scalar model, padding and alpha included.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "support/image.h"
#include "tavi.h"

namespace arithtest {

enum class Lay { C1, C3, C4, AC4 };
inline int chans(Lay l) { return l == Lay::C1 ? 1 : l == Lay::C3 ? 3 : 4; }
inline int used(Lay l) { return l == Lay::AC4 ? 3 : chans(l); }
inline const char* lay_name(Lay l) { return l == Lay::C1 ? "C1" : l == Lay::C3 ? "C3" : l == Lay::C4 ? "C4" : "AC4"; }
inline constexpr Lay kLays[] = {Lay::C1, Lay::C3, Lay::C4, Lay::AC4};

// Random elements with the range ends and their neighbours often enough to
// reach every saturation.
template <class T>
void fill_edgy(tavtest::Image<T>& img) {
    using L = std::numeric_limits<T>;
    const T edges[] = {T(0), T(1), L::max(), T(L::max() - 1), L::min(), T(L::min() + 1), T(2)};
    auto& r = tavtest::rng();
    img.fill_with([&](int, int) {
        if (r() % 4 == 0) return edges[r() % 7];
        if constexpr (std::is_floating_point_v<T>) return tavtest::random_value<T>(-1000, 1000);
        else return tavtest::random_value<T>(L::min(), L::max());
    });
}

// Formula order for two sources: x is the second source, y the first.
template <class T>
using BinCall = std::function<TavStatus(const T* s1, int t1, const T* s2, int t2, T* d, int td, TaviSize r)>;
template <class T>
using BinModel = std::function<T(T x, T y, int channel)>;

// Forms of one operation: each call, and whether it works in place (the
// second source is then the destination).
template <class T>
struct BinForm {
    BinCall<T> call;
    bool inPlace;
};
template <class T>
using BinForms = std::vector<BinForm<T>>;

inline int step_of(int widthElems, int elemBytes, int pad) { return widthElems * elemBytes + pad; }

// Expected status of a division: the warning when a counted divisor is zero.
inline constexpr TavStatus kWarnIfZeroDivisor = 0x7777;

template <class T>
bool any_zero_used(const tavtest::Image<T>& img, Lay L) {
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (x % chans(L) < used(L) && img.at(x, y) == T(0)) return true;
    return false;
}

template <class T>
void check_binary(Lay L, int w, int h, int pad, const BinForms<T>& f, const BinModel<T>& model,
                  TavStatus expect = tavOk, const std::string& what = "") {
    const int we = w * chans(L);
    tavtest::Image<T> a(we, h, step_of(we, sizeof(T), pad)), b(we, h, step_of(we, sizeof(T), pad + int(sizeof(T))));
    fill_edgy(a);
    fill_edgy(b);
    for (std::size_t form = 0; form < f.size(); ++form) {
        const bool inPlace = f[form].inPlace;
        tavtest::Image<T> d(we, h, inPlace ? b.step() : step_of(we, sizeof(T), pad + 2 * int(sizeof(T))));
        if (inPlace) std::memcpy(d.bytes(), b.bytes(), b.span());  // the destination starts as the second source
        const auto expected = tavtest::expected_from(d, [&](int x, int y, T& v) {
            return x % chans(L) < used(L) && (v = model(b.at(x, y), a.at(x, y), x % chans(L)), true);
        });
        const TavStatus st = inPlace ? f[form].call(a.ptr(), a.step(), d.ptr(), d.step(), d.ptr(), d.step(), {w, h})
                                     : f[form].call(a.ptr(), a.step(), b.ptr(), b.step(), d.ptr(), d.step(), {w, h});
        const TavStatus want = expect != kWarnIfZeroDivisor ? expect : any_zero_used(a, L) ? tavWarnDivByZero : tavOk;
        EXPECT_EQ(st, want) << what << " form " << form << " " << lay_name(L) << " w=" << w << " h=" << h;
        EXPECT_TRUE(tavtest::same_bytes(d, expected)) << what << " form " << form << " " << lay_name(L) << " w=" << w
                                                      << " h=" << h << " pad=" << pad;
    }
}

// Image with a constant: c holds the constant of each channel.
template <class T>
using ConstCall = std::function<TavStatus(const T* s, int t, const T* v, T* d, int td, TaviSize r)>;
template <class T>
using ConstModel = std::function<T(T x, T c, int channel)>;
template <class T>
struct ConstForm {
    ConstCall<T> call;
    bool inPlace;  // called with the source as destination
};
template <class T>
using ConstForms = std::vector<ConstForm<T>>;

template <class T>
void check_const(Lay L, int w, int h, int pad, const T* v, const ConstForms<T>& f, const ConstModel<T>& model,
                 TavStatus expect = tavOk, const std::string& what = "") {
    const int we = w * chans(L);
    tavtest::Image<T> a(we, h, step_of(we, sizeof(T), pad));
    fill_edgy(a);
    for (std::size_t form = 0; form < f.size(); ++form) {
        const bool inPlace = f[form].inPlace;
        tavtest::Image<T> d(we, h, inPlace ? a.step() : step_of(we, sizeof(T), pad + int(sizeof(T))));
        if (inPlace) std::memcpy(d.bytes(), a.bytes(), a.span());
        const auto expected = tavtest::expected_from(d, [&](int x, int y, T& r) {
            return x % chans(L) < used(L) && (r = model(a.at(x, y), v[x % chans(L)], x % chans(L)), true);
        });
        const TavStatus st = inPlace ? f[form].call(d.ptr(), d.step(), v, d.ptr(), d.step(), {w, h})
                                     : f[form].call(a.ptr(), a.step(), v, d.ptr(), d.step(), {w, h});
        EXPECT_EQ(st, expect) << what << " form " << form << " " << lay_name(L) << " w=" << w << " h=" << h;
        EXPECT_TRUE(tavtest::same_bytes(d, expected)) << what << " form " << form << " " << lay_name(L) << " w=" << w
                                                      << " h=" << h << " pad=" << pad;
    }
}

// A few shapes per call: one wide enough for the peel and the unrolled loop,
// short tails, a single pixel.
struct Shape {
    int w, h, pad;
};
inline const std::vector<Shape>& shapes() {
    static const std::vector<Shape> s = {{1, 1, 0}, {7, 3, 4}, {37, 2, 0}, {70, 3, 12}, {133, 2, 64}};
    return s;
}

}  // namespace arithtest
