// taviScale: the full range of one type mapped linearly onto the full range
// of another, or onto [vMin, vMax] for 32f.
//
// The divisions by 257 and by 2^32 - 1 are exact for every hint: the
// integer maps use a multiply-and-shift (or a double product) proven equal to
// the rounded quotient over the whole source range, which is within the one
// unit the approximate hints allow.
#include "move/convert_entry.h"

namespace {

using namespace tav;
using namespace tav::move::cvt;
using tav::Layout;

constexpr int kNear = _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC;

// x * 257, the byte repeated in both halves of the word.
struct Repeat16F {
    template <class Ctx>
    static __m512i apply(__m512i v, const Ctx&) { return _mm512_or_si512(v, _mm512_slli_epi16(v, 8)); }
};
// x * 257 - 32768: the same with the top bit inverted.
struct Repeat16SignedF {
    template <class Ctx>
    static __m512i apply(__m512i v, const Ctx& c) {
        return _mm512_xor_si512(Repeat16F::apply(v, c), _mm512_set1_epi16(static_cast<short>(0x8000)));
    }
};
// x * 0x01010101 with the top bit inverted.
struct Repeat32SignedF {
    static __m512i apply(__m512i v, NoCtx) {
        __m512i t = _mm512_or_si512(v, _mm512_slli_epi32(v, 8));
        t = _mm512_or_si512(t, _mm512_slli_epi32(t, 16));
        return _mm512_xor_si512(t, _mm512_set1_epi32(static_cast<int>(0x80000000u)));
    }
};

struct RangeCtx {
    float vMin, vMax, q;
};

// vMin + x * ((vMax - vMin) / 255), each step rounded to nearest.
struct ToRangeF {
    static __m512 apply(__m512i v, const RangeCtx& c) {
        __m512 x = _mm512_mul_round_ps(int_to_f32<Tav8u>(v), _mm512_set1_ps(c.q), kNear);
        return _mm512_add_round_ps(_mm512_set1_ps(c.vMin), x, kNear);
    }
};
// x clamped to [vMin, vMax], then (x - vMin) * (255 / (vMax - vMin)) rounded.
struct FromRangeF {
    static __m512i apply(__m512 x, const RangeCtx& c) {
        x = clamp(x, c.vMin, c.vMax);
        x = _mm512_mul_round_ps(_mm512_sub_round_ps(x, _mm512_set1_ps(c.vMin), kNear), _mm512_set1_ps(c.q), kNear);
        return sat_i32<Tav32s, Tav8u>(_mm512_cvt_roundps_epi32(x, kNear));
    }
};

// round(u / 257) for u = x + bias in [0, 65535]: floor((u + 128) * 65281 / 2^24),
// whose error stays below 2^-16 while the fraction of a non-tie quotient is at
// most 256/257, so the floor is the rounded quotient; the product fits 32 bits.
template <int Bias>
struct Div257F {
    static __m512i apply(__m512i v, NoCtx) {
        __m512i u = _mm512_add_epi32(v, _mm512_set1_epi32(Bias + 128));
        return _mm512_srli_epi32(_mm512_mullo_epi32(u, _mm512_set1_epi32(65281)), 24);
    }
};

// round((x + 2^31) / 16843009), 16843009 being (2^32 - 1) / 255: the quotient
// is never within 3e-8 of a half, far above the error of one double product.
struct Div16843009F {
    static __m512i apply(__m512i v, NoCtx) {
        const __m512d bias = _mm512_set1_pd(2147483648.0), r = _mm512_set1_pd(1.0 / 16843009.0);
        F64x2 d = to_f64<Tav32s>(v);
        d.lo = _mm512_mul_round_pd(_mm512_add_round_pd(d.lo, bias, kNear), r, kNear);
        d.hi = _mm512_mul_round_pd(_mm512_add_round_pd(d.hi, bias, kNear), r, kNear);
        return f64_to_int<Tav8u, Rnd::Near>(d);
    }
};

// Pointers, size, steps; contiguous images merge while the merged length
// stays below 0x7fffffff; the pixel count, not the cache, decides streaming.
template <class Op, Layout L, class Ctx>
TavStatus scale_image(const typename Op::S* pSrc, int srcStep, typename Op::D* pDst, int dstStep, TaviSize roi,
                      const Ctx& c) {
    using S = typename Op::S;
    using D = typename Op::D;
    if (any_null(pSrc, pDst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (bad_step(srcStep, dstStep)) return tavErrStep;
    const Shape sh = shape_of<L, S, D>(roi, srcStep, dstStep, true);
    const int64_t pixels = int64_t{roi.width} * roi.height;
    const bool nt = pixels >= (std::max(sizeof(S), sizeof(D)) == 2 ? 1398101 : 838860);
    run_rows<Op, L>(pSrc, srcStep, pDst, dstStep, sh, c, nt);
    return tavOk;
}

// The accurate hint sets the rounding control to nearest before the checks;
// a failed check returns with it still set, as these members always have.
template <class Op, Layout L>
TavStatus scale_hinted(const typename Op::S* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roi,
                       TavHintAlgorithm hint) {
    if (hint != tavAlgHintAccurate) return scale_image<Op, L>(pSrc, srcStep, pDst, dstStep, roi, NoCtx{});
    const unsigned saved = _mm_getcsr();
    _mm_setcsr((saved & ~_MM_ROUND_MASK) | _MM_ROUND_NEAREST);
    const TavStatus st = scale_image<Op, L>(pSrc, srcStep, pDst, dstStep, roi, NoCtx{});
    if (st == tavOk) _mm_setcsr(saved);
    return st;
}

// The range test comes before every other check; the map's factor is
// computed once for the call.
template <Layout L, class S, class D>
TavStatus scale_range(const S* pSrc, int srcStep, D* pDst, int dstStep, TaviSize roi, float vMin, float vMax) {
    const float range = vMax - vMin;
    if (!(range > 0.0f)) return tavErrScaleRange;
    constexpr bool toByte = std::is_same_v<D, Tav8u>;
    using Op = LaneOp<S, D, std::conditional_t<toByte, FromRangeF, ToRangeF>>;
    return scale_image<Op, L>(pSrc, srcStep, pDst, dstStep, roi,
                              RangeCtx{vMin, vMax, toByte ? 255.0f / range : range / 255.0f});
}

template <Layout L>
TavStatus u8_to_16u(const Tav8u* s, int ss, Tav16u* d, int ds, TaviSize r) {
    return scale_image<U8ToI16<Tav16u, Repeat16F>, L>(s, ss, d, ds, r, NoCtx{});
}
template <Layout L>
TavStatus u8_to_16s(const Tav8u* s, int ss, Tav16s* d, int ds, TaviSize r) {
    return scale_image<U8ToI16<Tav16s, Repeat16SignedF>, L>(s, ss, d, ds, r, NoCtx{});
}
template <Layout L>
TavStatus u8_to_32s(const Tav8u* s, int ss, Tav32s* d, int ds, TaviSize r) {
    return scale_image<LaneOp<Tav8u, Tav32s, Repeat32SignedF>, L>(s, ss, d, ds, r, NoCtx{});
}

template <class S>
using To8u = LaneOp<S, Tav8u,
                    std::conditional_t<std::is_same_v<S, Tav32s>, Div16843009F,
                                       Div257F<std::is_same_v<S, Tav16s> ? 32768 : 0>>>;

}  // namespace

// clang-format off
TavStatus own_taviScale_8u16u_C1R(const Tav8u* s, int ss, Tav16u* d, int ds, TaviSize r) { return u8_to_16u<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u16u_C3R(const Tav8u* s, int ss, Tav16u* d, int ds, TaviSize r) { return u8_to_16u<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u16u_C4R(const Tav8u* s, int ss, Tav16u* d, int ds, TaviSize r) { return u8_to_16u<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u16u_AC4R(const Tav8u* s, int ss, Tav16u* d, int ds, TaviSize r) { return u8_to_16u<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u16s_C1R(const Tav8u* s, int ss, Tav16s* d, int ds, TaviSize r) { return u8_to_16s<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u16s_C3R(const Tav8u* s, int ss, Tav16s* d, int ds, TaviSize r) { return u8_to_16s<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u16s_C4R(const Tav8u* s, int ss, Tav16s* d, int ds, TaviSize r) { return u8_to_16s<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u16s_AC4R(const Tav8u* s, int ss, Tav16s* d, int ds, TaviSize r) { return u8_to_16s<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u32s_C1R(const Tav8u* s, int ss, Tav32s* d, int ds, TaviSize r) { return u8_to_32s<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u32s_C3R(const Tav8u* s, int ss, Tav32s* d, int ds, TaviSize r) { return u8_to_32s<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u32s_C4R(const Tav8u* s, int ss, Tav32s* d, int ds, TaviSize r) { return u8_to_32s<Layout::C4>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u32s_AC4R(const Tav8u* s, int ss, Tav32s* d, int ds, TaviSize r) { return u8_to_32s<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviScale_8u32f_C1R(const Tav8u* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f lo, Tav32f hi) { return scale_range<Layout::C1>(s, ss, d, ds, r, lo, hi); }
TavStatus own_taviScale_8u32f_C3R(const Tav8u* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f lo, Tav32f hi) { return scale_range<Layout::C3>(s, ss, d, ds, r, lo, hi); }
TavStatus own_taviScale_8u32f_C4R(const Tav8u* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f lo, Tav32f hi) { return scale_range<Layout::C4>(s, ss, d, ds, r, lo, hi); }
TavStatus own_taviScale_8u32f_AC4R(const Tav8u* s, int ss, Tav32f* d, int ds, TaviSize r, Tav32f lo, Tav32f hi) { return scale_range<Layout::AC4>(s, ss, d, ds, r, lo, hi); }
TavStatus own_taviScale_32f8u_C1R(const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r, Tav32f lo, Tav32f hi) { return scale_range<Layout::C1>(s, ss, d, ds, r, lo, hi); }
TavStatus own_taviScale_32f8u_C3R(const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r, Tav32f lo, Tav32f hi) { return scale_range<Layout::C3>(s, ss, d, ds, r, lo, hi); }
TavStatus own_taviScale_32f8u_C4R(const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r, Tav32f lo, Tav32f hi) { return scale_range<Layout::C4>(s, ss, d, ds, r, lo, hi); }
TavStatus own_taviScale_32f8u_AC4R(const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r, Tav32f lo, Tav32f hi) { return scale_range<Layout::AC4>(s, ss, d, ds, r, lo, hi); }
TavStatus own_taviScale_16s8u_C1R(const Tav16s* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav16s>, Layout::C1>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_16s8u_C3R(const Tav16s* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav16s>, Layout::C3>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_16s8u_C4R(const Tav16s* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav16s>, Layout::C4>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_16s8u_AC4R(const Tav16s* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav16s>, Layout::AC4>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_16u8u_C1R(const Tav16u* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav16u>, Layout::C1>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_16u8u_C3R(const Tav16u* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav16u>, Layout::C3>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_16u8u_C4R(const Tav16u* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav16u>, Layout::C4>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_16u8u_AC4R(const Tav16u* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav16u>, Layout::AC4>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_32s8u_C1R(const Tav32s* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav32s>, Layout::C1>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_32s8u_C3R(const Tav32s* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav32s>, Layout::C3>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_32s8u_C4R(const Tav32s* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav32s>, Layout::C4>(s, ss, d, ds, r, h); }
TavStatus own_taviScale_32s8u_AC4R(const Tav32s* s, int ss, Tav8u* d, int ds, TaviSize r, TavHintAlgorithm h) { return scale_hinted<To8u<Tav32s>, Layout::AC4>(s, ss, d, ds, r, h); }
// clang-format on
