// taviConvert with a power-of-two scale: x * 2^-scaleFactor, rounded by the
// rounding mode and saturated. Floating sources scale in their own precision;
// integer sources round the shifted magnitude (ties to even under nearest).
#include "move/convert_entry.h"

namespace {

using namespace tav;
using namespace tav::move::cvt;
using tav::Layout;

// Floating sources: pointers and size only, rows walked by the steps given.
// Single precision narrows through the central kernels, which may stream.
template <class S, class D>
TavStatus sfs_float(const S* pSrc, int srcStep, D* pDst, int dstStep, TaviSize roi, TavRoundMode mode, int f) {
    auto stream = [](Shape sh) { return std::is_same_v<S, Tav32f> && stream_by_tile(sh, sizeof(D) == 1); };
    return with_rnd(mode, [&]<Rnd R>() {
        using F = std::conditional_t<std::is_same_v<S, Tav32f>, F32SfsF<D, R>, F64SfsF<D, R>>;
        return convert_image<LaneOp<S, D, F>, Layout::C1>(pSrc, srcStep, pDst, dstStep, roi, Steps::Unchecked, stream,
                                                           scale_ctx(f));
    });
}

// Integer sources: pointers, size, steps. The sign of the factor picks the
// kernel once.
template <class S, class D>
TavStatus sfs_int(const S* pSrc, int srcStep, D* pDst, int dstStep, TaviSize roi, TavRoundMode mode, int f) {
    return with_rnd(mode, [&]<Rnd R>() {
        auto run = [&]<Shift K>() {
            return convert_image<IntSfs<S, D, R, K>, Layout::C1>(pSrc, srcStep, pDst, dstStep, roi, Steps::Checked,
                                                                 kNoStream, scale_ctx(f));
        };
        if (f > 0) return run.template operator()<Shift::Right>();
        if (f < 0) return run.template operator()<Shift::Left>();
        return run.template operator()<Shift::None>();
    });
}

}  // namespace

// clang-format off
TavStatus own_taviConvert_16s8s_C1RSfs(const Tav16s* s, int ss, Tav8s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_int(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_16u16s_C1RSfs(const Tav16u* s, int ss, Tav16s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_int(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_16u8s_C1RSfs(const Tav16u* s, int ss, Tav8s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_int(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32f16s_C1RSfs(const Tav32f* s, int ss, Tav16s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_float(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32f16u_C1RSfs(const Tav32f* s, int ss, Tav16u* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_float(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32f32s_C1RSfs(const Tav32f* s, int ss, Tav32s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_float(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32f32u_C1RSfs(const Tav32f* s, int ss, Tav32u* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_float(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32f8s_C1RSfs(const Tav32f* s, int ss, Tav8s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_float(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32f8u_C1RSfs(const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_float(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32s16s_C1RSfs(const Tav32s* s, int ss, Tav16s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_int(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32s16u_C1RSfs(const Tav32s* s, int ss, Tav16u* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_int(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32u16s_C1RSfs(const Tav32u* s, int ss, Tav16s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_int(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32u16u_C1RSfs(const Tav32u* s, int ss, Tav16u* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_int(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32u32s_C1RSfs(const Tav32u* s, int ss, Tav32s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_int(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32u8s_C1RSfs(const Tav32u* s, int ss, Tav8s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_int(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_32u8u_C1RSfs(const Tav32u* s, int ss, Tav8u* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_int(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_64f16s_C1RSfs(const Tav64f* s, int ss, Tav16s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_float(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_64f16u_C1RSfs(const Tav64f* s, int ss, Tav16u* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_float(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_64f8s_C1RSfs(const Tav64f* s, int ss, Tav8s* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_float(s, ss, d, ds, r, m, f); }
TavStatus own_taviConvert_64f8u_C1RSfs(const Tav64f* s, int ss, Tav8u* d, int ds, TaviSize r, TavRoundMode m, int f) { return sfs_float(s, ss, d, ds, r, m, f); }
// clang-format on

// An 8u source has no rounding argument: the shift rounds ties to even.
TavStatus own_taviConvert_8u8s_C1RSfs(const Tav8u* s, int ss, Tav8s* d, int ds, TaviSize r, int f) {
    return sfs_int(s, ss, d, ds, r, tavRndNear, f);
}

// In place: each block is read before it is written.
TavStatus own_taviConvert_32f32u_C1IRSfs(Tav32f* p, int step, TaviSize r, TavRoundMode m, int f) {
    if (!p) return tavErrNullPtr;
    if (bad_size(r)) return tavErrSize;
    return with_rnd(m, [&]<Rnd R>() {
        return convert_image<LaneOp<Tav32f, Tav32u, F32SfsF<Tav32u, R>>, Layout::C1>(
            p, step, reinterpret_cast<Tav32u*>(p), step, r, Steps::Unchecked, kNoStream, scale_ctx(f));
    });
}
