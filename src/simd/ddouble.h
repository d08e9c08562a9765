// Double-double arithmetic usable in constant expressions: about 32 digits,
// enough to decide roundings of exp and log exactly where a plain double
// could land on the wrong side of a half. Tables of the math kernels are
// derived with it at compile time; a few set-up paths call it at run time.
// Products take their error term from fma (also folded by the compiler in
// constant evaluation), so contraction cannot change a result.
#pragma once

#include <bit>
#include <cstdint>
#include <limits>

namespace tav::dd {

struct DD {
    double hi = 0, lo = 0;
};

constexpr DD two_sum(double a, double b) {
    double s = a + b;
    double bb = s - a;
    return {s, (a - (s - bb)) + (b - bb)};
}

constexpr DD fast_two_sum(double a, double b) {
    double s = a + b;
    return {s, b - (s - a)};
}

constexpr DD two_prod(double a, double b) {
    double p = a * b;
    return {p, __builtin_fma(a, b, -p)};
}

constexpr DD add(DD a, DD b) {
    DD s = two_sum(a.hi, b.hi);
    DD t = two_sum(a.lo, b.lo);
    s.lo += t.hi;
    s = fast_two_sum(s.hi, s.lo);
    s.lo += t.lo;
    return fast_two_sum(s.hi, s.lo);
}

constexpr DD neg(DD a) { return {-a.hi, -a.lo}; }
constexpr DD sub(DD a, DD b) { return add(a, neg(b)); }

constexpr DD mul(DD a, DD b) {
    DD p = two_prod(a.hi, b.hi);
    p.lo = __builtin_fma(a.hi, b.lo, __builtin_fma(a.lo, b.hi, p.lo));
    return fast_two_sum(p.hi, p.lo);
}

constexpr DD mul(DD a, double b) { return mul(a, DD{b, 0}); }

constexpr DD div(DD a, DD b) {
    double q1 = a.hi / b.hi;
    DD r = sub(a, mul(b, q1));
    double q2 = r.hi / b.hi;
    r = sub(r, mul(b, q2));
    double q3 = r.hi / b.hi;
    return add(fast_two_sum(q1, q2), DD{q3, 0});
}

// 2^n as a double for the normal range.
constexpr double pow2(int n) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(n + 1023) << 52);
}

// a * 2^n, exact while the result stays normal; steps through pow2 so that
// |n| may exceed the exponent range of one factor.
constexpr DD ldexp(DD a, int n) {
    while (n > 1000) {
        a = {a.hi * pow2(1000), a.lo * pow2(1000)};
        n -= 1000;
    }
    while (n < -1000) {
        a = {a.hi * pow2(-1000), a.lo * pow2(-1000)};
        n += 1000;
    }
    return {a.hi * pow2(n), a.lo * pow2(n)};
}

constexpr double floor(double x) {
    if (!(x > -4.5e15 && x < 4.5e15)) return x;  // already integral (or not finite)
    double t = static_cast<double>(static_cast<std::int64_t>(x));
    return t > x ? t - 1 : t;
}

// floor of a normalised double-double (hi + lo).
constexpr double floor(DD a) {
    double f = floor(a.hi);
    if (f == a.hi && a.lo < 0) f -= 1;
    return f;
}

inline constexpr DD kLn2{0x1.62e42fefa39efp-1, 0x1.abc9e3b39803fp-56};

// exp of a double-double: reduce by ln 2, shrink by 2^-10, Taylor, square back.
constexpr DD exp(DD x) {
    if (x.hi > 709.8) return {std::numeric_limits<double>::infinity(), 0};
    if (x.hi < -745.2) return {0, 0};
    const int k = static_cast<int>(floor(x.hi / kLn2.hi + 0.5));
    DD r = sub(x, mul(kLn2, static_cast<double>(k)));
    r = ldexp(r, -10);
    DD sum{1, 0}, term{1, 0};
    for (int i = 1; i <= 12; ++i) {
        term = div(mul(term, r), DD{static_cast<double>(i), 0});
        sum = add(sum, term);
    }
    for (int i = 0; i < 10; ++i) sum = mul(sum, sum);
    return ldexp(sum, k);
}

constexpr DD exp(double x) { return exp(DD{x, 0}); }

// Natural log of a positive finite double-double: a double estimate from the
// atanh series, then two Newton steps on exp.
constexpr DD log(DD a) {
    std::uint64_t bits = std::bit_cast<std::uint64_t>(a.hi);
    int e = static_cast<int>((bits >> 52) & 0x7ff) - 1023;
    double m = std::bit_cast<double>((bits & 0x000fffffffffffffull) | 0x3ff0000000000000ull);
    if (m > 1.4142135623730951) {
        m *= 0.5;
        ++e;
    }
    double s = (m - 1) / (m + 1), z = s * s, t = s, y = 0;
    for (int i = 1; i < 40; i += 2) {
        y += t / i;
        t *= z;
    }
    DD est{2 * y + e * kLn2.hi, 0};
    for (int i = 0; i < 2; ++i) est = add(est, sub(mul(a, exp(neg(est))), DD{1, 0}));
    return est;
}

constexpr DD log(double a) { return log(DD{a, 0}); }

}  // namespace tav::dd
