// taviBinToGray and taviGrayToBin against a bit-by-bit model: every bit
// offset within and beyond the first byte, widths across the 64-pixel words,
// packed rows exactly as long as the bits need (a read or write past them
// hits the guard page), and the bits around the run kept.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <vector>

#include "support/image.h"
#include "tavi.h"

namespace {

using tavtest::Image;

int64_t floor_div8(int64_t v) { return v >= 0 ? v / 8 : -((-v + 7) / 8); }

// Bytes of a packed row holding `width` bits from bit `offset`, counted from
// the byte that holds bit 0.
int packed_bytes(int offset, int width) { return static_cast<int>(floor_div8(offset + width - 1) + 1); }

std::vector<int> bit_widths() {
    std::vector<int> w;
    for (int i = 1; i <= 72; ++i) w.push_back(i);
    for (int i : {120, 127, 128, 129, 191, 192, 193, 300, 1000}) w.push_back(i);
    return w;
}

template <class D>
void check_bin_to_gray(TavStatus (*fn)(const Tav8u*, int, int, D*, int, TaviSize, D, D), D lo, D hi) {
    int k = 0;
    for (int w : bit_widths())
        for (int offset : {0, 1, 3, 7, 8, 13, 21}) {
            const int h = 1 + (k++ % 3);
            const int srcStep = packed_bytes(offset, w) + (k % 2) * 3;
            const int dstStep = w * int(sizeof(D)) + (k % 4) * int(sizeof(D));
            Image<Tav8u> src(packed_bytes(offset, w), h, srcStep);
            Image<D> dst(w, h, dstStep);
            src.fill(0, 255);
            const auto expected = tavtest::expected_from(dst, [&](int i, int y, D& v) {
                const int bit = offset + i;
                return v = (src.row(y)[bit / 8] >> (bit % 8)) & 1 ? hi : lo, true;
            });
            ASSERT_EQ(fn(src.ptr(), srcStep, offset, dst.ptr(), dstStep, {w, h}, lo, hi), tavOk);
            ASSERT_TRUE(tavtest::same_bytes(dst, expected)) << "width " << w << " offset " << offset;
        }
}

TEST(BinToGray, EveryOffsetAndWidth) {
    check_bin_to_gray<Tav8u>(taviBinToGray_1u8u_C1R, 3, 250);
    check_bin_to_gray<Tav16u>(taviBinToGray_1u16u_C1R, 0, 65535);
    check_bin_to_gray<Tav16s>(taviBinToGray_1u16s_C1R, -7, 300);
    check_bin_to_gray<Tav32f>(taviBinToGray_1u32f_C1R, -1.5f, 0.25f);
}

template <class S>
void check_gray_to_bin(TavStatus (*fn)(const S*, int, Tav8u*, int, int, TaviSize, S), S t, double lo, double hi) {
    int k = 0;
    for (int w : bit_widths())
        for (int offset : {0, 1, 3, 5, 7, 8, 15, 29}) {
            const int h = 1 + (k++ % 3);
            const int dstStep = packed_bytes(offset, w) + (k % 2) * 2;
            Image<S> src(w, h, w * int(sizeof(S)) + (k % 3) * int(sizeof(S)));
            Image<Tav8u> dst(packed_bytes(offset, w), h, dstStep);
            src.fill(lo, hi);
            src.row(0)[0] = t;  // equal is not above
            std::vector<std::uint8_t> expected = dst.snapshot();
            for (int y = 0; y < h; ++y)
                for (int i = 0; i < w; ++i) {
                    const int bit = offset + i;
                    std::uint8_t& byte = expected[std::size_t(y) * dstStep + bit / 8];
                    if (src.row(y)[i] > t) byte |= std::uint8_t(1u << (bit % 8));
                    else byte &= std::uint8_t(~(1u << (bit % 8)));
                }
            ASSERT_EQ(fn(src.ptr(), src.step(), dst.ptr(), dstStep, offset, {w, h}, t), tavOk);
            ASSERT_TRUE(tavtest::same_bytes(dst, expected)) << "width " << w << " offset " << offset;
        }
}

TEST(GrayToBin, EveryOffsetAndWidthKeepsOtherBits) {
    check_gray_to_bin<Tav8u>(taviGrayToBin_8u1u_C1R, 128, 0, 255);
    check_gray_to_bin<Tav16u>(taviGrayToBin_16u1u_C1R, 40000, 0, 65535);
    check_gray_to_bin<Tav16s>(taviGrayToBin_16s1u_C1R, -5, -32768, 32767);
    check_gray_to_bin<Tav32f>(taviGrayToBin_32f1u_C1R, 0.5f, -1.0, 2.0);
}

// A NaN is not above any threshold; the offsets below zero reach back into
// the bytes before the pointer.
TEST(GrayToBin, NanAndNegativeOffset) {
    const float px[3] = {std::numeric_limits<float>::quiet_NaN(), 1.0f, std::numeric_limits<float>::infinity()};
    Tav8u bytes[2] = {0x00, 0xFF};
    ASSERT_EQ(taviGrayToBin_32f1u_C1R(px, 12, bytes + 1, 2, -2, {3, 1}, 0.0f), tavOk);
    EXPECT_EQ(bytes[0], 0x80);  // bit 6: NaN gives 0, bit 7: 1.0 gives 1
    EXPECT_EQ(bytes[1], 0xFF);  // bit 0 of the next byte: infinity gives 1
    Tav8u gray[3];
    ASSERT_EQ(taviBinToGray_1u8u_C1R(bytes + 1, 2, -2, gray, 3, {3, 1}, 10, 20), tavOk);
    EXPECT_EQ(gray[0], 10);
    EXPECT_EQ(gray[1], 20);
    EXPECT_EQ(gray[2], 20);
}

TEST(BitImages, StatusesInCheckOrder) {
    Tav8u b[8] = {};
    Tav16u g[8] = {};
    EXPECT_EQ(taviBinToGray_1u16u_C1R(nullptr, 1, 0, g, 16, {0, 1}, 0, 1), tavErrNullPtr);
    EXPECT_EQ(taviBinToGray_1u16u_C1R(b, 1, 0, g, 16, {0, 1}, 0, 1), tavErrSize);
    EXPECT_EQ(taviBinToGray_1u16u_C1R(b, 0, 0, g, 16, {8, 1}, 0, 1), tavErrStep);
    EXPECT_EQ(taviGrayToBin_16u1u_C1R(g, 16, nullptr, 1, 0, {8, 1}, 0), tavErrNullPtr);
    EXPECT_EQ(taviGrayToBin_16u1u_C1R(g, 16, b, 1, 0, {8, 0}, 0), tavErrSize);
    EXPECT_EQ(taviGrayToBin_16u1u_C1R(g, 16, b, -1, 0, {8, 1}, 0), tavErrStep);
    for (Tav8u v : b) EXPECT_EQ(v, 0);
    for (Tav16u v : g) EXPECT_EQ(v, 0);
}

}  // namespace
