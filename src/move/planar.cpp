// taviCopy between interleaved and planar layouts.
#include "move/layout_rows.h"

namespace tav::move {
namespace {

using namespace lanes;

// The traffic and gate of the planar copies: 32-bit elements count pixels
// times 24 (three planes from three channels) or 32, and stream from the
// cache size on; narrower elements count source and destination bytes and
// stream from a sixth (three planes) or an eighth (four) of it.
template <int Es, int Planes>
StreamGate planar_gate(TaviSize roi, bool toPlanes) {
    const std::int64_t pixels = std::int64_t{roi.width} * roi.height;
    if constexpr (Es == 4) {
        // Only the forms that split channels, and P4C4, stream.
        if (!toPlanes && Planes == 3) return {0, 0, 1};
        return {pixels * (Planes == 3 ? 24 : 32), 0x80000, 1};
    }
    return {pixels * Planes * Es * 2, Es == 1 ? 0xc0000 : 0x100000, Planes == 3 ? 6 : 8};
}

template <int Es, int Planes>
TavStatus to_planes(const void* src, int srcStep, void* const* dst, int dstStep, TaviSize roi) {
    if (src == nullptr || any_null_plane(dst, Planes)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    const int order[4] = {0, 1, 2, 3};
    const V ctl = lane_shuffle(Es, Lane::Planar, Planes, Planes == 3 ? Lane::C3 : Lane::C4, order);
    auto k = [&](const V* a, V* b) {
        V g[4];
        if constexpr (Planes == 3) spread3(a, g);
        else for (int i = 0; i < 4; ++i) g[i] = a[i];
        for (int i = 0; i < 4; ++i) g[i] = _mm512_shuffle_epi8(g[i], ctl);
        for (int c = 0; c < Planes; ++c) b[c] = gather_plane(g, c);
    };
    const byte* s[1] = {static_cast<const byte*>(src)};
    byte* d[4];
    for (int j = 0; j < Planes; ++j) d[j] = static_cast<byte*>(dst[j]);
    const bool stream = dst_on_lines<Planes>(d, dstStep) && streams(planar_gate<Es, Planes>(roi, true));
    convert_rows<Es, Planes == 3 ? kC3 : kC4, Planes == 3 ? kP3 : kP4>(k, s, srcStep, d, dstStep, roi, KeepMask(1, 1),
                                                                      stream);
    return tavOk;
}

template <int Es, int Planes>
TavStatus from_planes(const void* const* src, int srcStep, void* dst, int dstStep, TaviSize roi) {
    if (any_null_plane(src, Planes) || dst == nullptr) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    const int order[4] = {0, 1, 2, 3};
    const V ctl = lane_shuffle(Es, Planes == 3 ? Lane::C3 : Lane::C4, Planes, Lane::Planar, order);
    auto k = [&](const V* a, V* b) {
        V g[4];
        for (int i = 0; i < 4; ++i) g[i] = _mm512_shuffle_epi8(planes_to_lanes(a, Planes, i), ctl);
        if constexpr (Planes == 3) compact3(g, b);
        else for (int i = 0; i < 4; ++i) b[i] = g[i];
    };
    const byte* s[4];
    for (int j = 0; j < Planes; ++j) s[j] = static_cast<const byte*>(src[j]);
    byte* d[1] = {static_cast<byte*>(dst)};
    const bool stream = dst_on_lines<1>(d, dstStep) && streams(planar_gate<Es, Planes>(roi, false));
    convert_rows<Es, Planes == 3 ? kP3 : kP4, Planes == 3 ? kC3 : kC4>(k, s, srcStep, d, dstStep, roi, KeepMask(1, 1),
                                                                      stream);
    return tavOk;
}

// Plane arrays of the exports, seen as untyped planes.
template <class T, int N>
const void* const* planes(const T* const* p) {
    return reinterpret_cast<const void* const*>(p);
}
template <class T, int N>
void* const* planes(T* const* p) {
    return reinterpret_cast<void* const*>(p);
}

}  // namespace
}  // namespace tav::move

using namespace tav::move;

// clang-format off
TavStatus own_taviCopy_8u_C3P3R(const Tav8u* pSrc, int srcStep, Tav8u* const pDst[3], int dstStep, TaviSize roiSize) { return to_planes<1, 3>(pSrc, srcStep, planes<Tav8u, 3>(pDst), dstStep, roiSize); }
TavStatus own_taviCopy_16u_C3P3R(const Tav16u* pSrc, int srcStep, Tav16u* const pDst[3], int dstStep, TaviSize roiSize) { return to_planes<2, 3>(pSrc, srcStep, planes<Tav16u, 3>(pDst), dstStep, roiSize); }
TavStatus own_taviCopy_16s_C3P3R(const Tav16s* pSrc, int srcStep, Tav16s* const pDst[3], int dstStep, TaviSize roiSize) { return to_planes<2, 3>(pSrc, srcStep, planes<Tav16s, 3>(pDst), dstStep, roiSize); }
// Shared with taviCopy_32f_C3P3R.
TavStatus own_taviCopy_32s_C3P3R(const Tav32s* pSrc, int srcStep, Tav32s* const pDst[3], int dstStep, TaviSize roiSize) { return to_planes<4, 3>(pSrc, srcStep, planes<Tav32s, 3>(pDst), dstStep, roiSize); }

TavStatus own_taviCopy_8u_C4P4R(const Tav8u* pSrc, int srcStep, Tav8u* const pDst[4], int dstStep, TaviSize roiSize) { return to_planes<1, 4>(pSrc, srcStep, planes<Tav8u, 4>(pDst), dstStep, roiSize); }
TavStatus own_taviCopy_16u_C4P4R(const Tav16u* pSrc, int srcStep, Tav16u* const pDst[4], int dstStep, TaviSize roiSize) { return to_planes<2, 4>(pSrc, srcStep, planes<Tav16u, 4>(pDst), dstStep, roiSize); }
TavStatus own_taviCopy_16s_C4P4R(const Tav16s* pSrc, int srcStep, Tav16s* const pDst[4], int dstStep, TaviSize roiSize) { return to_planes<2, 4>(pSrc, srcStep, planes<Tav16s, 4>(pDst), dstStep, roiSize); }
// Shared with taviCopy_32f_C4P4R.
TavStatus own_taviCopy_32s_C4P4R(const Tav32s* pSrc, int srcStep, Tav32s* const pDst[4], int dstStep, TaviSize roiSize) { return to_planes<4, 4>(pSrc, srcStep, planes<Tav32s, 4>(pDst), dstStep, roiSize); }

TavStatus own_taviCopy_8u_P3C3R(const Tav8u* const pSrc[3], int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return from_planes<1, 3>(planes<Tav8u, 3>(pSrc), srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16u_P3C3R(const Tav16u* const pSrc[3], int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) { return from_planes<2, 3>(planes<Tav16u, 3>(pSrc), srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16s_P3C3R(const Tav16s* const pSrc[3], int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) { return from_planes<2, 3>(planes<Tav16s, 3>(pSrc), srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32s_P3C3R(const Tav32s* const pSrc[3], int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) { return from_planes<4, 3>(planes<Tav32s, 3>(pSrc), srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32f_P3C3R(const Tav32f* const pSrc[3], int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize) { return from_planes<4, 3>(planes<Tav32f, 3>(pSrc), srcStep, pDst, dstStep, roiSize); }

TavStatus own_taviCopy_8u_P4C4R(const Tav8u* const pSrc[4], int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return from_planes<1, 4>(planes<Tav8u, 4>(pSrc), srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16u_P4C4R(const Tav16u* const pSrc[4], int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) { return from_planes<2, 4>(planes<Tav16u, 4>(pSrc), srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16s_P4C4R(const Tav16s* const pSrc[4], int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) { return from_planes<2, 4>(planes<Tav16s, 4>(pSrc), srcStep, pDst, dstStep, roiSize); }
// Shared with taviCopy_32f_P4C4R.
TavStatus own_taviCopy_32s_P4C4R(const Tav32s* const pSrc[4], int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) { return from_planes<4, 4>(planes<Tav32s, 4>(pSrc), srcStep, pDst, dstStep, roiSize); }
// clang-format on
