// taviSet: fills of one layout and of one channel.
#include <cstring>

#include "frame/cache.h"
#include "frame/entry.h"
#include "move/set_kernels.h"

namespace tav::move {
namespace {

// A contiguous image is filled as one row.
inline void as_one_row(std::int64_t rowBytes, int step, std::int64_t& bytes, std::int64_t& h) {
    bytes = rowBytes;
    if (step == rowBytes) {
        bytes = rowBytes * h;
        h = 1;
    }
}

template <class T>
TavStatus set_c1(T value, T* d, int step, TaviSize roi) {
    if (any_null(d)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    std::int64_t bytes, h = roi.height;
    as_one_row(std::int64_t{roi.width} * sizeof(T), step, bytes, h);
    const std::size_t n = static_cast<std::size_t>(bytes) / sizeof(T);
    for_rows(d, step, h, [&](T* r) { set_row(r, value, n); });
    return tavOk;
}

// Whole-pixel fills of three or four channels; AC4 skips alpha. Four-channel
// 32-bit fills stream when the image outgrows the cache.
template <class T, int Channels, int Kept, bool GatedStream = false>
TavStatus set_pixels(const T* value, T* d, int step, TaviSize roi) {
    if (any_null(value, d)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    T pixel[4] = {};
    std::memcpy(pixel, value, Kept * sizeof(T));
    const Pattern pattern(pixel, Channels * sizeof(T), Kept * sizeof(T));
    std::int64_t bytes, h = roi.height;
    as_one_row(std::int64_t{roi.width} * Channels * sizeof(T), step, bytes, h);
    Stores how = Stores::Cached;
    if constexpr (GatedStream) {
        const std::int64_t traffic = std::int64_t{roi.width} * roi.height * 16;
        if (traffic > 0x80000) {
            long long c = cache_bytes();
            if (c >= 0 && traffic >= c) how = Stores::Streaming;
        }
    }
    for_rows(d, step, h, [&](T* r) { fill_pattern(reinterpret_cast<byte*>(r), bytes, pattern, how); });
    if (how == Stores::Streaming) _mm_sfence();
    return tavOk;
}

// One channel of each pixel; the pointer stands on it, so a row spans
// (Channels * (width - 1) + 1) elements.
template <class T, int Channels>
TavStatus set_channel(T value, T* d, int step, TaviSize roi) {
    if (any_null(d)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    T pixel[4] = {value};
    const Pattern pattern(pixel, Channels * sizeof(T), sizeof(T));
    std::int64_t h = roi.height;
    std::int64_t elems = std::int64_t{Channels} * (roi.width - 1) + 1;
    if (step == std::int64_t{roi.width} * Channels * std::int64_t{sizeof(T)}) {
        elems = std::int64_t{Channels} * (std::int64_t{roi.width} * h - 1) + 1;
        h = 1;
    }
    const std::size_t bytes = static_cast<std::size_t>(elems) * sizeof(T);
    for_rows(d, step, h, [&](T* r) { fill_pattern(reinterpret_cast<byte*>(r), bytes, pattern, Stores::Cached); });
    return tavOk;
}

}  // namespace
}  // namespace tav::move

using namespace tav::move;

TavStatus own_taviSet_8u_C1R(Tav8u value, Tav8u* pDst, int dstStep, TaviSize roiSize) {
    return set_c1(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16u_C1R(Tav16u value, Tav16u* pDst, int dstStep, TaviSize roiSize) {
    return set_c1(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16s_C1R(Tav16s value, Tav16s* pDst, int dstStep, TaviSize roiSize) {
    return set_c1(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_32s_C1R(Tav32s value, Tav32s* pDst, int dstStep, TaviSize roiSize) {
    return set_c1(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_32f_C1R(Tav32f value, Tav32f* pDst, int dstStep, TaviSize roiSize) {
    return set_c1(value, pDst, dstStep, roiSize);
}

TavStatus own_taviSet_8u_C3R(const Tav8u value[3], Tav8u* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav8u, 3, 3>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16u_C3R(const Tav16u value[3], Tav16u* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav16u, 3, 3>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16s_C3R(const Tav16s value[3], Tav16s* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav16s, 3, 3>(value, pDst, dstStep, roiSize);
}
// Shared with taviSet_32f_C3R.
TavStatus own_taviSet_32s_C3R(const Tav32s value[3], Tav32s* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav32s, 3, 3>(value, pDst, dstStep, roiSize);
}

TavStatus own_taviSet_8u_AC4R(const Tav8u value[3], Tav8u* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav8u, 4, 3>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16u_AC4R(const Tav16u value[3], Tav16u* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav16u, 4, 3>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16s_AC4R(const Tav16s value[3], Tav16s* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav16s, 4, 3>(value, pDst, dstStep, roiSize);
}
// Shared with taviSet_32f_AC4R.
TavStatus own_taviSet_32s_AC4R(const Tav32s value[3], Tav32s* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav32s, 4, 3>(value, pDst, dstStep, roiSize);
}

TavStatus own_taviSet_8u_C4R(const Tav8u value[4], Tav8u* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav8u, 4, 4>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16u_C4R(const Tav16u value[4], Tav16u* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav16u, 4, 4>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16s_C4R(const Tav16s value[4], Tav16s* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav16s, 4, 4>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_32s_C4R(const Tav32s value[4], Tav32s* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav32s, 4, 4, true>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_32f_C4R(const Tav32f value[4], Tav32f* pDst, int dstStep, TaviSize roiSize) {
    return set_pixels<Tav32f, 4, 4, true>(value, pDst, dstStep, roiSize);
}

TavStatus own_taviSet_8u_C3CR(Tav8u value, Tav8u* pDst, int dstStep, TaviSize roiSize) {
    return set_channel<Tav8u, 3>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16u_C3CR(Tav16u value, Tav16u* pDst, int dstStep, TaviSize roiSize) {
    return set_channel<Tav16u, 3>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16s_C3CR(Tav16s value, Tav16s* pDst, int dstStep, TaviSize roiSize) {
    return set_channel<Tav16s, 3>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_32s_C3CR(Tav32s value, Tav32s* pDst, int dstStep, TaviSize roiSize) {
    return set_channel<Tav32s, 3>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_32f_C3CR(Tav32f value, Tav32f* pDst, int dstStep, TaviSize roiSize) {
    return set_channel<Tav32f, 3>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_8u_C4CR(Tav8u value, Tav8u* pDst, int dstStep, TaviSize roiSize) {
    return set_channel<Tav8u, 4>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16u_C4CR(Tav16u value, Tav16u* pDst, int dstStep, TaviSize roiSize) {
    return set_channel<Tav16u, 4>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_16s_C4CR(Tav16s value, Tav16s* pDst, int dstStep, TaviSize roiSize) {
    return set_channel<Tav16s, 4>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_32s_C4CR(Tav32s value, Tav32s* pDst, int dstStep, TaviSize roiSize) {
    return set_channel<Tav32s, 4>(value, pDst, dstStep, roiSize);
}
TavStatus own_taviSet_32f_C4CR(Tav32f value, Tav32f* pDst, int dstStep, TaviSize roiSize) {
    return set_channel<Tav32f, 4>(value, pDst, dstStep, roiSize);
}
