// The conversion row driver and the element maps it runs.
//
// A map is a policy with `S`, `D`, `kBlock` (elements a step) and
//   template <bool Tail, bool NT> static void block(const S*, D*, Mask, const Ctx&);
// which reads and writes only the lanes of Mask when Tail is set, and exactly
// kBlock elements otherwise. Most maps are written once on sixteen wide lanes
// (LaneOp); hot pairs have their own wider blocks.
//
// Row contract: n elements from s to d; nothing outside the row is touched.
// With nt the destination is peeled to 64 bytes and full blocks are stored
// non-temporally; the caller fences once after its row loop.
#pragma once

#include "move/convert_lanes.h"

#include <algorithm>
#include <cstdint>

namespace tav::move::cvt {

template <int B>
using MaskB = std::conditional_t<B == 16, __mmask16, std::conditional_t<B == 32, __mmask32, __mmask64>>;

template <int B>
inline MaskB<B> lanes(int64_t n) {
    return n >= B ? static_cast<MaskB<B>>(~0ull) : static_cast<MaskB<B>>(_bzhi_u64(~0ull, static_cast<unsigned>(n)));
}

// Three of every four lanes: AC4 rows are walked from a pixel boundary and
// every block holds whole pixels.
template <int B>
inline constexpr MaskB<B> kAc4Lanes = static_cast<MaskB<B>>(0x7777777777777777ull);

// A whole vector of 8- or 16-bit elements: masked, streamed or plain.
template <bool Tail, bool NT, class D, class M>
inline void store512(D* p, M m, __m512i v) {
    if constexpr (Tail && sizeof(D) == 1) _mm512_mask_storeu_epi8(p, m, v);
    else if constexpr (Tail) _mm512_mask_storeu_epi16(p, m, v);
    else if constexpr (NT) stream512(p, v);
    else _mm512_storeu_si512(p, v);
}

// A map written on sixteen wide lanes: F::apply(Wide<S>, ctx) -> Wide<D>.
template <class S_, class D_, class F>
struct LaneOp {
    using S = S_;
    using D = D_;
    static constexpr int kBlock = 16;
    template <bool Tail, bool NT, class Ctx>
    static void block(const S* s, D* d, __mmask16 m, const Ctx& c) {
        store16<Tail, NT, D>(d, m, F::apply(load16<Tail, S>(s, m), c));
    }
};

struct NoCtx {};

template <class Op, bool Ac4, class Ctx>
inline void convert_row(const typename Op::S* s, typename Op::D* d, int64_t n, const Ctx& c, bool nt) {
    constexpr int B = Op::kBlock;
    using D = typename Op::D;
    int64_t i = 0;
    if constexpr (Ac4) {
        // Masked stores only: alpha is never written, so no streaming here.
        for (; i < n; i += B) Op::template block<true, false>(s + i, d + i, MaskB<B>(kAc4Lanes<B> & lanes<B>(n - i)), c);
        return;
    }
    const auto addr = reinterpret_cast<std::uintptr_t>(d);
    if (nt && addr % sizeof(D) == 0) {
        const int64_t peel = std::min<int64_t>(n, static_cast<int64_t>((-addr & 63) / sizeof(D)));
        for (; i < peel; i += std::min<int64_t>(B, peel - i))
            Op::template block<true, false>(s + i, d + i, lanes<B>(peel - i), c);
        for (; i + B <= n; i += B) Op::template block<false, true>(s + i, d + i, MaskB<B>(), c);
    }
    for (; i + 4 * B <= n; i += 4 * B) {
        Op::template block<false, false>(s + i, d + i, MaskB<B>(), c);
        Op::template block<false, false>(s + i + B, d + i + B, MaskB<B>(), c);
        Op::template block<false, false>(s + i + 2 * B, d + i + 2 * B, MaskB<B>(), c);
        Op::template block<false, false>(s + i + 3 * B, d + i + 3 * B, MaskB<B>(), c);
    }
    for (; i + B <= n; i += B) Op::template block<false, false>(s + i, d + i, MaskB<B>(), c);
    if (i < n) Op::template block<true, false>(s + i, d + i, lanes<B>(n - i), c);
}

// ---- maps by value -------------------------------------------------------

// Integer to integer, value kept: widening, or narrowing after saturation.
template <class S, class D>
struct SatF {
    static __m512i apply(__m512i v, NoCtx) { return sat_i32<S, D>(v); }
};
template <class S, class D>
using IntToInt = LaneOp<S, D, SatF<S, D>>;

// Signed to unsigned of the same or a larger width: negatives become 0.
template <class S, class D>
struct NonNegF {
    static __m512i apply(__m512i v, NoCtx) { return _mm512_max_epi32(v, _mm512_setzero_si512()); }
};
template <class S, class D>
using SignedToUnsigned = LaneOp<S, D, NonNegF<S, D>>;

template <class S>
struct IntToF32F {
    static __m512 apply(__m512i v, NoCtx) { return int_to_f32<S>(v); }
};
template <class S>
using IntToF32 = LaneOp<S, Tav32f, IntToF32F<S>>;

template <class S>
struct IntToF64F {
    static F64x2 apply(__m512i v, NoCtx) { return to_f64<S>(v); }
};
template <class S>
using IntToF64 = LaneOp<S, Tav64f, IntToF64F<S>>;

template <class D, Rnd R>
struct F32ToIntF {
    static __m512i apply(__m512 v, NoCtx) { return f32_to_int<D, R>(v); }
};
template <class D, Rnd R>
using F32ToInt = LaneOp<Tav32f, D, F32ToIntF<D, R>>;

// ---- hot pairs with full-vector blocks ------------------------------------

// 8u to 16-bit: 32 elements a block, one widening per vector, then
// F::apply on the 16-bit lanes (the identity for a plain widening).
struct KeepF {
    template <class Ctx>
    static __m512i apply(__m512i v, const Ctx&) { return v; }
};
template <class DT, class F = KeepF>
struct U8ToI16 {
    using S = Tav8u;
    using D = DT;
    static constexpr int kBlock = 32;
    template <bool Tail, bool NT, class Ctx>
    static void block(const Tav8u* s, D* d, __mmask32 m, const Ctx& c) {
        __m256i x = Tail ? _mm256_maskz_loadu_epi8(m, s) : _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s));
        store512<Tail, NT>(d, m, F::apply(_mm512_cvtepu8_epi16(x), c));
    }
};

// 32f to 8-bit: 64 elements a block, narrowed by two packs and one
// permutation instead of four down-converting moves.
template <class DT, Rnd R>
struct F32ToI8 {
    using S = Tav32f;
    using D = DT;
    static constexpr int kBlock = 64;
    template <bool Tail, bool NT, class Ctx>
    static void block(const Tav32f* s, D* d, __mmask64 m, const Ctx&) {
        __m512i v[4];
        for (int k = 0; k < 4; ++k) {
            __m512 x = Tail ? _mm512_maskz_loadu_ps(static_cast<__mmask16>(m >> (16 * k)), s + 16 * k)
                            : _mm512_loadu_ps(s + 16 * k);
            v[k] = f32_to_packable<R>(x);
        }
        __m512i w01 = _mm512_packs_epi32(v[0], v[1]);
        __m512i w23 = _mm512_packs_epi32(v[2], v[3]);
        __m512i b = std::is_signed_v<D> ? _mm512_packs_epi16(w01, w23) : _mm512_packus_epi16(w01, w23);
        // The packs interleave 128-bit lanes: dword k of the result belongs
        // at position idx[k].
        b = _mm512_permutexvar_epi32(_mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), b);
        store512<Tail, NT>(d, m, b);
    }
};

// 32f to 16-bit: 32 elements a block, one pack and one permutation.
template <class DT, Rnd R>
struct F32ToI16 {
    using S = Tav32f;
    using D = DT;
    static constexpr int kBlock = 32;
    template <bool Tail, bool NT, class Ctx>
    static void block(const Tav32f* s, D* d, __mmask32 m, const Ctx&) {
        __m512 x0 = Tail ? _mm512_maskz_loadu_ps(static_cast<__mmask16>(m), s) : _mm512_loadu_ps(s);
        __m512 x1 = Tail ? _mm512_maskz_loadu_ps(static_cast<__mmask16>(m >> 16), s + 16) : _mm512_loadu_ps(s + 16);
        __m512i a = f32_to_packable<R>(x0), b = f32_to_packable<R>(x1);
        __m512i w = std::is_signed_v<D> ? _mm512_packs_epi32(a, b) : _mm512_packus_epi32(a, b);
        w = _mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), w);
        store512<Tail, NT>(d, m, w);
    }
};

// ---- maps with a power-of-two scale ------------------------------------

struct ScaleCtx {
    int f;       // scale factor: the result is x * 2^-f
    __m512 f32;  // -f as float, for scalef
    __m512d f64;
};

inline ScaleCtx scale_ctx(int f) {
    const float nf = static_cast<float>(-static_cast<int64_t>(f));
    return {f, _mm512_set1_ps(nf), _mm512_set1_pd(static_cast<double>(nf))};
}

// Floating source: x * 2^-f in the source's precision (one exact scaling,
// rounded only where the result leaves the normal range), then rounded by R
// and saturated.
template <class D, Rnd R>
struct F32SfsF {
    static __m512i apply(__m512 v, const ScaleCtx& c) {
        return f32_to_int<D, R>(_mm512_scalef_round_ps(v, c.f32, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
    }
};
template <class D, Rnd R>
struct F64SfsF {
    static __m512i apply(F64x2 v, const ScaleCtx& c) {
        constexpr int imm = _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC;
        return f64_to_int<D, R>(F64x2{_mm512_scalef_round_pd(v.lo, c.f64, imm), _mm512_scalef_round_pd(v.hi, c.f64, imm)});
    }
};

// Integer source: the power-of-two scale with rounding of the magnitude by R
// (ties to even for Near, away from zero for Fin, none for Zero), sign put
// back, then saturation. Shift counts are clamped where every non-zero
// value is already saturated or rounded to zero, so the lanes never overflow.
enum class Shift { None, Right, Left };

template <Rnd R, class V, class Ops>
inline V round_shift_right(V a, int f, Ops) {
    V q = Ops::srl(a, f);
    if constexpr (R == Rnd::Zero) return q;
    V rem = Ops::andv(a, Ops::set1((int64_t{1} << f) - 1));
    V half = Ops::set1(int64_t{1} << (f - 1));
    auto up = Ops::gt(rem, half);
    auto tie = Ops::eq(rem, half);
    if constexpr (R == Rnd::Near) tie &= Ops::odd(q);
    return Ops::add_masked(q, up | tie, Ops::set1(1));
}

struct Ops32 {
    static __m512i srl(__m512i a, int f) { return _mm512_srl_epi32(a, _mm_cvtsi32_si128(f)); }
    static __m512i andv(__m512i a, __m512i b) { return _mm512_and_si512(a, b); }
    static __m512i set1(int64_t v) { return _mm512_set1_epi32(static_cast<int>(v)); }
    static __mmask16 gt(__m512i a, __m512i b) { return _mm512_cmpgt_epu32_mask(a, b); }
    static __mmask16 eq(__m512i a, __m512i b) { return _mm512_cmpeq_epi32_mask(a, b); }
    static __mmask16 odd(__m512i a) { return _mm512_test_epi32_mask(a, _mm512_set1_epi32(1)); }
    static __m512i add_masked(__m512i a, __mmask16 m, __m512i b) { return _mm512_mask_add_epi32(a, m, a, b); }
};
struct Ops64 {
    static __m512i srl(__m512i a, int f) { return _mm512_srl_epi64(a, _mm_cvtsi32_si128(f)); }
    static __m512i andv(__m512i a, __m512i b) { return _mm512_and_si512(a, b); }
    static __m512i set1(int64_t v) { return _mm512_set1_epi64(v); }
    static __mmask8 gt(__m512i a, __m512i b) { return _mm512_cmpgt_epu64_mask(a, b); }
    static __mmask8 eq(__m512i a, __m512i b) { return _mm512_cmpeq_epi64_mask(a, b); }
    static __mmask8 odd(__m512i a) { return _mm512_test_epi64_mask(a, _mm512_set1_epi64(1)); }
    static __m512i add_masked(__m512i a, __mmask8 m, __m512i b) { return _mm512_mask_add_epi64(a, m, a, b); }
};

// Sources of up to 16 bits, in 32-bit lanes.
template <class S, class D, Rnd R, Shift K>
struct IntSfs16F {
    static __m512i apply(__m512i v, const ScaleCtx& c) {
        if constexpr (K == Shift::Right) {
            // From 2^17 on every 16-bit magnitude is below one half.
            const int f = std::min(c.f, 17);
            __m512i a = _mm512_abs_epi32(v);
            __m512i q = round_shift_right<R>(a, f, Ops32{});
            if constexpr (std::is_signed_v<S>) q = _mm512_mask_sub_epi32(q, _mm512_movepi32_mask(v), _mm512_setzero_si512(), q);
            v = q;
        } else if constexpr (K == Shift::Left) {
            // 2^15 saturates every non-zero value into every 8- and 16-bit
            // destination these members have; 65535 << 15 still fits.
            v = _mm512_sll_epi32(v, _mm_cvtsi32_si128(std::min(-c.f, 15)));
        }
        return sat_i32<std::conditional_t<K == Shift::Left, Tav32s, S>, D>(v);
    }
};

// 32-bit sources, in two halves of 64-bit lanes.
template <class S, class D, Rnd R, Shift K>
struct IntSfs32F {
    static __m512i half(__m256i x, const ScaleCtx& c) {
        __m512i v = std::is_signed_v<S> ? _mm512_cvtepi32_epi64(x) : _mm512_cvtepu32_epi64(x);
        if constexpr (K == Shift::Right) {
            const int f = std::min(c.f, 33);
            __m512i a = _mm512_abs_epi64(v);
            __m512i q = round_shift_right<R>(a, f, Ops64{});
            if constexpr (std::is_signed_v<S>) q = _mm512_mask_sub_epi64(q, _mm512_movepi64_mask(v), _mm512_setzero_si512(), q);
            v = q;
        } else if constexpr (K == Shift::Left) {
            v = _mm512_sll_epi64(v, _mm_cvtsi32_si128(std::min(-c.f, 31)));
        }
        v = _mm512_max_epi64(v, _mm512_set1_epi64(static_cast<int64_t>(kLo<D>)));
        v = _mm512_min_epi64(v, _mm512_set1_epi64(static_cast<int64_t>(kHi<D>)));
        return _mm512_castsi256_si512(_mm512_cvtepi64_epi32(v));
    }
    static __m512i apply(__m512i v, const ScaleCtx& c) {
        if constexpr (K == Shift::None) return sat_i32<S, D>(v);
        __m512i lo = half(_mm512_castsi512_si256(v), c);
        __m512i hi = half(_mm512_extracti64x4_epi64(v, 1), c);
        return _mm512_inserti64x4(lo, _mm512_castsi512_si256(hi), 1);
    }
};

template <class S, class D, Rnd R, Shift K>
using IntSfs = LaneOp<S, D, std::conditional_t<(sizeof(S) == 4), IntSfs32F<S, D, R, K>, IntSfs16F<S, D, R, K>>>;

}  // namespace tav::move::cvt
