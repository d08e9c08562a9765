// Otsu's threshold against the scalar model on random, bimodal and flat
// images of many shapes, a few answers known by hand, and the checks.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/image.h"
#include "support/ref_decide.h"
#include "tavi.h"

namespace {

using tavtest::Image;

std::vector<std::uint8_t> pixels_of(const Image<Tav8u>& img) {
    std::vector<std::uint8_t> p;
    for (int y = 0; y < img.height(); ++y) p.insert(p.end(), img.row(y), img.row(y) + img.width());
    return p;
}

Tav8u otsu(const Image<Tav8u>& img) {
    Tav8u t = 0xAB;
    EXPECT_EQ(taviComputeThreshold_Otsu_8u_C1R(img.ptr(), img.step(), {img.width(), img.height()}, &t), tavOk);
    return t;
}

// A bimodal value: two bell curves of unequal weight.
Tav8u bimodal() {
    auto& r = tavtest::rng();
    const double u = std::uniform_real_distribution<double>(0, 1)(r);
    const double v = std::normal_distribution<double>(u < 0.3 ? 60 : 170, u < 0.3 ? 12 : 25)(r);
    return static_cast<Tav8u>(std::clamp(v, 0.0, 255.0));
}

TEST(Otsu, MatchesModel) {
    struct Shape {
        int width, height, pad;
    };
    std::vector<Shape> shapes;
    for (int w = 1; w <= 70; w += 3) shapes.push_back({w, 1 + w % 5, w % 4 == 0 ? 0 : 13});
    for (Shape s : {Shape{1, 1, 0}, Shape{255, 17, 1}, Shape{640, 48, 64}, Shape{4099, 3, 0}, Shape{140001, 2, 5}})
        shapes.push_back(s);  // the last: rows counted in pieces
    int i = 0;
    for (const Shape& s : shapes) {
        for (int kind = 0; kind < 4; ++kind, ++i) {
            Image<Tav8u> img(s.width, s.height, s.width + s.pad, i % 2 ? tavtest::GuardAt::Start : tavtest::GuardAt::End);
            switch (kind) {
                case 0: img.fill(0, 255); break;
                case 1: img.fill_with([](int, int) { return bimodal(); }); break;
                case 2: img.fill(90, 97); break;  // narrow: ties between splits
                default: {
                    const Tav8u flat = static_cast<Tav8u>(tavtest::rng()());
                    img.fill_with([flat](int, int) { return flat; });
                }
            }
            EXPECT_EQ(otsu(img), tavref::otsu(pixels_of(img))) << s.width << "x" << s.height << " kind " << kind;
        }
    }
}

TEST(Otsu, KnownAnswers) {
    // One grey level: no split is admitted and the answer is 0.
    for (int level : {0, 77, 255}) {
        Image<Tav8u> img(33, 5, 40);
        img.fill_with([level](int, int) { return Tav8u(level); });
        EXPECT_EQ(otsu(img), 0) << level;
    }
    // Two levels: every split between them scores the same and the first,
    // right after the lower level, wins.
    Image<Tav8u> two(64, 8);
    two.fill_with([](int x, int y) { return Tav8u((x + y) % 3 ? 50 : 200); });
    EXPECT_EQ(otsu(two), 50);
    // Odd widths put the last column in the first bank; only the counts matter.
    Image<Tav8u> odd(7, 3);
    odd.fill_with([](int x, int) { return Tav8u(x < 4 ? 10 : 240); });
    EXPECT_EQ(otsu(odd), 10);
}

// Over 2^23 pixels a lone pixel is a class weight below the admission
// bound: it counts in the mean but never in the lower class's running sum.
// With these counts that moves the best split from 100 to 128.
TEST(Otsu, LoneBinBelowTheWeightBound) {
    const int w = 4096, h = 2100;
    const long n100 = 2867200, n170 = 955731;
    Image<Tav8u> img(w, h);
    img.fill_with([&](int x, int y) {
        const long p = long(y) * w + x;
        return Tav8u(p == 0 ? 99 : p <= n100 ? 100 : p <= n100 + n170 ? 170 : 128);
    });
    const auto pixels = pixels_of(img);
    ASSERT_NE(tavref::otsu(pixels, true), tavref::otsu(pixels, false));
    EXPECT_EQ(tavref::otsu(pixels), 128);
    EXPECT_EQ(otsu(img), 128);
}

TEST(Otsu, CheckOrder) {
    Image<Tav8u> img(10, 3);
    img.fill(0, 255);
    struct Case {
        const char* what;
        const Tav8u* src;
        int step;
        TaviSize roi;
        bool nullOut;
        TavStatus expect;
    };
    const Case cases[] = {
        {"null source", nullptr, 10, {10, 3}, false, tavErrNullPtr},
        {"null result", img.ptr(), 10, {10, 3}, true, tavErrNullPtr},
        {"null and zero width", nullptr, 10, {0, 3}, false, tavErrNullPtr},
        {"zero width", img.ptr(), 10, {0, 3}, false, tavErrSize},
        {"negative height", img.ptr(), 10, {10, -2}, false, tavErrSize},
        {"zero height and short step", img.ptr(), 5, {10, 0}, false, tavErrSize},
        {"step one below the width", img.ptr(), 9, {10, 3}, false, tavErrStep},
        {"negative step", img.ptr(), -10, {10, 3}, false, tavErrStep},
        {"step equal to the width", img.ptr(), 10, {10, 3}, false, tavOk},
    };
    for (const Case& c : cases) {
        Tav8u t = 0xAB;
        EXPECT_EQ(taviComputeThreshold_Otsu_8u_C1R(c.src, c.step, c.roi, c.nullOut ? nullptr : &t), c.expect) << c.what;
        if (c.expect != tavOk) {
            EXPECT_EQ(t, 0xAB) << c.what;
        }
    }
}

}  // namespace
