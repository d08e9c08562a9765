// Entry shapes shared by the arithmetic families: binary and constant forms,
// in place and out of place, and their 64-bit twins.
//
// A family supplies `Rows`, a struct whose static `run` does the work on a
// checked image (the path switch and the row loop) and returns the status.
// The entries here hold the checks in the family's order; the `_L` twins pass
// a call that fits 32 bits to the 32-bit entry, and otherwise walk every row
// in pieces through `run` with one-row images, without checks of their own.
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <type_traits>

#include "arith/row_kernel.h"

namespace tav::arith {

// Elements one call of `run` gets from a 64-bit row: 32f rows are cut shorter.
template <class T, Layout L>
constexpr int64_t piece_pixels() {
    return (std::is_same_v<T, float> ? 0xfffffff : 0x3fffffff) / kChannels<L>;
}

// Order of the checks after the pointers.
enum class Checks { SizeOnly, SizeThenSteps, StepsThenSize };

// Adapters from a two-operand core to the driver: the second operand is the
// second source, or the row's constant.
template <class Core>
struct Bin {
    Core core;
    template <class V, class M>
    V apply(V x, V y, V, M) const { return core(x, y); }
};
template <class Core>
struct WithK {
    Core core;
    template <class V, class M>
    V apply(V x, V, V c, M) const { return core(x, c); }
};

// Which streaming gate a family uses (see row_kernel.h).
enum class Gate { Traffic, RowQuarter };

// Whether an out-of-place image is written around the cache.
template <class T, Layout L, Gate G>
bool streams(const void* d, const void* x, const void* y, std::ptrdiff_t xStep, std::ptrdiff_t yStep, std::ptrdiff_t dStep,
             int64_t width, int64_t height) {
    if (L == Layout::AC4 || d == x || d == y) return false;
    const int64_t rowBytes = row_elems<L>(width) * int64_t(sizeof(T));
    if constexpr (G == Gate::RowQuarter)
        return stream_row(contiguous(rowBytes, height, xStep, dStep, y ? yStep : rowBytes) ? rowBytes * height : rowBytes);
    else
        return stream_image(rowBytes * height * (y ? 3 : 2));
}

// Rows of a binary image in formula order (x op y).
template <class T, Layout L, Gate G = Gate::Traffic, class Op>
void binary_rows(Op& op, const T* x, std::ptrdiff_t xStep, const T* y, std::ptrdiff_t yStep, T* d, std::ptrdiff_t dStep,
                 int64_t width, int64_t height) {
    auto rows = [&]<Store S>() {
        for_image<T>(x, xStep, y, yStep, d, dStep, row_elems<L>(width), height,
                     [&](const T* a, const T* b, T* o, std::size_t n) { run_row<T, 2, 1, L == Layout::AC4, S>(op, a, b, o, n, nullptr); });
    };
    if constexpr (L != Layout::AC4) {
        if (streams<T, L, G>(d, x, y, xStep, yStep, dStep, width, height)) {
            rows.template operator()<Store::Stream>();
            _mm_sfence();
            return;
        }
    }
    rows.template operator()<Store::Plain>();
}

template <Layout L>
inline constexpr int kConstCount = L == Layout::C1 ? 1 : L == Layout::C4 ? 4 : 3;

template <class T, Layout L>
Konst<T> konst_of(const T* v) { return Konst<T>(v, kConstCount<L>, kChannels<L>); }

// Rows of an image with a constant.
template <class T, Layout L, Gate G = Gate::Traffic, class Op>
void const_rows(Op& op, const T* x, std::ptrdiff_t xStep, const Konst<T>& k, T* d, std::ptrdiff_t dStep, int64_t width,
                int64_t height) {
    auto rows = [&]<Store S>() {
        for_image<T>(x, xStep, nullptr, 0, d, dStep, row_elems<L>(width), height, [&](const T* a, const T*, T* o, std::size_t n) {
            if constexpr (L == Layout::C3) run_row<T, 1, 3, false, S>(op, a, a, o, n, &k);
            else run_row<T, 1, 1, L == Layout::AC4, S>(op, a, a, o, n, &k);
        });
    };
    if constexpr (L != Layout::AC4) {
        if (streams<T, L, G>(d, x, nullptr, xStep, 0, dStep, width, height)) {
            rows.template operator()<Store::Stream>();
            _mm_sfence();
            return;
        }
    }
    rows.template operator()<Store::Plain>();
}

template <Checks C, class... S>
TavStatus check_size_steps(TaviSize roi, S... steps) {
    if constexpr (C == Checks::StepsThenSize) {
        if (bad_step(steps...)) return tavErrStep;
        if (bad_size(roi)) return tavErrSize;
    } else {
        if (bad_size(roi)) return tavErrSize;
        if (C == Checks::SizeThenSteps && bad_step(steps...)) return tavErrStep;
    }
    return tavOk;
}

// --- binary: dst = src2 op src1 --------------------------------------------

template <class T, Layout L, class Rows, Checks C, class... A>
TavStatus binary_entry(const T* s1, int st1, const T* s2, int st2, T* d, int sd, TaviSize roi, A... a) {
    if (any_null(s1, s2, d)) return tavErrNullPtr;
    if (TavStatus st = check_size_steps<C>(roi, st1, st2, sd); st != tavOk) return st;
    return Rows::run(s1, st1, s2, st2, d, sd, roi.width, roi.height, a...);
}

inline bool fits_32(std::initializer_list<int64_t> steps, TaviSizeL roi, int elemBytes) {
    for (int64_t s : steps)
        if (s <= -0x7fffffffLL || s >= 0x7fffffffLL) return false;
    const __int128 p = static_cast<__int128>(roi.width) * roi.height * elemBytes;
    return p > -0x7fffffffLL && p < 0x7fffffffLL;
}

inline TaviSize narrow(TaviSizeL r) { return {static_cast<int>(r.width), static_cast<int>(r.height)}; }

// A row pointer of a 64-bit call, formed without pointer arithmetic on null.
template <class T>
T* piece_ptr(T* base, int64_t row, int64_t step, int64_t elem) {
    return reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(base) + static_cast<std::uintptr_t>(row * step) +
                                static_cast<std::uintptr_t>(elem) * sizeof(T));
}

// The piecewise walk: a negative status ends it; the last status is the result.
template <class T, Layout L, class Piece>
TavStatus by_pieces(TaviSizeL roi, Piece&& piece) {
    if (roi.height < 1) return tavOk;
    constexpr int64_t maxPx = piece_pixels<T, L>();
    TavStatus st = tavOk;
    for (int64_t y = 0; y < roi.height; ++y)
        for (int64_t x0 = 0; x0 < roi.width; x0 += maxPx) {
            st = piece(y, x0 * kChannels<L>, static_cast<int>(std::min(maxPx, roi.width - x0)));
            if (st < 0) return st;
        }
    return st;
}

template <class T>
constexpr int forward_elem_bytes() { return std::is_same_v<T, float> ? 4 : 1; }

template <class T, Layout L, class Rows, Checks C, class... A>
TavStatus binary_L(const T* s1, int64_t st1, const T* s2, int64_t st2, T* d, int64_t sd, TaviSizeL roi, A... a) {
    if (fits_32({st1, st2, sd}, roi, forward_elem_bytes<T>()))
        return binary_entry<T, L, Rows, C>(s1, int(st1), s2, int(st2), d, int(sd), narrow(roi), a...);
    return by_pieces<T, L>(roi, [&](int64_t y, int64_t e, int len) -> TavStatus {
        const T* p1 = piece_ptr(s1, y, st1, e);
        const T* p2 = piece_ptr(s2, y, st2, e);
        T* pd = piece_ptr(d, y, sd, e);
        if (any_null(p1, p2, pd)) return tavErrNullPtr;
        if (len < 1) return tavErrSize;
        return Rows::run(p1, 0, p2, 0, pd, 0, len, 1, a...);
    });
}

// --- with a constant: dst = src op value ----------------------------------
// `v` points at the constant: one element for C1, else one for each channel.

template <class T, Layout L, class Rows, Checks C, class... A>
TavStatus const_entry(const T* s, int st, const T* v, T* d, int sd, TaviSize roi, A... a) {
    if (any_null(s, v, d)) return tavErrNullPtr;
    if (TavStatus r = check_size_steps<C>(roi, st, sd); r != tavOk) return r;
    return Rows::run(s, st, v, d, sd, roi.width, roi.height, a...);
}

// OneRowEntry: each piece is a call of the 32-bit entry as a one-row image
// with both steps 4, instead of the row function.
template <class T, Layout L, class Rows, Checks C, bool OneRowEntry = false, class... A>
TavStatus const_L(const T* s, int64_t st, const T* v, T* d, int64_t sd, TaviSizeL roi, A... a) {
    if (fits_32({st, sd}, roi, forward_elem_bytes<T>())) return const_entry<T, L, Rows, C>(s, int(st), v, d, int(sd), narrow(roi), a...);
    return by_pieces<T, L>(roi, [&](int64_t y, int64_t e, int len) -> TavStatus {
        const T* ps = piece_ptr(s, y, st, e);
        T* pd = piece_ptr(d, y, sd, e);
        if constexpr (OneRowEntry) {
            return const_entry<T, L, Rows, C>(ps, 4, v, pd, 4, TaviSize{len, 1}, a...);
        } else {
            if (any_null(ps, v, pd)) return tavErrNullPtr;
            if (len < 1) return tavErrSize;
            return Rows::run(ps, 0, v, pd, 0, len, 1, a...);
        }
    });
}

}  // namespace tav::arith
