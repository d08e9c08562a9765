// taviBinToGray and taviGrayToBin: one bit a pixel, least significant bit
// first, from a bit offset of each row.
//
// Rows go 64 pixels at a time: a 64-bit word of pixel bits is the mask that
// selects or that a comparison gives. Reads of the packed row stop at its
// last byte; the first and last bytes of a written bit row are merged so
// bits outside the run keep their values.
#include "move/convert_lanes.h"

#include <algorithm>
#include <cstdint>

#include "frame/entry.h"

namespace {

using namespace tav;

// 64 bits starting at bit b (0..7) of q, reading at most `avail` bytes.
inline uint64_t load_bits(const uint8_t* q, unsigned b, int64_t avail) {
    const auto n = static_cast<unsigned>(std::min<int64_t>(avail, 9));
    __m128i x = _mm_maskz_loadu_epi8(static_cast<__mmask16>(_bzhi_u32(0xffffu, n)), q);
    const auto lo = static_cast<uint64_t>(_mm_cvtsi128_si64(x));
    const auto hi = static_cast<uint64_t>(_mm_extract_epi8(x, 8));
    return b ? (lo >> b) | (hi << (64 - b)) : lo;
}

// Pixels of type D from 64 bits: set bits pick hi.
template <class D>
inline void expand(D* d, uint64_t bits, int64_t n, D lo, D hi) {
    constexpr int lanes = 64 / sizeof(D);
    for (int64_t k = 0; k * lanes < std::min<int64_t>(n, 64); ++k) {
        const uint64_t sel = bits >> (k * lanes);
        const uint64_t m = _bzhi_u64(~0ull, static_cast<unsigned>(std::min<int64_t>(n - k * lanes, lanes)));
        D* p = d + k * lanes;
        if constexpr (sizeof(D) == 1) {
            __m512i v = _mm512_mask_blend_epi8(sel, _mm512_set1_epi8(static_cast<char>(lo)), _mm512_set1_epi8(static_cast<char>(hi)));
            _mm512_mask_storeu_epi8(p, m, v);
        } else if constexpr (sizeof(D) == 2) {
            __m512i v = _mm512_mask_blend_epi16(static_cast<__mmask32>(sel), _mm512_set1_epi16(static_cast<short>(lo)),
                                                _mm512_set1_epi16(static_cast<short>(hi)));
            _mm512_mask_storeu_epi16(p, static_cast<__mmask32>(m), v);
        } else {
            __m512 v = _mm512_mask_blend_ps(static_cast<__mmask16>(sel), _mm512_set1_ps(lo), _mm512_set1_ps(hi));
            _mm512_mask_storeu_ps(p, static_cast<__mmask16>(m), v);
        }
    }
}

template <class D>
void bin_to_gray_row(const uint8_t* src, int offset, D* dst, int64_t width, D lo, D hi) {
    const uint8_t* q = src + (offset >> 3);
    const unsigned b = offset & 7;
    const int64_t bytes = (b + width + 7) / 8;
    for (int64_t i = 0; i < width; i += 64)
        expand(dst + i, load_bits(q + i / 8, b, bytes - i / 8), width - i, lo, hi);
}

// Bits of x > t for up to 64 pixels from s (n of them; the rest are 0).
template <class S>
inline uint64_t above(const S* s, int64_t n, S t) {
    constexpr int lanes = 64 / sizeof(S);
    uint64_t bits = 0;
    for (int k = 0; k * lanes < 64 && k * lanes < n; ++k) {
        const uint64_t m = _bzhi_u64(~0ull, static_cast<unsigned>(std::min<int64_t>(n - k * lanes, lanes)));
        const S* p = s + k * lanes;
        uint64_t g;
        if constexpr (std::is_same_v<S, Tav8u>)
            g = _mm512_mask_cmpgt_epu8_mask(m, _mm512_maskz_loadu_epi8(m, p), _mm512_set1_epi8(static_cast<char>(t)));
        else if constexpr (std::is_same_v<S, Tav16u>)
            g = _mm512_mask_cmpgt_epu16_mask(static_cast<__mmask32>(m), _mm512_maskz_loadu_epi16(static_cast<__mmask32>(m), p),
                                             _mm512_set1_epi16(static_cast<short>(t)));
        else if constexpr (std::is_same_v<S, Tav16s>)
            g = _mm512_mask_cmpgt_epi16_mask(static_cast<__mmask32>(m), _mm512_maskz_loadu_epi16(static_cast<__mmask32>(m), p),
                                             _mm512_set1_epi16(t));
        else
            g = _mm512_mask_cmp_ps_mask(static_cast<__mmask16>(m), _mm512_maskz_loadu_ps(static_cast<__mmask16>(m), p),
                                        _mm512_set1_ps(t), _CMP_GT_OQ);
        bits |= g << (k * lanes);
    }
    return bits;
}

template <class S>
void gray_to_bin_row(const S* src, uint8_t* dst, int offset, int64_t width, S t) {
    uint8_t* q = dst + (offset >> 3);
    const unsigned b = offset & 7;
    // Bits below the offset in the first byte ride along with the first word.
    uint64_t carry = q[0] & ((1u << b) - 1);
    int64_t i = 0;
    for (; i + 64 <= width; i += 64, q += 8) {
        const uint64_t k = above(src + i, 64, t);
        const uint64_t word = carry | (k << b);
        carry = b ? k >> (64 - b) : 0;
        _mm_storel_epi64(reinterpret_cast<__m128i*>(q), _mm_cvtsi64_si128(static_cast<long long>(word)));
    }
    const int64_t r = width - i;
    const uint64_t k = r ? above(src + i, r, t) : 0;
    const auto nbits = static_cast<unsigned>(b + r);
    const uint64_t lo = carry | (k << b);
    const uint64_t hi = b ? k >> (64 - b) : 0;
    const __m128i x = _mm_set_epi64x(static_cast<long long>(hi), static_cast<long long>(lo));
    _mm_mask_storeu_epi8(q, static_cast<__mmask16>(_bzhi_u32(0xffffu, nbits / 8)), x);
    if (const unsigned rem = nbits & 7) {
        alignas(16) uint8_t tmp[16];
        _mm_store_si128(reinterpret_cast<__m128i*>(tmp), x);
        const auto keep = static_cast<uint8_t>(0xffu << rem);
        q[nbits / 8] = static_cast<uint8_t>((q[nbits / 8] & keep) | (tmp[nbits / 8] & ~keep));
    }
}

template <class D>
TavStatus bin_to_gray(const Tav8u* pSrc, int srcStep, int offset, D* pDst, int dstStep, TaviSize roi, D lo, D hi) {
    if (any_null(pSrc, pDst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (bad_step(srcStep, dstStep)) return tavErrStep;
    for_rows(pSrc, srcStep, pDst, dstStep, roi.height,
             [&](const Tav8u* s, D* d) { bin_to_gray_row(s, offset, d, roi.width, lo, hi); });
    return tavOk;
}

template <class S>
TavStatus gray_to_bin(const S* pSrc, int srcStep, Tav8u* pDst, int dstStep, int offset, TaviSize roi, S t) {
    if (any_null(pSrc, pDst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (bad_step(srcStep, dstStep)) return tavErrStep;
    for_rows(pSrc, srcStep, pDst, dstStep, roi.height,
             [&](const S* s, Tav8u* d) { gray_to_bin_row(s, d, offset, roi.width, t); });
    return tavOk;
}

}  // namespace

// clang-format off
TavStatus own_taviBinToGray_1u8u_C1R(const Tav8u* s, int ss, int o, Tav8u* d, int ds, TaviSize r, Tav8u lo, Tav8u hi) { return bin_to_gray(s, ss, o, d, ds, r, lo, hi); }
TavStatus own_taviBinToGray_1u16u_C1R(const Tav8u* s, int ss, int o, Tav16u* d, int ds, TaviSize r, Tav16u lo, Tav16u hi) { return bin_to_gray(s, ss, o, d, ds, r, lo, hi); }
TavStatus own_taviBinToGray_1u16s_C1R(const Tav8u* s, int ss, int o, Tav16s* d, int ds, TaviSize r, Tav16s lo, Tav16s hi) { return bin_to_gray(s, ss, o, d, ds, r, lo, hi); }
TavStatus own_taviBinToGray_1u32f_C1R(const Tav8u* s, int ss, int o, Tav32f* d, int ds, TaviSize r, Tav32f lo, Tav32f hi) { return bin_to_gray(s, ss, o, d, ds, r, lo, hi); }
TavStatus own_taviGrayToBin_8u1u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, int o, TaviSize r, Tav8u t) { return gray_to_bin(s, ss, d, ds, o, r, t); }
TavStatus own_taviGrayToBin_16u1u_C1R(const Tav16u* s, int ss, Tav8u* d, int ds, int o, TaviSize r, Tav16u t) { return gray_to_bin(s, ss, d, ds, o, r, t); }
TavStatus own_taviGrayToBin_16s1u_C1R(const Tav16s* s, int ss, Tav8u* d, int ds, int o, TaviSize r, Tav16s t) { return gray_to_bin(s, ss, d, ds, o, r, t); }
TavStatus own_taviGrayToBin_32f1u_C1R(const Tav32f* s, int ss, Tav8u* d, int ds, int o, TaviSize r, Tav32f t) { return gray_to_bin(s, ss, d, ds, o, r, t); }
// clang-format on
