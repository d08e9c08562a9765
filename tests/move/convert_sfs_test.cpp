// taviConvert with a power-of-two scale: the scale rule on integer sources
// under every rounding mode and factor range, floating sources scaled in
// their own precision, the in-place member, and the check orders.
#include <gtest/gtest.h>

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
using FnSfs = TavStatus (*)(const S*, int, D*, int, TaviSize, TavRoundMode, int);

constexpr TavRoundMode kModes[] = {tavRndZero, tavRndNear, tavRndFinancial};
Round round_of(TavRoundMode m) { return m == tavRndZero ? Round::Zero : m == tavRndNear ? Round::Near : Round::Fin; }

template <class S, class D>
Case<S, D> sfs_case(FnSfs<S, D> fn, TavRoundMode m, int f) {
    Case<S, D> c;
    c.fn = [fn, m, f](const S* s, int ss, D* d, int ds, TaviSize r) { return fn(s, ss, d, ds, r, m, f); };
    if constexpr (std::is_floating_point_v<S>)
        c.ref = [m, f](S x) { return tavref::scaled_float<S, D>(x, f, round_of(m)); };
    else
        c.ref = [m, f](S x) { return tavref::scaled_int<D>(static_cast<int64_t>(x), f, round_of(m)); };
    c.gen = full_range<S>();
    return c;
}

// Factors through every path: none, right shifts up to and past the width
// of the source, left shifts up to and past saturation of every value.
template <class S, class D>
void check_int_sfs(FnSfs<S, D> fn) {
    const std::vector<int> factors = sizeof(S) == 4 ? std::vector<int>{-40, -32, -31, -17, -1, 0, 1, 2, 5, 16, 31, 32, 33, 34, 60}
                                                    : std::vector<int>{-20, -16, -15, -8, -1, 0, 1, 2, 3, 7, 8, 15, 16, 17, 18, 30};
    for (TavRoundMode m : kModes)
        for (int f : factors) {
            SCOPED_TRACE(::testing::Message() << "mode " << m << " factor " << f);
            Case<S, D> c = sfs_case(fn, m, f);
            if constexpr (sizeof(S) <= 2) {
                exhaustive(c);
            } else {
                values(c, {std::numeric_limits<S>::lowest(), std::numeric_limits<S>::max(), S(0), S(1), S(2), S(3),
                           S(-1), S(-2), S(-3), S(6), S(-6), S(65535), S(65536), S(98304), S(-98304), S(0x7fff8000)});
                c.gen = full_range<S>();
                ASSERT_TRUE(run_one(c, Geometry{157, 3, 2, 1, 4, 0}));
            }
        }
    sweep(sfs_case(fn, tavRndNear, 3));
}

TEST(ConvertSfs, IntegerSourcesFollowTheScaleRule) {
    check_int_sfs<Tav16s, Tav8s>(taviConvert_16s8s_C1RSfs);
    check_int_sfs<Tav16u, Tav16s>(taviConvert_16u16s_C1RSfs);
    check_int_sfs<Tav16u, Tav8s>(taviConvert_16u8s_C1RSfs);
    check_int_sfs<Tav32s, Tav16s>(taviConvert_32s16s_C1RSfs);
    check_int_sfs<Tav32s, Tav16u>(taviConvert_32s16u_C1RSfs);
    check_int_sfs<Tav32u, Tav16s>(taviConvert_32u16s_C1RSfs);
    check_int_sfs<Tav32u, Tav16u>(taviConvert_32u16u_C1RSfs);
    check_int_sfs<Tav32u, Tav32s>(taviConvert_32u32s_C1RSfs);
    check_int_sfs<Tav32u, Tav8s>(taviConvert_32u8s_C1RSfs);
    check_int_sfs<Tav32u, Tav8u>(taviConvert_32u8u_C1RSfs);
}

// The 8u source has no rounding argument: ties go to even.
TEST(ConvertSfs, Unsigned8ToSigned8RoundsTiesToEven) {
    for (int f : {-9, -8, -1, 0, 1, 2, 7, 8, 9, 40}) {
        SCOPED_TRACE(f);
        Case<Tav8u, Tav8s> c;
        c.fn = [f](const Tav8u* s, int ss, Tav8s* d, int ds, TaviSize r) {
            return taviConvert_8u8s_C1RSfs(s, ss, d, ds, r, f);
        };
        c.ref = [f](Tav8u x) { return tavref::scaled_int<Tav8s>(x, f, Round::Near); };
        exhaustive(c);
    }
    const Tav8u src[4] = {3, 5, 255, 1};
    Tav8s dst[4];
    ASSERT_EQ(taviConvert_8u8s_C1RSfs(src, 4, dst, 4, {4, 1}, 1), tavOk);
    EXPECT_EQ(std::vector<int>(dst, dst + 4), (std::vector<int>{2, 2, 127, 0}));
}

std::vector<float> scaled_specials() {
    std::vector<float> v = {0.0f, -0.0f, 1.0f, -1.0f, 0.5f, -0.5f, 1.5f, -1.5f, 2.5f, -2.5f, 3.0f, 1e-45f, 1e30f,
                            -1e30f, 2147483648.0f, 4294967296.0f, std::numeric_limits<float>::infinity(),
                            -std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()};
    for (int k = 0; k < 40; ++k) v.push_back(tavtest::random_value<float>(-70000.0, 70000.0));
    return v;
}

// Factors that keep the scale exact, that overflow the source precision, and
// that underflow it.
template <class S, class D>
void check_float_sfs(FnSfs<S, D> fn) {
    for (TavRoundMode m : kModes)
        for (int f : {-200, -20, -1, 0, 1, 2, 10, 200}) {
            SCOPED_TRACE(::testing::Message() << "mode " << m << " factor " << f);
            Case<S, D> c = sfs_case(fn, m, f);
            std::vector<S> v;
            for (float x : scaled_specials()) v.push_back(static_cast<S>(x));
            values(c, v);
            const double span = std::ldexp(double(std::numeric_limits<D>::max()) + 8, f);
            c.gen = uniform<S>(-span, span);
            ASSERT_TRUE(run_one(c, Geometry{133, 2, 1, 3, 8, 0}));
        }
    sweep(sfs_case(fn, tavRndFinancial, 2));
}

TEST(ConvertSfs, FloatingSourcesScaleInTheirOwnPrecision) {
    check_float_sfs<Tav32f, Tav16s>(taviConvert_32f16s_C1RSfs);
    check_float_sfs<Tav32f, Tav16u>(taviConvert_32f16u_C1RSfs);
    check_float_sfs<Tav32f, Tav32s>(taviConvert_32f32s_C1RSfs);
    check_float_sfs<Tav32f, Tav32u>(taviConvert_32f32u_C1RSfs);
    check_float_sfs<Tav32f, Tav8s>(taviConvert_32f8s_C1RSfs);
    check_float_sfs<Tav32f, Tav8u>(taviConvert_32f8u_C1RSfs);
    check_float_sfs<Tav64f, Tav16s>(taviConvert_64f16s_C1RSfs);
    check_float_sfs<Tav64f, Tav16u>(taviConvert_64f16u_C1RSfs);
    check_float_sfs<Tav64f, Tav8s>(taviConvert_64f8s_C1RSfs);
    check_float_sfs<Tav64f, Tav8u>(taviConvert_64f8u_C1RSfs);
}

TEST(ConvertSfs, InPlaceFloatToUnsigned) {
    for (TavRoundMode m : kModes)
        for (int f : {-3, 0, 4}) {
            for (int w : tavtest::sweep_widths(4)) {
                const int step = w * 4 + (w % 3) * 4;
                Image<Tav32f> img(w, 3, step);
                img.fill(-100.0, 5e9);
                for (int x = 0; x < w; x += 7) img.row(1)[x] = float(x / 7) + 0.5f;
                const auto expected = tavtest::expected_from(img, [&](int x, int y, Tav32f& v) {
                    const Tav32u u = tavref::scaled_float<Tav32f, Tav32u>(img.row(y)[x], f, round_of(m));
                    return std::memcpy(&v, &u, 4), true;
                });
                ASSERT_EQ(taviConvert_32f32u_C1IRSfs(img.ptr(), step, {w, 3}, m, f), tavOk);
                ASSERT_TRUE(tavtest::same_bytes(img, expected)) << "width " << w << " mode " << m << " f " << f;
            }
        }
}

// Floating sources check no step: a negative step walks the rows upward.
TEST(ConvertSfs, FloatSourcesWalkAnyStep) {
    Image<Tav32f> src(40, 3);
    src.fill(-300.0, 300.0);
    Image<Tav16s> dst(40, 3);
    ASSERT_EQ(taviConvert_32f16s_C1RSfs(src.row(2), -src.step(), dst.row(2), -dst.step(), {40, 3}, tavRndNear, 0),
              tavOk);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 40; ++x)
            ASSERT_EQ(dst.row(y)[x], (tavref::scaled_float<Tav32f, Tav16s>(src.row(y)[x], 0, Round::Near)));
    EXPECT_EQ(taviConvert_64f8u_C1RSfs(reinterpret_cast<const Tav64f*>(src.ptr()), 0, reinterpret_cast<Tav8u*>(dst.ptr()),
                                       0, {2, 2}, tavRndNear, 0),
              tavOk);
}

TEST(ConvertSfs, StatusesInCheckOrder) {
    Image<Tav32u> src(8, 2);
    Image<Tav16u> dst(8, 2);
    const auto before = dst.snapshot();
    struct Row {
        const Tav32u* s;
        Tav16u* d;
        int w, h, ss, ds;
        TavStatus integerSource, floatSource;
    } rows[] = {
        {nullptr, dst.ptr(), 8, 2, 32, 16, tavErrNullPtr, tavErrNullPtr},
        {src.ptr(), nullptr, 0, 2, 32, 16, tavErrNullPtr, tavErrNullPtr},
        {src.ptr(), dst.ptr(), 8, 0, 0, 16, tavErrSize, tavErrSize},
        {src.ptr(), dst.ptr(), -1, 2, 32, 16, tavErrSize, tavErrSize},
        {src.ptr(), dst.ptr(), 8, 2, 0, 16, tavErrStep, tavOk},
        {src.ptr(), dst.ptr(), 8, 2, 32, -16, tavErrStep, tavOk},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(taviConvert_32u16u_C1RSfs(r.s, r.ss, r.d, r.ds, {r.w, r.h}, tavRndNear, 1), r.integerSource);
        if (r.integerSource != tavOk) {
            EXPECT_TRUE(tavtest::same_bytes(dst, before));
        }
        Image<Tav16u> fdst(8, 2);
        const Tav16u* keep = r.d;
        EXPECT_EQ(taviConvert_32f16u_C1RSfs(reinterpret_cast<const Tav32f*>(r.s), r.ss, keep ? fdst.ptr() : nullptr,
                                            r.ds < 0 ? 16 : r.ds, {r.w, r.h}, tavRndNear, 1),
                  r.floatSource);
    }
    float one = 1.0f;
    EXPECT_EQ(taviConvert_32f32u_C1IRSfs(nullptr, 4, {1, 1}, tavRndNear, 0), tavErrNullPtr);
    EXPECT_EQ(taviConvert_32f32u_C1IRSfs(&one, 4, {0, 1}, tavRndNear, 0), tavErrSize);
}

}  // namespace
