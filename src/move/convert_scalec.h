// taviScaleC: dst = sat(round(src * mVal + aVal)) for every ordered pair of
// types. The accurate hint computes in double precision; other hints take a
// single-precision kernel (one fused multiply-add) where both types are
// narrow, that is exact in single precision (integers of 8 and 16 bits, and
// 32f): it may differ by one unit near a half, or in the last bit of a 32f.
#pragma once

#include "move/convert_entry.h"

namespace tav::move::cvt {

template <class T>
inline constexpr bool kNarrowInt = std::is_integral_v<T> && sizeof(T) <= 2;

template <class S, class D>
inline constexpr bool kSinglePrecisionPair =
    (kNarrowInt<S> || std::is_same_v<S, Tav32f>) && (kNarrowInt<D> || std::is_same_v<D, Tav32f>);

struct AffineCtx {
    __m512d m, a;
    __m512 mf, af;
};

// Products and sums rounded to nearest, whatever the caller's rounding
// control; integer results rounded to nearest even.
template <class S, class D>
struct AffineF64 {
    static Wide<D> apply(Wide<S> v, const AffineCtx& c) {
        constexpr int imm = _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC;
        F64x2 x = to_f64<S>(v);
        x.lo = _mm512_add_round_pd(_mm512_mul_round_pd(x.lo, c.m, imm), c.a, imm);
        x.hi = _mm512_add_round_pd(_mm512_mul_round_pd(x.hi, c.m, imm), c.a, imm);
        if constexpr (std::is_same_v<D, Tav64f>) return x;
        else if constexpr (std::is_same_v<D, Tav32f>) return f64_to_f32(x);
        else return f64_to_int<D, Rnd::Near>(x);
    }
};

template <class S, class D>
struct AffineF32 {
    static Wide<D> apply(Wide<S> v, const AffineCtx& c) {
        constexpr int imm = _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC;
        __m512 x;
        if constexpr (std::is_same_v<S, Tav32f>) x = v;
        else x = int_to_f32<S>(v);
        x = _mm512_fmadd_round_ps(x, c.mf, c.af, imm);
        if constexpr (std::is_same_v<D, Tav32f>) return x;
        else return f32_to_int<D, Rnd::Near>(x);
    }
};

inline AffineCtx affine_ctx(double m, double a) {
    return {_mm512_set1_pd(m), _mm512_set1_pd(a), _mm512_set1_ps(static_cast<float>(m)),
            _mm512_set1_ps(static_cast<float>(a))};
}

// Pointers, size, steps; contiguous images merge while the merged length
// stays below 0x7fffffff; out of place, large images stream.
template <class S, class D>
TavStatus scale_c(const S* pSrc, int srcStep, double m, double a, D* pDst, int dstStep, TaviSize roi,
                  TavHintAlgorithm hint, bool inPlace = false) {
    if (any_null(pSrc, pDst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (bad_step(srcStep, dstStep)) return tavErrStep;
    const Shape sh = shape_of<Layout::C1, S, D>(roi, srcStep, dstStep, true);
    const bool nt = !inPlace && stream_by_tile(sh, sizeof(D) == 1);
    const AffineCtx c = affine_ctx(m, a);
    if constexpr (kSinglePrecisionPair<S, D>) {
        if (hint != tavAlgHintAccurate) {
            run_rows<LaneOp<S, D, AffineF32<S, D>>, Layout::C1>(pSrc, srcStep, pDst, dstStep, sh, c, nt);
            return tavOk;
        }
    }
    run_rows<LaneOp<S, D, AffineF64<S, D>>, Layout::C1>(pSrc, srcStep, pDst, dstStep, sh, c, nt);
    return tavOk;
}

template <class T>
TavStatus scale_c_inplace(T* p, int step, double m, double a, TaviSize roi, TavHintAlgorithm hint) {
    return scale_c<T, T>(p, step, m, a, p, step, roi, hint, true);
}

}  // namespace tav::move::cvt
