// taviCopy in one layout, its 64-bit twins and the managed copy.
#include "frame/entry.h"
#include "move/copy_kernels.h"

namespace tav::move {
namespace {

// Only pointers and size are checked: steps are used as given.
template <int PixelBytes>
TavStatus copy_image(const void* s, int srcStep, void* d, int dstStep, TaviSize roi) {
    if (any_null(s, d)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    copy_block(s, srcStep, d, dstStep, std::int64_t{roi.width} * PixelBytes, roi.height);
    return tavOk;
}

// The first three elements of each four.
template <class T>
constexpr KeepMask kAlphaKept(4 * sizeof(T), 3 * sizeof(T));

template <class T>
TavStatus copy_ac4(const T* s, int srcStep, T* d, int dstStep, TaviSize roi) {
    if (any_null(s, d)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    std::int64_t rowBytes = std::int64_t{roi.width} * 4 * sizeof(T);
    std::int64_t h = roi.height;
    if (srcStep == rowBytes && dstStep == rowBytes) {
        rowBytes *= h;
        h = 1;
    }
    for_rows(s, srcStep, d, dstStep, h, [&](const T* sr, T* dr) { copy_row_keep(sr, dr, rowBytes, kAlphaKept<T>); });
    return tavOk;
}

// The 64-bit twins: a row in one kernel call up to 0x40000000 elements,
// in pieces of that many above.
template <class T, int Channels, bool Alpha>
TavStatus copy_long(const T* s, std::int64_t srcStep, T* d, std::int64_t dstStep, TaviSizeL roi) {
    if (any_null(s, d)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    constexpr std::int64_t kPiece = 0x40000000;
    const std::int64_t elems = roi.width * Channels;
    for_rows(s, srcStep, d, dstStep, roi.height, [&](const T* sr, T* dr) {
        for (std::int64_t x = 0; x < elems; x += kPiece) {
            const std::int64_t n = elems - x < kPiece ? elems - x : kPiece;
            if constexpr (Alpha) copy_row_keep(sr + x, dr + x, n * sizeof(T), kAlphaKept<T>);
            else copy_row(sr + x, dr + x, n * sizeof(T));
        }
    });
    return tavOk;
}

// Managed copy rows: non-temporal loads from a line-aligned source and/or
// non-temporal stores to a line-aligned destination, as the caller asks.
template <bool StreamLoads, bool StreamStores>
void managed_row(const byte* s, byte* d, std::size_t n) {
    std::size_t head = (0 - reinterpret_cast<std::uintptr_t>(StreamLoads ? static_cast<const void*>(s) : d)) & 63;
    if (head > n) head = n;
    copy_masked(s, d, byte_lanes(head));
    std::size_t i = head;
    for (; i + 64 <= n; i += 64) {
        __m512i v;
        if constexpr (StreamLoads)
            v = _mm512_stream_load_si512(const_cast<void*>(static_cast<const void*>(s + i)));
        else
            v = _mm512_loadu_si512(s + i);
        if constexpr (StreamStores) {
            if constexpr (StreamLoads) {
                // The destination may sit off the line that the source is on.
                if ((reinterpret_cast<std::uintptr_t>(d + i) & 63) == 0)
                    _mm512_stream_si512(reinterpret_cast<__m512i*>(d + i), v);
                else
                    _mm512_storeu_si512(d + i, v);
            } else {
                _mm512_stream_si512(reinterpret_cast<__m512i*>(d + i), v);
            }
        } else {
            _mm512_storeu_si512(d + i, v);
        }
    }
    if (i < n) copy_masked(s + i, d + i, byte_lanes(n - i));
}

template <bool StreamLoads, bool StreamStores>
void managed_rows(const byte* s, int ss, byte* d, int ds, std::size_t w, std::int64_t h) {
    for_rows(s, ss, d, ds, h, [&](const byte* sr, byte* dr) { managed_row<StreamLoads, StreamStores>(sr, dr, w); });
}

}  // namespace
}  // namespace tav::move

using namespace tav;
using namespace tav::move;

TavStatus own_taviCopy_8u_C1R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<1>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_8u_C3R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<3>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_16u_C1R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<2>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_16u_C3R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<6>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_16u_C4R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<8>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_16s_C1R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<2>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_16s_C3R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<6>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_16s_C4R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<8>(pSrc, srcStep, pDst, dstStep, roiSize);
}
// Shared with taviCopy_32f_C1R and taviCopy_8u_C4R: four bytes a pixel.
TavStatus own_taviCopy_32s_C1R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<4>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_32s_C3R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<12>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_32s_C4R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) {
    return copy_image<16>(pSrc, srcStep, pDst, dstStep, roiSize);
}

TavStatus own_taviCopy_8u_AC4R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) {
    return copy_ac4(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_16u_AC4R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) {
    return copy_ac4(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_16s_AC4R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) {
    return copy_ac4(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_32s_AC4R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) {
    return copy_ac4(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_32f_AC4R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize) {
    return copy_ac4(pSrc, srcStep, pDst, dstStep, roiSize);
}

TavStatus own_taviCopy_8u_C1R_L(const Tav8u* pSrc, int64_t srcStep, Tav8u* pDst, int64_t dstStep, TaviSizeL roiSize) {
    return copy_long<Tav8u, 1, false>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_8u_C3R_L(const Tav8u* pSrc, int64_t srcStep, Tav8u* pDst, int64_t dstStep, TaviSizeL roiSize) {
    return copy_long<Tav8u, 3, false>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_8u_C4R_L(const Tav8u* pSrc, int64_t srcStep, Tav8u* pDst, int64_t dstStep, TaviSizeL roiSize) {
    return copy_long<Tav8u, 4, false>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_8u_AC4R_L(const Tav8u* pSrc, int64_t srcStep, Tav8u* pDst, int64_t dstStep,
                                 TaviSizeL roiSize) {
    return copy_long<Tav8u, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_32f_C1R_L(const Tav32f* pSrc, int64_t srcStep, Tav32f* pDst, int64_t dstStep,
                                 TaviSizeL roiSize) {
    return copy_long<Tav32f, 1, false>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_32f_C3R_L(const Tav32f* pSrc, int64_t srcStep, Tav32f* pDst, int64_t dstStep,
                                 TaviSizeL roiSize) {
    return copy_long<Tav32f, 3, false>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_32f_C4R_L(const Tav32f* pSrc, int64_t srcStep, Tav32f* pDst, int64_t dstStep,
                                 TaviSizeL roiSize) {
    return copy_long<Tav32f, 4, false>(pSrc, srcStep, pDst, dstStep, roiSize);
}
TavStatus own_taviCopy_32f_AC4R_L(const Tav32f* pSrc, int64_t srcStep, Tav32f* pDst, int64_t dstStep,
                                  TaviSizeL roiSize) {
    return copy_long<Tav32f, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize);
}

TavStatus own_taviCopyManaged_8u_C1R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize,
                                     int flags) {
    if (any_null(pSrc, pDst)) return tavErrNullPtr;
    if (bad_size(roiSize)) return tavErrSize;
    std::size_t w = static_cast<std::size_t>(roiSize.width);
    std::int64_t h = roiSize.height;
    if (srcStep == roiSize.width && dstStep == roiSize.width) {
        w *= static_cast<std::size_t>(h);
        h = 1;
    }
    const bool streamLoads = flags & 2, streamStores = flags & 1;
    if (streamLoads && streamStores) managed_rows<true, true>(pSrc, srcStep, pDst, dstStep, w, h);
    else if (streamLoads) managed_rows<true, false>(pSrc, srcStep, pDst, dstStep, w, h);
    else if (streamStores) managed_rows<false, true>(pSrc, srcStep, pDst, dstStep, w, h);
    else managed_rows<false, false>(pSrc, srcStep, pDst, dstStep, w, h);
    if (streamStores) _mm_sfence();
    return tavOk;
}
