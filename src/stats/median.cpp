// taviMedian_8u_P3C1R: per-pixel median of three planes,
// min(max(min(a, b), c), max(a, b)).
#include "stats/reduce.h"

namespace tav::stats {
namespace {

inline __m512i median3(__m512i a, __m512i b, __m512i c) {
    return _mm512_min_epu8(_mm512_max_epu8(_mm512_min_epu8(a, b), c), _mm512_max_epu8(a, b));
}

void median_row(const Tav8u* a, const Tav8u* b, const Tav8u* c, Tav8u* d, int64_t n) {
    int64_t i = 0;
    for (; i + 128 <= n; i += 128) {
        simd::store(d + i, median3(simd::load(a + i), simd::load(b + i), simd::load(c + i)));
        simd::store(d + i + 64, median3(simd::load(a + i + 64), simd::load(b + i + 64), simd::load(c + i + 64)));
    }
    for (; i < n; i += 64) {
        const __mmask64 m = simd::first_lanes<Tav8u>(static_cast<std::size_t>(n - i));
        simd::store(d + i, m, median3(simd::load(a + i, m), simd::load(b + i, m), simd::load(c + i, m)));
    }
}

}  // namespace
}  // namespace tav::stats

TavStatus own_taviMedian_8u_P3C1R(const Tav8u* const pSrc[3], int srcStep, Tav8u* pDst, int dstStep, TaviSize roi) {
    using namespace tav;
    if (!pSrc || !pDst) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (any_null(pSrc[0], pSrc[1], pSrc[2])) return tavErrNullPtr;
    const Tav8u *a = pSrc[0], *b = pSrc[1], *c = pSrc[2];
    int64_t n = roi.width;
    int h = roi.height;
    stats::join_rows<Tav8u>(n, h, {srcStep, dstStep});
    for (int y = 0; y < h; ++y) {
        stats::median_row(a, b, c, pDst, n);
        a = advance(a, srcStep);
        b = advance(b, srcStep);
        c = advance(c, srcStep);
        pDst = advance(pDst, dstStep);
    }
    return tavOk;
}
