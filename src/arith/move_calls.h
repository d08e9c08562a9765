// The fill and copy paths of the arithmetic and logic families: a result known
// without computing (0, a saturation value, the source itself) is written by
// the set and copy implementations of the data-movement families, called
// directly; they repeat their own pointer and size checks.
#pragma once

#include <type_traits>

#include "frame/entry.h"

namespace tav::arith {

// value holds one element for C1, three for C3 and AC4 (alpha untouched), four for C4.
template <class T, Layout L>
TavStatus set_image(const T* v, T* d, int s, TaviSize r) {
#define TAV_SET_OF(t, T_)                                                 \
    if constexpr (std::is_same_v<T, T_>) {                                \
        if constexpr (L == Layout::C1) return own_taviSet_##t##_C1R(v[0], d, s, r); \
        else if constexpr (L == Layout::C3) return own_taviSet_##t##_C3R(v, d, s, r); \
        else if constexpr (L == Layout::C4) return own_taviSet_##t##_C4R(v, d, s, r); \
        else return own_taviSet_##t##_AC4R(v, d, s, r);                   \
    }
    TAV_SET_OF(8u, Tav8u)
    else TAV_SET_OF(16u, Tav16u)
    else TAV_SET_OF(16s, Tav16s)
    else TAV_SET_OF(32s, Tav32s)
#undef TAV_SET_OF
}

template <class T, Layout L>
TavStatus set_zero(T* d, int s, TaviSize r) {
    const T zeros[4] = {};
    return set_image<T, L>(zeros, d, s, r);
}

template <class T, Layout L>
TavStatus copy_image(const T* p, int ps, T* d, int s, TaviSize r) {
    if constexpr (std::is_same_v<T, Tav8u>) {
        if constexpr (L == Layout::C1) return own_taviCopy_8u_C1R(p, ps, d, s, r);
        else if constexpr (L == Layout::C3) return own_taviCopy_8u_C3R(p, ps, d, s, r);
        // Four-byte pixels: the copy of 8u C4 is the one of 32s C1.
        else if constexpr (L == Layout::C4)
            return own_taviCopy_32s_C1R(reinterpret_cast<const Tav32s*>(p), ps, reinterpret_cast<Tav32s*>(d), s, r);
        else return own_taviCopy_8u_AC4R(p, ps, d, s, r);
    }
#define TAV_COPY_OF(t, T_)                                                       \
    else if constexpr (std::is_same_v<T, T_>) {                                  \
        if constexpr (L == Layout::C1) return own_taviCopy_##t##_C1R(p, ps, d, s, r); \
        else if constexpr (L == Layout::C3) return own_taviCopy_##t##_C3R(p, ps, d, s, r); \
        else if constexpr (L == Layout::C4) return own_taviCopy_##t##_C4R(p, ps, d, s, r); \
        else return own_taviCopy_##t##_AC4R(p, ps, d, s, r);                    \
    }
    TAV_COPY_OF(16u, Tav16u)
    TAV_COPY_OF(16s, Tav16s)
    TAV_COPY_OF(32s, Tav32s)
#undef TAV_COPY_OF
}

}  // namespace tav::arith
