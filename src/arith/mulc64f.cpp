// Image times a double-precision constant: each element is taken to double,
// multiplied, rounded by the rounding code and saturated to the element type
// (single precision: rounded to single and kept within its finite range).
// Checks: pointers, size, steps, the rounding code.
#include <immintrin.h>

#include <cfloat>
#include <limits>
#include <type_traits>

#include "arith/div.h"
#include "arith/entry_shapes.h"

namespace tav::arith {
namespace {

template <class T>
__m512d load8(const T* p, __mmask8 m) {
    if constexpr (std::is_same_v<T, float>) return _mm512_cvtps_pd(_mm256_maskz_loadu_ps(m, p));
    else if constexpr (std::is_same_v<T, Tav8u>) return _mm512_cvtepi32_pd(_mm256_cvtepu8_epi32(_mm_maskz_loadu_epi8(m, p)));
    else if constexpr (std::is_same_v<T, Tav16u>) return _mm512_cvtepi32_pd(_mm256_cvtepu16_epi32(_mm_maskz_loadu_epi16(m, p)));
    else return _mm512_cvtepi32_pd(_mm256_cvtepi16_epi32(_mm_maskz_loadu_epi16(m, p)));
}

constexpr int kRZ = _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC;

// Integer result of the rounding code, saturated, then stored.
template <class T, Rnd R>
void store_int(T* p, __mmask8 m, __m512d x) {
    __m512d r;
    if constexpr (R == Rnd::Zero) r = _mm512_roundscale_pd(x, kRZ);
    else if constexpr (R == Rnd::Near) r = _mm512_roundscale_pd(x, kRN);
    else {
        // Ties away from zero: the truncation moves one away when the part
        // cut off is a half or more (that part is exact in double).
        const __m512d t = _mm512_roundscale_pd(x, kRZ);
        const __m512d frac = _mm512_abs_pd(_mm512_sub_pd(x, t));
        const __mmask8 up = _mm512_cmp_pd_mask(frac, _mm512_set1_pd(0.5), _CMP_GE_OQ);
        const __m512d one = _mm512_castsi512_pd(_mm512_or_si512(_mm512_castpd_si512(_mm512_set1_pd(1.0)),
                                                                _mm512_and_si512(_mm512_castpd_si512(x), _mm512_set1_epi64(INT64_MIN))));
        r = _mm512_mask_add_pd(t, up, t, one);
    }
    r = _mm512_max_pd(r, _mm512_set1_pd(std::numeric_limits<T>::min()));
    r = _mm512_min_pd(r, _mm512_set1_pd(std::numeric_limits<T>::max()));
    const __m256i i = _mm512_cvttpd_epi32(r);
    if constexpr (sizeof(T) == 1) _mm_mask_storeu_epi8(p, m, _mm256_cvtepi32_epi8(i));
    else _mm_mask_storeu_epi16(p, m, _mm256_cvtepi32_epi16(i));
}

template <Rnd R>
void store_float(float* p, __mmask8 m, __m512d x) {
    // Saturation: magnitudes beyond the largest finite single are clamped to it.
    const __m512d big = _mm512_set1_pd(FLT_MAX);
    const __mmask8 over = _mm512_cmp_pd_mask(_mm512_abs_pd(x), big, _CMP_GT_OQ);
    const __m512d signBit = _mm512_castsi512_pd(_mm512_set1_epi64(INT64_MIN));
    x = _mm512_mask_mov_pd(x, over, _mm512_or_pd(big, _mm512_and_pd(x, signBit)));
    __m256 r;
    if constexpr (R == Rnd::Zero) r = _mm512_cvt_roundpd_ps(x, kRZ);
    else if constexpr (R == Rnd::Near) r = _mm512_cvt_roundpd_ps(x, kRN);
    else {
        // Ties away from zero: the truncated single or its successor in
        // magnitude, whichever the product reaches past their exact midpoint.
        const __m256 t = _mm512_cvt_roundpd_ps(x, kRZ);
        const __m256 next = _mm256_castsi256_ps(_mm256_add_epi32(_mm256_castps_si256(t), _mm256_set1_epi32(1)));
        const __m512d mid = _mm512_mul_pd(_mm512_add_pd(_mm512_cvtps_pd(t), _mm512_cvtps_pd(next)), _mm512_set1_pd(0.5));
        const __mmask8 away = _mm512_cmp_pd_mask(_mm512_abs_pd(x), _mm512_abs_pd(mid), _CMP_GE_OQ);
        r = _mm256_mask_mov_ps(t, away, next);
    }
    _mm256_mask_storeu_ps(p, m, r);
}

template <class T, Layout L, Rnd R>
void mulc64f_rows(const T* s, int ts, const double* v, T* d, int td, TaviSize roi) {
    constexpr int ch = kChannels<L>;
    constexpr int P = ch == 3 ? 3 : 1;  // eight lanes cover a period of 3 in three vectors
    __m512d c[P];
    for (int j = 0; j < P; ++j) {
        alignas(64) double lanes[8];
        for (int l = 0; l < 8; ++l) lanes[l] = v[(8 * j + l) % ch];
        c[j] = _mm512_load_pd(lanes);
    }
    const std::size_t n = static_cast<std::size_t>(row_elems<L>(roi.width));
    for (int y = 0; y < roi.height; ++y, s = advance(s, ts), d = advance(d, td)) {
        std::size_t i = 0;
        int j = 0;
        auto one = [&](__mmask8 m) {
            const __m512d x = _mm512_mul_pd(load8(s + i, m), c[j]);
            if constexpr (std::is_same_v<T, float>) store_float<R>(d + i, m, x);
            else store_int<T, R>(d + i, m, x);
        };
        for (; i + 8 <= n; i += 8) {
            one(0xff);
            j = j + 1 == P ? 0 : j + 1;
        }
        if (i < n) one(static_cast<__mmask8>((1u << (n - i)) - 1));
    }
}

template <class T, Layout L>
TavStatus mulc64f(const T* s, int ts, const double* v, T* d, int td, TaviSize roi, TavHintAlgorithm, TavRoundMode mode) {
    if (any_null(s, v, d)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (bad_step(ts, td)) return tavErrStep;
    switch (mode) {
        case tavRndZero: mulc64f_rows<T, L, Rnd::Zero>(s, ts, v, d, td, roi); return tavOk;
        case tavRndNear: mulc64f_rows<T, L, Rnd::Near>(s, ts, v, d, td, roi); return tavOk;
        case tavRndFinancial: mulc64f_rows<T, L, Rnd::Financial>(s, ts, v, d, td, roi); return tavOk;
        default: return tavErrRoundMode;
    }
}

}  // namespace
}  // namespace tav::arith

using tav::Layout;
using tav::arith::mulc64f;

TavStatus own_taviMulC64f_8u_C1R(const Tav8u* s, int t, const Tav64f* v, Tav8u* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav8u, Layout::C1>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_8u_C1IR(const Tav64f* v, Tav8u* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav8u, Layout::C1>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_8u_C3R(const Tav8u* s, int t, const Tav64f* v, Tav8u* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav8u, Layout::C3>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_8u_C3IR(const Tav64f* v, Tav8u* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav8u, Layout::C3>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_8u_C4R(const Tav8u* s, int t, const Tav64f* v, Tav8u* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav8u, Layout::C4>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_8u_C4IR(const Tav64f* v, Tav8u* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav8u, Layout::C4>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_16u_C1R(const Tav16u* s, int t, const Tav64f* v, Tav16u* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16u, Layout::C1>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_16u_C1IR(const Tav64f* v, Tav16u* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16u, Layout::C1>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_16u_C3R(const Tav16u* s, int t, const Tav64f* v, Tav16u* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16u, Layout::C3>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_16u_C3IR(const Tav64f* v, Tav16u* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16u, Layout::C3>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_16u_C4R(const Tav16u* s, int t, const Tav64f* v, Tav16u* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16u, Layout::C4>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_16u_C4IR(const Tav64f* v, Tav16u* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16u, Layout::C4>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_16s_C1R(const Tav16s* s, int t, const Tav64f* v, Tav16s* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16s, Layout::C1>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_16s_C1IR(const Tav64f* v, Tav16s* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16s, Layout::C1>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_16s_C3R(const Tav16s* s, int t, const Tav64f* v, Tav16s* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16s, Layout::C3>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_16s_C3IR(const Tav64f* v, Tav16s* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16s, Layout::C3>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_16s_C4R(const Tav16s* s, int t, const Tav64f* v, Tav16s* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16s, Layout::C4>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_16s_C4IR(const Tav64f* v, Tav16s* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav16s, Layout::C4>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_32f_C1R(const Tav32f* s, int t, const Tav64f* v, Tav32f* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav32f, Layout::C1>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_32f_C1IR(const Tav64f* v, Tav32f* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav32f, Layout::C1>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_32f_C3R(const Tav32f* s, int t, const Tav64f* v, Tav32f* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav32f, Layout::C3>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_32f_C3IR(const Tav64f* v, Tav32f* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav32f, Layout::C3>(sd, t, v, sd, t, r, h, m);
}
TavStatus own_taviMulC64f_32f_C4R(const Tav32f* s, int t, const Tav64f* v, Tav32f* d, int td, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav32f, Layout::C4>(s, t, v, d, td, r, h, m);
}
TavStatus own_taviMulC64f_32f_C4IR(const Tav64f* v, Tav32f* sd, int t, TaviSize r, TavHintAlgorithm h, TavRoundMode m) {
    return mulc64f<Tav32f, Layout::C4>(sd, t, v, sd, t, r, h, m);
}
