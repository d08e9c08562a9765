// Unary math: every member against the scalar references over widths that
// reach each peel and tail, padded and odd steps, every layout, in place and
// out of place, on the scale factors that select each kernel path; and the
// order of the argument checks.
#include <gtest/gtest.h>

#include <climits>

#include "arith/unary_members.h"

namespace tavtest::unary {
namespace {

// Scale factors that reach every path of a member (the value tests cover
// every factor one by one on the whole input range).
std::vector<int> sweep_factors(const Member& m) {
    if (!m.scaled) return {0};
    const bool b8 = m.ty == Ty::U8;
    switch (m.fam) {
        case Fam::Sqr: return {0, 1, 3, -2, 40, -20};
        case Fam::Sqrt: return b8 ? std::vector<int>{0, 2, -4, -6, -7, -9, 6} : std::vector<int>{0, 3, -3, -16, 12};
        case Fam::Ln: return b8 ? std::vector<int>{0, 3, -4, -10, 5} : std::vector<int>{0, -5, 3, -20, 8};
        case Fam::Exp: return b8 ? std::vector<int>{0, -7, -9, 12, 3} : std::vector<int>{0, 5, -5, 100};
        default: return {0};
    }
}

void sweep(Fam fam) {
    int count = 0;
    for (const Member& m : members()) {
        if (m.fam != fam) continue;
        ASSERT_NE(m.fn, nullptr) << m.name << " is not exported";
        ++count;
        with_type(m, [&](auto t) {
            using T = decltype(t);
            const auto pads = sweep_paddings(sizeof(T));
            const int pixel = m.channels * int(sizeof(T));
            for (int sf : sweep_factors(m)) {
                int k = 0;
                for (int w : sweep_widths(sizeof(T) * m.channels)) {
                    const int h = 1 + k % 3;
                    const int srcStep = w * pixel + pads[k % pads.size()];
                    const int dstStep = w * pixel + pads[(k + 1) % pads.size()];
                    run_case<T>(m, w, h, srcStep, dstStep, sf);
                    ++k;
                    if (::testing::Test::HasFailure()) return;
                }
            }
        });
    }
    EXPECT_GT(count, 0);
}

TEST(UnarySweep, Abs) { sweep(Fam::Abs); }
TEST(UnarySweep, Sqr) { sweep(Fam::Sqr); }
TEST(UnarySweep, Sqrt) { sweep(Fam::Sqrt); }
TEST(UnarySweep, Ln) { sweep(Fam::Ln); }
TEST(UnarySweep, Exp) { sweep(Fam::Exp); }

// Steps that are not whole elements: some members round them down, the rest
// walk exactly the bytes they are given.
TEST(UnarySteps, OddStepsRoundedOrTakenAsGiven) {
    for (const Member& m : members()) {
        with_type(m, [&](auto t) {
            using T = decltype(t);
            const int tight = 5 * m.channels * int(sizeof(T));
            for (int extra : {1, 2, 3, 5}) {
                if (extra >= int(sizeof(T)) && extra != 5) continue;
                run_case<T>(m, 5, 4, tight + extra, tight + (extra == 5 ? 1 : extra), m.scaled ? 1 : 0);
            }
            // A tight step walks whole rows; 16-bit rows two bytes too short
            // overlap but are still walked as given (after rounding).
        });
        if (::testing::Test::HasFailure()) return;
    }
}

// The check order is pointers, size, steps; the first failure is returned
// and nothing is written.
TEST(UnaryChecks, OrderAndNothingWritten) {
    struct Case {
        bool nullSrc, nullDst;
        int width, height, srcStep, dstStep;
        TavStatus expect;
    };
    const Case cases[] = {
        {true, false, 4, 2, 64, 64, tavErrNullPtr},  {false, true, 4, 2, 64, 64, tavErrNullPtr},
        {true, false, 0, 2, 64, 64, tavErrNullPtr},  {false, true, 4, 0, 0, 0, tavErrNullPtr},
        {false, false, 0, 2, 64, 64, tavErrSize},    {false, false, 4, 0, 64, 64, tavErrSize},
        {false, false, -1, 2, 0, 0, tavErrSize},     {false, false, 4, INT_MIN, 64, 64, tavErrSize},
        {false, false, 4, 2, 0, 64, tavErrStep},     {false, false, 4, 2, 64, -64, tavErrStep},
        {false, false, 4, 2, 64, 0, tavErrStep},     {false, false, 4, 2, INT_MIN, 64, tavErrStep},
    };
    for (const Member& m : members()) {
        with_type(m, [&](auto t) {
            using T = decltype(t);
            Image<T> src(64, 2, 256), dst(64, 2, 256);
            const auto before = dst.snapshot();
            for (const Case& c : cases) {
                if (m.inPlace && c.nullSrc) continue;  // one pointer only
                const int dstStep = m.inPlace ? c.srcStep : c.dstStep;
                if (m.inPlace && c.srcStep != c.dstStep && c.expect == tavErrStep && c.srcStep > 0) continue;
                const TavStatus st = invoke<T>(m, c.nullSrc ? nullptr : src.ptr(), c.srcStep, c.nullDst ? nullptr : dst.ptr(),
                                               dstStep, TaviSize{c.width, c.height}, 3);
                EXPECT_EQ(st, c.expect) << m.name << " width " << c.width << " height " << c.height << " steps " << c.srcStep
                                        << "/" << dstStep;
            }
            EXPECT_TRUE(same_bytes(dst, before)) << m.name;
        });
    }
}

}  // namespace
}  // namespace tavtest::unary
