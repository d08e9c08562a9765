// Shifts by constant counts. Left shifts and the right shifts of unsigned
// types are logical: a count at or above the element width gives 0, written
// by the set implementation; a count of 0 is a copy. Right shifts of signed
// types are arithmetic: large counts give the sign fill (-1 or 0).
#pragma once

#include <immintrin.h>

#include <algorithm>
#include <type_traits>

#include "arith/entry_shapes.h"
#include "arith/move_calls.h"

namespace tav::arith {

template <class T>
inline constexpr unsigned kBits = 8 * sizeof(T);

// One count for the whole row.
template <class T, bool Left>
struct ShiftBy {
    __m128i cnt;
    __m512i keep;  // 8u: the bits of each byte that survive the word shift

    explicit ShiftBy(unsigned n)
        : cnt(_mm_cvtsi32_si128(static_cast<int>(std::min(n, kBits<T>)))),
          keep(_mm512_set1_epi8(static_cast<char>(Left ? (0xff << std::min(n, 8u)) & 0xff : 0xff >> std::min(n, 8u)))) {}

    template <class M>
    __m512i apply(__m512i x, __m512i, __m512i, M) const {
        if constexpr (sizeof(T) == 1) return _mm512_and_si512(Left ? _mm512_sll_epi16(x, cnt) : _mm512_srl_epi16(x, cnt), keep);
        else if constexpr (sizeof(T) == 2) {
            if constexpr (Left) return _mm512_sll_epi16(x, cnt);
            else if constexpr (std::is_signed_v<T>) return _mm512_sra_epi16(x, cnt);
            else return _mm512_srl_epi16(x, cnt);
        } else {
            if constexpr (Left) return _mm512_sll_epi32(x, cnt);
            else return _mm512_sra_epi32(x, cnt);
        }
    }
};

// A count for each channel, carried as the row's constant (clamped to the
// element width, which gives the same result as any larger count).
template <class T, bool Left>
struct ShiftEach {
    template <class M>
    __m512i apply(__m512i x, __m512i, __m512i c, M) const {
        if constexpr (sizeof(T) == 1) {
            // Bytes shift as the low and high halves of words, each with its own count.
            const __m512i lowByte = _mm512_set1_epi16(0x00ff), highByte = _mm512_set1_epi16(static_cast<short>(0xff00));
            const __m512i cl = _mm512_and_si512(c, lowByte), ch = _mm512_srli_epi16(c, 8);
            if constexpr (Left)
                return _mm512_or_si512(_mm512_and_si512(_mm512_sllv_epi16(x, cl), lowByte),
                                       _mm512_sllv_epi16(_mm512_and_si512(x, highByte), ch));
            else
                return _mm512_or_si512(_mm512_srlv_epi16(_mm512_and_si512(x, lowByte), cl),
                                       _mm512_and_si512(_mm512_srlv_epi16(x, ch), highByte));
        } else if constexpr (sizeof(T) == 2) {
            if constexpr (Left) return _mm512_sllv_epi16(x, c);
            else if constexpr (std::is_signed_v<T>) return _mm512_srav_epi16(x, c);
            else return _mm512_srlv_epi16(x, c);
        } else {
            if constexpr (Left) return _mm512_sllv_epi32(x, c);
            else return _mm512_srav_epi32(x, c);
        }
    }
};

template <class T, Layout L, class Op>
void unary_rows(Op& op, const T* s, std::ptrdiff_t ts, T* d, std::ptrdiff_t td, int64_t w, int64_t h) {
    for_image<T>(s, ts, nullptr, 0, d, td, row_elems<L>(w), h,
                 [&](const T* a, const T*, T* o, std::size_t n) { run_row<T, 1, 1, L == Layout::AC4>(op, a, a, o, n, nullptr); });
}

template <class T, bool Left>
inline constexpr bool kLogical = Left || std::is_unsigned_v<T>;

template <class T, bool Left>
TavStatus shift_c1(const T* s, int ts, Tav32u n, T* d, int td, TaviSize roi) {
    if (any_null(s, d)) return tavErrNullPtr;
    if (bad_step(ts, td)) return tavErrStep;
    if (bad_size(roi)) return tavErrSize;
    if (kLogical<T, Left> && n > kBits<T> - 1) return set_zero<T, Layout::C1>(d, td, roi);
    if (n == 0) return copy_image<T, Layout::C1>(s, ts, d, td, roi);
    ShiftBy<T, Left> op(n);
    unary_rows<T, Layout::C1>(op, s, ts, d, td, roi.width, roi.height);
    return tavOk;
}

template <class T, bool Left, Layout L>
TavStatus shift_cn(const T* s, int ts, const Tav32u* n, T* d, int td, TaviSize roi) {
    if (any_null(s, n, d)) return tavErrNullPtr;
    if (bad_step(ts, td)) return tavErrStep;
    if (bad_size(roi)) return tavErrSize;
    constexpr int ch = L == Layout::C4 ? 4 : 3;
    bool same = true, allZero = true, allWide = true;
    for (int c = 0; c < ch; ++c) {
        same = same && n[c] == n[0];
        allZero = allZero && n[c] == 0;
        allWide = allWide && n[c] > kBits<T> - 1;
    }
    if (L != Layout::AC4 && same)
        return shift_c1<T, Left>(s, ts, n[0], d, td, TaviSize{static_cast<int>(static_cast<uint32_t>(roi.width) * ch), roi.height});
    if (kLogical<T, Left> && allWide) return set_zero<T, L>(d, td, roi);
    if (allZero) return copy_image<T, L>(s, ts, d, td, roi);
    T counts[4] = {};
    for (int c = 0; c < ch; ++c) counts[c] = static_cast<T>(std::min(n[c], kBits<T>));
    const Konst<T> k = konst_of<T, L>(counts);
    ShiftEach<T, Left> op;
    const_rows<T, L>(op, s, ts, k, d, td, roi.width, roi.height);
    return tavOk;
}

}  // namespace tav::arith
