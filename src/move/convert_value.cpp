// taviConvert by value: widening, saturating narrowing between integers,
// signed to unsigned, and single precision to integers by rounding mode.
#include "move/convert_entry.h"

namespace {

using namespace tav;
using namespace tav::move::cvt;
using tav::Layout;

template <class S, class D>
using ValueOp = std::conditional_t<
    std::is_same_v<S, Tav8u> && sizeof(D) == 2, U8ToI16<D>,
    std::conditional_t<std::is_same_v<D, Tav32f>, IntToF32<S>,
                       std::conditional_t<std::is_same_v<D, Tav64f>, IntToF64<S>, IntToInt<S, D>>>>;

// Which members ask for the cache size, and above what traffic: the
// one-channel widenings listed by pair, and every multi-channel member.
template <class S, class D, Layout L>
constexpr int32_t value_gate() {
    if constexpr (L != Layout::C1) return 0x80000;
    if constexpr (sizeof(S) == 2 && std::is_same_v<D, Tav32s>) return 0x100000;
    constexpr bool listed = (sizeof(S) == 2 && std::is_same_v<D, Tav32f>) ||
                            (std::is_same_v<S, Tav8u> && (std::is_same_v<D, Tav16s> || std::is_same_v<D, Tav32f>)) ||
                            (std::is_same_v<S, Tav8s> && (std::is_same_v<D, Tav32f> || std::is_same_v<D, Tav32s>));
    return listed ? 0x80000 : -1;
}

template <Layout L, class S, class D>
TavStatus by_value(const S* pSrc, int srcStep, D* pDst, int dstStep, TaviSize roi) {
    constexpr int32_t gate = value_gate<S, D, L>();
    auto stream = [](Shape sh) { return gate >= 0 && stream_by_traffic(sh, sizeof(S) + sizeof(D), gate); };
    return convert_image<ValueOp<S, D>, L>(pSrc, srcStep, pDst, dstStep, roi, Steps::Checked, stream, NoCtx{});
}

template <class S, class D>
TavStatus to_unsigned(const S* pSrc, int srcStep, D* pDst, int dstStep, TaviSize roi) {
    return convert_image<SignedToUnsigned<S, D>, Layout::C1>(pSrc, srcStep, pDst, dstStep, roi, Steps::Checked,
                                                             kNoStream, NoCtx{});
}

template <Layout L, class D>
TavStatus from_f32(const Tav32f* pSrc, int srcStep, D* pDst, int dstStep, TaviSize roi, TavRoundMode mode) {
    auto stream = [](Shape sh) { return stream_by_tile(sh, sizeof(D) == 1); };
    return with_rnd(mode, [&]<Rnd R>() {
        using Op = std::conditional_t<sizeof(D) == 1, F32ToI8<D, R>, F32ToI16<D, R>>;
        return convert_image<Op, L>(pSrc, srcStep, pDst, dstStep, roi, Steps::Checked, stream, NoCtx{});
    });
}

}  // namespace

// clang-format off
TavStatus own_taviConvert_16s32f_C1R(const Tav16s* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s32f_C3R(const Tav16s* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s32f_C4R(const Tav16s* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s32f_AC4R(const Tav16s* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s32s_C1R(const Tav16s* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s32s_C3R(const Tav16s* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s32s_C4R(const Tav16s* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s32s_AC4R(const Tav16s* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s8u_C1R(const Tav16s* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s8u_C3R(const Tav16s* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s8u_C4R(const Tav16s* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16s8u_AC4R(const Tav16s* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u32f_C1R(const Tav16u* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u32f_C3R(const Tav16u* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u32f_C4R(const Tav16u* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u32f_AC4R(const Tav16u* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u32s_C1R(const Tav16u* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u32s_C3R(const Tav16u* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u32s_C4R(const Tav16u* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u32s_AC4R(const Tav16u* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u8u_C1R(const Tav16u* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u8u_C3R(const Tav16u* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u8u_C4R(const Tav16u* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_16u8u_AC4R(const Tav16u* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_32s8s_C1R(const Tav32s* s, int ss, Tav8s* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_32s8s_C3R(const Tav32s* s, int ss, Tav8s* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_32s8s_C4R(const Tav32s* s, int ss, Tav8s* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_32s8s_AC4R(const Tav32s* s, int ss, Tav8s* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_32s8u_C1R(const Tav32s* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_32s8u_C3R(const Tav32s* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_32s8u_C4R(const Tav32s* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_32s8u_AC4R(const Tav32s* s, int ss, Tav8u* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8s32f_C1R(const Tav8s* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8s32f_C3R(const Tav8s* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8s32f_C4R(const Tav8s* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8s32f_AC4R(const Tav8s* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8s32s_C1R(const Tav8s* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8s32s_C3R(const Tav8s* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8s32s_C4R(const Tav8s* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8s32s_AC4R(const Tav8s* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8u32f_C1R(const Tav8u* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8u32f_C3R(const Tav8u* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8u32f_C4R(const Tav8u* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8u32f_AC4R(const Tav8u* s, int ss, Tav32f* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8u32s_C1R(const Tav8u* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8u32s_C3R(const Tav8u* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8u32s_C4R(const Tav8u* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviConvert_8u32s_AC4R(const Tav8u* s, int ss, Tav32s* d, int ds, TaviSize r) { return by_value<Layout::AC4>(s, ss, d, ds, r); }
// clang-format on

// 8u to 16s and to 16u write the same bytes: C3 and C4 share one function in
// the catalogue, C1 forwards, AC4 runs the same kernel.
TavStatus own_taviConvert_8u16s_C1R(const Tav8u* s, int ss, Tav16s* d, int ds, TaviSize r) {
    return by_value<Layout::C1>(s, ss, d, ds, r);
}
TavStatus own_taviConvert_8u16u_C1R(const Tav8u* s, int ss, Tav16u* d, int ds, TaviSize r) {
    return own_taviConvert_8u16s_C1R(s, ss, reinterpret_cast<Tav16s*>(d), ds, r);
}
TavStatus own_taviConvert_8u16s_C3R(const Tav8u* s, int ss, Tav16s* d, int ds, TaviSize r) {
    return by_value<Layout::C3>(s, ss, d, ds, r);
}
TavStatus own_taviConvert_8u16s_C4R(const Tav8u* s, int ss, Tav16s* d, int ds, TaviSize r) {
    return by_value<Layout::C4>(s, ss, d, ds, r);
}
TavStatus own_taviConvert_8u16s_AC4R(const Tav8u* s, int ss, Tav16s* d, int ds, TaviSize r) {
    return by_value<Layout::AC4>(s, ss, d, ds, r);
}
TavStatus own_taviConvert_8u16u_AC4R(const Tav8u* s, int ss, Tav16u* d, int ds, TaviSize r) {
    return by_value<Layout::AC4>(s, ss, d, ds, r);
}

TavStatus own_taviConvert_16u32u_C1R(const Tav16u* s, int ss, Tav32u* d, int ds, TaviSize r) {
    return by_value<Layout::C1>(s, ss, d, ds, r);
}
TavStatus own_taviConvert_32s32f_C1R(const Tav32s* s, int ss, Tav32f* d, int ds, TaviSize r) {
    return by_value<Layout::C1>(s, ss, d, ds, r);
}
TavStatus own_taviConvert_32u32f_C1R(const Tav32u* s, int ss, Tav32f* d, int ds, TaviSize r) {
    return by_value<Layout::C1>(s, ss, d, ds, r);
}
TavStatus own_taviConvert_8s16s_C1R(const Tav8s* s, int ss, Tav16s* d, int ds, TaviSize r) {
    return by_value<Layout::C1>(s, ss, d, ds, r);
}
TavStatus own_taviConvert_8s64f_C1R(const Tav8s* s, int ss, Tav64f* d, int ds, TaviSize r) {
    return by_value<Layout::C1>(s, ss, d, ds, r);
}

TavStatus own_taviConvert_16s16u_C1Rs(const Tav16s* s, int ss, Tav16u* d, int ds, TaviSize r) {
    return to_unsigned(s, ss, d, ds, r);
}
TavStatus own_taviConvert_16s32u_C1Rs(const Tav16s* s, int ss, Tav32u* d, int ds, TaviSize r) {
    return to_unsigned(s, ss, d, ds, r);
}
TavStatus own_taviConvert_32s32u_C1Rs(const Tav32s* s, int ss, Tav32u* d, int ds, TaviSize r) {
    return to_unsigned(s, ss, d, ds, r);
}
TavStatus own_taviConvert_8s16u_C1Rs(const Tav8s* s, int ss, Tav16u* d, int ds, TaviSize r) {
    return to_unsigned(s, ss, d, ds, r);
}
TavStatus own_taviConvert_8s32u_C1Rs(const Tav8s* s, int ss, Tav32u* d, int ds, TaviSize r) {
    return to_unsigned(s, ss, d, ds, r);
}
TavStatus own_taviConvert_8s8u_C1Rs(const Tav8s* s, int ss, Tav8u* d, int ds, TaviSize r) {
    return to_unsigned(s, ss, d, ds, r);
}

// clang-format off
TavStatus own_taviConvert_32f16s_C1R(const Tav32f* s, int ss, Tav16s* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C1>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f16s_C3R(const Tav32f* s, int ss, Tav16s* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C3>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f16s_C4R(const Tav32f* s, int ss, Tav16s* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C4>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f16s_AC4R(const Tav32f* s, int ss, Tav16s* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::AC4>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f16u_C1R(const Tav32f* s, int ss, Tav16u* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C1>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f16u_C3R(const Tav32f* s, int ss, Tav16u* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C3>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f16u_C4R(const Tav32f* s, int ss, Tav16u* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C4>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f16u_AC4R(const Tav32f* s, int ss, Tav16u* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::AC4>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f8s_C1R(const Tav32f* s, int ss, Tav8s* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C1>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f8s_C3R(const Tav32f* s, int ss, Tav8s* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C3>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f8s_C4R(const Tav32f* s, int ss, Tav8s* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C4>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f8s_AC4R(const Tav32f* s, int ss, Tav8s* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::AC4>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f8u_C1R(const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C1>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f8u_C3R(const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C3>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f8u_C4R(const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::C4>(s, ss, d, ds, r, m); }
TavStatus own_taviConvert_32f8u_AC4R(const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r, TavRoundMode m) { return from_f32<Layout::AC4>(s, ss, d, ds, r, m); }
// clang-format on
