// Scalar reference models of the unary math families, written from the rules
// alone: exact integer arithmetic, long double for the transcendental ones.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "tavi.h"

namespace tavtest::ref {

template <class T>
constexpr long long max_of() {
    return std::numeric_limits<T>::max();
}

template <class T>
T saturate(long long v) {
    const long long lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
    return static_cast<T>(v < lo ? lo : v > hi ? hi : v);
}

// The scale rule on an exact non-negative result: divide by 2^f rounding to
// nearest with ties to even, or multiply by 2^-f; saturation follows.
template <class T>
T scale(unsigned long long s, int f) {
    if (f == 0) return saturate<T>(static_cast<long long>(s));
    if (f < 0) {
        // Anything that reaches 2^32 saturates every destination type here.
        if (s == 0) return 0;
        if (f <= -32) return saturate<T>(1ll << 40);
        const int k = -f;
        if (s > (0xffffffffull >> k)) return saturate<T>(1ll << 40);
        return saturate<T>(static_cast<long long>(s << k));
    }
    if (f >= 64) return 0;
    const unsigned long long q = s >> f;
    const unsigned long long rest = s - (q << f);
    const unsigned long long half = 1ull << (f - 1);
    unsigned long long r = q;
    if (rest > half || (rest == half && (q & 1))) ++r;
    return saturate<T>(static_cast<long long>(r));
}

template <class T>
T abs(T x) {
    if constexpr (std::is_floating_point_v<T>) {
        std::uint32_t b;
        std::memcpy(&b, &x, 4);
        b &= 0x7fffffffu;
        std::memcpy(&x, &b, 4);
        return x;
    } else {
        return saturate<T>(x < 0 ? -static_cast<long long>(x) : x);
    }
}

template <class T>
T sqr(T x, int f) {
    if constexpr (std::is_floating_point_v<T>) return x * x;
    else return scale<T>(static_cast<unsigned long long>(static_cast<long long>(x) * x), f);
}

// Rounded to nearest, ties to even (the default rounding of nearbyint).
template <class T>
T round_saturate(long double v) {
    if (v > 1e9L) return saturate<T>(1ll << 40);
    return saturate<T>(static_cast<long long>(std::nearbyintl(v)));
}

// v 2^-f rounded and saturated: the integer square root and logarithm once
// their exact value v is known.
template <class T>
T scaled(long double v, int f) {
    // Far beyond +-16000 every scaled value is 0 or saturated alike.
    return round_saturate<T>(v * std::ldexp(1.0L, f < -16000 ? 16000 : f > 16000 ? -16000 : -f));
}

// Integer square root: round(sqrt(x) 2^-f). A negative input has no real
// root; the library writes 0 for it.
template <class T>
T sqrt(T x, int f) {
    if constexpr (std::is_floating_point_v<T>) {
        return std::sqrt(x);
    } else {
        return x <= 0 ? T(0) : scaled<T>(std::sqrt(static_cast<long double>(x)), f);
    }
}

// Integer logarithm: round(ln(x) 2^-f); 0 for x = 0 (with a warning) and,
// by the library's choice, for negative 16s inputs.
template <class T>
T ln(T x, int f) {
    return x <= 0 ? T(0) : scaled<T>(std::log(static_cast<long double>(x)), f);
}

// Integer exponential: floor(exp(x) 2^-f + 1/2), saturated.
template <class T>
T exp(T x, int f) {
    const long double arg = static_cast<long double>(x) - f * 0.693147180559945309417232121458176568L;
    if (arg > 20) return saturate<T>(1ll << 40);
    if (arg < -20) return 0;
    return saturate<T>(static_cast<long long>(std::floor(std::exp(arg) + 0.5L)));
}

// taviExp_8u takes scaleFactor above 8 through double precision literally:
// exp(x) 2^-f + 0.5, saturated by a compare with 255.0, truncated.
inline Tav8u exp8u(Tav8u x, int f) {
    if (f <= 8) return exp<Tav8u>(x, f);
    const double v = std::exp(static_cast<double>(x)) * std::ldexp(1.0, -f) + 0.5;
    return v > 255.0 ? 255 : static_cast<Tav8u>(v);
}

// Float references in double precision, rounded once.
inline float ln32f(float x) { return static_cast<float>(std::log(static_cast<double>(x))); }
inline float exp32f(float x) {
    if (x > 88.72283f) return std::numeric_limits<float>::infinity();
    if (x < -103.97208f) return 0.0f;
    return static_cast<float>(std::exp(static_cast<double>(x)));
}

// Statuses an element gives.
inline TavStatus exp32f_status(float x) {
    if (std::isinf(x) || std::isnan(x)) return tavOk;
    if (x > 88.72283f) return tavWarnOverflow;
    if (x < -87.33654f) return tavWarnUnderflow;
    return tavOk;
}

}  // namespace tavtest::ref
