// LUT sizes by their formulas, Init and work of every type and layout
// against the element model (levels in and out of the type's range, all
// three interpolations, not-a-number and the level bounds for 32f), specs
// held in blocks of exactly the reported size, and the checks.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "decide/decide_test.h"
#include "support/image.h"
#include "support/ref_decide_lut.h"
#include "tavi.h"

namespace {

using tavtest::GuardedBytes;
using tavtest::Image;

struct SizeCase {
    int interp, type, channels;
    std::vector<int> n;
    int expect;
};

TEST(LutGetSize, Formulas) {
    const SizeCase cases[] = {
        {1, tav8u, 1, {5}, 288 + 256},
        {2, tav8u, 3, {5, 6, 7}, 288 + 768},
        {6, tav8u, 9, {2, 2, 2}, 288 + 768},
        {6, tav8u, 4, {2, 3, 4, 5}, 288 + 1024},
        {1, tav16u, 1, {5}, 288 + 40 + 0x20000},
        {1, tav16s, 3, {5, 6, 7}, 288 + 192 + 0x60000},
        {1, tav16u, 9, {5, 6, 7}, 288 + 192 + 0x60000},
        {1, tav16s, 4, {5, 6, 7, 8}, 288 + 0x80000},
        {2, tav16u, 1, {5}, 288 + 0x20000},
        {6, tav16s, 3, {5, 6, 7}, 288 + 0x60000},
        {2, tav16u, 9, {5, 6, 7}, 288 + 0x60000},
        {6, tav16u, 4, {5, 6, 7, 8}, 288 + 0x80000},
        {1, tav32f, 1, {5}, 288 + 40},
        {1, tav32f, 3, {5, 6, 7}, 288 + 192},
        {1, tav32f, 4, {5, 6, 7, 8}, 288 + 256},
        {2, tav32f, 1, {5}, 288 + 64 + 32},
        {2, tav32f, 3, {5, 6, 7}, 288 + 192 + 144 - 24},
        {2, tav32f, 9, {5, 6, 7}, 288 + 192 + 144 - 24},
        {2, tav32f, 4, {5, 6, 7, 8}, 288 + 256 + 208 - 32},
        {6, tav32f, 1, {5}, 288 + 64 + 120 - 24},
        {6, tav32f, 1, {3}, 288 + 64 + 24 - 8},
        {6, tav32f, 3, {5, 6, 7}, 288 + 192 + 432 - 72},
        {6, tav32f, 3, {5, 3, 7}, 288 + 128 + 120 - 24},
        {6, tav32f, 4, {4, 4, 4, 4}, 288 + 128 + 384 - 96},
        {6, tav32f, 4, {4, 4, 4, 3}, 288 + 128 + 120 - 32},
    };
    for (const SizeCase& c : cases) {
        int size = -1;
        EXPECT_EQ(taviLUT_GetSize(c.interp, c.type, c.channels, {8, 8}, c.n.data(), &size), tavOk);
        EXPECT_EQ(size, c.expect) << "interp " << c.interp << " type " << c.type << " channels " << c.channels;
    }
}

TEST(LutGetSize, CheckOrder) {
    const int good[4] = {3, 3, 3, 3};
    int size = 0;
    struct Case {
        const char* what;
        int interp, type, channels;
        TaviSize roi;
        std::vector<int> n;
        bool nullLevels, nullOut;
        TavStatus expect;
    };
    const Case cases[] = {
        {"interpolation 0 before null", 0, tav8u, 1, {4, 4}, {3}, true, false, tavErrInterpolation},
        {"interpolation 4", 4, tav8u, 1, {4, 4}, {3}, false, false, tavErrInterpolation},
        {"null levels before size", 1, tav8u, 1, {0, 4}, {3}, true, false, tavErrNullPtr},
        {"null result", 1, tav8u, 1, {4, 4}, {3}, false, true, tavErrNullPtr},
        {"size before levels", 2, tav8u, 1, {4, 0}, {1}, false, false, tavErrSize},
        {"fourth count before channel code", 1, tav8u, 4, {4, 4}, {3, 3, 3, 1}, false, false, tavErrLutLevels},
        {"channel code 2", 1, tav8u, 2, {4, 4}, {1, 1, 1, 1}, false, false, tavErrChannelNumber},
        {"channel code 0", 1, tav8u, 0, {4, 4}, {3}, false, false, tavErrChannelNumber},
        {"second count", 1, tav8u, 3, {4, 4}, {3, 1, 3}, false, false, tavErrLutLevels},
        {"third count of AC4", 1, tav8u, 9, {4, 4}, {3, 3, 1}, false, false, tavErrLutLevels},
        {"first count", 6, tav8u, 1, {4, 4}, {1}, false, false, tavErrLutLevels},
        {"data type after counts", 1, tav64f, 1, {4, 4}, {1}, false, false, tavErrLutLevels},
        {"data type 64f", 1, tav64f, 1, {4, 4}, {3}, false, false, tavErrDataType},
        {"data type 0", 2, 0, 3, {4, 4}, {3, 3, 3}, false, false, tavErrDataType},
    };
    for (const Case& c : cases) {
        std::vector<int> n = c.n;
        n.resize(4, 3);
        EXPECT_EQ(taviLUT_GetSize(c.interp, c.type, c.channels, c.roi, c.nullLevels ? nullptr : n.data(),
                                  c.nullOut ? nullptr : &size),
                  c.expect)
            << c.what;
    }
    EXPECT_EQ(taviLUT_GetSize(1, tav8u, 1, {4, 4}, good, &size), tavOk);
}

// The work exports of one type and layout, with the channel code of Init.
template <class T>
struct Work {
    const char* name;
    int channels;
    TavStatus (*unary)(const T*, int, T*, int, TaviSize, const Tav8u*);
    TavStatus (*inPlace)(T*, int, TaviSize, const Tav8u*);
};
#define WORK(ty) \
    {{"C1", 1, taviLUT_##ty##_C1R, taviLUT_##ty##_C1IR}, {"C3", 3, taviLUT_##ty##_C3R, taviLUT_##ty##_C3IR}, \
     {"C4", 4, taviLUT_##ty##_C4R, taviLUT_##ty##_C4IR}, {"AC4", 9, taviLUT_##ty##_AC4R, taviLUT_##ty##_AC4IR}}

// Per type: the level and value type of Init, its data type code, Init and
// the work exports.
template <class T>
struct Family {
    using S = std::conditional_t<std::is_same_v<T, Tav32f>, Tav32f, Tav32s>;
    static constexpr int type = std::is_same_v<T, Tav8u> ? tav8u : std::is_same_v<T, Tav16u> ? tav16u
                              : std::is_same_v<T, Tav16s> ? tav16s : tav32f;
    static TavStatus init(int i, int ch, TaviSize r, const S* const* v, const S* const* l, const int* n, Tav8u* s) {
        if constexpr (std::is_same_v<T, Tav8u>) return taviLUT_Init_8u(i, ch, r, v, l, n, s);
        else if constexpr (std::is_same_v<T, Tav16u>) return taviLUT_Init_16u(i, ch, r, v, l, n, s);
        else if constexpr (std::is_same_v<T, Tav16s>) return taviLUT_Init_16s(i, ch, r, v, l, n, s);
        else return taviLUT_Init_32f(i, ch, r, v, l, n, s);
    }
    static std::vector<Work<T>> work() {
        if constexpr (std::is_same_v<T, Tav8u>) return WORK(8u);
        else if constexpr (std::is_same_v<T, Tav16u>) return WORK(16u);
        else if constexpr (std::is_same_v<T, Tav16s>) return WORK(16s);
        else return WORK(32f);
    }
};

// Levels and values of one channel: mostly ascending levels reaching past
// the type's range, values reaching past it too; now and then levels out of
// order or repeated.
template <class T>
struct Channel {
    std::vector<typename Family<T>::S> levels, values;
    void make(int n) {
        using S = typename Family<T>::S;
        auto& r = tavtest::rng();
        const double lo = std::is_floating_point_v<T> ? -60.0 : double(std::numeric_limits<T>::min()) - 30;
        const double hi = std::is_floating_point_v<T> ? 60.0 : double(std::numeric_limits<T>::max()) + 30;
        levels.resize(n);
        values.resize(n);
        for (auto& l : levels) l = tavtest::random_value<S>(lo, hi);
        for (auto& v : values) v = tavtest::random_value<S>(lo - 40, hi + 40);
        if (r() % 8) std::sort(levels.begin(), levels.end());
        if (n > 2 && r() % 4 == 0) levels[1] = levels[2];
    }
};

// A spec in a block of exactly the size GetSize reports, placed off any
// alignment, its end against a guard page.
template <class T>
std::unique_ptr<GuardedBytes> make_spec(int interp, int code, std::vector<Channel<T>>& ch, Tav8u*& spec,
                                        int offset) {
    using S = typename Family<T>::S;
    const int tables = code == 1 ? 1 : code == 4 ? 4 : 3;
    std::vector<int> n(4, 2);
    std::vector<const S*> v(4), l(4);
    for (int c = 0; c < tables; ++c) {
        n[c] = static_cast<int>(ch[c].levels.size());
        v[c] = ch[c].values.data();
        l[c] = ch[c].levels.data();
    }
    int size = 0;
    EXPECT_EQ(taviLUT_GetSize(interp, Family<T>::type, code, {16, 16}, n.data(), &size), tavOk);
    auto block = std::make_unique<GuardedBytes>(size + offset);
    spec = block->data() + offset;
    EXPECT_EQ(Family<T>::init(interp, code, {16, 16}, v.data(), l.data(), n.data(), spec), tavOk);
    return block;
}

template <class T>
T model(int interp, const Channel<T>& ch, T x) {
    if constexpr (std::is_floating_point_v<T>) return tavref::lut_32f(interp, ch.values, ch.levels, x);
    else return tavref::lut_int<T>(interp, ch.values, ch.levels, x);
}

template <class T>
void sweep_type() {
    int i = 0;
    for (const Work<T>& w : Family<T>::work()) {
        const dtest::Layout lay = dtest::layout_of(std::string("_") + w.name + "R");
        for (int interp : {1, 2, 6}) {
            for (int trial = 0; trial < 3; ++trial, ++i) {
                std::vector<Channel<T>> ch(4);
                for (auto& c : ch) c.make(2 + static_cast<int>(tavtest::rng()() % (trial == 0 ? 3 : 12)));
                Tav8u* spec = nullptr;
                auto block = make_spec<T>(interp, w.channels, ch, spec, i % 64);
                std::vector<T> anchors;
                for (auto& c : ch)
                    for (auto l : c.levels) anchors.push_back(static_cast<T>(std::clamp<double>(
                        l, std::numeric_limits<T>::lowest(), std::numeric_limits<T>::max())));
                const auto geometries = dtest::sweep(sizeof(T));
                for (std::size_t gi = trial; gi < geometries.size(); gi += 3) {
                    const dtest::Geometry& g = geometries[gi];
                    const bool inPlace = gi % 2;
                    const int elems = g.width * lay.channels;
                    const int step = elems * int(sizeof(T)) + g.padBytes;
                    Image<T> src(elems, g.height, step, g.guard), dst(elems, g.height, step + (gi % 4 == 1) * 32);
                    Image<T>& in = inPlace ? dst : src;
                    in.fill_with([&](int, int) { return dtest::near_value<T>(anchors); });
                    const auto expected = tavtest::expected_from(dst, [&](int x, int y, T& v) {
                        const int c = x % lay.channels;
                        return c < lay.values && (v = model<T>(interp, ch[c], in.row(y)[x]), true);
                    });
                    const TavStatus st = inPlace ? w.inPlace(dst.ptr(), dst.step(), {g.width, g.height}, spec)
                                                 : w.unary(src.ptr(), src.step(), dst.ptr(), dst.step(),
                                                           {g.width, g.height}, spec);
                    ASSERT_EQ(st, tavOk);
                    ASSERT_TRUE(tavtest::same_bytes(dst, expected))
                        << w.name << " interpolation " << interp << " width " << g.width << " height " << g.height
                        << (inPlace ? " in place" : "");
                }
            }
        }
    }
}

TEST(Lut, Sweep8u) { sweep_type<Tav8u>(); }
TEST(Lut, Sweep16u) { sweep_type<Tav16u>(); }
TEST(Lut, Sweep16s) { sweep_type<Tav16s>(); }
TEST(Lut, Sweep32f) { sweep_type<Tav32f>(); }

template <class T>
std::vector<Channel<T>> one_channel(std::vector<typename Family<T>::S> levels,
                                    std::vector<typename Family<T>::S> values) {
    std::vector<Channel<T>> ch(4);
    ch[0].levels = std::move(levels);
    ch[0].values = std::move(values);
    return ch;
}

// Values known by hand at the level bounds: the first level is inclusive,
// the last exclusive, and pixels outside keep their value.
TEST(Lut, LevelBounds) {
    {
        auto ch = one_channel<Tav8u>({0, 128}, {10, 20});
        Tav8u* spec;
        auto block = make_spec<Tav8u>(1, 1, ch, spec, 0);
        Tav8u px[4] = {0, 127, 128, 255};
        ASSERT_EQ(taviLUT_8u_C1IR(px, 4, {4, 1}, spec), tavOk);
        EXPECT_EQ(std::vector<Tav8u>(px, px + 4), (std::vector<Tav8u>{10, 10, 128, 255}));
    }
    {
        auto ch = one_channel<Tav16u>({0, 100, 200}, {0, 1000, 500});
        Tav8u* spec;
        auto block = make_spec<Tav16u>(2, 1, ch, spec, 5);
        Tav16u px[5] = {0, 100, 150, 199, 200};
        ASSERT_EQ(taviLUT_16u_C1IR(px, 10, {5, 1}, spec), tavOk);
        EXPECT_EQ(std::vector<Tav16u>(px, px + 5), (std::vector<Tav16u>{0, 1000, 750, 505, 200}));
    }
    {
        // Values beyond the type saturate.
        auto ch = one_channel<Tav16s>({-10, 0, 10}, {-100000, 100000, 0});
        Tav8u* spec;
        auto block = make_spec<Tav16s>(1, 1, ch, spec, 0);
        Tav16s px[4] = {-11, -10, 5, 10};
        ASSERT_EQ(taviLUT_16s_C1IR(px, 8, {4, 1}, spec), tavOk);
        EXPECT_EQ(std::vector<Tav16s>(px, px + 4), (std::vector<Tav16s>{-11, -32768, 32767, 10}));
    }
    {
        // Cubic through values of a cubic polynomial reproduces it.
        auto f = [](double x) { return 0.01 * x * x * x - 0.5 * x * x + 3 * x + 7; };
        std::vector<float> l = {0, 10, 20, 30, 40}, v;
        for (float x : l) v.push_back(static_cast<float>(f(x)));
        auto ch = one_channel<Tav32f>(l, v);
        Tav8u* spec;
        auto block = make_spec<Tav32f>(6, 1, ch, spec, 3);
        float px[6] = {-1.0f, 0.0f, 5.5f, 25.25f, 39.75f, 40.0f};
        ASSERT_EQ(taviLUT_32f_C1IR(px, 24, {6, 1}, spec), tavOk);
        EXPECT_EQ(px[0], -1.0f);
        EXPECT_EQ(px[5], 40.0f);
        const double x[] = {-1.0, 0.0, 5.5, 25.25, 39.75};
        for (int k = 1; k < 5; ++k) EXPECT_NEAR(px[k], f(x[k]), 1e-3) << x[k];
    }
}

// Work: pointers with the spec, steps, size, then the identifier, which must
// be this type's and layout's.
TEST(Lut, WorkCheckOrder) {
    std::vector<Channel<Tav8u>> ch(4);
    for (auto& c : ch) c.make(4);
    Tav8u *spec1, *spec3;
    auto b1 = make_spec<Tav8u>(2, 1, ch, spec1, 0);
    auto b3 = make_spec<Tav8u>(2, 3, ch, spec3, 0);
    std::vector<Channel<Tav16u>> ch16(4);
    for (auto& c : ch16) c.make(4);
    Tav8u* spec16u;
    auto b16 = make_spec<Tav16u>(1, 1, ch16, spec16u, 0);
    GuardedBytes noise(1024);
    tavtest::fill_bytes_random(noise.data(), noise.size());
    Image<Tav8u> src(12, 2), dst(12, 2);
    const auto before = dst.snapshot();
    struct Case {
        const char* what;
        const Tav8u *s, *spec;
        int srcStep, dstStep;
        TaviSize roi;
        TavStatus expect;
    };
    const Case cases[] = {
        {"null spec", src.ptr(), nullptr, 12, 12, {12, 2}, tavErrNullPtr},
        {"null source and zero step", nullptr, spec1, 0, 12, {12, 2}, tavErrNullPtr},
        {"zero step before size", src.ptr(), spec1, 12, 0, {0, 2}, tavErrStep},
        {"size before identifier", src.ptr(), spec3, 12, 12, {12, 0}, tavErrSize},
        {"C3 spec", src.ptr(), spec3, 12, 12, {12, 2}, tavErrBadArg},
        {"16u spec", src.ptr(), spec16u, 12, 12, {12, 2}, tavErrBadArg},
        {"random bytes as spec", src.ptr(), noise.data(), 12, 12, {12, 2}, tavErrBadArg},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(taviLUT_8u_C1R(c.s, c.srcStep, dst.ptr(), c.dstStep, c.roi, c.spec), c.expect) << c.what;
        EXPECT_TRUE(tavtest::same_bytes(dst, before)) << c.what;
    }
    Image<Tav16s> s16(4, 1);
    EXPECT_EQ(taviLUT_16s_C1IR(s16.ptr(), 8, {4, 1}, spec16u), tavErrBadArg);
    EXPECT_EQ(taviLUT_8u_C3R(src.ptr(), 12, dst.ptr(), 12, {4, 2}, spec3), tavOk);
}

TEST(Lut, InitCheckOrder) {
    const Tav32s lv[3] = {0, 10, 20}, vv[3] = {5, 6, 7};
    const Tav32s* levels[4] = {lv, lv, lv, lv};
    const Tav32s* values[4] = {vv, vv, vv, vv};
    const Tav32s* holed[4] = {lv, nullptr, lv, lv};
    const int n[4] = {3, 3, 3, 3}, n1[4] = {1, 3, 3, 3};
    GuardedBytes block(0x20000 + 512);
    Tav8u* spec = block.data();
    EXPECT_EQ(taviLUT_Init_16u(3, 1, {4, 4}, values, levels, n, nullptr), tavErrInterpolation);
    EXPECT_EQ(taviLUT_Init_16u(1, 1, {4, 4}, nullptr, levels, n, spec), tavErrNullPtr);
    EXPECT_EQ(taviLUT_Init_16u(1, 1, {4, 4}, values, levels, nullptr, spec), tavErrNullPtr);
    EXPECT_EQ(taviLUT_Init_16u(1, 1, {4, 4}, values, levels, n, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviLUT_Init_16u(1, 1, {-4, 4}, values, levels, n1, spec), tavErrSize);
    EXPECT_EQ(taviLUT_Init_16u(1, 5, {4, 4}, values, levels, n, spec), tavErrChannelNumber);
    EXPECT_EQ(taviLUT_Init_16u(1, 1, {4, 4}, values, levels, n1, spec), tavErrLutLevels);
    EXPECT_EQ(taviLUT_Init_16u(1, 3, {4, 4}, values, holed, n, spec), tavErrNullPtr);
    // A channel beyond the code is not read.
    EXPECT_EQ(taviLUT_Init_16u(1, 1, {4, 4}, values, holed, n, spec), tavOk);
}

}  // namespace
