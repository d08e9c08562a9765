// Unary math on integers: every input value of the type for many scale
// factors against the references (which reaches every entry of the 8u
// tables), and the special cases the families name.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "arith/unary_members.h"

namespace tavtest::unary {
namespace {

const Member& member(const std::string& name) {
    for (const Member& m : members())
        if (m.name == name) return m;
    ADD_FAILURE() << name << " is not a member";
    return members().front();
}

// One row holding every value of T, through the C1 member out of place and
// in place, for each factor.
template <class T>
void whole_range(Fam fam, const char* name, const std::vector<int>& factors) {
    const Member& oop = member(std::string("tavi") + name + "_C1RSfs");
    const Member& inp = member(std::string("tavi") + name + "_C1IRSfs");
    const int n = 1 << (8 * sizeof(T));
    Image<T> src(n, 1), dst(n, 1);
    for (int i = 0; i < n; ++i) src.row(0)[i] = static_cast<T>(std::numeric_limits<T>::min() + i);
    // sqrt and ln of each input once; the factors only scale them.
    std::vector<long double> base(n);
    for (int i = 0; i < n; ++i) {
        const long double x = src.row(0)[i];
        base[i] = x <= 0 ? 0 : fam == Fam::Sqrt ? std::sqrt(x) : fam == Fam::Ln ? std::log(x) : 0;
    }
    for (int sf : factors) {
        const bool hasZero = fam == Fam::Ln;  // zero is in every full range
        const TavStatus want = hasZero ? tavWarnLnZeroArg : tavOk;
        ASSERT_EQ(invoke<T>(oop, src.ptr(), src.step(), dst.ptr(), dst.step(), TaviSize{n, 1}, sf), want) << name << " " << sf;
        for (int i = 0; i < n; ++i) {
            const T x = src.row(0)[i];
            const T r = (fam == Fam::Sqrt || fam == Fam::Ln) && x > 0 ? ref::scaled<T>(base[i], sf) : ref_elem(fam, x, sf);
            if (dst.row(0)[i] != r) {
                FAIL() << name << " scaleFactor " << sf << " x " << +x << ": got " << +dst.row(0)[i] << ", expected " << +r;
            }
        }
        Image<T> io(n, 1);
        std::memcpy(io.bytes(), src.bytes(), src.span());
        ASSERT_EQ(invoke<T>(inp, nullptr, 0, io.ptr(), io.step(), TaviSize{n, 1}, sf), want);
        ASSERT_TRUE(same_bytes(io, dst.snapshot())) << name << " in place, scaleFactor " << sf;
    }
}

// A run of factors, and the extremes of int.
std::vector<int> span(int lo, int hi, int by = 1) {
    std::vector<int> v{INT_MIN, INT_MAX};
    for (int f = lo; f <= hi; f += by) v.push_back(f);
    return v;
}

TEST(UnaryRange, Sqr) {
    whole_range<Tav8u>(Fam::Sqr, "Sqr_8u", span(-10, 20));
    whole_range<Tav16u>(Fam::Sqr, "Sqr_16u", span(-18, 36));
    whole_range<Tav16s>(Fam::Sqr, "Sqr_16s", span(-18, 36));
}

TEST(UnaryRange, Sqrt) {
    whole_range<Tav8u>(Fam::Sqrt, "Sqrt_8u", span(-10, 20));
    whole_range<Tav16u>(Fam::Sqrt, "Sqrt_16u", span(-18, 12));
    whole_range<Tav16s>(Fam::Sqrt, "Sqrt_16s", span(-18, 12));
}

TEST(UnaryRange, Ln) {
    whole_range<Tav8u>(Fam::Ln, "Ln_8u", span(-10, 20));
    whole_range<Tav16u>(Fam::Ln, "Ln_16u", span(-19, 7));
    whole_range<Tav16s>(Fam::Ln, "Ln_16s", span(-19, 7));
}

TEST(UnaryRange, Exp) {
    std::vector<int> f8 = span(-10, 20);
    for (int f : span(21, 400, 7)) f8.push_back(f);
    f8.insert(f8.end(), {1074, 1075, 5000});
    whole_range<Tav8u>(Fam::Exp, "Exp_8u", f8);
    const std::vector<int> f16 = {INT_MIN, -47300, -47280, -40000, -1000, -100, -30, -17, -16, -8, -2, -1, 0,
                                  1,       2,      5,      9,      16,    17,   30,  100, 1000, 23000, 47270, INT_MAX};
    whole_range<Tav16u>(Fam::Exp, "Exp_16u", f16);
    whole_range<Tav16s>(Fam::Exp, "Exp_16s", f16);
}

// Values the families name one by one.
TEST(UnaryCases, NamedValues) {
    struct Case {
        const char* name;
        int sf;
        int in, out;
    };
    const Case cases[] = {
        {"taviExp_8u_C1RSfs", 0, 5, 148},   {"taviExp_8u_C1RSfs", 0, 6, 255},  {"taviExp_8u_C1RSfs", 0, 16, 255},
        {"taviExp_8u_C1RSfs", 1, 0, 1},     {"taviExp_8u_C1RSfs", -7, 0, 128}, {"taviExp_8u_C1RSfs", -7, 1, 255},
        {"taviExp_8u_C1RSfs", -8, 0, 255},  {"taviExp_8u_C1RSfs", 2, 0, 0},    {"taviSqrt_8u_C1RSfs", -8, 1, 255},
        {"taviSqrt_8u_C1RSfs", -8, 0, 0},   {"taviSqrt_8u_C1RSfs", -6, 15, 248}, {"taviSqrt_8u_C1RSfs", -6, 16, 255},
        {"taviSqrt_8u_C1RSfs", -7, 3, 222}, {"taviSqrt_8u_C1RSfs", -7, 4, 255}, {"taviSqrt_8u_C1RSfs", 1, 1, 0},
        {"taviSqrt_8u_C1RSfs", 1, 9, 2},    {"taviSqrt_8u_C1RSfs", 1, 25, 2},  {"taviLn_8u_C1RSfs", 3, 54, 0},
        {"taviLn_8u_C1RSfs", 3, 55, 1},     {"taviLn_8u_C1RSfs", 3, 255, 1},   {"taviLn_8u_C1RSfs", 4, 255, 0},
        {"taviSqr_8u_C1RSfs", 1, 3, 4},     {"taviSqr_8u_C1RSfs", 1, 1, 0},    {"taviSqr_8u_C1RSfs", 2, 3, 2},
        {"taviSqr_8u_C1RSfs", 0, 16, 255},  {"taviSqr_8u_C1RSfs", -4, 3, 144}, {"taviSqr_8u_C1RSfs", 16, 255, 1},
    };
    for (const Case& c : cases) {
        const Member& m = member(c.name);
        Tav8u in = static_cast<Tav8u>(c.in), out = 77;
        invoke<Tav8u>(m, &in, 1, &out, 1, TaviSize{1, 1}, c.sf);
        EXPECT_EQ(out, c.out) << c.name << " scaleFactor " << c.sf << " on " << c.in;
    }
    Tav16s a = -32768, b = 0;
    EXPECT_EQ(taviAbs_16s_C1R(&a, 2, &b, 2, TaviSize{1, 1}), tavOk);
    EXPECT_EQ(b, 32767);
    // 16-bit: the square of -32768 is 2^30; 2^30 / 2^31 is a tie and goes to 0.
    const Tav16s big[] = {-32768, -32768, 181, 182};
    Tav16s r[4];
    taviSqr_16s_C1RSfs(big, 8, r, 8, TaviSize{2, 1}, 30);
    EXPECT_EQ(r[0], 1);
    taviSqr_16s_C1RSfs(big, 8, r, 8, TaviSize{2, 1}, 31);
    EXPECT_EQ(r[0], 0);
    taviSqr_16s_C1RSfs(big + 2, 8, r, 8, TaviSize{2, 1}, 0);
    EXPECT_EQ(r[0], 32761);
    EXPECT_EQ(r[1], 32767);
}

}  // namespace
}  // namespace tavtest::unary
