// Helpers every export entry uses: argument checks in a family's order, row
// pointer stepping and the row loop. Implementations are the `own_<name>`
// functions declared in the generated own_exports.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "own_exports.h"
#include "tavtypes.h"

namespace tav {

enum class Layout { C1, C3, C4, AC4 };

template <Layout L>
inline constexpr int kChannels = L == Layout::C1 ? 1 : L == Layout::C3 ? 3 : 4;

// Elements a row kernel walks: AC4 rows are walked as four elements a pixel
// with the alpha lanes masked off.
template <Layout L>
constexpr int64_t row_elems(int64_t width) { return width * kChannels<L>; }

template <class... P>
constexpr bool any_null(const P*... p) { return ((p == nullptr) || ...); }

constexpr bool bad_size(TaviSize r) { return r.width <= 0 || r.height <= 0; }
constexpr bool bad_size(TaviSizeL r) { return r.width <= 0 || r.height <= 0; }

template <class... S>
constexpr bool bad_step(S... s) { return ((s < 1) || ...); }

template <class T>
inline T* advance(T* p, std::ptrdiff_t bytes) {
    using B = std::conditional_t<std::is_const_v<T>, const char, char>;
    return reinterpret_cast<T*>(reinterpret_cast<B*>(p) + bytes);
}

// A step rounded down to whole elements: some typed entries walk rows a whole
// number of elements apart instead of rejecting an odd step.
template <class T>
constexpr std::ptrdiff_t whole_elems(std::ptrdiff_t step) {
    return step & ~static_cast<std::ptrdiff_t>(sizeof(T) - 1);
}

// The row loop of a unary function: kernel(srcRow, dstRow) for each row.
template <class S, class D, class K>
inline void for_rows(const S* src, std::ptrdiff_t srcStep, D* dst, std::ptrdiff_t dstStep, int64_t height, K&& kernel) {
    for (int64_t y = 0; y < height; ++y) {
        kernel(src, dst);
        src = advance(src, srcStep);
        dst = advance(dst, dstStep);
    }
}

// The row loop of an in-place function.
template <class D, class K>
inline void for_rows(D* srcDst, std::ptrdiff_t step, int64_t height, K&& kernel) {
    for (int64_t y = 0; y < height; ++y) {
        kernel(srcDst);
        srcDst = advance(srcDst, step);
    }
}

}  // namespace tav
