// Conversions large enough to pass their streaming gates. This suite runs
// with the real core module and under doubles that report no cache, a tiny
// cache or a failure: every result must be the same exact one, and calls
// below a gate must not ask for the cache size at all.
#include <gtest/gtest.h>

#include "move/convert_harness.h"
#include "support/core_double.h"
#include "support/ref_convert.h"
#include "tavi.h"

namespace {

using namespace convtest;
using tavref::Round;

// Tight rows (one merged row), padded rows, and a destination off its
// 64-byte alignment by one element, so the streaming peel runs.
const Geometry kShapes[] = {{0, 0, 0, 0, 0, 0}, {0, 0, 1, 1, 64, 64}, {0, 0, 0, 3, 0, 12}};

template <class S, class D>
void check_large(const Case<S, D>& c, int w, int h) {
    for (Geometry g : kShapes) {
        g.width = w;
        g.height = h;
        ASSERT_TRUE(run_one(c, g));
    }
}

template <class S, class D>
Case<S, D> value_case(Unary<S, D> fn, int channels = 1) {
    return {channels, false, fn, [](S x) { return tavref::by_value<S, D>(x); }, full_range<S>()};
}

TEST(ConvertGates, WideningAboveTheTrafficGates) {
    check_large(value_case<Tav8u, Tav32f>(taviConvert_8u32f_C1R), 512, 256);
    check_large(value_case<Tav8u, Tav16s>(taviConvert_8u16s_C1R), 640, 300);
    check_large(value_case<Tav8u, Tav16u>(taviConvert_8u16u_C1R), 640, 300);
    check_large(value_case<Tav16s, Tav32s>(taviConvert_16s32s_C1R), 512, 352);
    check_large(value_case<Tav8s, Tav32s>(taviConvert_8s32s_C1R), 512, 256);
    check_large(value_case<Tav16u, Tav32f>(taviConvert_16u32f_C3R, 3), 300, 200);
    check_large(value_case<Tav32s, Tav8u>(taviConvert_32s8u_C4R, 4), 200, 200);
}

TEST(ConvertGates, FloatNarrowingByTheTileDecision) {
    for (TavRoundMode m : {tavRndZero, tavRndNear, tavRndFinancial}) {
        const Round r = m == tavRndZero ? Round::Zero : m == tavRndNear ? Round::Near : Round::Fin;
        Case<Tav32f, Tav8u> c{1, false,
                              [m](const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize sz) {
                                  return taviConvert_32f8u_C1R(s, ss, d, ds, sz, m);
                              },
                              [r](Tav32f x) { return tavref::by_value<Tav32f, Tav8u>(x, r); },
                              uniform<Tav32f>(-20, 280)};
        check_large(c, 700, 120);
        Case<Tav32f, Tav16s> s{1, false,
                               [m](const Tav32f* a, int as, Tav16s* d, int ds, TaviSize sz) {
                                   return taviConvert_32f16s_C1RSfs(a, as, d, ds, sz, m, 2);
                               },
                               [r](Tav32f x) { return tavref::scaled_float<Tav32f, Tav16s>(x, 2, r); },
                               uniform<Tav32f>(-140000, 140000)};
        check_large(s, 500, 100);
    }
    // Above the real machine's largest cache as well: streams with every answer
    // that allows it.
    Case<Tav32f, Tav8u> big{1, false,
                            [](const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize sz) {
                                return taviConvert_32f8u_C1R(s, ss, d, ds, sz, tavRndNear);
                            },
                            [](Tav32f x) { return tavref::by_value<Tav32f, Tav8u>(x, Round::Near); },
                            uniform<Tav32f>(-20, 280)};
    ASSERT_TRUE(run_one(big, Geometry{4096, 2048, 0, 0, 0, 0}));
}

TEST(ConvertGates, ScaleByPixelCountAndScaleCByTile) {
    Case<Tav8u, Tav16u> up{1, false, taviScale_8u16u_C1R, [](Tav8u x) { return Tav16u(tavref::u8_to_16u(x)); },
                           full_range<Tav8u>()};
    check_large(up, 1200, 1200);
    Case<Tav32f, Tav8u> down{1, false,
                             [](const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize sz) {
                                 return taviScale_32f8u_C1R(s, ss, d, ds, sz, -1.0f, 1.0f);
                             },
                             [](Tav32f x) { return tavref::range_to_8u(x, -1.0f, 1.0f); }, uniform<Tav32f>(-1.2, 1.2)};
    check_large(down, 1024, 820);
    Case<Tav16s, Tav8u> affine{1, false,
                               [](const Tav16s* s, int ss, Tav8u* d, int ds, TaviSize sz) {
                                   return taviScaleC_16s8u_C1R(s, ss, 0.01, 100.0, d, ds, sz, tavAlgHintAccurate);
                               },
                               [](Tav16s x) { return tavref::affine<Tav16s, Tav8u>(x, 0.01, 100.0); },
                               full_range<Tav16s>()};
    check_large(affine, 400, 300);
}

// Small work never reaches the core module; work above a traffic gate asks.
TEST(ConvertGates, NoCacheQueryBelowTheGates) {
    const long long before = tavtest::core_cache_queries();
    if (before < 0) GTEST_SKIP() << "the real core module does not count queries";
    Image<Tav8u> src(256, 410);
    Image<Tav32f> dst(256, 410);
    // 256 x 400 pixels of 5 bytes is 512000, not above 0x80000.
    ASSERT_EQ(taviConvert_8u32f_C1R(src.ptr(), src.step(), dst.ptr(), dst.step(), {256, 400}), tavOk);
    ASSERT_EQ(taviConvert_8u32f_C1R(src.ptr(), src.step(), dst.ptr(), dst.step(), {256, 300}), tavOk);
    ASSERT_EQ(taviScale_8u32f_C1R(src.ptr(), src.step(), dst.ptr(), dst.step(), {256, 400}, 0.0f, 1.0f), tavOk);
    EXPECT_EQ(tavtest::core_cache_queries(), before);
    // 16s to 32s has the higher gate: 0x100000 bytes at 6 a pixel.
    Image<Tav16s> s16(256, 700);
    Image<Tav32s> d32(256, 700);
    ASSERT_EQ(taviConvert_16s32s_C1R(s16.ptr(), s16.step(), d32.ptr(), d32.step(), {256, 600}), tavOk);
    EXPECT_EQ(tavtest::core_cache_queries(), before);
    ASSERT_EQ(taviConvert_8u32f_C1R(src.ptr(), src.step(), dst.ptr(), dst.step(), {256, 410}), tavOk);
    EXPECT_EQ(tavtest::core_cache_queries(), before + 1);
    ASSERT_EQ(taviConvert_16s32s_C1R(s16.ptr(), s16.step(), d32.ptr(), d32.step(), {256, 700}), tavOk);
    EXPECT_EQ(tavtest::core_cache_queries(), before + 2);
}

}  // namespace
