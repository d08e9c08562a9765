// taviSwapChannels: dst channel i = src channel dstOrder[i], with each
// member's own order of checks.
#include "move/layout_rows.h"
#include "move/set_kernels.h"

namespace tav::move {
namespace {

using namespace lanes;

// Checks of the members that test pointers, steps (only 0 fails), size,
// then the order array: `entries` entries below `limit`.
inline TavStatus check_order(const void* s, int srcStep, const void* d, int dstStep, TaviSize roi, const int* order,
                             int entries, int limit) {
    if (any_null(s, d)) return tavErrNullPtr;
    if (srcStep == 0 || dstStep == 0) return tavErrStep;
    if (bad_size(roi)) return tavErrSize;
    if (order == nullptr) return tavErrNullPtr;
    for (int i = 0; i < entries; ++i)
        if (order[i] < 0 || order[i] >= limit) return tavErrChannelOrder;
    return tavOk;
}

template <int Es>
void swap_c3(const void* s, int srcStep, void* d, int dstStep, TaviSize roi, const int* order) {
    const V ctl = lane_shuffle(Es, Lane::C3, 3, Lane::C3, order);
    auto k = [&](const V* a, V* b) {
        V g[4];
        spread3(a, g);
        for (int i = 0; i < 4; ++i) g[i] = _mm512_shuffle_epi8(g[i], ctl);
        compact3(g, b);
    };
    const byte* sp[1] = {static_cast<const byte*>(s)};
    byte* dp[1] = {static_cast<byte*>(d)};
    convert_rows<Es, kC3, kC3>(k, sp, srcStep, dp, dstStep, roi, KeepMask(1, 1));
}

// Four-channel rows; with `Channels` 3 the alpha of the destination stays.
template <int Es, int Channels>
void swap_c4(const void* s, int srcStep, void* d, int dstStep, TaviSize roi, const int* order) {
    const V ctl = lane_shuffle(Es, Lane::C4, Channels, Lane::C4, order);
    auto k = [&](const V* a, V* b) {
        for (int i = 0; i < 4; ++i) b[i] = _mm512_shuffle_epi8(a[i], ctl);
    };
    const byte* sp[1] = {static_cast<const byte*>(s)};
    byte* dp[1] = {static_cast<byte*>(d)};
    convert_rows<Es, kC4, kC4>(k, sp, srcStep, dp, dstStep, roi, KeepMask(4 * Es, Channels * Es));
}

template <class T>
TavStatus swap_c3_entry(const T* s, int srcStep, T* d, int dstStep, TaviSize roi, const int* order) {
    if (TavStatus st = check_order(s, srcStep, d, dstStep, roi, order, 3, 3)) return st;
    swap_c3<sizeof(T)>(s, srcStep, d, dstStep, roi, order);
    return tavOk;
}

template <class T, int Channels>
TavStatus swap_c4_entry(const T* s, int srcStep, T* d, int dstStep, TaviSize roi, const int* order) {
    if (TavStatus st = check_order(s, srcStep, d, dstStep, roi, order, Channels, Channels)) return st;
    swap_c4<sizeof(T), Channels>(s, srcStep, d, dstStep, roi, order);
    return tavOk;
}

template <class T>
TavStatus swap_c4c3(const T* s, int srcStep, T* d, int dstStep, TaviSize roi, const int* order) {
    if (TavStatus st = check_order(s, srcStep, d, dstStep, roi, order, 3, 4)) return st;
    constexpr int es = sizeof(T);
    const V ctl = lane_shuffle(es, Lane::C3, 3, Lane::C4, order);
    auto k = [&](const V* a, V* b) {
        V g[4];
        for (int i = 0; i < 4; ++i) g[i] = _mm512_shuffle_epi8(a[i], ctl);
        compact3(g, b);
    };
    const byte* sp[1] = {reinterpret_cast<const byte*>(s)};
    byte* dp[1] = {reinterpret_cast<byte*>(d)};
    convert_rows<es, kC4, kC3>(k, sp, srcStep, dp, dstStep, roi, KeepMask(1, 1));
    return tavOk;
}

// Three channels to four: an entry of 3 or more fills that channel with val.
template <class T>
TavStatus swap_c3c4(const T* s, int srcStep, T* d, int dstStep, TaviSize roi, const int* order, T val) {
    if (any_null(s, d, order)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (srcStep == 0 || dstStep == 0) return tavErrStep;
    for (int i = 0; i < 4; ++i)
        if (order[i] < 0) return tavErrChannelOrder;
    constexpr int es = sizeof(T);
    int from[4];
    __mmask64 fill = 0;
    for (int i = 0; i < 4; ++i) {
        from[i] = order[i] < 3 ? order[i] : -1;
        if (from[i] < 0) fill |= lane_channel_bytes(es, Lane::C4, i);
    }
    const V ctl = lane_shuffle(es, Lane::C4, 4, Lane::C3, from);
    const V v = broadcast(val);
    auto k = [&](const V* a, V* b) {
        spread3(a, b);
        for (int i = 0; i < 4; ++i) b[i] = _mm512_mask_blend_epi8(fill, _mm512_shuffle_epi8(b[i], ctl), v);
    };
    const byte* sp[1] = {reinterpret_cast<const byte*>(s)};
    byte* dp[1] = {reinterpret_cast<byte*>(d)};
    convert_rows<es, kC3, kC4>(k, sp, srcStep, dp, dstStep, roi, KeepMask(1, 1));
    return tavOk;
}

}  // namespace
}  // namespace tav::move

using namespace tav::move;

// clang-format off
TavStatus own_taviSwapChannels_8u_C3R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c3_entry(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_16u_C3R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c3_entry(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_16s_C3R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c3_entry(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_32s_C3R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c3_entry(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_32f_C3R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c3_entry(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }

TavStatus own_taviSwapChannels_8u_AC4R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c4_entry<Tav8u, 3>(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_16u_AC4R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c4_entry<Tav16u, 3>(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_16s_AC4R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c4_entry<Tav16s, 3>(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_32s_AC4R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c4_entry<Tav32s, 3>(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_32f_AC4R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c4_entry<Tav32f, 3>(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }

TavStatus own_taviSwapChannels_8u_C4R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, const int dstOrder[4]) { return swap_c4_entry<Tav8u, 4>(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_16u_C4R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, const int dstOrder[4]) { return swap_c4_entry<Tav16u, 4>(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_16s_C4R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize, const int dstOrder[4]) { return swap_c4_entry<Tav16s, 4>(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_32s_C4R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, const int dstOrder[4]) { return swap_c4_entry<Tav32s, 4>(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_32f_C4R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize, const int dstOrder[4]) { return swap_c4_entry<Tav32f, 4>(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }

TavStatus own_taviSwapChannels_8u_C4C3R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c4c3(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
// Shared with taviSwapChannels_16s_C4C3R.
TavStatus own_taviSwapChannels_16u_C4C3R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c4c3(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }
// Shared with taviSwapChannels_32f_C4C3R.
TavStatus own_taviSwapChannels_32s_C4C3R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c4c3(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder); }

TavStatus own_taviSwapChannels_8u_C3C4R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, const int dstOrder[4], Tav8u val) { return swap_c3c4(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder, val); }
TavStatus own_taviSwapChannels_16u_C3C4R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, const int dstOrder[4], Tav16u val) { return swap_c3c4(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder, val); }
TavStatus own_taviSwapChannels_16s_C3C4R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize, const int dstOrder[4], Tav16s val) { return swap_c3c4(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder, val); }
TavStatus own_taviSwapChannels_32s_C3C4R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, const int dstOrder[4], Tav32s val) { return swap_c3c4(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder, val); }
TavStatus own_taviSwapChannels_32f_C3C4R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize, const int dstOrder[4], Tav32f val) { return swap_c3c4(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder, val); }

// In place: each block of pixels is read whole before it is written.
TavStatus own_taviSwapChannels_8u_C3IR(Tav8u* pSrcDst, int srcDstStep, TaviSize roiSize, const int dstOrder[3]) { return swap_c3_entry<Tav8u>(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, dstOrder); }
TavStatus own_taviSwapChannels_8u_C4IR(Tav8u* pSrcDst, int srcDstStep, TaviSize roiSize, const int dstOrder[4]) { return swap_c4_entry<Tav8u, 4>(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, dstOrder); }
// clang-format on
