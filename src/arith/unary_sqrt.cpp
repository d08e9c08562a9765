// taviSqrt. 32f: the processor's square root; a negative element makes the
// row report tavWarnSqrtNegArg (not-a-number alone does not), rows walk whole
// elements, and the first row warning is the call's status.
// Integers: round(sqrt(x) * 2^-scaleFactor) saturated, chosen by
// scaleFactor before the row loop:
//   - single precision wherever it is exact: every 8u factor, and 16-bit
//     factors from 0 up (a half-way point is then an integer or at least
//     2^-11 away, far beyond the error of a rounded root below 2^10);
//   - double precision for 16-bit factors below 0, where results reach 65535;
//   - 8u factors -6 and -7 look the table up under the bound
//     63 >> (22 - 2 * scaleFactor) (shift taken modulo 32), 255 above it;
//   - factors where every result is 0, or every non-zero input saturates.
// Negative 16s inputs have no real root and give 0.
#include "arith/unary_frame.h"
#include "arith/unary_tables.h"

namespace tav::arith {
namespace {

struct Sqrt32f {
    __mmask16 negative = 0;
    __m512 operator()(__m512 x, std::uint64_t lanes) {
        negative |= _mm512_mask_cmp_ps_mask(static_cast<__mmask16>(lanes), x, _mm512_setzero_ps(), _CMP_LT_OQ);
        return _mm512_sqrt_ps(x);
    }
    TavStatus row_status() {
        const TavStatus st = negative ? tavWarnSqrtNegArg : tavOk;
        negative = 0;
        return st;
    }
};

template <Layout L>
constexpr auto sqrt_32f = unary_op<Sqrt32f, Tav32f, L, 2, 3>;

struct SqrtSingle : NoStatus {
    __m512 scale;
    explicit SqrtSingle(int f) : scale(_mm512_set1_ps(static_cast<float>(dd::pow2(-f)))) {}
    __m512i operator()(__m512i x, __mmask16) const {
        const __m512 r = _mm512_mul_ps(_mm512_sqrt_ps(_mm512_cvtepi32_ps(_mm512_max_epi32(x, _mm512_setzero_si512()))), scale);
        return _mm512_cvt_roundps_epi32(r, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
};

struct SqrtDouble : NoStatus {
    __m512d scale;
    explicit SqrtDouble(int f) : scale(_mm512_set1_pd(dd::pow2(-f))) {}
    __m256i half(__m256i x) const {
        const __m512d r = _mm512_mul_pd(_mm512_sqrt_pd(_mm512_cvtepi32_pd(x)), scale);
        return _mm512_cvt_roundpd_epi32(r, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    __m512i operator()(__m512i x, __mmask16) const {
        x = _mm512_max_epi32(x, _mm512_setzero_si512());
        return _mm512_inserti64x4(_mm512_castsi256_si512(half(_mm512_castsi512_si256(x))), half(_mm512_extracti64x4_epi64(x, 1)), 1);
    }
};

// Every non-zero (positive) input saturates.
template <class T>
struct SqrtSaturate : NoStatus {
    __m512i operator()(__m512i x, __mmask16) const {
        return _mm512_maskz_mov_epi32(_mm512_cmpgt_epi32_mask(x, _mm512_setzero_si512()), _mm512_set1_epi32(kMaxOf<T>));
    }
};

struct Zero : NoStatus {
    __m512i operator()(__m512i, __mmask16) const { return _mm512_setzero_si512(); }
};

struct SqrtSmallTable8u : NoStatus {
    ByteWindow<false> lut;
    SqrtSmallTable8u(const std::uint8_t* row, int count, int bound) : lut(row, count, 0, bound) {}
    __m512i operator()(__m512i x, std::uint64_t) const { return lut(x); }
};

template <class T, Layout L>
TavStatus sqrt_sfs(const T* s, int ss, T* d, int ds, TaviSize roi, int f) {
    if (TavStatus st = check_unary(s, ss, d, ds, roi)) return st;
    constexpr int kMax = kMaxOf<T>;
    constexpr int kTop = std::is_same_v<T, Tav16s> ? 32767 : kMax;  // largest input
    if (sqrt_scaled(kTop, f, kMax) == 0) {
        Zero op;
        return map_rows_i32<T, L, 1, 0>(s, ss, d, ds, roi, op);
    }
    if (sqrt_scaled(1, f, kMax + 1) > kMax) {
        SqrtSaturate<T> op;
        return map_rows_i32<T, L, 1, 0>(s, ss, d, ds, roi, op);
    }
    if constexpr (sizeof(T) == 1) {
        if (f == -6 || f == -7) {
            const int bound = 63 >> ((22 - 2 * f) & 31);
            SqrtSmallTable8u op(f == -6 ? kSqrt8u.row6.data() : kSqrt8u.row7.data(), bound + 1, bound);
            return map_rows<T, L, 2, 0>(s, ss, d, ds, roi, op);
        }
    } else if (f < 0) {
        SqrtDouble op(f);
        return map_rows_i32<T, L, 2, 0>(s, ss, d, ds, roi, op);
    }
    SqrtSingle op(f);
    return map_rows_i32<T, L, 4, 0>(s, ss, d, ds, roi, op);
}

}  // namespace
}  // namespace tav::arith

using tav::Layout;
using tav::arith::sqrt_32f;
using tav::arith::sqrt_sfs;

TavStatus own_taviSqrt_8u_C1RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return sqrt_sfs<Tav8u, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviSqrt_8u_C3RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return sqrt_sfs<Tav8u, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviSqrt_8u_AC4RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return sqrt_sfs<Tav8u, Layout::AC4>(s, ss, d, ds, r, f); }
TavStatus own_taviSqrt_8u_C1IRSfs(Tav8u* p, int st, TaviSize r, int f) { return sqrt_sfs<Tav8u, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviSqrt_8u_C3IRSfs(Tav8u* p, int st, TaviSize r, int f) { return sqrt_sfs<Tav8u, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviSqrt_8u_AC4IRSfs(Tav8u* p, int st, TaviSize r, int f) { return sqrt_sfs<Tav8u, Layout::AC4>(p, st, p, st, r, f); }
TavStatus own_taviSqrt_16u_C1RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return sqrt_sfs<Tav16u, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviSqrt_16u_C3RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return sqrt_sfs<Tav16u, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviSqrt_16u_AC4RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return sqrt_sfs<Tav16u, Layout::AC4>(s, ss, d, ds, r, f); }
TavStatus own_taviSqrt_16u_C1IRSfs(Tav16u* p, int st, TaviSize r, int f) { return sqrt_sfs<Tav16u, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviSqrt_16u_C3IRSfs(Tav16u* p, int st, TaviSize r, int f) { return sqrt_sfs<Tav16u, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviSqrt_16u_AC4IRSfs(Tav16u* p, int st, TaviSize r, int f) { return sqrt_sfs<Tav16u, Layout::AC4>(p, st, p, st, r, f); }
TavStatus own_taviSqrt_16s_C1RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return sqrt_sfs<Tav16s, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviSqrt_16s_C3RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return sqrt_sfs<Tav16s, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviSqrt_16s_AC4RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return sqrt_sfs<Tav16s, Layout::AC4>(s, ss, d, ds, r, f); }
TavStatus own_taviSqrt_16s_C1IRSfs(Tav16s* p, int st, TaviSize r, int f) { return sqrt_sfs<Tav16s, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviSqrt_16s_C3IRSfs(Tav16s* p, int st, TaviSize r, int f) { return sqrt_sfs<Tav16s, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviSqrt_16s_AC4IRSfs(Tav16s* p, int st, TaviSize r, int f) { return sqrt_sfs<Tav16s, Layout::AC4>(p, st, p, st, r, f); }
TavStatus own_taviSqrt_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return sqrt_32f<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviSqrt_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return sqrt_32f<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviSqrt_32f_AC4R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return sqrt_32f<Layout::AC4>(s, ss, d, ds, r); }
TavStatus own_taviSqrt_32f_C1IR(Tav32f* p, int st, TaviSize r) { return sqrt_32f<Layout::C1>(p, st, p, st, r); }
TavStatus own_taviSqrt_32f_C3IR(Tav32f* p, int st, TaviSize r) { return sqrt_32f<Layout::C3>(p, st, p, st, r); }
TavStatus own_taviSqrt_32f_C4IR(Tav32f* p, int st, TaviSize r) { return sqrt_32f<Layout::C4>(p, st, p, st, r); }
TavStatus own_taviSqrt_32f_AC4IR(Tav32f* p, int st, TaviSize r) { return sqrt_32f<Layout::AC4>(p, st, p, st, r); }
