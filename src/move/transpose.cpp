// taviTranspose, out of place and in place.
#include "frame/entry.h"
#include "move/transpose_kernels.h"
#include "tavcore.h"

namespace tav::move {
namespace {

using transpose::Geometry;
using byte = std::uint8_t;

// The cache size as the transposes read it: the status is ignored, and an
// untouched variable reads as no cache.
inline long long cache_size_unchecked() {
    int c = 0;
    tavGetMaxCacheSizeB(&c);
    return c;
}

// Wide pixels have a kernel of their own for images larger than the cache:
// whole destination lines go out with non-temporal stores when aligned.
enum class Gate { None, Wide16u, Wide32s };

template <int P, Gate G>
bool larger_than_cache(const void* s, int ss, const void* d, int ds, TaviSize roi) {
    const auto sp = reinterpret_cast<std::uintptr_t>(s), dp = reinterpret_cast<std::uintptr_t>(d);
    const std::int64_t traffic = std::int64_t{roi.width} * roi.height * 2 * P;
    if constexpr (G == Gate::Wide16u) {
        if (roi.width <= 384 || ((sp | static_cast<std::uintptr_t>(ss)) & 15) ||
            ((dp | static_cast<std::uintptr_t>(ds)) & 63))
            return false;
        return cache_size_unchecked() < traffic;
    } else if constexpr (G == Gate::Wide32s) {
        if (roi.width <= 256) return false;
        return cache_size_unchecked() < traffic;
    }
    return false;
}

template <int P, Gate G = Gate::None>
void run(const void* src, int ss, void* dst, int ds, TaviSize roi) {
    const auto* s = static_cast<const byte*>(src);
    auto* d = static_cast<byte*>(dst);
    const bool lines = ((reinterpret_cast<std::uintptr_t>(d) | static_cast<std::uintptr_t>(ds)) & 63) == 0;
    if (larger_than_cache<P, G>(src, ss, dst, ds, roi) && lines && Geometry<P>::W * Geometry<P>::TH == 64 &&
        !Geometry<P>::kNarrow)
        transpose::image<P, false, true>(s, ss, d, ds, roi.width, roi.height);
    else
        transpose::image<P, false>(s, ss, d, ds, roi.width, roi.height);
}

// In place: square images in blocks; a block on the diagonal is transposed
// within itself, and pairs of blocks mirrored across it are swapped. Each
// block is transposed into a buffer before anything is written back.
template <int P>
TavStatus in_place(void* img, int step, TaviSize roi) {
    if (img == nullptr) return tavErrNullPtr;
    if (bad_size(roi) || roi.width != roi.height) return tavErrSize;
    using G = Geometry<P>;
    constexpr int B = G::TW > 16 ? G::TW : 16;
    static_assert(B % G::TH == 0 && B % G::TW == 0);
    auto* a = static_cast<byte*>(img);
    const int n = roi.width, nb = n / B;
    alignas(64) byte bufA[B * B * P], bufB[B * B * P];
    auto block = [&](int r, int c) { return a + std::ptrdiff_t(r) * B * step + std::ptrdiff_t(c) * B * P; };
    auto put = [&](const byte* buf, byte* to) {
        for (int i = 0; i < B; ++i) std::memcpy(to + std::ptrdiff_t(i) * step, buf + i * B * P, B * P);
    };
    for (int r = 0; r < nb; ++r) {
        transpose::image<P, false>(block(r, r), step, bufA, B * P, B, B);
        put(bufA, block(r, r));
        for (int c = r + 1; c < nb; ++c) {
            transpose::image<P, false>(block(r, c), step, bufA, B * P, B, B);
            transpose::image<P, false>(block(c, r), step, bufB, B * P, B, B);
            put(bufA, block(c, r));
            put(bufB, block(r, c));
        }
    }
    // Pairs with an index beyond the whole blocks, one by one.
    byte t[P];
    for (int i = nb * B; i < n; ++i)
        for (int j = 0; j < i; ++j) {
            byte* x = a + std::ptrdiff_t(i) * step + std::ptrdiff_t(j) * P;
            byte* y = a + std::ptrdiff_t(j) * step + std::ptrdiff_t(i) * P;
            std::memcpy(t, x, P);
            std::memcpy(x, y, P);
            std::memcpy(y, t, P);
        }
    return tavOk;
}

// Out of place. Equal pointers go to the in-place form before any check,
// which then ignores srcStep; steps are never checked.
template <int P, Gate G = Gate::None>
TavStatus out_of_place(const void* s, int ss, void* d, int ds, TaviSize roi) {
    if (s == d) return in_place<P>(d, ds, roi);
    if (any_null(s, d)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    run<P, G>(s, ss, d, ds, roi);
    return tavOk;
}

}  // namespace
}  // namespace tav::move

using namespace tav::move;

// clang-format off
TavStatus own_taviTranspose_8u_C1R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<1>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_8u_C3R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<3>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_8u_C4R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<4>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_16u_C1R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<2>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_16u_C3R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<6>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_16u_C4R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<8, Gate::Wide16u>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_16s_C1R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<2>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_16s_C3R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<6>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_16s_C4R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<8>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_32s_C1R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<4>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_32s_C3R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<12, Gate::Wide32s>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_32s_C4R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<16, Gate::Wide32s>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_32f_C1R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<4>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_32f_C3R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<12>(pSrc, srcStep, pDst, dstStep, srcRoi); }
TavStatus own_taviTranspose_32f_C4R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize srcRoi) { return out_of_place<16>(pSrc, srcStep, pDst, dstStep, srcRoi); }

TavStatus own_taviTranspose_8u_C1IR(Tav8u* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<1>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_8u_C3IR(Tav8u* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<3>(pSrcDst, srcDstStep, roiSize); }
// Shared with taviTranspose_32f_C1IR: four bytes a pixel.
TavStatus own_taviTranspose_8u_C4IR(Tav8u* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<4>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_16u_C1IR(Tav16u* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<2>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_16u_C3IR(Tav16u* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<6>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_16u_C4IR(Tav16u* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<8>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_16s_C1IR(Tav16s* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<2>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_16s_C3IR(Tav16s* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<6>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_16s_C4IR(Tav16s* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<8>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_32s_C1IR(Tav32s* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<4>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_32s_C3IR(Tav32s* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<12>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_32s_C4IR(Tav32s* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<16>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_32f_C3IR(Tav32f* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<12>(pSrcDst, srcDstStep, roiSize); }
TavStatus own_taviTranspose_32f_C4IR(Tav32f* pSrcDst, int srcDstStep, TaviSize roiSize) { return in_place<16>(pSrcDst, srcDstStep, roiSize); }
// clang-format on
