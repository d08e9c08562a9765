// The fill and copy paths of the arithmetic and logic families: a result known
// without computing (0, a saturation value, the source itself) is written by
// the set and copy implementations of the data-movement families, which
// repeat their own pointer and size checks.
#pragma once

#include "arith/row_kernel.h"

namespace tav::arith {

namespace interim {
// Stand-ins with the checks and effect of the set and copy implementations,
// used until those are linked here.
struct OpFill {
    template <class V>
    V apply(V, V, V c, unsigned long long) const { return c; }
};
struct OpSame {
    template <class V>
    V apply(V x, V, V, unsigned long long) const { return x; }
};
}  // namespace interim

// value holds one element for C1, three for C3 and AC4 (alpha untouched), four for C4.
template <class T, Layout L>
TavStatus set_image(const T* value, T* pDst, int dstStep, TaviSize roi) {
    if (pDst == nullptr) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    const Konst<T> k(value, L == Layout::C1 ? 1 : 3 + (L == Layout::C4), kChannels<L>);
    interim::OpFill op;
    T* d = pDst;
    for (int y = 0; y < roi.height; ++y, d = advance(d, dstStep)) {
        const std::size_t n = static_cast<std::size_t>(row_elems<L>(roi.width));
        if constexpr (L == Layout::C3) run_row<T, 1, 3, false>(op, d, d, d, n, &k);
        else run_row<T, 1, 1, L == Layout::AC4>(op, d, d, d, n, &k);
    }
    return tavOk;
}

template <class T, Layout L>
TavStatus set_zero(T* pDst, int dstStep, TaviSize roi) {
    const T zeros[4] = {};
    return set_image<T, L>(zeros, pDst, dstStep, roi);
}

template <class T, Layout L>
TavStatus copy_image(const T* pSrc, int srcStep, T* pDst, int dstStep, TaviSize roi) {
    if (pSrc == nullptr || pDst == nullptr) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    interim::OpSame op;
    for_image<T>(pSrc, srcStep, nullptr, 0, pDst, dstStep, row_elems<L>(roi.width), roi.height,
                 [&](const T* x, const T*, T* d, std::size_t n) { run_row<T, 1, 1, L == Layout::AC4>(op, x, x, d, n, nullptr); });
    return tavOk;
}

}  // namespace tav::arith
