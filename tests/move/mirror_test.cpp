// taviMirror: flips 0 to 2 out of place and in place for every layout, the
// diagonal flips of the three one-channel forms, and the orders of checks.
#include <cstring>

#include "move/move_test_util.h"
#include "support/ref_move.h"

namespace {

using namespace movetest;

using MirrorFn = TavStatus (*)(const void*, int, void*, int, TaviSize, int);
using MirrorIpFn = TavStatus (*)(void*, int, TaviSize, int);
template <class T, auto F>
TavStatus out_of_place(const void* s, int ss, void* d, int ds, TaviSize r, int flip) {
    return F(static_cast<const T*>(s), ss, static_cast<T*>(d), ds, r, flip);
}
template <class T, auto F>
TavStatus in_place(void* p, int s, TaviSize r, int flip) {
    return F(static_cast<T*>(p), s, r, flip);
}

struct MirrorCase {
    const char* name;
    MirrorFn fn;
    MirrorIpFn ip;
    int es, channels;
    bool alpha, diagonal;  // diagonal: flips 3 and 4 exist
    int pixel() const { return es * channels; }
    int kept() const { return alpha ? 3 * es : pixel(); }
};

#define TAV_MIRROR_ROWS(t, T, diag)                                                                                 \
    {#t "_C1", out_of_place<T, taviMirror_##t##_C1R>, in_place<T, taviMirror_##t##_C1IR>, sizeof(T), 1, false,   \
     diag},                                                                                                         \
        {#t "_C3", out_of_place<T, taviMirror_##t##_C3R>, in_place<T, taviMirror_##t##_C3IR>, sizeof(T), 3, false, \
         false},                                                                                                    \
        {#t "_C4", out_of_place<T, taviMirror_##t##_C4R>, in_place<T, taviMirror_##t##_C4IR>, sizeof(T), 4, false, \
         false},                                                                                                    \
        {#t "_AC4", out_of_place<T, taviMirror_##t##_AC4R>, in_place<T, taviMirror_##t##_AC4IR>, sizeof(T), 4,     \
         true, false}

const MirrorCase kMirrors[] = {TAV_MIRROR_ROWS(8u, Tav8u, true), TAV_MIRROR_ROWS(16u, Tav16u, true),
                               TAV_MIRROR_ROWS(16s, Tav16s, false), TAV_MIRROR_ROWS(32s, Tav32s, true),
                               TAV_MIRROR_ROWS(32f, Tav32f, false)};
#undef TAV_MIRROR_ROWS

void check_mirror(const MirrorCase& c, int w, int h, int flip, int pad, const Placement& pl) {
    const int P = c.pixel();
    Region src(static_cast<long long>(w) * P, h, w * P + pad, pl.srcGuard, pl.srcLead);
    Region dst(static_cast<long long>(w) * P, h, w * P + pad + c.es, pl.dstGuard, pl.dstLead);
    auto expected = dst.snapshot();
    tavref::mirror(src.ptr(), src.step(), dst.in(expected), dst.step(), w, h, P, c.kept(), flip);
    ASSERT_EQ(c.fn(src.ptr(), src.step(), dst.ptr(), dst.step(), {w, h}, flip), tavOk) << c.name;
    EXPECT_TRUE(dst.same(expected)) << c.name << " flip " << flip << " " << w << "x" << h;
}

TEST(Mirror, FlipsSweepWidthsHeightsAndAlignments) {
    const auto places = placements();
    for (const MirrorCase& c : kMirrors) {
        const auto widths = tavtest::sweep_widths(c.pixel() >= 4 ? c.pixel() : c.es);
        for (std::size_t i = 0; i < widths.size(); ++i)
            for (int flip = 0; flip < 3; ++flip) {
                check_mirror(c, widths[i], 1 + static_cast<int>((i + flip) % 4), flip, static_cast<int>(i % 3) * c.es,
                             places[(i + flip) % places.size()]);
                if (::testing::Test::HasFailure()) return;
            }
    }
}

void check_in_place(const MirrorCase& c, int w, int h, int flip) {
    const int P = c.pixel();
    Region img(static_cast<long long>(w) * P, h, w * P + 3);
    auto before = img.snapshot();
    auto expected = img.snapshot();
    tavref::mirror(img.in(before), img.step(), img.in(expected), img.step(), w, h, P, c.kept(), flip);
    ASSERT_EQ(c.ip(img.ptr(), img.step(), {w, h}, flip), tavOk) << c.name;
    EXPECT_TRUE(img.same(expected)) << c.name << " in place, flip " << flip << " " << w << "x" << h;
}

TEST(Mirror, InPlaceEveryFlipAndShape) {
    // One row, one column, odd and even heights, rows shorter than a chunk,
    // between one and two chunks, and long.
    const int widths[] = {1, 2, 3, 5, 16, 17, 31, 33, 64, 65, 100, 129, 200};
    for (const MirrorCase& c : kMirrors)
        for (int w : widths)
            for (int h : {1, 2, 5})
                for (int flip = 0; flip < 3; ++flip) {
                    check_in_place(c, w, h, flip);
                    if (::testing::Test::HasFailure()) return;
                }
}

TEST(Mirror, EqualPointersAndStepsGoInPlace) {
    for (const MirrorCase& c : kMirrors)
        for (int flip = 0; flip < 3; ++flip) {
            const int P = c.pixel(), w = 37, h = 5;
            Region img(static_cast<long long>(w) * P, h, w * P);
            auto before = img.snapshot();
            auto expected = img.snapshot();
            tavref::mirror(img.in(before), img.step(), img.in(expected), img.step(), w, h, P, c.kept(), flip);
            ASSERT_EQ(c.fn(img.ptr(), img.step(), img.ptr(), img.step(), {w, h}, flip), tavOk) << c.name;
            EXPECT_TRUE(img.same(expected)) << c.name << " flip " << flip;
        }
}

TEST(Mirror, DiagonalFlips) {
    const int sizes[] = {1, 3, 15, 16, 17, 33, 64, 65, 70};
    int k = 0;
    for (const MirrorCase& c : kMirrors) {
        if (!c.diagonal) continue;
        const int P = c.pixel();
        for (int w : sizes)
            for (int h : sizes)
                for (int flip : {3, 4}) {
                    if ((w + h + flip) % 3 != 0) continue;
                    const Placement pl = placements()[k++ % 5];
                    Region src(static_cast<long long>(w) * P, h, w * P + 2 * c.es, pl.srcGuard, pl.srcLead);
                    Region dst(static_cast<long long>(h) * P, w, h * P + c.es, pl.dstGuard, pl.dstLead);
                    auto expected = dst.snapshot();
                    tavref::transpose(src.ptr(), src.step(), dst.in(expected), dst.step(), w, h, P, flip == 4);
                    ASSERT_EQ(c.fn(src.ptr(), src.step(), dst.ptr(), dst.step(), {w, h}, flip), tavOk) << c.name;
                    EXPECT_TRUE(dst.same(expected)) << c.name << " flip " << flip << " " << w << "x" << h;
                }
    }
}

TEST(Mirror, DiagonalFlipsRefuseOverlappingImages) {
    for (const MirrorCase& c : kMirrors) {
        if (!c.diagonal) continue;
        const int P = c.pixel();
        Region img(64 * P, 64, 64 * P);
        for (int flip : {3, 4}) {
            auto before = img.snapshot();
            // The same image; blocks that share bytes of a row; a destination
            // starting inside the source's rows.
            EXPECT_EQ(c.fn(img.ptr(), img.step(), img.ptr(), img.step(), {8, 8}, flip), tavErrNotSupportedMode);
            EXPECT_EQ(c.fn(img.ptr(), img.step(), img.ptr() + 2 * P, img.step(), {4, 6}, flip),
                      tavErrNotSupportedMode);
            EXPECT_EQ(c.fn(img.ptr(), img.step(), img.ptr() + 3 * img.step(), img.step(), {8, 8}, flip),
                      tavErrNotSupportedMode);
            EXPECT_TRUE(img.same(before)) << c.name;
            // Side by side in the same rows without sharing a byte.
            EXPECT_EQ(c.fn(img.ptr(), img.step(), img.ptr() + 20 * P, img.step(), {8, 8}, flip), tavOk);
            // Rows apart: no overlap.
            EXPECT_EQ(c.fn(img.ptr(), img.step(), img.ptr() + 20 * img.step(), img.step(), {8, 8}, flip), tavOk);
        }
    }
}

TEST(Mirror, OrderOfChecks) {
    for (const MirrorCase& c : kMirrors) {
        Region src(64 * 16, 4, 64 * 16), dst(64 * 16, 4, 64 * 16);
        auto before = dst.snapshot();
        const TavStatus diag = c.diagonal ? tavOk : tavErrMirrorFlip;
        EXPECT_EQ(c.fn(nullptr, 64, dst.ptr(), 64, {0, 1}, 9), tavErrNullPtr) << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 64, dst.ptr(), 64, {0, 1}, 9), tavErrSize) << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 64, dst.ptr(), 64, {4, 0}, 1), tavErrSize) << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 64, dst.ptr(), 64, {4, 4}, 5), tavErrMirrorFlip) << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 64, dst.ptr(), 64, {4, 4}, -1), tavErrMirrorFlip) << c.name;
        // Flips 0 to 2 check no step; the diagonal flips check steps before the size.
        EXPECT_EQ(c.fn(src.ptr(), 0, dst.ptr(), 64, {0, 4}, 1), tavErrSize) << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 0, dst.ptr(), 64, {0, 4}, 3), c.diagonal ? tavErrStep : tavErrSize) << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 64, dst.ptr(), -64, {4, 4}, 4), c.diagonal ? tavErrStep : tavErrMirrorFlip)
            << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 64, nullptr, 64, {4, 4}, 3), tavErrNullPtr) << c.name;
        EXPECT_TRUE(dst.same(before)) << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 16 * c.pixel(), dst.ptr(), 16 * c.pixel(), {4, 4}, 3), diag) << c.name;
        // In place: pointer, size, flip; the diagonal flips don't exist there.
        auto now = dst.snapshot();
        EXPECT_EQ(c.ip(nullptr, 64, {0, 0}, 7), tavErrNullPtr) << c.name;
        EXPECT_EQ(c.ip(dst.ptr(), 64, {0, 4}, 7), tavErrSize) << c.name;
        EXPECT_EQ(c.ip(dst.ptr(), 64, {4, 4}, 3), tavErrMirrorFlip) << c.name;
        EXPECT_EQ(c.ip(dst.ptr(), 64, {4, 4}, 7), tavErrMirrorFlip) << c.name;
        EXPECT_TRUE(dst.same(now)) << c.name;
    }
}

}  // namespace
