// Unary math on 32f: accuracy of the vector log and exp over the whole float
// line, their special values and thresholds, and how row warnings make the
// status of a call.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "arith/unary_members.h"

namespace tavtest::unary {
namespace {

float from_bits(std::uint32_t b) {
    float f;
    std::memcpy(&f, &b, 4);
    return f;
}
std::uint32_t bits_of(float f) {
    std::uint32_t b;
    std::memcpy(&b, &f, 4);
    return b;
}

constexpr float kInf = std::numeric_limits<float>::infinity();

// Tolerance: 1 ulp against the double-precision result rounded to float.
// (An exhaustive run over every float, outside the suite, found no larger
// error.)
TEST(UnaryFloat, LnAndExpWithinOneUlpOverTheFloatLine) {
    std::vector<float> in, ln, ex;
    for (std::uint64_t b = 1; b < 0x7f800000u; b += 1543) in.push_back(from_bits(std::uint32_t(b)));
    const int n = int(in.size());
    std::vector<float> out(n), want(n);
    ASSERT_EQ(taviLn_32f_C1R(in.data(), n * 4, out.data(), n * 4, TaviSize{n, 1}), tavOk);
    for (int i = 0; i < n; ++i) want[i] = ref::ln32f(in[i]);
    EXPECT_TRUE(within_ulps(out.data(), want.data(), n, 1));

    in.clear();
    for (std::uint64_t b = 0; b <= 0xffffffffu; b += 2053) {
        const float x = from_bits(std::uint32_t(b));
        if (x > -103.9f && x < 88.72f) in.push_back(x);
    }
    const int m = int(in.size());
    out.resize(m);
    want.resize(m);
    ASSERT_EQ(taviExp_32f_C1R(in.data(), m * 4, out.data(), m * 4, TaviSize{m, 1}), in.back() < -87.33654f ? tavWarnUnderflow : tavOk);
    for (int i = 0; i < m; ++i) want[i] = ref::exp32f(in[i]);
    EXPECT_TRUE(within_ulps(out.data(), want.data(), m, 1));
}

struct Special {
    float in;
    float out;  // NaN: any not-a-number
    TavStatus status;
};

void check_specials(TavStatus (*fn)(const Tav32f*, int, Tav32f*, int, TaviSize), const char* name,
                    const std::vector<Special>& cases, bool exact) {
    for (const Special& c : cases) {
        // The value alone, and amid ordinary neighbours so that the vector
        // path with a special lane is taken too.
        for (int at : {0, 7, 16, 20}) {
            std::vector<float> row(21, 1.5f), out(21, 0.0f);
            row[at] = c.in;
            const TavStatus st = fn(row.data(), 84, out.data(), 84, TaviSize{21, 1});
            EXPECT_EQ(st, c.status) << name << "(" << c.in << ")";
            if (std::isnan(c.out)) {
                EXPECT_TRUE(std::isnan(out[at])) << name << "(" << c.in << ") gave " << out[at];
            } else if (exact) {
                EXPECT_EQ(bits_of(out[at]), bits_of(c.out)) << name << "(" << c.in << ") gave " << out[at];
            } else {
                EXPECT_TRUE(within_ulps(&out[at], &c.out, 1, 1)) << name << "(" << c.in << ")";
            }
        }
    }
}

TEST(UnaryFloat, LnSpecialValues) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    check_specials(taviLn_32f_C1R, "ln",
                   {
                       {0.0f, -kInf, tavWarnLnZeroArg},
                       {-0.0f, -kInf, tavWarnLnZeroArg},
                       {-1.0f, nan, tavWarnLnNegArg},
                       {-kInf, nan, tavWarnLnNegArg},
                       {-1e-40f, nan, tavWarnLnNegArg},
                       {kInf, kInf, tavOk},
                       {nan, nan, tavOk},
                       {1.0f, 0.0f, tavOk},
                   },
                   true);
    check_specials(taviLn_32f_C1R, "ln",
                   {
                       {from_bits(1), ref::ln32f(from_bits(1)), tavOk},  // the smallest denormal
                       {from_bits(0x007fffff), ref::ln32f(from_bits(0x007fffff)), tavOk},
                       {from_bits(0x00012345), ref::ln32f(from_bits(0x00012345)), tavOk},
                       {std::numeric_limits<float>::min(), ref::ln32f(std::numeric_limits<float>::min()), tavOk},
                       {std::numeric_limits<float>::max(), ref::ln32f(std::numeric_limits<float>::max()), tavOk},
                       {std::nextafter(1.0f, 0.0f), ref::ln32f(std::nextafter(1.0f, 0.0f)), tavOk},
                       {std::nextafter(1.0f, 2.0f), ref::ln32f(std::nextafter(1.0f, 2.0f)), tavOk},
                   },
                   false);
}

TEST(UnaryFloat, ExpThresholdsAndSpecialValues) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float over = 88.72283f, zero = -103.97208f, denorm = -87.33654f;
    check_specials(taviExp_32f_C1R, "exp",
                   {
                       {std::nextafter(over, kInf), kInf, tavWarnOverflow},
                       {1000.0f, kInf, tavWarnOverflow},
                       {kInf, kInf, tavOk},
                       {-kInf, 0.0f, tavOk},
                       {nan, nan, tavOk},
                       {std::nextafter(zero, -kInf), 0.0f, tavWarnUnderflow},
                       {-1000.0f, 0.0f, tavWarnUnderflow},
                       {zero, from_bits(1), tavWarnUnderflow},  // rounds up to the smallest denormal
                       {0.0f, 1.0f, tavOk},
                       {-0.0f, 1.0f, tavOk},
                   },
                   true);
    check_specials(taviExp_32f_C1R, "exp",
                   {
                       {over, ref::exp32f(over), tavOk},
                       {denorm, ref::exp32f(denorm), tavOk},
                       {std::nextafter(denorm, -kInf), ref::exp32f(std::nextafter(denorm, -kInf)), tavWarnUnderflow},
                       {-95.5f, ref::exp32f(-95.5f), tavWarnUnderflow},
                       {-103.5f, ref::exp32f(-103.5f), tavWarnUnderflow},
                   },
                   false);
    EXPECT_TRUE(std::isfinite(ref::exp32f(over)));
    EXPECT_LT(ref::exp32f(std::nextafter(denorm, -kInf)), std::numeric_limits<float>::min());
}

TEST(UnaryFloat, AbsClearsTheSignBitOnly) {
    const std::uint32_t in[] = {0xffc12345u, 0x80000000u, 0xff800000u, 0x80000001u, 0x7fa00001u};
    std::uint32_t out[5];
    ASSERT_EQ(taviAbs_32f_C1R(reinterpret_cast<const float*>(in), 20, reinterpret_cast<float*>(out), 20, TaviSize{5, 1}), tavOk);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(out[i], in[i] & 0x7fffffffu) << i;
}

// Statuses over rows. Images of 3 rows by 40, ordinary values but for the
// listed (row, column, value) entries.
struct RowCase {
    const char* name;
    std::vector<std::tuple<int, int, float>> put;
    TavStatus expect;
};

TEST(UnaryFloat, RowStatusesMakeTheCallStatus) {
    const RowCase cases[] = {
        {"taviSqrt_32f_C1R", {{1, 30, -1.0f}}, tavWarnSqrtNegArg},
        {"taviSqrt_32f_C1R", {{2, 39, -0.0f}, {0, 0, std::numeric_limits<float>::quiet_NaN()}}, tavOk},
        {"taviSqrt_32f_C3R", {{0, 100, -kInf}}, tavWarnSqrtNegArg},
        {"taviLn_32f_C1R", {{0, 3, 0.0f}, {0, 4, -1.0f}}, tavWarnLnZeroArg},
        {"taviLn_32f_C1R", {{0, 3, -1.0f}, {2, 4, 0.0f}}, tavWarnLnZeroArg},
        {"taviLn_32f_C1R", {{1, 3, -1.0f}}, tavWarnLnNegArg},
        {"taviExp_32f_C1R", {{1, 17, 100.0f}}, tavOk},
        {"taviExp_32f_C1R", {{0, 17, -100.0f}, {2, 17, 100.0f}}, tavWarnOverflow},
        {"taviExp_32f_C1R", {{2, 5, -90.0f}, {2, 6, 100.0f}}, tavWarnUnderflow},
        {"taviExp_32f_C1R", {{2, 25, -90.0f}, {2, 6, 100.0f}}, tavWarnOverflow},
        {"taviExp_32f_C3R", {{2, 119, -200.0f}}, tavWarnUnderflow},
    };
    for (const RowCase& c : cases) {
        const Member* mp = nullptr;
        for (const Member& m : members())
            if (m.name == c.name) mp = &m;
        ASSERT_NE(mp, nullptr) << c.name;
        Image<float> src(40 * mp->channels, 3), dst(40 * mp->channels, 3);
        src.fill(0.5, 2.0);
        for (auto [y, x, v] : c.put) src.at(x, y) = v;
        const auto before = dst.snapshot();
        Expected e = expect<float>(*mp, src.bytes(), src.step(), before, dst.step(), TaviSize{40, 3}, 0);
        EXPECT_EQ(e.status, c.expect) << c.name << " (the reference)";
        EXPECT_EQ(invoke<float>(*mp, src.ptr(), src.step(), dst.ptr(), dst.step(), TaviSize{40, 3}, 0), c.expect) << c.name;
        accept_within_one_ulp(*mp, dst.bytes(), e);
        EXPECT_TRUE(same_bytes(dst, e.bytes)) << c.name;
    }
}

}  // namespace
}  // namespace tavtest::unary
