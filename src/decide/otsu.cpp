// Otsu's threshold: a two-bank histogram, then a scan in double precision of
// the between-class variance over the 256 possible splits.
#include <immintrin.h>

#include <cstdint>
#include <cstring>

#include "frame/entry.h"

// The scan is specified operation by operation: no fused multiply-adds.
#pragma GCC optimize("fp-contract=off")

namespace {

// Counting goes through 16-bit banks, flushed into the 32-bit ones before
// they can overflow: narrower counters increment faster.
using Part = std::uint16_t[256];

// Even columns count in one bank and odd columns in the other, so that two
// equal neighbours never wait on the same counter.
void count_row(const Tav8u* p, int width, Part& even, Part& odd) {
    int x = 0;
    for (; x + 16 <= width; x += 16) {
        std::uint32_t v[4];
        std::memcpy(v, p + x, 16);
        for (std::uint32_t u : v) {
            ++even[u & 0xff];
            ++odd[(u >> 8) & 0xff];
            ++even[(u >> 16) & 0xff];
            ++odd[u >> 24];
        }
    }
    for (; x < width; ++x) ++((x & 1) ? odd : even)[p[x]];
}

void flush(std::uint32_t (&bank)[2][256], Part (&part)[2]) {
    for (int k = 0; k < 2; ++k)
        for (int i = 0; i < 256; ++i) bank[k][i] += part[k][i];
    std::memset(part, 0, sizeof part);
}

// Eight lanes folded pairwise, halves first.
double fold(double* lanes) {
    for (int half = 4; half > 0; half /= 2)
        for (int j = 0; j < half; ++j) lanes[j] += lanes[j + half];
    return lanes[0];
}

__m512d widen(const std::uint32_t* counts) {
    return _mm512_maskz_cvtepu32_pd(0xFF, _mm256_load_si256(reinterpret_cast<const __m256i*>(counts)));
}

}  // namespace

TavStatus own_taviComputeThreshold_Otsu_8u_C1R(const Tav8u* pSrc, int srcStep, TaviSize roiSize, Tav8u* pThreshold) {
    using namespace tav;
    if (any_null(pSrc, pThreshold)) return tavErrNullPtr;
    if (bad_size(roiSize)) return tavErrSize;
    if (srcStep < roiSize.width) return tavErrStep;

    alignas(64) std::uint32_t bank[2][256] = {};
    alignas(64) Part part[2] = {};
    // A piece of a row adds at most half its pixels, rounded up, to a bank.
    // Pieces start at even columns, so column parity holds.
    constexpr int kPiece = 1 << 16;
    int load = 0;
    for (int y = 0; y < roiSize.height; ++y) {
        const Tav8u* row = advance(pSrc, std::ptrdiff_t(y) * srcStep);
        for (int x0 = 0; x0 < roiSize.width; x0 += kPiece) {
            const int n = roiSize.width - x0 < kPiece ? roiSize.width - x0 : kPiece;
            if (load + (n + 1) / 2 > 0xFFFF) {
                flush(bank, part);
                load = 0;
            }
            count_row(row + x0, n, part[0], part[1]);
            load += (n + 1) / 2;
        }
    }
    flush(bank, part);

    // Bins eight at a time: lane k of a sum takes bins k, k + 8, ... in order.
    alignas(64) double h[256], p[256], cp[256], w[256], m[256], sigma[256];
    const __m512d half = _mm512_set_pd(7.5, 6.5, 5.5, 4.5, 3.5, 2.5, 1.5, 0.5);
    __m512d n8 = _mm512_setzero_pd(), s8 = _mm512_setzero_pd();
    for (int i = 0; i < 256; i += 8) {
        const __m512d hv =
            _mm512_add_pd(widen(bank[0] + i), widen(bank[1] + i));
        _mm512_store_pd(h + i, hv);
        n8 = _mm512_add_pd(n8, hv);
        s8 = _mm512_add_pd(s8, _mm512_mul_pd(_mm512_add_pd(half, _mm512_set1_pd(i)), hv));
    }
    alignas(64) double lanes[2][8];
    _mm512_store_pd(lanes[0], n8);
    _mm512_store_pd(lanes[1], s8);
    const double n = fold(lanes[0]), s = fold(lanes[1]);

    const double eps = 1.1920928955078125e-7;
    const double inv = n > eps ? 1.0 / n : 0.0;
    const double mu = s * inv;
    for (int i = 0; i < 256; i += 8) {
        const __m512d pv = _mm512_mul_pd(_mm512_set1_pd(inv), _mm512_load_pd(h + i));
        _mm512_store_pd(p + i, pv);
        _mm512_store_pd(cp + i, _mm512_mul_pd(_mm512_add_pd(half, _mm512_set1_pd(i)), pv));
    }
    // The running sums are sequential. Bins before the first admitted split
    // add nothing to m, though mu counts them. A split is admitted when the
    // smaller of w and q is above eps and the larger below the upper bound,
    // that is when both are.
    const __m128d one = _mm_set_sd(1.0), lo = _mm_set_sd(eps), hi = _mm_set_sd(0.9999998807907104);
    __m128d wi = _mm_setzero_pd(), mi = _mm_setzero_pd();
    for (int i = 0; i < 256; ++i) {
        wi = _mm_add_sd(wi, _mm_load_sd(p + i));
        const __m128d q = _mm_sub_sd(one, wi);
        const __mmask8 in = _mm_cmp_sd_mask(wi, lo, _CMP_GT_OQ) & _mm_cmp_sd_mask(q, lo, _CMP_GT_OQ) &
                            _mm_cmp_sd_mask(wi, hi, _CMP_LT_OQ) & _mm_cmp_sd_mask(q, hi, _CMP_LT_OQ);
        mi = _mm_mask_add_sd(mi, in, mi, _mm_load_sd(cp + i));
        _mm_store_sd(w + i, wi);
        _mm_store_sd(m + i, mi);
    }
    // The variances of admitted splits; 0 elsewhere, which never wins.
    const __m512d lo8 = _mm512_set1_pd(eps), hi8 = _mm512_set1_pd(0.9999998807907104);
    __m512d top = _mm512_setzero_pd();
    for (int i = 0; i < 256; i += 8) {
        const __m512d wv = _mm512_load_pd(w + i);
        const __m512d q = _mm512_sub_pd(_mm512_set1_pd(1.0), wv);
        const __mmask8 in = _mm512_cmp_pd_mask(wv, lo8, _CMP_GT_OQ) & _mm512_cmp_pd_mask(q, lo8, _CMP_GT_OQ) &
                            _mm512_cmp_pd_mask(wv, hi8, _CMP_LT_OQ) & _mm512_cmp_pd_mask(q, hi8, _CMP_LT_OQ);
        const __m512d d = _mm512_sub_pd(_mm512_mul_pd(_mm512_add_pd(wv, q), _mm512_load_pd(m + i)),
                                        _mm512_mul_pd(_mm512_set1_pd(mu), wv));
        const __m512d v = _mm512_maskz_div_pd(in, _mm512_mul_pd(d, d), _mm512_mul_pd(wv, q));
        _mm512_store_pd(sigma + i, v);
        top = _mm512_maskz_max_pd(0xFF, top, v);  // the plain forms trip a false uninitialised warning
    }
    // A split wins when it beats every one before it and 0: the first
    // greatest variance, if that is above 0.
    alignas(64) double tops[8];
    _mm512_store_pd(tops, top);
    double best = 0;
    for (double x : tops) best = x > best ? x : best;
    int t = 0;
    if (best > 0)
        while (sigma[t] != best) ++t;
    *pThreshold = static_cast<Tav8u>(t);
    return tavOk;
}
