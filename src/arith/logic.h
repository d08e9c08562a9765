// Bitwise families: and, or, exclusive or of two images or with a constant,
// and the complement. The order of checks is pointers, steps, size.
#pragma once

#include <immintrin.h>

#include "arith/entry_shapes.h"

namespace tav::arith {

struct AndBits {
    __m512i operator()(__m512i a, __m512i b) const { return _mm512_and_si512(a, b); }
};
struct OrBits {
    __m512i operator()(__m512i a, __m512i b) const { return _mm512_or_si512(a, b); }
};
struct XorBits {
    __m512i operator()(__m512i a, __m512i b) const { return _mm512_xor_si512(a, b); }
};

template <class T>
inline auto* bytes_of(T* p) {
    if constexpr (std::is_const_v<T>) return reinterpret_cast<const Tav8u*>(p);
    else return reinterpret_cast<Tav8u*>(p);
}

template <class Bits>
struct LogicBin {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s1, std::ptrdiff_t t1, const T* s2, std::ptrdiff_t t2, T* d, std::ptrdiff_t td,
                             int64_t w, int64_t h) {
            Bin<Bits> op{};
            // Bits don't care for elements: only AC4 needs the element pattern.
            if constexpr (L == Layout::AC4) binary_rows<T, L>(op, s2, t2, s1, t1, d, td, w, h);
            else binary_rows<Tav8u, Layout::C1>(op, bytes_of(s2), t2, bytes_of(s1), t1, bytes_of(d), td,
                                                 w * kChannels<L> * int64_t(sizeof(T)), h);
            return tavOk;
        }
    };
};

template <class Bits>
struct LogicConst {
    template <class T, Layout L>
    struct Rows {
        // The kernel of the layout, without the reduction of equal constants.
        static TavStatus kernel(const T* s, std::ptrdiff_t ts, const T* v, T* d, std::ptrdiff_t td, int64_t w, int64_t h) {
            const Konst<T> k = konst_of<T, L>(v);
            WithK<Bits> op{};
            const_rows<T, L, Gate::RowQuarter>(op, s, ts, k, d, td, w, h);
            return tavOk;
        }
        // A C3 or C4 constant with equal entries is the one-channel call over
        // a row as many times as wide.
        static TavStatus run(const T* s, std::ptrdiff_t ts, const T* v, T* d, std::ptrdiff_t td, int64_t w, int64_t h) {
            if constexpr (L == Layout::C3 || L == Layout::C4) {
                bool same = true;
                for (int c = 1; c < kChannels<L>; ++c) same = same && v[c] == v[0];
                if (same) {
                    const TaviSize wide{static_cast<int>(static_cast<uint32_t>(w) * kChannels<L>), static_cast<int>(h)};
                    return const_entry<T, Layout::C1, Rows<T, Layout::C1>, Checks::StepsThenSize>(s, int(ts), v, d, int(td), wide);
                }
            }
            return kernel(s, ts, v, d, td, w, h);
        }
    };
};

template <class T, Layout L>
using AndR = LogicBin<AndBits>::Rows<T, L>;
template <class T, Layout L>
using OrR = LogicBin<OrBits>::Rows<T, L>;
template <class T, Layout L>
using XorR = LogicBin<XorBits>::Rows<T, L>;
template <class T, Layout L>
using AndCR = LogicConst<AndBits>::Rows<T, L>;
template <class T, Layout L>
using OrCR = LogicConst<OrBits>::Rows<T, L>;
template <class T, Layout L>
using XorCR = LogicConst<XorBits>::Rows<T, L>;

// The complement is the exclusive-or kernel of the layout with all ones.
template <Layout L>
TavStatus not_entry(const Tav8u* s, int ts, Tav8u* d, int td, TaviSize roi) {
    if (any_null(s, d)) return tavErrNullPtr;
    if (bad_step(ts, td)) return tavErrStep;
    if (bad_size(roi)) return tavErrSize;
    const Tav8u ones[4] = {255, 255, 255, 255};
    return XorCR<Tav8u, L>::kernel(s, ts, ones, d, td, roi.width, roi.height);
}

}  // namespace tav::arith
