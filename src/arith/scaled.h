// Sum, difference and product of two images or of an image and a constant:
// integer types with the scale rule and its five paths, and single precision.
// Checks: pointers, then size; steps are not checked.
#pragma once

#include <immintrin.h>

#include "arith/entry_shapes.h"
#include "arith/int_ops.h"
#include "arith/move_calls.h"

namespace tav::arith {

// Runs `go(core)` with the core of the path of f; the fill path writes 0.
template <Fam F, class T, Layout L, class Go>
TavStatus by_path(int f, T* d, std::ptrdiff_t td, int64_t w, int64_t h, Go&& go) {
    switch (path_of<F, T>(f)) {
        case Path::Above:
            return set_zero<T, L>(d, static_cast<int>(td), TaviSize{static_cast<int>(w), static_cast<int>(h)});
        case Path::Zero:
            return go(OpSat<F, T>{});
        case Path::One:
            if constexpr (F == Fam::Add && sizeof(T) == 1) return go(OpAvg8u{});
            else return go(OpPos<F, T>(f));
        case Path::Pos:
            return go(OpPos<F, T>(f));
        case Path::Neg:
            return go(OpNeg<F, T>(f));
        case Path::Below:
            return go(OpSign<F, T>{});
    }
    return tavOk;
}

template <Fam F>
struct ScaledBin {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s1, std::ptrdiff_t t1, const T* s2, std::ptrdiff_t t2, T* d, std::ptrdiff_t td,
                             int64_t w, int64_t h, int f) {
            return by_path<F, T, L>(f, d, td, w, h, [&](auto core) {
                Bin<decltype(core)> op{core};
                binary_rows<T, L>(op, s2, t2, s1, t1, d, td, w, h);
                return tavOk;
            });
        }
    };
};

template <Fam F>
struct ScaledConst {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s, std::ptrdiff_t ts, const T* v, T* d, std::ptrdiff_t td, int64_t w, int64_t h, int f) {
            const TaviSize roi{static_cast<int>(w), static_cast<int>(h)};
            if constexpr (F == Fam::Mul && std::is_same_v<T, Tav16u> && L == Layout::C1) {
                // A zero constant, or f = 0 with a constant of 1, needs no product.
                if (v[0] == 0 && f != 0) return set_zero<T, L>(d, static_cast<int>(td), roi);
                if (f == 0 && v[0] == 1) return copy_image<T, L>(s, static_cast<int>(ts), d, static_cast<int>(td), roi);
                if (f == 0 && v[0] == 0) return set_zero<T, L>(d, static_cast<int>(td), roi);
            }
            const Konst<T> k = konst_of<T, L>(v);
            auto go = [&](auto core) {
                WithK<decltype(core)> op{core};
                const_rows<T, L>(op, s, ts, k, d, td, w, h);
                return tavOk;
            };
            if constexpr (sizeof(T) == 1 && F != Fam::Mul) {
                // 8u sum and difference below the negative bound: 255 wherever
                // the source or the constant is non-zero, so a constant that is
                // non-zero in every channel is a fill that reads no source.
                if (path_of<F, T>(f) == Path::Below) {
                    bool allNonZero = true;
                    for (int c = 0; c < kConstCount<L>; ++c) allNonZero = allNonZero && v[c] != 0;
                    if (allNonZero) {
                        const T full[4] = {255, 255, 255, 255};
                        return set_image<T, L>(full, d, static_cast<int>(td), roi);
                    }
                    return go(OpSign<Fam::Add, T>{});
                }
            }
            return by_path<F, T, L>(f, d, td, w, h, go);
        }
    };
};

// Single precision: one operation a pixel, no scale, no saturation.
struct FAdd {
    __m512 operator()(__m512 a, __m512 b) const { return _mm512_add_ps(a, b); }
};
struct FSub {
    __m512 operator()(__m512 a, __m512 b) const { return _mm512_sub_ps(a, b); }
};
struct FMul {
    __m512 operator()(__m512 a, __m512 b) const { return _mm512_mul_ps(a, b); }
};

template <class Core>
struct FloatBin {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s1, std::ptrdiff_t t1, const T* s2, std::ptrdiff_t t2, T* d, std::ptrdiff_t td,
                             int64_t w, int64_t h) {
            Bin<Core> op{};
            binary_rows<T, L>(op, s2, t2, s1, t1, d, td, w, h);
            return tavOk;
        }
    };
};

template <class Core>
struct FloatConst {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s, std::ptrdiff_t ts, const T* v, T* d, std::ptrdiff_t td, int64_t w, int64_t h) {
            const Konst<T> k = konst_of<T, L>(v);
            WithK<Core> op{};
            const_rows<T, L>(op, s, ts, k, d, td, w, h);
            return tavOk;
        }
    };
};

}  // namespace tav::arith
