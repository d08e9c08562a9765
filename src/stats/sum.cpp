// taviSum, taviMean: channel sums of an image.
//
// Integer sums are exact: narrow lanes flushed into 64-bit totals. 32f sums
// accumulate in 64 bits (each element widened) or in 32 bits (sixteen-lane
// partial sums across the whole image), chosen by layout, width and hint.
#include "stats/reduce.h"

namespace tav::stats {
namespace {

// Loads one vector a step and adds it into a bank of exact lanes.
template <class T, class Lanes, int V>
struct LoadSum {
    static constexpr int kElems = 64 / sizeof(T), kSteps = V;
    Bank<Lanes, V> bank;
    template <int K, bool Full>
    void step(int64_t valid, const T* p) {
        bank.template add<K>(Full ? simd::load(p) : simd::load(p, simd::first_lanes<T>(valid)));
    }
    int64_t room() const { return bank.room(); }
    void use(int64_t b) { bank.use(b); }
    void flush() { bank.flush(); }
};

template <class T, Layout L>
void int_sum(const T* src, std::ptrdiff_t step, TaviSize roi, Tav64f* out) {
    constexpr int C = kPeriod<L>;
    int64_t n = row_elems<L>(roi.width);
    int h = roi.height;
    if constexpr (std::is_same_v<T, Tav8u> && L == Layout::C1) {
        // Rows that follow each other are one row of a 32-bit element count.
        if (step == roi.width) {
            n = static_cast<int32_t>(static_cast<uint32_t>(n) * static_cast<uint32_t>(h));
            h = 1;
        }
        LoadSum<T, SadLanes, 4> p;
        walk_rows(p, src, step, n, h);
        uint64_t t;
        p.bank.template finish<1>(&t);
        // High part times 2^31 plus low part: one rounding past 53 bits.
        out[0] = double(t >> 31) * 2147483648.0 + double(t & 0x7fffffff);
    } else {
        join_rows<T>(n, h, {step});
        using Lanes = std::conditional_t<std::is_same_v<T, Tav8u>, BytesLanes,
                                         std::conditional_t<std::is_same_v<T, Tav16u>, U16Lanes, S16Lanes>>;
        LoadSum<T, Lanes, block_steps<L>(2)> p;
        walk_rows(p, src, step, n, h);
        p.bank.template finish<C>(out);
    }
}

// Float sums: eight floats widened to double a step, or sixteen floats a step
// kept in single precision; folded by channel in the accumulation type.
template <class A, int V>
struct SumFloat {
    static constexpr bool kWide = std::is_same_v<A, double>;
    static constexpr int kElems = kWide ? 8 : 16, kSteps = V;
    using Vec = typename FVec<A>::V;
    Vec acc[V];
    SumFloat() {
        for (auto& a : acc) a = Vec{};
    }
    template <int K, bool Full>
    void step(int64_t valid, const Tav32f* p) {
        if constexpr (kWide) {
            const __m256 x = Full ? _mm256_loadu_ps(p) : _mm256_maskz_loadu_ps(simd::first_lanes<double>(valid), p);
            acc[K] = _mm512_add_pd(acc[K], _mm512_cvtps_pd(x));
        } else {
            acc[K] = _mm512_add_ps(acc[K], Full ? simd::load(p) : simd::load(p, simd::first_lanes<float>(valid)));
        }
    }
    int64_t room() const { return kNoLimit; }
    void use(int64_t) {}
    void flush() {}
    // Lanes in position order into their channels.
    template <int C>
    void fold(double* out) const {
        alignas(64) A l[V * kElems];
        for (int k = 0; k < V; ++k) simd::store(l + kElems * k, acc[k]);
        A s[C] = {};
        for (int p = 0; p < V * kElems; ++p) s[p % C] += l[p];
        for (int c = 0; c < C; ++c) out[c] = s[c];
    }
};

template <Layout L>
void sum_32f(const Tav32f* src, std::ptrdiff_t step, TaviSize roi, Tav64f* out, int hint) {
    constexpr int C = kPeriod<L>;
    const int64_t n = row_elems<L>(roi.width);
    bool wide64;  // 64-bit lanes across the whole image
    if constexpr (L == Layout::C4) {
        wide64 = hint != tavAlgHintFast;
    } else {
        const int narrow = L == Layout::C1 ? 16 : 13;
        if (roi.width <= narrow) {
            // Narrow rows: each row is folded into the running sums as it ends.
            double run[C] = {};
            for (int y = 0; y < roi.height; ++y, src = advance(src, step)) {
                SumFloat<double, block_steps<L>(1)> p;
                walk(p, n, src);
                double r[C];
                p.template fold<C>(r);
                for (int c = 0; c < C; ++c) run[c] += r[c];
            }
            for (int c = 0; c < C; ++c) out[c] = run[c];
            return;
        }
        wide64 = hint == tavAlgHintAccurate;
    }
    if (wide64) {
        SumFloat<double, block_steps<L>(L == Layout::C1 ? 4 : 2)> p;
        walk_rows(p, src, step, n, roi.height);
        p.template fold<C>(out);
    } else {
        SumFloat<float, block_steps<L>(L == Layout::C1 ? 4 : 2)> p;
        walk_rows(p, src, step, n, roi.height);
        p.template fold<C>(out);
    }
}

template <class T, Layout L, class... H>
TavStatus sum(const T* src, int srcStep, TaviSize roi, Tav64f* out, H... hint) {
    if (any_null(src, out)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if constexpr (std::is_same_v<T, Tav32f>) sum_32f<L>(src, srcStep, roi, out, hint...);
    else int_sum<T, L>(src, srcStep, roi, out);
    return tavOk;
}

// The pixel count as the product of two 32-bit ints in 32-bit arithmetic.
inline double pixel_count(TaviSize roi) {
    return static_cast<int32_t>(static_cast<uint32_t>(roi.width) * static_cast<uint32_t>(roi.height));
}

template <class T, Layout L, class... H>
TavStatus mean(const T* src, int srcStep, TaviSize roi, Tav64f* out, H... hint) {
    if (!out) return tavErrNullPtr;
    double s[kPeriod<L>];
    const TavStatus st = sum<T, L>(src, srcStep, roi, s, hint...);
    if (st != tavOk) return st;
    if constexpr (L == Layout::C1) {
        out[0] = s[0] / pixel_count(roi);
    } else {
        // Multi-channel means multiply by one reciprocal (may differ from a
        // division in the last bit).
        const double r = 1.0 / pixel_count(roi);
        for (int c = 0; c < kPeriod<L>; ++c) out[c] = s[c] * r;
    }
    return tavOk;
}

}  // namespace
}  // namespace tav::stats

using tav::Layout;
using tav::stats::mean;
using tav::stats::sum;

TavStatus own_taviSum_8u_C1R(const Tav8u* p, int s, TaviSize r, Tav64f* o) { return sum<Tav8u, Layout::C1>(p, s, r, o); }
TavStatus own_taviSum_8u_C3R(const Tav8u* p, int s, TaviSize r, Tav64f* o) { return sum<Tav8u, Layout::C3>(p, s, r, o); }
TavStatus own_taviSum_8u_C4R(const Tav8u* p, int s, TaviSize r, Tav64f* o) { return sum<Tav8u, Layout::C4>(p, s, r, o); }
TavStatus own_taviSum_16u_C1R(const Tav16u* p, int s, TaviSize r, Tav64f* o) { return sum<Tav16u, Layout::C1>(p, s, r, o); }
TavStatus own_taviSum_16u_C3R(const Tav16u* p, int s, TaviSize r, Tav64f* o) { return sum<Tav16u, Layout::C3>(p, s, r, o); }
TavStatus own_taviSum_16u_C4R(const Tav16u* p, int s, TaviSize r, Tav64f* o) { return sum<Tav16u, Layout::C4>(p, s, r, o); }
TavStatus own_taviSum_16s_C1R(const Tav16s* p, int s, TaviSize r, Tav64f* o) { return sum<Tav16s, Layout::C1>(p, s, r, o); }
TavStatus own_taviSum_16s_C3R(const Tav16s* p, int s, TaviSize r, Tav64f* o) { return sum<Tav16s, Layout::C3>(p, s, r, o); }
TavStatus own_taviSum_16s_C4R(const Tav16s* p, int s, TaviSize r, Tav64f* o) { return sum<Tav16s, Layout::C4>(p, s, r, o); }
TavStatus own_taviSum_32f_C1R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return sum<Tav32f, Layout::C1>(p, s, r, o, h); }
TavStatus own_taviSum_32f_C3R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return sum<Tav32f, Layout::C3>(p, s, r, o, h); }
TavStatus own_taviSum_32f_C4R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return sum<Tav32f, Layout::C4>(p, s, r, o, h); }

TavStatus own_taviMean_8u_C1R(const Tav8u* p, int s, TaviSize r, Tav64f* o) { return mean<Tav8u, Layout::C1>(p, s, r, o); }
TavStatus own_taviMean_8u_C3R(const Tav8u* p, int s, TaviSize r, Tav64f* o) { return mean<Tav8u, Layout::C3>(p, s, r, o); }
TavStatus own_taviMean_8u_C4R(const Tav8u* p, int s, TaviSize r, Tav64f* o) { return mean<Tav8u, Layout::C4>(p, s, r, o); }
TavStatus own_taviMean_16u_C1R(const Tav16u* p, int s, TaviSize r, Tav64f* o) { return mean<Tav16u, Layout::C1>(p, s, r, o); }
TavStatus own_taviMean_16u_C3R(const Tav16u* p, int s, TaviSize r, Tav64f* o) { return mean<Tav16u, Layout::C3>(p, s, r, o); }
TavStatus own_taviMean_16u_C4R(const Tav16u* p, int s, TaviSize r, Tav64f* o) { return mean<Tav16u, Layout::C4>(p, s, r, o); }
TavStatus own_taviMean_16s_C1R(const Tav16s* p, int s, TaviSize r, Tav64f* o) { return mean<Tav16s, Layout::C1>(p, s, r, o); }
TavStatus own_taviMean_16s_C3R(const Tav16s* p, int s, TaviSize r, Tav64f* o) { return mean<Tav16s, Layout::C3>(p, s, r, o); }
TavStatus own_taviMean_16s_C4R(const Tav16s* p, int s, TaviSize r, Tav64f* o) { return mean<Tav16s, Layout::C4>(p, s, r, o); }
TavStatus own_taviMean_32f_C1R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return mean<Tav32f, Layout::C1>(p, s, r, o, h); }
TavStatus own_taviMean_32f_C3R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return mean<Tav32f, Layout::C3>(p, s, r, o, h); }
TavStatus own_taviMean_32f_C4R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return mean<Tav32f, Layout::C4>(p, s, r, o, h); }
