// taviExp.
// Integers: floor(exp(x) * 2^-scaleFactor + 1/2) saturated. Results are
// monotone and leave 0 for saturation within a dozen consecutive inputs, so
// every member is a lookup in a 16-entry window starting at the first input
// with a non-zero result: below it 0, beyond it saturation.
//   - 8u, scaleFactor -6 to 8: the compile-time table (x from 16 on: 255);
//     -7: x = 0 gives 128, anything else 255; below -7 every element is 255;
//     above 8 each result is exp(x) * 2^-scaleFactor + 1/2 in double
//     precision, saturated by a compare with 255.0 and truncated.
//   - 16u and 16s: the window is decided in double-double for the call.
// 32f: the vector exp. Inputs above 88.72283 give +inf and
// tavWarnOverflow, below -103.97208 give 0 and tavWarnUnderflow, and
// between -103.97208 and -87.33654 give a denormal and tavWarnUnderflow;
// -inf gives 0 and other non-finite inputs pass through, all without a
// warning. A row reports the warning of its first such element, and the call
// returns the status of its last row only.
#include <cmath>

#include "arith/unary_frame.h"
#include "arith/unary_tables.h"
#include "simd/vmath.h"

namespace tav::arith {
namespace {

template <bool kHasLo>
struct Exp8u : NoStatus {
    ByteWindow<kHasLo> lut;
    Exp8u(const std::uint8_t* entries, int lo, int bound) : lut(entries, 16, lo, bound) {}
    __m512i operator()(__m512i x, std::uint64_t) const { return lut(x); }
};

struct Fill255 : NoStatus {
    __m512i operator()(__m512i, std::uint64_t) const { return _mm512_set1_epi8(-1); }
};

struct Fill0 : NoStatus {
    __m512i operator()(__m512i, std::uint64_t) const { return _mm512_setzero_si512(); }
};

template <Layout L>
TavStatus exp_8u(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize roi, int f) {
    if (TavStatus st = check_unary(s, ss, d, ds, roi)) return st;
    if (f < -7) {
        Fill255 op;
        return map_rows<Tav8u, L, 4, 0>(s, ss, d, ds, roi, op);
    }
    if (f <= kExp8uMaxSf) {
        const std::uint8_t seven[1] = {128};  // -7: only exp(0) * 128 fits
        const std::uint8_t* row = f == -7 ? seven : kExp8u[f - kExp8uMinSf].data();
        Exp8u<false> op(row, 0, f == -7 ? 0 : 15);
        return map_rows<Tav8u, L, 4, 0>(s, ss, d, ds, roi, op);
    }
    auto at = [f](int x) {
        const double v = std::ldexp(kExpDoubles[x], -f) + 0.5;
        return v > 255.0 ? 255 : static_cast<int>(v);
    };
    int lo = 0;
    while (lo < 256 && at(lo) == 0) ++lo;
    if (lo == 256) {
        Fill0 op;
        return map_rows<Tav8u, L, 4, 0>(s, ss, d, ds, roi, op);
    }
    std::uint8_t window[16];
    for (int i = 0; i < 16; ++i) window[i] = static_cast<std::uint8_t>(lo + i < 256 ? at(lo + i) : 255);
    Exp8u<true> op(window, lo, 15);
    return map_rows<Tav8u, L, 4, 0>(s, ss, d, ds, roi, op);
}

struct ExpWindow : NoStatus {
    I32Window lut;
    ExpWindow(const std::array<int, 16>& t, int lo) : lut(t, lo) {}
    __m512i operator()(__m512i x, __mmask16) const { return lut(x); }
};

template <class T, Layout L>
TavStatus exp_16(const T* s, int ss, T* d, int ds, TaviSize roi, int f) {
    if (TavStatus st = check_unary(s, ss, d, ds, roi)) return st;
    constexpr int kMax = kMaxOf<T>;
    constexpr int kLow = std::is_signed_v<T> ? -32768 : 0, kHigh = std::is_signed_v<T> ? 32767 : 65535;
    // Results leave 0 where exp(x) 2^-f reaches 1/2, at x = (f - 1) ln 2.
    const double edge = (static_cast<double>(f) - 1) * dd::kLn2.hi;
    int lo;
    if (edge > kHigh + 1.0) lo = kHigh + 1;
    else if (edge < kLow - 1.0) lo = kLow;
    else {
        lo = static_cast<int>(std::ceil(edge));
        while (lo > kLow && exp_scaled(lo - 1, f, kMax) > 0) --lo;
        while (lo <= kHigh && exp_scaled(lo, f, kMax) == 0) ++lo;
    }
    std::array<int, 16> t{};
    if (lo > kHigh) {
        lo = kLow;  // every result is 0
    } else {
        for (int i = 0; i < 16; ++i) t[i] = exp_scaled(lo + i, f, kMax);
    }
    ExpWindow op(t, lo);
    return map_rows_i32<T, L, 2, 0>(s, ss, d, ds, roi, op);
}

struct Exp32f {
    TavStatus status = tavOk;

    __m512 operator()(__m512 x, std::uint64_t lanes) {
        // Inside [-87.33654, 87.33654] nothing is special (NaN fails too);
        // the few values up to 88.72283 take the careful path.
        const __m512 mag = _mm512_castsi512_ps(_mm512_and_si512(_mm512_castps_si512(x), _mm512_set1_epi32(0x7fffffff)));
        if (_mm512_cmp_ps_mask(mag, _mm512_set1_ps(87.33654f), _CMP_LE_OQ) == 0xffff) return simd::exp_ps(x);
        return special(x, static_cast<__mmask16>(lanes));
    }

    __m512 special(__m512 x, __mmask16 lanes) {
        const __m512 inf = _mm512_set1_ps(__builtin_inff());
        __m512 y = simd::exp_ps(_mm512_min_ps(_mm512_max_ps(x, _mm512_set1_ps(-120.0f)), _mm512_set1_ps(100.0f)));
        const __mmask16 above = _mm512_cmp_ps_mask(x, _mm512_set1_ps(88.72283f), _CMP_GT_OQ);
        const __mmask16 toZero = _mm512_cmp_ps_mask(x, _mm512_set1_ps(-103.97208f), _CMP_LT_OQ);
        const __mmask16 below = _mm512_cmp_ps_mask(x, _mm512_set1_ps(-87.33654f), _CMP_LT_OQ);
        const __mmask16 isInf = _mm512_cmp_ps_mask(x, inf, _CMP_EQ_OQ);
        const __mmask16 isNegInf = _mm512_cmp_ps_mask(x, _mm512_sub_ps(_mm512_setzero_ps(), inf), _CMP_EQ_OQ);
        const __mmask16 nan = _mm512_cmp_ps_mask(x, x, _CMP_UNORD_Q);
        y = _mm512_mask_mov_ps(y, above, inf);
        y = _mm512_mask_mov_ps(y, toZero, _mm512_setzero_ps());
        y = _mm512_mask_add_ps(y, nan, x, x);
        if (status == tavOk) {
            const unsigned over = above & ~isInf & lanes, under = below & ~isNegInf & lanes;
            if (over | under) {
                const bool overFirst = over && (!under || __builtin_ctz(over) < __builtin_ctz(under));
                status = overFirst ? tavWarnOverflow : tavWarnUnderflow;
            }
        }
        return y;
    }

    TavStatus row_status() {
        const TavStatus st = status;
        status = tavOk;
        return st;
    }
};

template <Layout L>
constexpr auto exp_32f = unary_op<Exp32f, Tav32f, L, 2, 0, Combine::Last>;

}  // namespace
}  // namespace tav::arith

using tav::Layout;
using tav::arith::exp_16;
using tav::arith::exp_32f;
using tav::arith::exp_8u;

TavStatus own_taviExp_8u_C1RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return exp_8u<Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviExp_8u_C3RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return exp_8u<Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviExp_8u_C1IRSfs(Tav8u* p, int st, TaviSize r, int f) { return exp_8u<Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviExp_8u_C3IRSfs(Tav8u* p, int st, TaviSize r, int f) { return exp_8u<Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviExp_16u_C1RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return exp_16<Tav16u, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviExp_16u_C3RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return exp_16<Tav16u, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviExp_16u_C1IRSfs(Tav16u* p, int st, TaviSize r, int f) { return exp_16<Tav16u, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviExp_16u_C3IRSfs(Tav16u* p, int st, TaviSize r, int f) { return exp_16<Tav16u, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviExp_16s_C1RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return exp_16<Tav16s, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviExp_16s_C3RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return exp_16<Tav16s, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviExp_16s_C1IRSfs(Tav16s* p, int st, TaviSize r, int f) { return exp_16<Tav16s, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviExp_16s_C3IRSfs(Tav16s* p, int st, TaviSize r, int f) { return exp_16<Tav16s, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviExp_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return exp_32f<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviExp_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return exp_32f<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviExp_32f_C1IR(Tav32f* p, int st, TaviSize r) { return exp_32f<Layout::C1>(p, st, p, st, r); }
TavStatus own_taviExp_32f_C3IR(Tav32f* p, int st, TaviSize r) { return exp_32f<Layout::C3>(p, st, p, st, r); }
