// LUT work functions: table lookups for the integer types, a search of the
// level intervals for 32f.
//
// 8u C1 maps 64 pixels at a time with byte shuffles; the other integer
// layouts look up element by element. 32f tests each interval against 16
// pixels at once, first matching interval winning, and interpolates only the
// lanes that fall in it.
#include <cstdint>
#include <type_traits>

#include "decide/decide_vec.h"
#include "decide/lut_interp.h"
#include "decide/lut_spec.h"

namespace tav::decide::lut {
namespace {

template <class T, Layout L>
const Spec* accept(const Tav8u* pSpec) {
    const Spec* sp = align64(reinterpret_cast<const Spec*>(pSpec));
    for (int kind : {kNearest, kLinear, kCubic})
        if (sp->id == spec_id<T, L>(kind)) return sp;
    return nullptr;
}

template <class T, Layout L>
void map_row(const T* s, T* d, std::size_t width, const T* table) {
    constexpr std::size_t entries = std::size_t{1} << (8 * sizeof(T));
    constexpr int bias = std::is_signed_v<T> ? 32768 : 0;
    constexpr int C = kChannels<L>;
    for (std::size_t x = 0; x < width; ++x)
        for (int c = 0; c < kValueChannels<L>; ++c) d[x * C + c] = table[c * entries + (s[x * C + c] + bias)];
}

// Lanes of channel c in the vector of phase k.
template <Layout L>
__mmask16 channel_lanes(int c, int k) {
    __mmask16 m = 0;
    for (int i = 0; i < 16; ++i)
        if ((k * 16 + i) % kChannels<L> == c) m |= __mmask16(1u << i);
    return m;
}

typedef float f8 __attribute__((vector_size(32)));
typedef float f16 __attribute__((vector_size(64)));

// The value of interval k for each lane of x, in double precision.
__m512 interpolate(const Levels<float>& lv, int kind, int k, __m512 x) {
    if (kind == kNearest) return _mm512_set1_ps(lv.values[k]);
    const f16 v = reinterpret_cast<f16>(x);
    const d8 lo = __builtin_convertvector(__builtin_shufflevector(v, v, 0, 1, 2, 3, 4, 5, 6, 7), d8);
    const d8 hi = __builtin_convertvector(__builtin_shufflevector(v, v, 8, 9, 10, 11, 12, 13, 14, 15), d8);
    const f8 a = __builtin_convertvector(kind == kLinear ? linear(lv, k, lo) : cubic(lv, k, lo), f8);
    const f8 b = __builtin_convertvector(kind == kLinear ? linear(lv, k, hi) : cubic(lv, k, hi), f8);
    return reinterpret_cast<__m512>(__builtin_shufflevector(a, b, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
}

template <Layout L>
void search_row(const float* s, float* d, std::size_t width, const Spec& sp, int kind) {
    constexpr int K = kPhases<L>, C = kValueChannels<L>;
    const std::size_t n = width * kChannels<L>;
    __mmask16 lanes[K][C];
    for (int k = 0; k < K; ++k)
        for (int c = 0; c < C; ++c) lanes[k][c] = channel_lanes<L>(c, k);
    for (std::size_t i = 0, b = 0; i < n; i += 16, ++b) {
        const __mmask16 t = static_cast<__mmask16>(first_lanes<float>(n - i) & keep_lanes<float, L>(0));
        const __m512 x = _mm512_maskz_loadu_ps(t, s + i);
        __m512 r = x;
        __mmask16 found = 0;
        for (int c = 0; c < C; ++c) {
            const Levels<float> lv{sp.values[c], sp.levels[c], sp.nLevels[c]};
            const __mmask16 open = lanes[b % K][c] & t;
            for (int k = 0; k + 1 < lv.n; ++k) {
                __mmask16 m = _mm512_mask_cmp_ps_mask(open & ~found, x, _mm512_set1_ps(lv.levels[k]), _CMP_GE_OQ);
                m = _mm512_mask_cmp_ps_mask(m, x, _mm512_set1_ps(lv.levels[k + 1]), _CMP_LT_OQ);
                if (!m) continue;
                found |= m;
                r = _mm512_mask_blend_ps(m, r, interpolate(lv, kind, k, x));
            }
        }
        _mm512_mask_storeu_ps(d + i, t, r);
    }
}

template <class T, Layout L>
TavStatus work(const Io<T>& a, TaviSize r, const Tav8u* pSpec) {
    if (any_null(a.src, a.dst, pSpec)) return tavErrNullPtr;
    if (bad_step(a.srcStep, a.dstStep)) return tavErrStep;
    if (bad_size(r)) return tavErrSize;
    const Spec* sp = accept<T, L>(pSpec);
    if (!sp) return tavErrBadArg;
    const std::int64_t rowBytes = row_elems<L>(r.width) * static_cast<std::int64_t>(sizeof(T));
    const Rows rows = rows_of(r.width, r.height, a.srcStep == rowBytes && a.dstStep == rowBytes);
    const auto width = static_cast<std::size_t>(rows.elems);
    if constexpr (std::is_same_v<T, Tav8u> && L == Layout::C1) {
        const ByteTable t(static_cast<const Tav8u*>(sp->table));
        for_rows(a.src, a.srcStep, a.dst, a.dstStep, rows.height,
                 [&](const T* s, T* d) { map_bytes(s, d, width, t, 0xff); });
    } else if constexpr (std::is_same_v<T, Tav32f>) {
        const int kind = static_cast<int>((sp->id - spec_id<T, L>(0)) / 16);
        for_rows(a.src, a.srcStep, a.dst, a.dstStep, rows.height,
                 [&](const T* s, T* d) { search_row<L>(s, d, width, *sp, kind); });
    } else {
        const T* table = static_cast<const T*>(sp->table);
        for_rows(a.src, a.srcStep, a.dst, a.dstStep, rows.height,
                 [&](const T* s, T* d) { map_row<T, L>(s, d, width, table); });
    }
    return tavOk;
}

constexpr Layout C1 = Layout::C1, C3 = Layout::C3, C4 = Layout::C4, AC4 = Layout::AC4;

}  // namespace
}  // namespace tav::decide::lut

using namespace tav::decide;
using namespace tav::decide::lut;

// clang-format off
TavStatus own_taviLUT_8u_C1R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav8u, C1>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_8u_C3R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav8u, C3>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_8u_C4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav8u, C4>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_8u_AC4R(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav8u, AC4>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_16u_C1R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav16u, C1>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_16u_C3R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav16u, C3>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_16u_C4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav16u, C4>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_16u_AC4R(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav16u, AC4>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_16s_C1R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav16s, C1>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_16s_C3R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav16s, C3>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_16s_C4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav16s, C4>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_16s_AC4R(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav16s, AC4>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav32f, C1>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav32f, C3>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_32f_C4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav32f, C4>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r, const Tav8u* p) { return work<Tav32f, AC4>(io(s, ss, d, ds), r, p); }
TavStatus own_taviLUT_8u_C1IR(Tav8u* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav8u, C1>(io(p, st), r, sp); }
TavStatus own_taviLUT_8u_C3IR(Tav8u* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav8u, C3>(io(p, st), r, sp); }
TavStatus own_taviLUT_8u_C4IR(Tav8u* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav8u, C4>(io(p, st), r, sp); }
TavStatus own_taviLUT_8u_AC4IR(Tav8u* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav8u, AC4>(io(p, st), r, sp); }
TavStatus own_taviLUT_16u_C1IR(Tav16u* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav16u, C1>(io(p, st), r, sp); }
TavStatus own_taviLUT_16u_C3IR(Tav16u* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav16u, C3>(io(p, st), r, sp); }
TavStatus own_taviLUT_16u_C4IR(Tav16u* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav16u, C4>(io(p, st), r, sp); }
TavStatus own_taviLUT_16u_AC4IR(Tav16u* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav16u, AC4>(io(p, st), r, sp); }
TavStatus own_taviLUT_16s_C1IR(Tav16s* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav16s, C1>(io(p, st), r, sp); }
TavStatus own_taviLUT_16s_C3IR(Tav16s* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav16s, C3>(io(p, st), r, sp); }
TavStatus own_taviLUT_16s_C4IR(Tav16s* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav16s, C4>(io(p, st), r, sp); }
TavStatus own_taviLUT_16s_AC4IR(Tav16s* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav16s, AC4>(io(p, st), r, sp); }
TavStatus own_taviLUT_32f_C1IR(Tav32f* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav32f, C1>(io(p, st), r, sp); }
TavStatus own_taviLUT_32f_C3IR(Tav32f* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav32f, C3>(io(p, st), r, sp); }
TavStatus own_taviLUT_32f_C4IR(Tav32f* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav32f, C4>(io(p, st), r, sp); }
TavStatus own_taviLUT_32f_AC4IR(Tav32f* p, int st, TaviSize r, const Tav8u* sp) { return work<Tav32f, AC4>(io(p, st), r, sp); }
// clang-format on
