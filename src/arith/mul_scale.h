// Products of values that stand for 0..1 (0 to the type's maximum M):
// round(a * b / M), as t = a * b + M/2 + 1/2, (t + (t >> k)) >> k with k the
// element width, an exact division by M with rounding. Checks: pointers,
// steps, size.
#pragma once

#include <immintrin.h>

#include "arith/entry_shapes.h"

namespace tav::arith {

template <class T>
struct OpMulScale;

template <>
struct OpMulScale<Tav8u> {
    static __m512i half(__m512i x, __m512i y) {
        const __m512i t = _mm512_add_epi16(_mm512_mullo_epi16(x, y), _mm512_set1_epi16(128));
        return _mm512_srli_epi16(_mm512_add_epi16(t, _mm512_srli_epi16(t, 8)), 8);
    }
    __m512i operator()(__m512i x, __m512i y) const {
        const __m512i z = _mm512_setzero_si512();
        return _mm512_packus_epi16(half(_mm512_unpacklo_epi8(x, z), _mm512_unpacklo_epi8(y, z)),
                                   half(_mm512_unpackhi_epi8(x, z), _mm512_unpackhi_epi8(y, z)));
    }
};

// 16u in 16-bit lanes: with the product h:l, t = h:l + 0x8000 has high half
// h' = h + (l >> 15) and low half l ^ 0x8000; adding t >> 16 carries into the
// high half exactly when h' > 0xffff - (l ^ 0x8000) = l ^ 0x7fff.
template <>
struct OpMulScale<Tav16u> {
    __m512i operator()(__m512i x, __m512i y) const {
        const __m512i l = _mm512_mullo_epi16(x, y);
        const __m512i h = _mm512_add_epi16(_mm512_mulhi_epu16(x, y), _mm512_srli_epi16(l, 15));
        const __mmask32 carry = _mm512_cmpgt_epu16_mask(h, _mm512_xor_si512(l, _mm512_set1_epi16(0x7fff)));
        return _mm512_mask_add_epi16(h, carry, h, _mm512_set1_epi16(1));
    }
};

struct MulScaleBin {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s1, std::ptrdiff_t t1, const T* s2, std::ptrdiff_t t2, T* d, std::ptrdiff_t td,
                             int64_t w, int64_t h) {
            Bin<OpMulScale<T>> op{};
            binary_rows<T, L>(op, s1, t1, s2, t2, d, td, w, h);
            return tavOk;
        }
    };
};

struct MulScaleConst {
    template <class T, Layout L>
    struct Rows {
        static TavStatus run(const T* s, std::ptrdiff_t ts, const T* v, T* d, std::ptrdiff_t td, int64_t w, int64_t h) {
            const Konst<T> k = konst_of<T, L>(v);
            WithK<OpMulScale<T>> op{};
            const_rows<T, L>(op, s, ts, k, d, td, w, h);
            return tavOk;
        }
    };
};

}  // namespace tav::arith
