// taviDotProd: sums of products of two images by channel, in double
// precision; taviDotProdCol: a column-wise dot product of rows with a vector.
//
// Integer products are summed exactly in integer lanes (32-bit ones in
// 128-bit totals) and rounded once. 32f widens each element to double and
// accumulates by fused multiply-add in double lanes across the whole image.
// AC4 runs one scalar loop in row order, a fused step a channel, from results
// cleared first.
#include <cmath>

#include "stats/reduce.h"

namespace tav::stats {
namespace {

template <class T>
struct ProdLanes;
template <>
struct ProdLanes<Tav8u> {
    template <Layout L>
    using type = std::conditional_t<L == Layout::C1, ProdBytesC1Lanes, ProdBytesLanes>;
};
template <>
struct ProdLanes<Tav16u> {
    template <Layout L>
    using type = ProdU16Lanes;
};
template <>
struct ProdLanes<Tav16s> {
    template <Layout L>
    using type = std::conditional_t<L == Layout::C1, ProdS16C1Lanes, ProdS16Lanes>;
};

template <>
struct ProdLanes<Tav32u> {
    template <Layout L>
    using type = ProdI32Lanes<false>;
};
template <>
struct ProdLanes<Tav32s> {
    template <Layout L>
    using type = ProdI32Lanes<true>;
};

template <class T, Layout L>
struct IntDot {
    using Lanes = typename ProdLanes<T>::template type<L>;
    static constexpr int kElems = 64 / sizeof(T), kSteps = block_steps<L>(2);
    Bank<Lanes, kSteps> bank;
    template <int K, bool Full>
    void step(int64_t valid, const T* a, const T* b) {
        const auto m = simd::first_lanes<T>(valid);
        bank.template add<K>(Full ? simd::load(a) : simd::load(a, m), Full ? simd::load(b) : simd::load(b, m));
    }
    int64_t room() const { return bank.room(); }
    void use(int64_t n) { bank.use(n); }
    void flush() { bank.flush(); }
};

// Eight floats widened to double a step.
inline __m512d widen8(const Tav32f* p, int64_t valid, bool full) {
    return _mm512_cvtps_pd(full ? _mm256_loadu_ps(p) : _mm256_maskz_loadu_ps(simd::first_lanes<double>(valid), p));
}

// One channel keeps two 8-lane accumulators, sixteen elements a step.
template <class T, Layout L>
struct WideDot {
    static constexpr int kElems = 8;
    static constexpr int kSteps = block_steps<L>(2);
    static constexpr int kBlock = kElems * kSteps;
    __m512d acc[kSteps];
    WideDot() {
        for (auto& a : acc) a = _mm512_setzero_pd();
    }
    template <int K, bool Full>
    void step(int64_t valid, const T* a, const T* b) {
        acc[K] = _mm512_fmadd_pd(widen8(a, valid, Full), widen8(b, valid, Full), acc[K]);
    }
    int64_t room() const { return kNoLimit; }
    void use(int64_t) {}
    void flush() {}
    template <int C>
    void finish(double* out) const {
        alignas(64) double l[kBlock];
        for (int k = 0; k < kSteps; ++k) _mm512_store_pd(l + k * kElems, acc[k]);
        for (int c = 0; c < C; ++c) out[c] = 0;
        for (int p = 0; p < kBlock; ++p) out[p % C] += l[p];
    }
};

template <class T, Layout L>
TavStatus dot(const T* a, int sa, const T* b, int sb, TaviSize roi, Tav64f* out) {
    if (any_null(a, b) || !out) return tavErrNullPtr;
    // Size and steps together: a zero step is a size error, a negative one walks upwards.
    if (bad_size(roi) || sa == 0 || sb == 0) return tavErrSize;
    constexpr int C = kPeriod<L>;
    if constexpr (L == Layout::AC4) {
        for (int c = 0; c < 3; ++c) out[c] = 0;
        for (int y = 0; y < roi.height; ++y, a = advance(a, sa), b = advance(b, sb))
            for (int x = 0; x < roi.width; ++x)
                for (int c = 0; c < 3; ++c) out[c] = std::fma(double(a[4 * x + c]), double(b[4 * x + c]), out[c]);
    } else if constexpr (!std::is_same_v<T, Tav32f>) {
        int64_t n = row_elems<L>(roi.width);
        int h = roi.height;
        join_rows<T>(n, h, {sa, sb});
        IntDot<T, L> p;
        walk_rows(p, a, sa, b, sb, n, h);
        p.bank.template finish<C>(out);
    } else {
        WideDot<T, L> p;
        walk_rows(p, a, sa, b, sb, row_elems<L>(roi.width), roi.height);
        p.template finish<C>(out);
    }
    return tavOk;
}

// dst[j] = sum over i of rows[i][j] * v[i], one fused step a row in row order.
template <class T>
TavStatus dot_col(const T* const* rows, const T* v, int nRows, T* dst, int length) {
    if (!rows || !v || !dst) return tavErrNullPtr;
    for (int i = 0; i < nRows; ++i)
        if (!rows[i]) return tavErrNullPtr;
    if (nRows < 1 || length < 1) return tavErrSize;
    using V = typename FVec<T>::V;
    constexpr int E = 64 / sizeof(T);
    auto fma = [](V x, V y, V z) {
        if constexpr (std::is_same_v<T, float>) return _mm512_fmadd_ps(x, y, z);
        else return _mm512_fmadd_pd(x, y, z);
    };
    auto bcast = [](T x) {
        if constexpr (std::is_same_v<T, float>) return _mm512_set1_ps(x);
        else return _mm512_set1_pd(x);
    };
    int j = 0;
    for (; j + 4 * E <= length; j += 4 * E) {
        V acc[4] = {};
        for (int i = 0; i < nRows; ++i) {
            const V s = bcast(v[i]);
            unroll<4>([&](auto k) { acc[k] = fma(simd::load(rows[i] + j + k * E), s, acc[k]); });
        }
        unroll<4>([&](auto k) { simd::store(dst + j + k * E, acc[k]); });
    }
    for (; j < length; j += E) {
        const auto m = simd::first_lanes<T>(static_cast<std::size_t>(length - j));
        V acc = {};
        for (int i = 0; i < nRows; ++i) acc = fma(simd::load(rows[i] + j, m), bcast(v[i]), acc);
        simd::store(dst + j, m, acc);
    }
    return tavOk;
}

}  // namespace
}  // namespace tav::stats

using tav::Layout;
using tav::stats::dot;

TavStatus own_taviDotProd_8u64f_C1R(const Tav8u* a, int as, const Tav8u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav8u, Layout::C1>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_8u64f_C3R(const Tav8u* a, int as, const Tav8u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav8u, Layout::C3>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_8u64f_C4R(const Tav8u* a, int as, const Tav8u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav8u, Layout::C4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_8u64f_AC4R(const Tav8u* a, int as, const Tav8u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav8u, Layout::AC4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_16u64f_C1R(const Tav16u* a, int as, const Tav16u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav16u, Layout::C1>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_16u64f_C3R(const Tav16u* a, int as, const Tav16u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav16u, Layout::C3>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_16u64f_C4R(const Tav16u* a, int as, const Tav16u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav16u, Layout::C4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_16u64f_AC4R(const Tav16u* a, int as, const Tav16u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav16u, Layout::AC4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_16s64f_C1R(const Tav16s* a, int as, const Tav16s* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav16s, Layout::C1>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_16s64f_C3R(const Tav16s* a, int as, const Tav16s* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav16s, Layout::C3>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_16s64f_C4R(const Tav16s* a, int as, const Tav16s* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav16s, Layout::C4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_16s64f_AC4R(const Tav16s* a, int as, const Tav16s* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav16s, Layout::AC4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32u64f_C1R(const Tav32u* a, int as, const Tav32u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32u, Layout::C1>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32u64f_C3R(const Tav32u* a, int as, const Tav32u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32u, Layout::C3>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32u64f_C4R(const Tav32u* a, int as, const Tav32u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32u, Layout::C4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32u64f_AC4R(const Tav32u* a, int as, const Tav32u* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32u, Layout::AC4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32s64f_C1R(const Tav32s* a, int as, const Tav32s* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32s, Layout::C1>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32s64f_C3R(const Tav32s* a, int as, const Tav32s* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32s, Layout::C3>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32s64f_C4R(const Tav32s* a, int as, const Tav32s* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32s, Layout::C4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32s64f_AC4R(const Tav32s* a, int as, const Tav32s* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32s, Layout::AC4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32f64f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32f, Layout::C1>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32f64f_C3R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32f, Layout::C3>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32f64f_C4R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32f, Layout::C4>(a, as, b, bs, r, o); }
TavStatus own_taviDotProd_32f64f_AC4R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o) { return dot<Tav32f, Layout::AC4>(a, as, b, bs, r, o); }

TavStatus own_taviDotProdCol_32f_L2(const Tav32f* const* rows, const Tav32f* v, int n, Tav32f* d, int len) { return tav::stats::dot_col(rows, v, n, d, len); }
TavStatus own_taviDotProdCol_64f_L2(const Tav64f* const* rows, const Tav64f* v, int n, Tav64f* d, int len) { return tav::stats::dot_col(rows, v, n, d, len); }
