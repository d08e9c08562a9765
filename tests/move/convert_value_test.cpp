// taviConvert by value: widening, saturating narrowing, signed to unsigned,
// and single precision to integers under every rounding mode.
#include <gtest/gtest.h>

#include <immintrin.h>

#include <cmath>
#include <limits>
#include <vector>

#include "move/convert_harness.h"
#include "support/ref_convert.h"
#include "tavi.h"

namespace {

using namespace convtest;
using tavref::Round;

template <class S, class D>
using Fn = TavStatus (*)(const S*, int, D*, int, TaviSize);
template <class D>
using FnRnd = TavStatus (*)(const Tav32f*, int, D*, int, TaviSize, TavRoundMode);

// The four layouts of one pair, each checked by a sweep and, for sources of
// up to 16 bits, over the whole source range.
template <class S, class D>
void check_by_value(Fn<S, D> c1, Fn<S, D> c3, Fn<S, D> c4, Fn<S, D> ac4) {
    const struct {
        Fn<S, D> fn;
        int ch;
        bool ac4;
    } layouts[] = {{c1, 1, false}, {c3, 3, false}, {c4, 4, false}, {ac4, 4, true}};
    for (const auto& l : layouts) {
        if (!l.fn) continue;
        Case<S, D> c{l.ch, l.ac4, l.fn, [](S x) { return tavref::by_value<S, D>(x); }, full_range<S>()};
        SCOPED_TRACE(l.ch + (l.ac4 ? 10 : 0));
        sweep(c);
        if constexpr (sizeof(S) <= 2) exhaustive(c);
    }
}

TEST(ConvertValue, WideningAndSaturation) {
    check_by_value<Tav16s, Tav32f>(taviConvert_16s32f_C1R, taviConvert_16s32f_C3R, taviConvert_16s32f_C4R, taviConvert_16s32f_AC4R);
    check_by_value<Tav16s, Tav32s>(taviConvert_16s32s_C1R, taviConvert_16s32s_C3R, taviConvert_16s32s_C4R, taviConvert_16s32s_AC4R);
    check_by_value<Tav16s, Tav8u>(taviConvert_16s8u_C1R, taviConvert_16s8u_C3R, taviConvert_16s8u_C4R, taviConvert_16s8u_AC4R);
    check_by_value<Tav16u, Tav32f>(taviConvert_16u32f_C1R, taviConvert_16u32f_C3R, taviConvert_16u32f_C4R, taviConvert_16u32f_AC4R);
    check_by_value<Tav16u, Tav32s>(taviConvert_16u32s_C1R, taviConvert_16u32s_C3R, taviConvert_16u32s_C4R, taviConvert_16u32s_AC4R);
    check_by_value<Tav16u, Tav8u>(taviConvert_16u8u_C1R, taviConvert_16u8u_C3R, taviConvert_16u8u_C4R, taviConvert_16u8u_AC4R);
    check_by_value<Tav32s, Tav8s>(taviConvert_32s8s_C1R, taviConvert_32s8s_C3R, taviConvert_32s8s_C4R, taviConvert_32s8s_AC4R);
    check_by_value<Tav32s, Tav8u>(taviConvert_32s8u_C1R, taviConvert_32s8u_C3R, taviConvert_32s8u_C4R, taviConvert_32s8u_AC4R);
    check_by_value<Tav8s, Tav32f>(taviConvert_8s32f_C1R, taviConvert_8s32f_C3R, taviConvert_8s32f_C4R, taviConvert_8s32f_AC4R);
    check_by_value<Tav8s, Tav32s>(taviConvert_8s32s_C1R, taviConvert_8s32s_C3R, taviConvert_8s32s_C4R, taviConvert_8s32s_AC4R);
    check_by_value<Tav8u, Tav16s>(taviConvert_8u16s_C1R, taviConvert_8u16s_C3R, taviConvert_8u16s_C4R, taviConvert_8u16s_AC4R);
    check_by_value<Tav8u, Tav16u>(taviConvert_8u16u_C1R, taviConvert_8u16u_C3R, taviConvert_8u16u_C4R, taviConvert_8u16u_AC4R);
    check_by_value<Tav8u, Tav32f>(taviConvert_8u32f_C1R, taviConvert_8u32f_C3R, taviConvert_8u32f_C4R, taviConvert_8u32f_AC4R);
    check_by_value<Tav8u, Tav32s>(taviConvert_8u32s_C1R, taviConvert_8u32s_C3R, taviConvert_8u32s_C4R, taviConvert_8u32s_AC4R);
    check_by_value<Tav16u, Tav32u>(taviConvert_16u32u_C1R, nullptr, nullptr, nullptr);
    check_by_value<Tav32s, Tav32f>(taviConvert_32s32f_C1R, nullptr, nullptr, nullptr);
    check_by_value<Tav32u, Tav32f>(taviConvert_32u32f_C1R, nullptr, nullptr, nullptr);
    check_by_value<Tav8s, Tav16s>(taviConvert_8s16s_C1R, nullptr, nullptr, nullptr);
    check_by_value<Tav8s, Tav64f>(taviConvert_8s64f_C1R, nullptr, nullptr, nullptr);
}

template <class S, class D>
void check_to_unsigned(Fn<S, D> fn) {
    Case<S, D> c{1, false, fn, [](S x) { return static_cast<D>(x < 0 ? 0 : x); }, full_range<S>()};
    sweep(c);
    if constexpr (sizeof(S) <= 2) exhaustive(c);
    else values(c, {std::numeric_limits<S>::lowest(), -1, 0, 1, std::numeric_limits<S>::max()});
}

TEST(ConvertValue, SignedToUnsignedClampsNegativesOnly) {
    check_to_unsigned<Tav16s, Tav16u>(taviConvert_16s16u_C1Rs);
    check_to_unsigned<Tav16s, Tav32u>(taviConvert_16s32u_C1Rs);
    check_to_unsigned<Tav32s, Tav32u>(taviConvert_32s32u_C1Rs);
    check_to_unsigned<Tav8s, Tav16u>(taviConvert_8s16u_C1Rs);
    check_to_unsigned<Tav8s, Tav32u>(taviConvert_8s32u_C1Rs);
    check_to_unsigned<Tav8s, Tav8u>(taviConvert_8s8u_C1Rs);
}

// Halves around every interesting integer, the limits of the small types,
// and the values that are not numbers.
std::vector<float> float_specials() {
    std::vector<float> v = {0.0f, -0.0f, 0.49999997f, -0.49999997f, 1e-40f, -1e-40f, 8388609.0f, -8388609.0f,
                            1e10f, -1e10f, 2147483520.0f, 2147483648.0f, -2147483648.0f, 4294967040.0f,
                            4294967296.0f, std::numeric_limits<float>::infinity(),
                            -std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN(),
                            -std::numeric_limits<float>::quiet_NaN()};
    for (float k : {0.f, 1.f, 2.f, 3.f, 126.f, 127.f, 128.f, 254.f, 255.f, 256.f, 32766.f, 32767.f, 32768.f, 65534.f,
                    65535.f, 65536.f, 4194303.f}) {
        v.push_back(k + 0.5f);
        v.push_back(-k - 0.5f);
        v.push_back(k + 0.25f);
        v.push_back(-k - 0.75f);
        v.push_back(k);
        v.push_back(-k);
    }
    return v;
}

constexpr TavRoundMode kModes[] = {tavRndZero, tavRndNear, tavRndFinancial};
Round round_of(TavRoundMode m) { return m == tavRndZero ? Round::Zero : m == tavRndNear ? Round::Near : Round::Fin; }

template <class D>
void check_from_f32(FnRnd<D> c1, FnRnd<D> c3, FnRnd<D> c4, FnRnd<D> ac4) {
    const struct {
        FnRnd<D> fn;
        int ch;
        bool ac4;
    } layouts[] = {{c1, 1, false}, {c3, 3, false}, {c4, 4, false}, {ac4, 4, true}};
    const double lo = std::numeric_limits<D>::lowest(), hi = std::numeric_limits<D>::max();
    for (const auto& l : layouts)
        for (TavRoundMode m : kModes) {
            SCOPED_TRACE(::testing::Message() << "channels " << l.ch << " mode " << m);
            auto fn = l.fn;
            Case<Tav32f, D> c{l.ch, l.ac4,
                              [fn, m](const Tav32f* s, int ss, D* d, int ds, TaviSize r) { return fn(s, ss, d, ds, r, m); },
                              [m](Tav32f x) { return tavref::by_value<Tav32f, D>(x, round_of(m)); },
                              uniform<Tav32f>(lo - 40, hi + 40)};
            sweep(c);
            values(c, float_specials());
        }
}

TEST(ConvertValue, FloatToIntegerEveryMode) {
    check_from_f32<Tav16s>(taviConvert_32f16s_C1R, taviConvert_32f16s_C3R, taviConvert_32f16s_C4R, taviConvert_32f16s_AC4R);
    check_from_f32<Tav16u>(taviConvert_32f16u_C1R, taviConvert_32f16u_C3R, taviConvert_32f16u_C4R, taviConvert_32f16u_AC4R);
    check_from_f32<Tav8s>(taviConvert_32f8s_C1R, taviConvert_32f8s_C3R, taviConvert_32f8s_C4R, taviConvert_32f8s_AC4R);
    check_from_f32<Tav8u>(taviConvert_32f8u_C1R, taviConvert_32f8u_C3R, taviConvert_32f8u_C4R, taviConvert_32f8u_AC4R);
}

TEST(ConvertValue, FloatToIntegerNamedExamples) {
    struct Row {
        float x;
        TavRoundMode mode;
        Tav8u expect;
    } rows[] = {{1.5f, tavRndNear, 2},   {1.5f, tavRndZero, 1},      {2.5f, tavRndNear, 2},
                {2.5f, tavRndFinancial, 3}, {300.0f, tavRndNear, 255}, {-1.0f, tavRndNear, 0},
                {-0.5f, tavRndFinancial, 0}, {0.5f, tavRndFinancial, 1}, {254.5f, tavRndZero, 254}};
    for (const Row& r : rows) {
        Tav8u out = 77;
        ASSERT_EQ(taviConvert_32f8u_C1R(&r.x, 4, &out, 1, {1, 1}, r.mode), tavOk);
        EXPECT_EQ(out, r.expect) << r.x << " mode " << r.mode;
    }
    const Tav8s m1 = -1;
    Tav8u out = 9;
    ASSERT_EQ(taviConvert_8s8u_C1Rs(&m1, 1, &out, 1, {1, 1}), tavOk);
    EXPECT_EQ(out, 0);
}

// The caller's rounding control neither changes the result nor is changed.
TEST(ConvertValue, RoundingControlIsTheCallersBeforeAndAfter) {
    const float src[4] = {2.5f, 3.5f, -2.5f, 0.7f};
    const unsigned saved = _mm_getcsr();
    for (unsigned callerMode : {_MM_ROUND_DOWN, _MM_ROUND_UP, _MM_ROUND_TOWARD_ZERO, _MM_ROUND_NEAREST}) {
        _mm_setcsr((saved & ~_MM_ROUND_MASK) | callerMode);
        Tav16s near[4], fin[4], zero[4];
        taviConvert_32f16s_C1R(src, 16, near, 8, {4, 1}, tavRndNear);
        taviConvert_32f16s_C1R(src, 16, fin, 8, {4, 1}, tavRndFinancial);
        taviConvert_32f16s_C1R(src, 16, zero, 8, {4, 1}, tavRndZero);
        const unsigned after = _mm_getcsr() & _MM_ROUND_MASK;
        _mm_setcsr(saved);
        EXPECT_EQ(after, callerMode);
        EXPECT_EQ(std::vector<int>(near, near + 4), (std::vector<int>{2, 4, -2, 1}));
        EXPECT_EQ(std::vector<int>(fin, fin + 4), (std::vector<int>{3, 4, -3, 1}));
        EXPECT_EQ(std::vector<int>(zero, zero + 4), (std::vector<int>{2, 3, -2, 0}));
    }
}

// Checks in order: pointers, size, steps; nothing written on failure.
TEST(ConvertValue, StatusesInCheckOrder) {
    struct Row {
        bool nullSrc, nullDst;
        int width, height, srcStep, dstStep;
        TavStatus expect;
    } rows[] = {
        {true, false, 4, 2, 16, 64, tavErrNullPtr}, {false, true, 4, 2, 16, 64, tavErrNullPtr},
        {true, false, 0, 2, 0, 0, tavErrNullPtr},   {false, false, 0, 2, 16, 64, tavErrSize},
        {false, false, 4, -1, 16, 64, tavErrSize},  {false, false, 0, 2, 0, 0, tavErrSize},
        {false, false, 4, 2, 0, 64, tavErrStep},    {false, false, 4, 2, 16, -4, tavErrStep},
        {false, false, 4, 2, 16, 64, tavOk},
    };
    for (const Row& r : rows) {
        Image<Tav8u> src(16, 2);
        Image<Tav32f> dst(16, 2);
        const auto before = dst.snapshot();
        const TavStatus st = taviConvert_8u32f_C4R(r.nullSrc ? nullptr : src.ptr(), r.srcStep,
                                                   r.nullDst ? nullptr : dst.ptr(), r.dstStep, {r.width, r.height});
        EXPECT_EQ(st, r.expect);
        if (st != tavOk) {
            EXPECT_TRUE(tavtest::same_bytes(dst, before));
        }
        const TavStatus st2 = taviConvert_32f8u_C1R(r.nullDst ? nullptr : dst.ptr(), r.dstStep,
                                                    r.nullSrc ? nullptr : src.ptr(), r.srcStep, {r.width, r.height},
                                                    tavRndNear);
        EXPECT_EQ(st2, r.expect);
    }
}

}  // namespace
