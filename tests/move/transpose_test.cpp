// taviTranspose: every pixel size out of place and in place, against the
// reference, across sizes that leave every kind of remainder strip.
#include <cstring>

#include "move/move_test_util.h"
#include "support/ref_move.h"

namespace {

using namespace movetest;

using InPlaceFn = TavStatus (*)(void*, int, TaviSize);
template <class T, auto F>
TavStatus in_place(void* p, int s, TaviSize r) {
    return F(static_cast<T*>(p), s, r);
}

struct TransposeCase {
    const char* name;
    UnaryFn fn;
    InPlaceFn ip;
    int pixelBytes;
};

#define TAV_TRANSPOSE_ROWS(t, T)                                                                                  \
    {#t "_C1", unary<T, taviTranspose_##t##_C1R>, in_place<T, taviTranspose_##t##_C1IR>, int(sizeof(T))},        \
        {#t "_C3", unary<T, taviTranspose_##t##_C3R>, in_place<T, taviTranspose_##t##_C3IR>, 3 * int(sizeof(T))}, \
        {#t "_C4", unary<T, taviTranspose_##t##_C4R>, in_place<T, taviTranspose_##t##_C4IR>, 4 * int(sizeof(T))}

const TransposeCase kTransposes[] = {TAV_TRANSPOSE_ROWS(8u, Tav8u), TAV_TRANSPOSE_ROWS(16u, Tav16u),
                                     TAV_TRANSPOSE_ROWS(16s, Tav16s), TAV_TRANSPOSE_ROWS(32s, Tav32s),
                                     TAV_TRANSPOSE_ROWS(32f, Tav32f)};
#undef TAV_TRANSPOSE_ROWS

void check_transpose(const TransposeCase& c, int w, int h, int pad, const Placement& pl) {
    const int P = c.pixelBytes;
    Region src(static_cast<long long>(w) * P, h, w * P + pad, pl.srcGuard, pl.srcLead);
    Region dst(static_cast<long long>(h) * P, w, h * P + 2 * pad, pl.dstGuard, pl.dstLead);
    auto expected = dst.snapshot();
    tavref::transpose(src.ptr(), src.step(), dst.in(expected), dst.step(), w, h, P);
    ASSERT_EQ(c.fn(src.ptr(), src.step(), dst.ptr(), dst.step(), {w, h}), tavOk) << c.name;
    EXPECT_TRUE(dst.same(expected)) << c.name << " " << w << "x" << h << " pad " << pad;
}

TEST(Transpose, SizesAroundEveryTile) {
    // Tiles are up to 64 pixels wide and 16 high: sizes on and around them.
    const int sizes[] = {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 100, 129};
    const auto places = placements();
    int k = 0;
    for (const TransposeCase& c : kTransposes)
        for (int w : sizes)
            for (int h : sizes) {
                if ((w * 7 + h * 3) % 4 != 0 && w != h) continue;  // a spread of the pairs keeps this quick
                check_transpose(c, w, h, (k % 3) * c.pixelBytes + (k % 2), places[k % places.size()]);
                ++k;
                if (::testing::Test::HasFailure()) return;
            }
}

TEST(Transpose, LargeImages) {
    for (const TransposeCase& c : kTransposes) check_transpose(c, 400, 270, 64, placements()[0]);
}

TEST(Transpose, InPlaceMatchesTheReference) {
    for (const TransposeCase& c : kTransposes)
        for (int n : {1, 2, 15, 16, 17, 33, 64, 65, 97, 130}) {
            const int P = c.pixelBytes;
            Region img(static_cast<long long>(n) * P, n, n * P + 5);
            auto before = img.snapshot();
            auto expected = img.snapshot();
            tavref::transpose(img.in(before), img.step(), img.in(expected), img.step(), n, n, P);
            ASSERT_EQ(c.ip(img.ptr(), img.step(), {n, n}), tavOk);
            EXPECT_TRUE(img.same(expected)) << c.name << " in place " << n;
        }
}

TEST(Transpose, EqualPointersGoInPlaceBeforeAnyCheck) {
    for (const TransposeCase& c : kTransposes) {
        const int P = c.pixelBytes, n = 21;
        Region img(static_cast<long long>(n) * P, n, n * P);
        auto expected = img.snapshot();
        auto before = img.snapshot();
        tavref::transpose(img.in(before), img.step(), img.in(expected), img.step(), n, n, P);
        // srcStep is ignored: the in-place form takes the destination's.
        ASSERT_EQ(c.fn(img.ptr(), -12345, img.ptr(), img.step(), {n, n}), tavOk) << c.name;
        EXPECT_TRUE(img.same(expected)) << c.name;
        // Not square: the in-place form's size check.
        auto now = img.snapshot();
        EXPECT_EQ(c.fn(img.ptr(), img.step(), img.ptr(), img.step(), {n, n - 1}), tavErrSize) << c.name;
        EXPECT_TRUE(img.same(now)) << c.name;
    }
}

TEST(Transpose, Statuses) {
    for (const TransposeCase& c : kTransposes) {
        Region src(64, 4, 64), dst(64, 4, 64);
        auto before = dst.snapshot();
        EXPECT_EQ(c.fn(nullptr, 64, dst.ptr(), 64, {0, 4}), tavErrNullPtr) << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 64, nullptr, 64, {4, 4}), tavErrNullPtr) << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 64, dst.ptr(), 64, {0, 4}), tavErrSize) << c.name;
        EXPECT_EQ(c.fn(src.ptr(), 0, dst.ptr(), -1, {4, -4}), tavErrSize) << c.name;
        EXPECT_EQ(c.ip(nullptr, 64, {0, 0}), tavErrNullPtr) << c.name;
        EXPECT_EQ(c.ip(dst.ptr(), 64, {0, 0}), tavErrSize) << c.name;
        EXPECT_EQ(c.ip(dst.ptr(), 64, {2, 3}), tavErrSize) << c.name;
        EXPECT_TRUE(dst.same(before)) << c.name;
    }
}

}  // namespace
