// taviNorm, taviNormDiff, taviNormRel: infinity, L1 and L2 norms of an image,
// of a difference, and of a difference relative to the second image.
//
// Integer sums are exact (narrow lanes flushed into 64-bit totals, converted
// once). 32f L1 and L2 follow the hint: 2 widens every element to double and
// keeps even and odd columns in separate accumulators, folded at each row's
// end into two running totals; anything else accumulates in single precision
// across the whole image and widens the folded sum.
#pragma once

#include <cfloat>
#include <cmath>
#include <cstring>

#include "stats/extrema.h"

namespace tav::stats {

enum class Norm { Inf, L1, L2 };
enum class Form { Plain, Diff, Rel };  // |x|, |x1 - x2|, |x1 - x2| over |x2|

// ---- integer kernels -----------------------------------------------------

// Magnitudes of one or of a difference, in unsigned lanes of the same width.
template <class T>
struct Mag;
template <>
struct Mag<Tav8u> {
    static __m512i of(__m512i x) { return x; }
    static __m512i diff(__m512i a, __m512i b) { return _mm512_or_si512(_mm512_subs_epu8(a, b), _mm512_subs_epu8(b, a)); }
    static __m512i max(__m512i a, __m512i b) { return _mm512_max_epu8(a, b); }
};
template <>
struct Mag<Tav16u> {
    static __m512i of(__m512i x) { return x; }
    static __m512i diff(__m512i a, __m512i b) {
        return _mm512_or_si512(_mm512_subs_epu16(a, b), _mm512_subs_epu16(b, a));
    }
    static __m512i max(__m512i a, __m512i b) { return _mm512_max_epu16(a, b); }
};
template <>
struct Mag<Tav16s> {
    // -32768 becomes the unsigned 32768.
    static __m512i of(__m512i x) { return _mm512_abs_epi16(x); }
    static __m512i diff(__m512i a, __m512i b) {
        return _mm512_sub_epi16(_mm512_max_epi16(a, b), _mm512_min_epi16(a, b));
    }
    static __m512i max(__m512i a, __m512i b) { return _mm512_max_epu16(a, b); }
};

// Lanes that sum the magnitudes (L1) or their squares (L2).
template <class T, Norm N, Layout L>
using IntLanes = std::conditional_t<
    std::is_same_v<T, Tav8u>,
    std::conditional_t<N == Norm::L1, std::conditional_t<L == Layout::C1, SadLanes, BytesLanes>,
                       std::conditional_t<L == Layout::C1, ProdBytesC1Lanes, ProdBytesLanes>>,
    std::conditional_t<N == Norm::L1, U16Lanes, ProdU16Lanes>>;

// Sums for L1 and L2: the numerator bank (magnitudes of x or of x1 - x2) and,
// for the relative form, the denominator bank of x2.
template <class T, Norm N, Form F, Layout L>
struct IntSums {
    using Lanes = IntLanes<T, N, L>;
    static constexpr int kElems = 64 / sizeof(T), kSteps = block_steps<L>(2);
    Bank<Lanes, kSteps> num;
    Bank<Lanes, F == Form::Rel ? kSteps : 1> den;

    template <int K>
    static void add(Bank<Lanes, kSteps>& b, __m512i v) {
        if constexpr (N == Norm::L1) b.template add<K>(v);
        else b.template add<K>(v, v);
    }
    template <int K, bool Full, class... S>
    void step(int64_t valid, const S*... src) {
        const auto m = simd::first_lanes<T>(valid);
        const __m512i x[] = {(Full ? simd::load(src) : simd::load(src, m))...};
        if constexpr (F == Form::Plain) {
            add<K>(num, Mag<T>::of(x[0]));
        } else if constexpr (std::is_same_v<Lanes, SadLanes>) {
            num.template add<K>(x[0], x[1]);  // the sum of absolute differences itself
        } else {
            add<K>(num, Mag<T>::diff(x[0], x[1]));
        }
        if constexpr (F == Form::Rel) {
            if constexpr (std::is_same_v<Lanes, SadLanes>) den.template add<K>(x[1]);
            else add<K>(den, Mag<T>::of(x[1]));
        }
    }
    int64_t room() const { return std::min(num.room(), den.room()); }
    void use(int64_t b) {
        num.use(b);
        if constexpr (F == Form::Rel) den.use(b);
    }
    void flush() {
        num.flush();
        if constexpr (F == Form::Rel) den.flush();
    }
};

// Largest magnitudes for Inf. 16s keeps the maximum and the minimum of the
// values apart and forms max(maximum, -minimum) in 32 bits at the end.
template <class T, Form F, Layout L>
struct IntMax {
    static constexpr bool kSplit = std::is_same_v<T, Tav16s> && F == Form::Plain;
    static constexpr int kElems = 64 / sizeof(T), kSteps = block_steps<L>(2), kBlock = kElems * kSteps;
    // Zero lanes of a masked tail are harmless: every result is at least 0.
    __m512i num[kSteps], lo[kSteps], den[kSteps];
    IntMax() {
        for (int k = 0; k < kSteps; ++k) num[k] = lo[k] = den[k] = _mm512_setzero_si512();
    }
    template <int K, bool Full, class... S>
    void step(int64_t valid, const S*... src) {
        const auto m = simd::first_lanes<T>(valid);
        const __m512i x[] = {(Full ? simd::load(src) : simd::load(src, m))...};
        if constexpr (kSplit) {
            num[K] = _mm512_max_epi16(num[K], x[0]);
            lo[K] = _mm512_min_epi16(lo[K], x[0]);
        } else if constexpr (F == Form::Plain) {
            num[K] = Mag<T>::max(num[K], x[0]);
        } else {
            num[K] = Mag<T>::max(num[K], Mag<T>::diff(x[0], x[1]));
        }
        if constexpr (F == Form::Rel) den[K] = Mag<T>::max(den[K], Mag<T>::of(x[1]));
    }
    int64_t room() const { return kNoLimit; }
    void use(int64_t) {}
    void flush() {}

    // Per-channel largest value of lanes read as unsigned (signed for the split).
    template <int C>
    static void fold(const __m512i (&v)[kSteps], int32_t* out, bool isSigned, bool isMin) {
        alignas(64) T l[kBlock];
        for (int k = 0; k < kSteps; ++k) simd::store(l + k * kElems, v[k]);
        for (int c = 0; c < C; ++c) out[c] = isMin ? INT32_MAX : 0;
        for (int p = 0; p < kBlock; ++p) {
            using U = std::make_unsigned_t<T>;
            const int32_t e = isSigned ? int32_t(l[p]) : int32_t(U(l[p]));
            out[p % C] = isMin ? std::min(out[p % C], e) : std::max(out[p % C], e);
        }
    }
    template <int C>
    void finish(double* numOut, double* denOut) const {
        int32_t a[C], b[C];
        if constexpr (kSplit) {
            fold<C>(num, a, true, false);
            fold<C>(lo, b, true, true);
            for (int c = 0; c < C; ++c) numOut[c] = std::max(a[c], -b[c]);
        } else {
            fold<C>(num, a, false, false);
            for (int c = 0; c < C; ++c) numOut[c] = a[c];
        }
        if constexpr (F == Form::Rel) {
            fold<C>(den, b, false, false);
            for (int c = 0; c < C; ++c) denOut[c] = b[c];
        }
    }
};

// ---- 32f kernels -----------------------------------------------------------

inline __m512 fabs(__m512 v) { return _mm512_abs_ps(v); }
inline __m512d fabs(__m512d v) { return _mm512_abs_pd(v); }

// 32f in single precision, sixteen-lane accumulators across the image: Inf
// keeps the largest |x| or |x1 - x2| (and |x2|); L1 adds magnitudes and L2
// squares by fused multiply-add; the lanes of a channel are folded in single
// precision at the end and widened.
template <Norm N, Form F, Layout L>
struct FloatLanes {
    static constexpr int kElems = 16, kSteps = block_steps<L>(2), kBlock = kElems * kSteps;
    __m512 num[kSteps], den[kSteps];
    FloatLanes() {
        for (int k = 0; k < kSteps; ++k) num[k] = den[k] = _mm512_setzero_ps();
    }
    static __m512 acc(__m512 a, __m512 v) {
        if constexpr (N == Norm::Inf) return _mm512_max_ps(a, fabs(v));
        else if constexpr (N == Norm::L1) return _mm512_add_ps(a, fabs(v));
        else return _mm512_fmadd_ps(v, v, a);
    }
    template <int K, bool Full, class... S>
    void step(int64_t valid, const S*... src) {
        const auto m = simd::first_lanes<float>(valid);
        const __m512 x[] = {(Full ? simd::load(src) : simd::load(src, m))...};
        num[K] = acc(num[K], F == Form::Plain ? x[0] : _mm512_sub_ps(x[0], x[sizeof...(S) - 1]));
        if constexpr (F == Form::Rel) den[K] = acc(den[K], x[1]);
    }
    int64_t room() const { return kNoLimit; }
    void use(int64_t) {}
    void flush() {}
    template <int C>
    static void fold(const __m512 (&v)[kSteps], double* out) {
        alignas(64) float l[kBlock];
        for (int k = 0; k < kSteps; ++k) _mm512_store_ps(l + k * kElems, v[k]);
        float r[C] = {};
        for (int p = 0; p < kBlock; ++p) {
            if constexpr (N == Norm::Inf) keep_max(r[p % C], l[p]);
            else r[p % C] += l[p];
        }
        for (int c = 0; c < C; ++c) out[c] = r[c];
    }
    template <int C>
    void finish(double* numOut, double* denOut) const {
        fold<C>(num, numOut);
        if constexpr (F == Form::Rel) fold<C>(den, denOut);
    }
};

// L1, L2 with the accurate hint: eight elements widened to double a step;
// lanes hold pixels of both column parities, told apart when a row is folded.
template <Norm N, Form F, Layout L>
struct WideSums {
    static constexpr int C = kPeriod<L>;
    static constexpr int kElems = 8, kSteps = L == Layout::C3 ? 3 : 4, kBlock = kElems * kSteps;
    __m512d num[kSteps], den[kSteps];
    WideSums() { reset(); }
    void reset() {
        for (int k = 0; k < kSteps; ++k) num[k] = den[k] = _mm512_setzero_pd();
    }
    static __m512d widen(const float* p, int64_t valid, bool full) {
        return _mm512_cvtps_pd(full ? _mm256_loadu_ps(p) : _mm256_maskz_loadu_ps(simd::first_lanes<double>(valid), p));
    }
    static __m512d acc(__m512d a, __m512d v) {
        return N == Norm::L1 ? _mm512_add_pd(a, fabs(v)) : _mm512_fmadd_pd(v, v, a);
    }
    template <int K, bool Full, class... S>
    void step(int64_t valid, const S*... src) {
        const __m512d x[] = {widen(src, valid, Full)...};
        num[K] = acc(num[K], F == Form::Plain ? x[0] : _mm512_sub_pd(x[0], x[sizeof...(S) - 1]));
        if constexpr (F == Form::Rel) den[K] = acc(den[K], x[1]);
    }
    int64_t room() const { return kNoLimit; }
    void use(int64_t) {}
    void flush() {}
    static double acc1(double a, double v) { return N == Norm::L1 ? a + std::fabs(v) : std::fma(v, v, a); }
    // Adds the row's lanes into even-column and odd-column totals by channel;
    // `last` (null for an even width) is the lone last column, which joins
    // the odd columns.
    static void fold_row(const __m512d (&v)[kSteps], double* even, double* odd, const double* last) {
        alignas(64) double l[kBlock];
        for (int k = 0; k < kSteps; ++k) _mm512_store_pd(l + k * kElems, v[k]);
        double e[C] = {}, o[C] = {};
        for (int p = 0; p < kBlock; ++p) ((p / C) % 2 ? o : e)[p % C] += l[p];
        for (int c = 0; c < C; ++c) {
            if (last) o[c] = acc1(o[c], last[c]);
            even[c] += e[c];
            odd[c] += o[c];
        }
    }
};

// ---- drivers -----------------------------------------------------------------

// Runs policy P over the one image of the plain form or the two of the others.
template <Form F, class P, class T>
void run(P& p, const T* a, std::ptrdiff_t sa, const T* b, std::ptrdiff_t sb, int64_t n, int h) {
    if constexpr (F == Form::Plain) walk_rows(p, a, sa, n, h);
    else walk_rows(p, a, sa, b, sb, n, h);
}

// The relative norm of numerator over denominator with the zero rules; true
// when the denominator was taken for zero.
inline bool relative(double num, double den, double zero, Norm n, double& out) {
    if (den < zero || den == 0) {
        uint64_t bits = 0xFFF8000000000000ull;
        double nan;
        std::memcpy(&nan, &bits, 8);
        out = (num < zero || num == 0) ? nan : HUGE_VAL;
        return true;
    }
    out = n == Norm::L2 ? std::sqrt(num / den) : num / den;
    return false;
}

template <class T, Norm N, Form F, Layout L>
void norm_int(const T* a, std::ptrdiff_t sa, const T* b, std::ptrdiff_t sb, int64_t n, int h, double* num,
              double* den) {
    constexpr int C = kPeriod<L>;
    if (F == Form::Plain) join_rows<T>(n, h, {sa});
    else join_rows<T>(n, h, {sa, sb});
    if constexpr (N == Norm::Inf) {
        IntMax<T, F, L> p;
        run<F>(p, a, sa, b, sb, n, h);
        p.template finish<C>(num, den);
    } else {
        IntSums<T, N, F, L> p;
        run<F>(p, a, sa, b, sb, n, h);
        p.num.template finish<C>(num);
        if constexpr (F == Form::Rel) p.den.template finish<C>(den);
    }
}

template <Norm N, Form F, Layout L>
void norm_32f(const float* a, std::ptrdiff_t sa, const float* b, std::ptrdiff_t sb, int w, int h, int hint,
              double* num, double* den) {
    constexpr int C = kPeriod<L>;
    const int64_t n = row_elems<L>(w);
    if (N == Norm::Inf || hint != tavAlgHintAccurate) {
        FloatLanes<N, F, L> p;
        run<F>(p, a, sa, b, sb, n, h);
        p.template finish<C>(num, den);
    } else if constexpr (N != Norm::Inf) {
        // Pairs of columns; an odd last column goes to the odd totals alone.
        double ne[C] = {}, no[C] = {}, de[C] = {}, dd[C] = {};
        const int64_t pairs = row_elems<L>(w & ~1);
        const bool odd = w & 1;
        WideSums<N, F, L> p;
        const bool pf = streaming<float>(n, h, F == Form::Plain ? 1 : 2);
        for (int y = 0; y < h; ++y, a = advance(a, sa), b = advance(b, sb)) {
            p.reset();
            double lastNum[C], lastDen[C];
            if constexpr (F != Form::Plain) {
                walk_any(pf, p, pairs, a, b);
                for (int c = 0; c < C && odd; ++c) {
                    lastNum[c] = double(a[pairs + c]) - double(b[pairs + c]);
                    lastDen[c] = b[pairs + c];
                }
            } else {
                walk_any(pf, p, pairs, a);
                for (int c = 0; c < C && odd; ++c) lastNum[c] = a[pairs + c];
            }
            WideSums<N, F, L>::fold_row(p.num, ne, no, odd ? lastNum : nullptr);
            if constexpr (F == Form::Rel) WideSums<N, F, L>::fold_row(p.den, de, dd, odd ? lastDen : nullptr);
        }
        for (int c = 0; c < C; ++c) {
            num[c] = ne[c] + no[c];
            if constexpr (F == Form::Rel) den[c] = de[c] + dd[c];
        }
    }
}

// The entry of all three families: checks, then the kernels, then the
// results (square roots, quotients and their zero rules).
template <class T, Norm N, Form F, Layout L>
TavStatus norm(const T* a, int sa, const T* b, int sb, TaviSize roi, Tav64f* out, int hint = 0) {
    constexpr int C = kPeriod<L>;
    if (F == Form::Plain ? any_null(a, out) : (any_null(a, b) || !out)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (F == Form::Plain ? bad_step(sa) : bad_step(sa, sb)) return tavErrStep;
    double num[C], den[C];
    if constexpr (std::is_same_v<T, Tav32f>) {
        norm_32f<N, F, L>(a, sa, b, sb, roi.width, roi.height, hint, num, den);
    } else if (std::is_same_v<T, Tav8u> && N == Norm::L2 && F == Form::Plain && roi.width > 32768) {
        // Wide rows go in column strips of 32768 pixels, the last taking the
        // rest; each strip's norm is squared into the total by a fused step.
        for (int c = 0; c < C; ++c) num[c] = 0;
        for (int x0 = 0; x0 < roi.width; x0 += 32768) {
            double s[C];
            norm_int<T, N, F, L>(a + int64_t(x0) * C, sa, b, sb, row_elems<L>(std::min(32768, roi.width - x0)),
                                 roi.height, s, den);
            for (int c = 0; c < C; ++c) {
                const double strip = std::sqrt(s[c]);
                num[c] = std::fma(strip, strip, num[c]);
            }
        }
    } else {
        norm_int<T, N, F, L>(a, sa, b, sb, row_elems<L>(roi.width), roi.height, num, den);
    }
    TavStatus st = tavOk;
    for (int c = 0; c < C; ++c) {
        if constexpr (F == Form::Rel) {
            // 32f takes anything below the smallest normal double for zero.
            if (relative(num[c], den[c], std::is_same_v<T, Tav32f> ? DBL_MIN : 0.0, N, out[c])) st = tavWarnDivByZero;
        } else {
            out[c] = N == Norm::L2 ? std::sqrt(num[c]) : num[c];
        }
    }
    return st;
}

}  // namespace tav::stats
