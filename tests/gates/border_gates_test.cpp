// Border copies large enough to pass the streaming gate of their row
// kernels, under the real core module and each double: the same exact frame
// every time, and no cache query below the gate.
#include <gtest/gtest.h>

#include <vector>

#include "support/core_double.h"
#include "support/image.h"
#include "support/ref_border.h"
#include "tavi.h"

namespace {

using tavref::Border;
using tavref::BorderFrame;
using tavtest::Image;

template <class T, class Call>
void check_large(Border kind, int ch, const BorderFrame& f, int offset, Call call) {
    const int64_t srcStep = (f.srcW * ch + offset) * int64_t(sizeof(T));
    const int64_t dstStep = (f.dstW * ch + offset) * int64_t(sizeof(T)) + 64;
    Image<T> src(int(f.srcW * ch + offset), int(f.srcH), srcStep);
    Image<T> dst(int(f.dstW * ch + offset), int(f.dstH), dstStep);
    const T value[4] = {T(1), T(2), T(3), T(4)};
    std::vector<std::uint8_t> expected = dst.snapshot();
    tavref::border_expect(kind, f, ch, ch, src.ptr() + offset, srcStep, expected.data() + offset * sizeof(T), dstStep,
                          value);
    ASSERT_EQ(call(src.ptr() + offset, int(srcStep), dst.ptr() + offset, int(dstStep), value), tavOk);
    ASSERT_TRUE(tavtest::same_bytes(dst, expected));
}

TEST(BorderGates, FramesAboveTheGate) {
    const BorderFrame a{1300, 1200, 1316, 1216, 8, 8};
    check_large<Tav8u>(Border::Replicate, 1, a, 1, [&](const Tav8u* s, int ss, Tav8u* d, int ds, const Tav8u*) {
        return taviCopyReplicateBorder_8u_C1R(s, ss, {1300, 1200}, d, ds, {1316, 1216}, 8, 8);
    });
    check_large<Tav8u>(Border::Const, 1, a, 0, [&](const Tav8u* s, int ss, Tav8u* d, int ds, const Tav8u* v) {
        return taviCopyConstBorder_8u_C1R(s, ss, {1300, 1200}, d, ds, {1316, 1216}, 8, 8, v[0]);
    });
    const BorderFrame b{800, 800, 802, 802, 1, 1};
    check_large<Tav8u>(Border::Mirror, 3, b, 2, [&](const Tav8u* s, int ss, Tav8u* d, int ds, const Tav8u*) {
        return taviCopyMirrorBorder_8u_C3R(s, ss, {800, 800}, d, ds, {802, 802}, 1, 1);
    });
    // Above a quarter of the real machine's cache too.
    const BorderFrame c{1500, 1450, 1628, 1578, 64, 64};
    check_large<Tav32f>(Border::Mirror, 1, c, 0, [&](const Tav32f* s, int ss, Tav32f* d, int ds, const Tav32f*) {
        return taviCopyMirrorBorder_32f_C1R(s, ss, {1500, 1450}, d, ds, {1628, 1578}, 64, 64);
    });
    const BorderFrame e{400, 300, 420, 330, 10, 7};
    check_large<Tav16u>(Border::Const, 4, e, 1, [&](const Tav16u* s, int ss, Tav16u* d, int ds, const Tav16u* v) {
        return taviCopyConstBorder_16u_C4R(s, ss, {400, 300}, d, ds, {420, 330}, 10, 7, v);
    });
    const BorderFrame w{700, 600, 760, 640, 30, 33};
    check_large<Tav32s>(Border::Wrap, 1, w, 3, [&](const Tav32s* s, int ss, Tav32s* d, int ds, const Tav32s*) {
        return taviCopyWrapBorder_32s_C1R(s, ss, {700, 600}, d, ds, {760, 640}, 30, 33);
    });
}

TEST(BorderGates, NoCacheQueryBelowTheGate) {
    const long long before = tavtest::core_cache_queries();
    if (before < 0) GTEST_SKIP() << "the real core module does not count queries";
    Image<Tav8u> src(1000, 1000), dst(1016, 1016);
    // 1016 x 1016 bytes is below 0x180001.
    ASSERT_EQ(taviCopyReplicateBorder_8u_C1R(src.ptr(), 1000, {1000, 1000}, dst.ptr(), 1016, {1016, 1016}, 8, 8), tavOk);
    EXPECT_EQ(tavtest::core_cache_queries(), before);
    // In place never streams, so never asks.
    Image<Tav8u> big(1300, 1300);
    ASSERT_EQ(taviCopyMirrorBorder_8u_C1IR(big.row(8) + 8, 1300, {1284, 1284}, {1300, 1300}, 8, 8), tavOk);
    EXPECT_EQ(tavtest::core_cache_queries(), before);
}

}  // namespace
