// Masked copies and fills: a pixel moves (or takes the value) where its mask
// byte is not zero. A mask row is read once for all channels.
#include <cstring>

#include "frame/entry.h"
#include "move/keep_mask.h"
#include "move/set_kernels.h"

namespace tav::move {
namespace {

// A block is one vector of pixels: 64 bytes of one- or four-channel pixels,
// 48 of three-channel ones, so that every block starts on a pixel.
template <int Es, int Channels>
struct MaskedBlock {
    static constexpr int kPixelBytes = Es * Channels;
    static constexpr int kPixels = (Channels == 3 ? 48 : 64) / kPixelBytes;
    // Bit 0 of every pixel's bytes, and a pixel's bytes from bit 0.
    static constexpr std::uint64_t kFirst = [] {
        std::uint64_t m = 0;
        for (int p = 0; p < kPixels; ++p) m |= 1ull << (p * kPixelBytes);
        return m;
    }();
    static constexpr std::uint64_t kPixel = kPixelBytes == 64 ? ~0ull : (1ull << kPixelBytes) - 1;

    // The bytes of the pixels whose mask byte is set, of the first n pixels
    // (a whole block when Whole).
    template <bool Whole = false>
    static std::uint64_t bytes(const byte* mask, std::size_t n) {
        const __m512i m = Whole && kPixels == 64 ? _mm512_loadu_si512(mask)
                                                 : _mm512_maskz_loadu_epi8(_bzhi_u64(~0ull, static_cast<unsigned>(n)), mask);
        const std::uint64_t set = _mm512_test_epi8_mask(m, m);
        if constexpr (kPixelBytes == 1) return set;
        else return _pdep_u64(set, kFirst) * kPixel;
    }
};

// op(y, offset, row, bytes, whole): whole blocks of one-byte pixels may be
// written in full, the unselected bytes with what they hold.
template <int Es, int Channels, bool Alpha, class Op>
void masked_rows(byte* d, int dstStep, const byte* mask, int maskStep, TaviSize roi, Op op) {
    using B = MaskedBlock<Es, Channels>;
    // AC4: alpha bytes are never written.
    const std::uint64_t keep = Alpha ? KeepMask(4 * Es, 3 * Es).at(0) : ~0ull;
    const auto w = static_cast<std::size_t>(roi.width);
    for (int y = 0; y < roi.height; ++y, d += dstStep, mask += maskStep) {
        std::size_t x = 0;
        for (; x + B::kPixels <= w; x += B::kPixels)
            if (const std::uint64_t m = B::template bytes<true>(mask + x, B::kPixels) & keep)
                op(y, x * B::kPixelBytes, d, m, B::kPixelBytes == 1);
        if (x < w)
            if (const std::uint64_t m = B::bytes(mask + x, w - x) & keep) op(y, x * B::kPixelBytes, d, m, false);
    }
}

template <class T, int Channels, bool Alpha>
TavStatus masked_copy(const T* src, int srcStep, T* dst, int dstStep, TaviSize roi, const Tav8u* mask, int maskStep) {
    if (any_null(src, dst, mask)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    const auto* s = reinterpret_cast<const byte*>(src);
    masked_rows<sizeof(T), Channels, Alpha>(reinterpret_cast<byte*>(dst), dstStep, mask, maskStep, roi,
                                            [&](int y, std::size_t off, byte* row, std::uint64_t m, bool whole) {
                                                const byte* sr = s + std::ptrdiff_t{y} * srcStep + off;
                                                // A masked store costs more here than a blend and a whole
                                                // store; with three streams the source is asked for ahead
                                                // (a hint, never a read).
                                                if (whole) {
                                                    _mm_prefetch(reinterpret_cast<const char*>(sr) + 4096, _MM_HINT_T0);
                                                    const __m512i old = _mm512_loadu_si512(row + off);
                                                    _mm512_storeu_si512(row + off, _mm512_mask_blend_epi8(m, old, _mm512_loadu_si512(sr)));
                                                } else {
                                                    _mm512_mask_storeu_epi8(row + off, m, _mm512_maskz_loadu_epi8(m, sr));
                                                }
                                            });
    return tavOk;
}

template <class T, int Channels, bool Alpha>
TavStatus masked_set(const T* value, T* dst, int dstStep, TaviSize roi, const Tav8u* mask, int maskStep) {
    if (any_null(value, dst, mask)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    // Blocks start on a pixel, so one vector of the repeated value serves all.
    const int stored = Alpha ? 4 : Channels;
    T pixel[4] = {};
    std::memcpy(pixel, value, (Alpha ? 3 : Channels) * sizeof(T));
    const Pattern pattern(pixel, stored * sizeof(T), stored * sizeof(T));
    const __m512i v = _mm512_load_si512(pattern.bytes);
    masked_rows<sizeof(T), Alpha ? 4 : Channels, Alpha>(
        reinterpret_cast<byte*>(dst), dstStep, mask, maskStep, roi,
        [&](int, std::size_t off, byte* row, std::uint64_t m, bool) { _mm512_mask_storeu_epi8(row + off, m, v); });
    return tavOk;
}

}  // namespace
}  // namespace tav::move

using namespace tav::move;

// clang-format off
#define TAV_COPY_MR(t, T)                                                                                                  \
    TavStatus own_taviCopy_##t##_C3MR(const T* pSrc, int srcStep, T* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_copy<T, 3, false>(pSrc, srcStep, pDst, dstStep, roiSize, pMask, maskStep); } \
    TavStatus own_taviCopy_##t##_C4MR(const T* pSrc, int srcStep, T* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_copy<T, 4, false>(pSrc, srcStep, pDst, dstStep, roiSize, pMask, maskStep); }
TAV_COPY_MR(8u, Tav8u)
TAV_COPY_MR(16u, Tav16u)
TAV_COPY_MR(16s, Tav16s)
TAV_COPY_MR(32s, Tav32s)
TAV_COPY_MR(32f, Tav32f)
#undef TAV_COPY_MR
TavStatus own_taviCopy_8u_C1MR(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_copy<Tav8u, 1, false>(pSrc, srcStep, pDst, dstStep, roiSize, pMask, maskStep); }
TavStatus own_taviCopy_16u_C1MR(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_copy<Tav16u, 1, false>(pSrc, srcStep, pDst, dstStep, roiSize, pMask, maskStep); }
TavStatus own_taviCopy_16s_C1MR(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_copy<Tav16s, 1, false>(pSrc, srcStep, pDst, dstStep, roiSize, pMask, maskStep); }
// Shared with taviCopy_32f_C1MR.
TavStatus own_taviCopy_32s_C1MR(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_copy<Tav32s, 1, false>(pSrc, srcStep, pDst, dstStep, roiSize, pMask, maskStep); }
TavStatus own_taviCopy_8u_AC4MR(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_copy<Tav8u, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize, pMask, maskStep); }
TavStatus own_taviCopy_16u_AC4MR(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_copy<Tav16u, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize, pMask, maskStep); }
TavStatus own_taviCopy_16s_AC4MR(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_copy<Tav16s, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize, pMask, maskStep); }
// Shared with taviCopy_32f_AC4MR.
TavStatus own_taviCopy_32s_AC4MR(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_copy<Tav32s, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize, pMask, maskStep); }

#define TAV_SET_MR(t, T)                                                                                                   \
    TavStatus own_taviSet_##t##_C1MR(T value, T* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_set<T, 1, false>(&value, pDst, dstStep, roiSize, pMask, maskStep); } \
    TavStatus own_taviSet_##t##_C3MR(const T value[3], T* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_set<T, 3, false>(value, pDst, dstStep, roiSize, pMask, maskStep); } \
    TavStatus own_taviSet_##t##_C4MR(const T value[4], T* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_set<T, 4, false>(value, pDst, dstStep, roiSize, pMask, maskStep); }
TAV_SET_MR(8u, Tav8u)
TAV_SET_MR(16u, Tav16u)
TAV_SET_MR(16s, Tav16s)
TAV_SET_MR(32s, Tav32s)
TAV_SET_MR(32f, Tav32f)
#undef TAV_SET_MR
TavStatus own_taviSet_8u_AC4MR(const Tav8u value[3], Tav8u* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_set<Tav8u, 3, true>(value, pDst, dstStep, roiSize, pMask, maskStep); }
TavStatus own_taviSet_16u_AC4MR(const Tav16u value[3], Tav16u* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_set<Tav16u, 3, true>(value, pDst, dstStep, roiSize, pMask, maskStep); }
TavStatus own_taviSet_16s_AC4MR(const Tav16s value[3], Tav16s* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_set<Tav16s, 3, true>(value, pDst, dstStep, roiSize, pMask, maskStep); }
// Shared with taviSet_32f_AC4MR.
TavStatus own_taviSet_32s_AC4MR(const Tav32s value[3], Tav32s* pDst, int dstStep, TaviSize roiSize, const Tav8u* pMask, int maskStep) { return masked_set<Tav32s, 3, true>(value, pDst, dstStep, roiSize, pMask, maskStep); }
// clang-format on
