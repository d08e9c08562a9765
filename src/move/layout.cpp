// taviCopy between layouts: one channel out of three or four, into three or
// four, three channels into AC4 and back, and the channel-of-interest copies.
#include "move/copy_kernels.h"
#include "move/layout_rows.h"

namespace tav::move {
namespace {

using namespace lanes;

inline const byte* cb(const void* p) { return static_cast<const byte*>(p); }
inline byte* mb(void* p) { return static_cast<byte*>(p); }

// The channel the source pointer stands on, to a one-channel row.
template <int Es, int Channels>
TavStatus channel_out(const void* src, int srcStep, void* dst, int dstStep, TaviSize roi) {
    if (any_null(src, dst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    const int first[1] = {0};
    const V ctl = lane_shuffle(Es, Lane::Planar, 1, Channels == 3 ? Lane::C3 : Lane::C4, first);
    auto k = [&](const V* a, V* b) {
        V g[4];
        if constexpr (Channels == 3) spread3(a, g);
        else for (int i = 0; i < 4; ++i) g[i] = a[i];
        for (int i = 0; i < 4; ++i) g[i] = _mm512_shuffle_epi8(g[i], ctl);
        b[0] = gather_plane(g, 0);
    };
    const byte* s[1] = {cb(src)};
    byte* d[1] = {mb(dst)};
    convert_rows<Es, Channels == 3 ? kC3Coi : kC4Coi, kC1>(k, s, srcStep, d, dstStep, roi, KeepMask(1, 1));
    return tavOk;
}

// A one-channel row into the channel the destination pointer stands on; the
// other channels keep their values.
template <int Es, int Channels>
TavStatus channel_in(const void* src, int srcStep, void* dst, int dstStep, TaviSize roi) {
    if (any_null(src, dst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    const int first[1] = {0};
    const V ctl = lane_shuffle(Es, Channels == 3 ? Lane::C3 : Lane::C4, 1, Lane::Planar, first);
    auto k = [&](const V* a, V* b) {
        V g[4];
        for (int i = 0; i < 4; ++i) g[i] = _mm512_shuffle_epi8(plane_to_lanes(a[0], i), ctl);
        if constexpr (Channels == 3) compact3(g, b);
        else for (int i = 0; i < 4; ++i) b[i] = g[i];
    };
    const byte* s[1] = {cb(src)};
    byte* d[1] = {mb(dst)};
    convert_rows<Es, kC1, Channels == 3 ? kC3Coi : kC4Coi>(k, s, srcStep, d, dstStep, roi,
                                                          KeepMask(Channels * Es, Es));
    return tavOk;
}

// Three channels into the first three of four; alpha stays.
template <int Es>
TavStatus c3_to_ac4(const void* src, int srcStep, void* dst, int dstStep, TaviSize roi) {
    if (any_null(src, dst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    const int order[3] = {0, 1, 2};
    const V ctl = lane_shuffle(Es, Lane::C4, 3, Lane::C3, order);
    auto k = [&](const V* a, V* b) {
        spread3(a, b);
        for (int i = 0; i < 4; ++i) b[i] = _mm512_shuffle_epi8(b[i], ctl);
    };
    const byte* s[1] = {cb(src)};
    byte* d[1] = {mb(dst)};
    convert_rows<Es, kC3, kC4>(k, s, srcStep, d, dstStep, roi, KeepMask(4 * Es, 3 * Es));
    return tavOk;
}

// Four channels to three: alpha dropped.
template <int Es>
TavStatus ac4_to_c3(const void* src, int srcStep, void* dst, int dstStep, TaviSize roi) {
    if (any_null(src, dst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    const int order[3] = {0, 1, 2};
    const V ctl = lane_shuffle(Es, Lane::C3, 3, Lane::C4, order);
    auto k = [&](const V* a, V* b) {
        V g[4];
        for (int i = 0; i < 4; ++i) g[i] = _mm512_shuffle_epi8(a[i], ctl);
        compact3(g, b);
    };
    const byte* s[1] = {cb(src)};
    byte* d[1] = {mb(dst)};
    convert_rows<Es, kC4, kC3>(k, s, srcStep, d, dstStep, roi, KeepMask(1, 1));
    return tavOk;
}

// Channel of interest to channel of interest: one element of each pixel.
// Rows closer than a row's width in bytes overlap, and go element by element
// in order.
template <class T, int Channels>
TavStatus channel_copy(const T* s, int srcStep, T* d, int dstStep, TaviSize roi) {
    if (any_null(s, d)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    const std::ptrdiff_t dist = reinterpret_cast<const byte*>(d) - reinterpret_cast<const byte*>(s);
    if ((dist < 0 ? -dist : dist) < std::ptrdiff_t{roi.width} * Channels) {
        for_rows(s, srcStep, d, dstStep, roi.height, [&](const T* sr, T* dr) {
            for (int x = 0; x < roi.width; ++x) dr[Channels * x] = sr[Channels * x];
        });
        return tavOk;
    }
    static constexpr KeepMask keep(Channels * sizeof(T), sizeof(T));
    const std::size_t bytes = (std::size_t{Channels} * (roi.width - 1) + 1) * sizeof(T);
    for_rows(s, srcStep, d, dstStep, roi.height, [&](const T* sr, T* dr) { copy_row_keep(sr, dr, bytes, keep); });
    return tavOk;
}

// Each byte to every channel of a pixel.
template <int Channels>
TavStatus dup(const Tav8u* src, int srcStep, Tav8u* dst, int dstStep, TaviSize roi) {
    if (any_null(src, dst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    const int zero[4] = {0, 0, 0, 0};
    const V ctl = lane_shuffle(1, Channels == 3 ? Lane::C3 : Lane::C4, Channels, Lane::Planar, zero);
    auto k = [&](const V* a, V* b) {
        V g[4];
        for (int i = 0; i < 4; ++i) g[i] = _mm512_shuffle_epi8(plane_to_lanes(a[0], i), ctl);
        if constexpr (Channels == 3) compact3(g, b);
        else for (int i = 0; i < 4; ++i) b[i] = g[i];
    };
    const byte* s[1] = {src};
    byte* d[1] = {dst};
    convert_rows<1, kC1, Channels == 3 ? kC3 : kC4>(k, s, srcStep, d, dstStep, roi, KeepMask(1, 1));
    return tavOk;
}

}  // namespace
}  // namespace tav::move

using namespace tav::move;

// clang-format off
TavStatus own_taviCopy_8u_C3C1R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return channel_out<1, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16u_C3C1R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) { return channel_out<2, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16s_C3C1R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) { return channel_out<2, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32s_C3C1R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) { return channel_out<4, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32f_C3C1R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize) { return channel_out<4, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_8u_C4C1R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return channel_out<1, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16u_C4C1R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) { return channel_out<2, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16s_C4C1R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) { return channel_out<2, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32s_C4C1R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) { return channel_out<4, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32f_C4C1R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize) { return channel_out<4, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }

TavStatus own_taviCopy_8u_C1C3R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return channel_in<1, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16u_C1C3R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) { return channel_in<2, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16s_C1C3R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) { return channel_in<2, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32s_C1C3R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) { return channel_in<4, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32f_C1C3R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize) { return channel_in<4, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_8u_C1C4R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return channel_in<1, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16u_C1C4R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) { return channel_in<2, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16s_C1C4R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) { return channel_in<2, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32s_C1C4R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) { return channel_in<4, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32f_C1C4R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize) { return channel_in<4, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }

TavStatus own_taviCopy_8u_C3AC4R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return c3_to_ac4<1>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16u_C3AC4R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) { return c3_to_ac4<2>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16s_C3AC4R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) { return c3_to_ac4<2>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32s_C3AC4R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) { return c3_to_ac4<4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32f_C3AC4R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize) { return c3_to_ac4<4>(pSrc, srcStep, pDst, dstStep, roiSize); }

TavStatus own_taviCopy_8u_AC4C3R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return ac4_to_c3<1>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16u_AC4C3R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) { return ac4_to_c3<2>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16s_AC4C3R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) { return ac4_to_c3<2>(pSrc, srcStep, pDst, dstStep, roiSize); }
// Shared with taviCopy_32f_AC4C3R.
TavStatus own_taviCopy_32s_AC4C3R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) { return ac4_to_c3<4>(pSrc, srcStep, pDst, dstStep, roiSize); }

TavStatus own_taviCopy_8u_C3CR(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return channel_copy<Tav8u, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16u_C3CR(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) { return channel_copy<Tav16u, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16s_C3CR(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) { return channel_copy<Tav16s, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32s_C3CR(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) { return channel_copy<Tav32s, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32f_C3CR(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize) { return channel_copy<Tav32f, 3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_8u_C4CR(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return channel_copy<Tav8u, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16u_C4CR(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize) { return channel_copy<Tav16u, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_16s_C4CR(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize) { return channel_copy<Tav16s, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32s_C4CR(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize) { return channel_copy<Tav32s, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviCopy_32f_C4CR(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize) { return channel_copy<Tav32f, 4>(pSrc, srcStep, pDst, dstStep, roiSize); }

TavStatus own_taviDup_8u_C1C3R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return dup<3>(pSrc, srcStep, pDst, dstStep, roiSize); }
TavStatus own_taviDup_8u_C1C4R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize) { return dup<4>(pSrc, srcStep, pDst, dstStep, roiSize); }
// clang-format on
