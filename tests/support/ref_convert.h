// Scalar reference of the depth conversions, written from the rules: rounding
// by mode, saturation, the power-of-two scale, the range maps and the affine
// map. Plain double and integer arithmetic, one element at a time.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace tavref {

enum class Round { Zero, Near, Fin };

// A value rounded on its own: keeps the compiler from fusing a product with
// the addition that follows it, which the rules perform as two steps.
template <class T>
inline T alone(T v) {
    asm("" : "+x"(v));
    return v;
}

// x rounded to an integer value by mode.
inline double round_by(double x, Round r) {
    if (std::isnan(x) || std::isinf(x)) return x;
    if (r == Round::Zero) return std::trunc(x);
    const double f = std::floor(x), frac = x - f;
    if (frac > 0.5) return f + 1;
    if (frac < 0.5) return f;
    if (r == Round::Fin) return x > 0 ? f + 1 : f;
    return std::fmod(f, 2.0) == 0.0 ? f : f + 1;
}

// Saturation of an integral value to D; a NaN gives D's lowest value.
template <class D>
D sat(double x) {
    if constexpr (std::is_floating_point_v<D>) {
        return static_cast<D>(x);
    } else {
        const double lo = static_cast<double>(std::numeric_limits<D>::lowest());
        const double hi = static_cast<double>(std::numeric_limits<D>::max());
        if (std::isnan(x) || x <= lo) return std::numeric_limits<D>::lowest();
        if (x >= hi) return std::numeric_limits<D>::max();
        return static_cast<D>(x);
    }
}

// taviConvert by value: integers keep their value or saturate; floating
// sources are rounded by mode first. An integer into float rounds to nearest.
template <class S, class D>
D by_value(S x, Round r = Round::Near) {
    if constexpr (std::is_floating_point_v<D>) return static_cast<D>(x);
    else if constexpr (std::is_floating_point_v<S>) return sat<D>(round_by(static_cast<double>(x), r));
    else return sat<D>(static_cast<double>(x));
}

// The scale rule on an exact integer s with factor f: ties to even by the
// shift formula for Near, truncation for Zero, ties away for Fin.
template <class D>
D scaled_int(int64_t s, int f, Round r) {
    if (f == 0) return sat<D>(static_cast<double>(s));
    if (f < 0) {
        if (s == 0) return 0;
        // From 2^31 on every non-zero value saturates.
        if (-f >= 31) return s > 0 ? std::numeric_limits<D>::max() : std::numeric_limits<D>::lowest();
        return sat<D>(static_cast<double>(s * (int64_t{1} << -f)));
    }
    if (f >= 62) return 0;
    int64_t q;
    if (r == Round::Near) {
        q = (s + ((s >> f) & 1) + (int64_t{1} << (f - 1)) - 1) >> f;
    } else if (r == Round::Zero) {
        q = s / (int64_t{1} << f);
    } else {
        const int64_t a = s < 0 ? -s : s;
        q = (a + (int64_t{1} << (f - 1))) >> f;
        if (s < 0) q = -q;
    }
    return sat<D>(static_cast<double>(q));
}

// A floating source scaled by 2^-f in its own precision, then rounded by
// mode and saturated.
template <class S, class D>
D scaled_float(S x, int f, Round r) {
    const S y = std::ldexp(x, -f);
    return sat<D>(round_by(static_cast<double>(y), r));
}

// taviScale maps of the integer ranges onto one another.
inline double u8_to_16u(uint8_t x) { return x * 257.0; }
inline double u8_to_16s(uint8_t x) { return x * 257.0 - 32768.0; }
inline double u8_to_32s(uint8_t x) { return x * 16843009.0 - 2147483648.0; }
// round(u / 257) with u = x + bias; the quotient is never a tie.
inline uint8_t to_8u_by_257(int64_t u) { return static_cast<uint8_t>((2 * u + 257) / 514); }
// round(u * 255 / (2^32 - 1)), exact in 64-bit integers; never a tie.
inline uint8_t u32_range_to_8u(int64_t u) {
    const int64_t d = 4294967295LL;
    return static_cast<uint8_t>((2 * u * 255 + d) / (2 * d));
}

// 8u onto [vMin, vMax], each step in single precision.
inline float u8_to_range(uint8_t x, float vMin, float vMax) {
    const float q = (vMax - vMin) / 255.0f;
    const float p = alone(static_cast<float>(x) * q);
    return vMin + p;
}
// [vMin, vMax] onto 8u: x clamped, the offset scaled in single precision and
// rounded to nearest even.
inline uint8_t range_to_8u(float x, float vMin, float vMax) {
    const float q = 255.0f / (vMax - vMin);
    const float c = std::isnan(x) ? vMin : std::fmin(std::fmax(x, vMin), vMax);
    const float d = c - vMin;
    const float y = d * q;
    return sat<uint8_t>(round_by(y, Round::Near));
}

// taviScaleC: src * m + a in double, rounded to nearest even and saturated.
template <class S, class D>
D affine(S x, double m, double a) {
    const double p = alone(static_cast<double>(x) * m);
    const double y = p + a;
    if constexpr (std::is_floating_point_v<D>) return static_cast<D>(y);
    else return sat<D>(round_by(y, Round::Near));
}

}  // namespace tavref
