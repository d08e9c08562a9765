// Scalar models of the scaled arithmetic, written from the rules: exact
// integer results, the power-of-two scale with ties to even, saturation, and
// the single-precision quotient of the divisions.
#pragma once

#include <cfenv>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

namespace tavref {

template <class T>
T saturate(long long v) {
    if (v < std::numeric_limits<T>::min()) return std::numeric_limits<T>::min();
    if (v > std::numeric_limits<T>::max()) return std::numeric_limits<T>::max();
    return static_cast<T>(v);
}

// s / 2^f rounded to nearest, ties to even (f > 0); s * 2^-f (f < 0).
inline long long scale_rule(long long s, int f) {
    if (f == 0) return s;
    if (f > 0) {
        if (f >= 62) return 0;  // |s| < 2^40 here: below one half
        const long long unit = 1LL << f, half = unit >> 1;
        long long q = s >= 0 ? s / unit : -((-s + unit - 1) / unit);  // floor
        const long long rem = s - q * unit;
        if (rem > half || (rem == half && (q & 1))) ++q;
        return q;
    }
    const int k = -f;
    if (s == 0) return 0;
    if (k >= 40) return s > 0 ? (1LL << 50) : -(1LL << 50);  // beyond every range
    return s * (1LL << k);
}

enum class Op { Add, Sub, Mul };

// Formula order: x op y (a difference is x - y).
inline long long exact(Op op, long long x, long long y) {
    return op == Op::Add ? x + y : op == Op::Sub ? x - y : x * y;
}

template <class T>
T scaled(Op op, T x, T y, int f) {
    return saturate<T>(scale_rule(exact(op, x, y), f));
}

// The single-precision quotient x * 2^-f / y (an IEEE division, correctly
// rounded), or a neighbour in the last bit, which the contract allows.
// The quotient itself is rounded to nearest whatever the rounding mode.
inline float quotient(long long x, long long y, int f, int ulpOffset = 0) {
    const int mode = std::fegetround();
    std::fesetround(FE_TONEAREST);
    float q = std::ldexp(static_cast<float>(x), -f) / static_cast<float>(y);
    std::fesetround(mode);
    for (int i = 0; i < ulpOffset; ++i) q = std::nextafter(q, HUGE_VALF);
    for (int i = 0; i > ulpOffset; --i) q = std::nextafter(q, -HUGE_VALF);
    return q;
}

enum class Rounding { Current, Zero, Near, Financial };

inline long long round_quotient(float q, Rounding r) {
    switch (r) {
        case Rounding::Current: return std::llrint(q);
        case Rounding::Zero: return static_cast<long long>(std::trunc(q));
        case Rounding::Near: {
            const float t = std::trunc(q), frac = std::fabs(q - t);
            long long i = static_cast<long long>(t);
            if (frac > 0.5f || (frac == 0.5f && (i & 1))) i += q < 0 ? -1 : 1;
            return i;
        }
        case Rounding::Financial: return static_cast<long long>(std::trunc(q + std::copysign(0.5f, q)));
    }
    return 0;
}

// Integer division by the rule; zero divisors give 0 or the saturation value
// of the dividend's sign.
template <class T>
T divide(T x, T y, int f, Rounding r, int ulpOffset = 0) {
    if (y == 0) return x == 0 ? T(0) : x > 0 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
    const float q = quotient(x, y, f, ulpOffset);
    if (std::fabs(q) > 1e12f) return q > 0 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
    return saturate<T>(round_quotient(q, r));
}

// round(a * b / max) for values standing for 0..1.
template <class T>
T mul_scale(T a, T b) {
    const unsigned long long m = std::numeric_limits<T>::max();
    const unsigned long long p = static_cast<unsigned long long>(a) * b;
    // Nearest; a product is never exactly halfway between multiples of 2^k - 1.
    return static_cast<T>((2 * p + m) / (2 * m));
}

// Double product rounded by the code (0 zero, 1 nearest even, 2 ties away).
template <class T>
T mul_c64f(T x, double v, int mode) {
    const double p = static_cast<double>(x) * v;
    if constexpr (std::is_same_v<T, float>) {
        double c = p;
        if (std::fabs(c) > FLT_MAX) c = std::copysign(static_cast<double>(FLT_MAX), c);
        float rz = static_cast<float>(c);
        if (std::fabs(static_cast<double>(rz)) > std::fabs(c)) rz = std::nextafter(rz, 0.0f);
        if (mode == 0) return rz;
        const float up = std::nextafter(rz, std::copysign(HUGE_VALF, static_cast<float>(c)));
        const double mid = (static_cast<double>(rz) + static_cast<double>(up)) / 2;
        const double dist = std::fabs(c) - std::fabs(mid);
        if (dist > 0) return up;
        if (dist < 0) return rz;
        if (mode == 2) return up;
        int bits;
        std::memcpy(&bits, &rz, 4);
        return (bits & 1) ? up : rz;
    } else {
        double r;
        if (mode == 0) r = std::trunc(p);
        else if (mode == 2) r = std::round(p);
        else r = std::nearbyint(p);
        if (r < std::numeric_limits<T>::min()) return std::numeric_limits<T>::min();
        if (r > std::numeric_limits<T>::max()) return std::numeric_limits<T>::max();
        return static_cast<T>(r);
    }
}

}  // namespace tavref
