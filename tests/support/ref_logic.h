// Scalar models of the bitwise families and the shifts by a constant count.
#pragma once

#include <cstdint>
#include <type_traits>

namespace tavref {

enum class Bit { And, Or, Xor };

template <class T>
T bitwise(Bit b, T x, T y) {
    using U = std::make_unsigned_t<T>;
    const U u = static_cast<U>(x), v = static_cast<U>(y);
    return static_cast<T>(b == Bit::And ? U(u & v) : b == Bit::Or ? U(u | v) : U(u ^ v));
}

// Left shifts and unsigned right shifts drop bits; counts at or above the
// width give 0. Signed right shifts fill with the sign.
template <class T>
T shift_left(T x, uint32_t n) {
    using U = std::make_unsigned_t<T>;
    if (n >= 8 * sizeof(T)) return 0;
    return static_cast<T>(static_cast<U>(static_cast<U>(x) << n));
}

template <class T>
T shift_right(T x, uint32_t n) {
    if constexpr (std::is_signed_v<T>) {
        if (n >= 8 * sizeof(T)) return x < 0 ? T(-1) : T(0);
        // Division rounding toward minus infinity, written without a shift.
        long long v = x, d = 1LL << n;
        long long q = v >= 0 ? v / d : -((-v + d - 1) / d);
        return static_cast<T>(q);
    } else {
        if (n >= 8 * sizeof(T)) return 0;
        return static_cast<T>(x >> n);
    }
}

}  // namespace tavref
