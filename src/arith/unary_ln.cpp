// taviLn.
// Integers: round(ln(x) * 2^-scaleFactor) saturated; x = 0 writes 0 and the
// row reports tavWarnLnZeroArg (negative 16s inputs have no logarithm and
// give 0 without a warning). Results are monotone in x, so where they take
// few values (every factor from -2 up for 16-bit, from -2 up for 8u) the
// kernel counts the thresholds an input reaches; the thresholds are decided
// in double-double. Elsewhere ln is taken in double precision, which is
// exact here: no input lands within 1e-11 (relative) of a half-way point.
// Factors so large that every result is 0 still scan for zeros.
// 32f: the vector log; zero gives -inf, negatives not-a-number. The row
// reports tavWarnLnZeroArg if it met a zero, else tavWarnLnNegArg if it met
// a negative; over the rows a zero anywhere wins, else the first warning.
#include "arith/unary_frame.h"
#include "arith/unary_tables.h"
#include "simd/vmath.h"

namespace tav::arith {
namespace {

struct ZeroScan {
    __mmask16 zero = 0;
    void see(__m512i x, __mmask16 m) { zero |= _mm512_mask_cmpeq_epi32_mask(m, x, _mm512_setzero_si512()); }
    TavStatus row_status() {
        const TavStatus st = zero ? tavWarnLnZeroArg : tavOk;
        zero = 0;
        return st;
    }
};

// Results 1..count at the thresholds t[0] < t[1] < ...
struct LnThresholds : ZeroScan {
    int t[32] = {};
    int count = 0;
    __m512i operator()(__m512i x, __mmask16 m) {
        see(x, m);
        __m512i r = _mm512_setzero_si512();
        for (int i = 0; i < count; ++i) r = _mm512_mask_sub_epi32(r, _mm512_cmpge_epi32_mask(x, _mm512_set1_epi32(t[i])), r, _mm512_set1_epi32(-1));
        return r;
    }
};

// Every input from 2 on saturates.
template <int kMax>
struct LnSaturate : ZeroScan {
    __m512i operator()(__m512i x, __mmask16 m) {
        see(x, m);
        return _mm512_maskz_mov_epi32(_mm512_cmpgt_epi32_mask(x, _mm512_set1_epi32(1)), _mm512_set1_epi32(kMax));
    }
};

template <int kMax>
struct LnDouble : ZeroScan {
    __m512d scale;
    explicit LnDouble(int f) : scale(_mm512_set1_pd(dd::pow2(-f))) {}
    __m256i half(__m256i x) const {
        const __m512d y = _mm512_mul_pd(simd::log_pd_int(_mm512_cvtepi32_pd(x)), scale);
        return _mm512_cvt_roundpd_epi32(y, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    }
    __m512i operator()(__m512i x, __mmask16 m) {
        see(x, m);
        const __mmask16 some = _mm512_cmpgt_epi32_mask(x, _mm512_set1_epi32(1));
        // Inputs below 2 are taken as 2 and then masked to 0.
        const __m512i xs = _mm512_max_epi32(x, _mm512_set1_epi32(2));
        const __m512i r = _mm512_inserti64x4(_mm512_castsi256_si512(half(_mm512_castsi512_si256(xs))),
                                             half(_mm512_extracti64x4_epi64(xs, 1)), 1);
        return _mm512_maskz_mov_epi32(some, _mm512_min_epi32(r, _mm512_set1_epi32(kMax)));
    }
};

template <class T, Layout L>
TavStatus ln_sfs(const T* s, int ss, T* d, int ds, TaviSize roi, int f) {
    if (TavStatus st = check_unary(s, ss, d, ds, roi)) return st;
    constexpr int kMax = kMaxOf<T>;
    constexpr int kTop = std::is_same_v<T, Tav16s> ? 32767 : kMax;  // largest input
    // Result m starts at the least x with ln(x) >= (m - 1/2) 2^f: there
    // ln(x) 2^-f first reaches m - 1/2 (never exactly, ln of an integer
    // above 1 being irrational).
    LnThresholds th;
    bool few = f > 40;  // 2^f (1/2) is then far above ln(kTop)
    if (!few) {
        for (int m = 1; m <= 33; ++m) {
            const double arg = (m - 0.5) * dd::pow2(f < -1000 ? -1000 : f);
            if (arg > 12) {  // e^12 is beyond every input
                few = true;
                break;
            }
            const double t = dd::floor(dd::exp(arg)) + 1;
            if (t > kTop) {
                few = true;
                break;
            }
            if (m <= 32) {
                th.t[th.count++] = static_cast<int>(t);
            }
        }
    }
    if (few) return map_rows_i32<T, L, 2, 0, Combine::First>(s, ss, d, ds, roi, th);
    // ln 2 * 2^-f at or above kMax + 1/2: every input from 2 on saturates.
    if (dd::sub(dd::mul(dd::kLn2, dd::pow2(f < -1000 ? 1000 : -f)), dd::DD{kMax + 0.5, 0}).hi >= 0) {
        LnSaturate<kMax> op;
        return map_rows_i32<T, L, 2, 0, Combine::First>(s, ss, d, ds, roi, op);
    }
    LnDouble<kMax> op(f);
    return map_rows_i32<T, L, 1, 0, Combine::First>(s, ss, d, ds, roi, op);
}

struct Ln32f {
    bool zero = false, negative = false;

    __m512 operator()(__m512 x, std::uint64_t lanes) {
        const __m512i bits = _mm512_castps_si512(x);
        // Positive, normal and finite: bits - 2^23 below 0x7f000000, unsigned.
        const __mmask16 normal = _mm512_cmplt_epu32_mask(_mm512_sub_epi32(bits, _mm512_set1_epi32(0x00800000)),
                                                         _mm512_set1_epi32(0x7f000000));
        if (normal == 0xffff) return simd::log_ps_normal(x, _mm512_setzero_si512());
        return special(x, normal, static_cast<__mmask16>(lanes));
    }

    __m512 special(__m512 x, __mmask16 normal, __mmask16 lanes) {
        const __m512 zeroV = _mm512_setzero_ps();
        const __mmask16 isZero = _mm512_cmp_ps_mask(x, zeroV, _CMP_EQ_OQ);
        const __mmask16 isNeg = _mm512_cmp_ps_mask(x, zeroV, _CMP_LT_OQ);
        const __mmask16 isDen = _mm512_cmp_ps_mask(x, zeroV, _CMP_GT_OQ) & ~normal &
                                _mm512_cmp_ps_mask(x, _mm512_set1_ps(1.0f), _CMP_LT_OQ);
        zero |= (isZero & lanes) != 0;
        negative |= (isNeg & lanes) != 0;
        // Denormals are scaled into the normal range and their exponent corrected.
        const __m512 xs = _mm512_mask_mul_ps(x, isDen, x, _mm512_set1_ps(8388608.0f));
        const __m512i eadj = _mm512_maskz_mov_epi32(isDen, _mm512_set1_epi32(-23));
        __m512 y = simd::log_ps_normal(_mm512_mask_mov_ps(_mm512_set1_ps(1.0f), normal | isDen, xs), eadj);
        y = _mm512_mask_mov_ps(y, isZero, _mm512_set1_ps(-__builtin_inff()));
        y = _mm512_mask_mov_ps(y, isNeg, _mm512_castsi512_ps(_mm512_set1_epi32(static_cast<int>(0xffc00000u))));
        // +inf stays, not-a-number is quieted and kept.
        const __mmask16 rest = ~(normal | isDen | isZero | isNeg);
        return _mm512_mask_add_ps(y, rest, x, _mm512_setzero_ps());
    }

    TavStatus row_status() {
        const TavStatus st = zero ? tavWarnLnZeroArg : negative ? tavWarnLnNegArg : tavOk;
        zero = negative = false;
        return st;
    }
};

template <Layout L>
constexpr auto ln_32f = unary_op<Ln32f, Tav32f, L, 2, 0, Combine::LnZeroWins>;

}  // namespace
}  // namespace tav::arith

using tav::Layout;
using tav::arith::ln_32f;
using tav::arith::ln_sfs;

TavStatus own_taviLn_8u_C1RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return ln_sfs<Tav8u, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviLn_8u_C3RSfs(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r, int f) { return ln_sfs<Tav8u, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviLn_8u_C1IRSfs(Tav8u* p, int st, TaviSize r, int f) { return ln_sfs<Tav8u, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviLn_8u_C3IRSfs(Tav8u* p, int st, TaviSize r, int f) { return ln_sfs<Tav8u, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviLn_16u_C1RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return ln_sfs<Tav16u, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviLn_16u_C3RSfs(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, int f) { return ln_sfs<Tav16u, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviLn_16u_C1IRSfs(Tav16u* p, int st, TaviSize r, int f) { return ln_sfs<Tav16u, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviLn_16u_C3IRSfs(Tav16u* p, int st, TaviSize r, int f) { return ln_sfs<Tav16u, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviLn_16s_C1RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return ln_sfs<Tav16s, Layout::C1>(s, ss, d, ds, r, f); }
TavStatus own_taviLn_16s_C3RSfs(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r, int f) { return ln_sfs<Tav16s, Layout::C3>(s, ss, d, ds, r, f); }
TavStatus own_taviLn_16s_C1IRSfs(Tav16s* p, int st, TaviSize r, int f) { return ln_sfs<Tav16s, Layout::C1>(p, st, p, st, r, f); }
TavStatus own_taviLn_16s_C3IRSfs(Tav16s* p, int st, TaviSize r, int f) { return ln_sfs<Tav16s, Layout::C3>(p, st, p, st, r, f); }
TavStatus own_taviLn_32f_C1R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return ln_32f<Layout::C1>(s, ss, d, ds, r); }
TavStatus own_taviLn_32f_C3R(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return ln_32f<Layout::C3>(s, ss, d, ds, r); }
TavStatus own_taviLn_32f_C1IR(Tav32f* p, int st, TaviSize r) { return ln_32f<Layout::C1>(p, st, p, st, r); }
TavStatus own_taviLn_32f_C3IR(Tav32f* p, int st, TaviSize r) { return ln_32f<Layout::C3>(p, st, p, st, r); }
