// taviCountInRange: how many values of each channel lie in
// [lowerBound, upperBound]. 32f tests "not below lower" and "at most upper",
// so a NaN fails the second test and isn't counted.
#include "stats/reduce.h"

namespace tav::stats {
namespace {

// Counts of the bytes in range in 8-bit lanes: 255 blocks fit.
struct CountByteLanes {
    using Lane = uint8_t;
    using Total = uint64_t;
    static constexpr int kElems = 64, kAcc = 1, stride = 1;
    static constexpr int base[kAcc] = {0};
    static constexpr int64_t kCap = 255;
    static void add(__m512i (&a)[kAcc], __mmask64 in) { a[0] = _mm512_mask_sub_epi8(a[0], in, a[0], _mm512_set1_epi8(-1)); }
};

// Counts of the floats in range in 32-bit lanes.
struct CountFloatLanes {
    using Lane = uint32_t;
    using Total = uint64_t;
    static constexpr int kElems = 16, kAcc = 1, stride = 1;
    static constexpr int base[kAcc] = {0};
    static constexpr int64_t kCap = kNoLimit;
    static void add(__m512i (&a)[kAcc], __mmask16 in) { a[0] = _mm512_mask_sub_epi32(a[0], in, a[0], _mm512_set1_epi32(-1)); }
};

template <class T, Layout L>
struct Count {
    using Lanes = std::conditional_t<std::is_same_v<T, Tav8u>, CountByteLanes, CountFloatLanes>;
    static constexpr int kElems = 64 / sizeof(T), kSteps = block_steps<L>(L == Layout::C1 ? 4 : 2);
    using V = decltype(simd::load(static_cast<const T*>(nullptr)));
    V lo[kSteps], span[kSteps], hi[kSteps];  // bounds of each lane's channel
    Bank<Lanes, kSteps> bank;

    Count(const T* lower, const T* upper) {
        alignas(64) T l[kElems * kSteps], u[kElems * kSteps];
        for (int p = 0; p < kElems * kSteps; ++p) {
            l[p] = lower[p % kPeriod<L> % 3];
            u[p] = upper[p % kPeriod<L> % 3];
        }
        for (int k = 0; k < kSteps; ++k) {
            lo[k] = simd::load(l + k * kElems);
            hi[k] = simd::load(u + k * kElems);
            if constexpr (std::is_same_v<T, Tav8u>) span[k] = _mm512_sub_epi8(hi[k], lo[k]);
        }
    }
    template <int K, bool Full>
    void step(int64_t valid, const T* p) {
        const auto m = simd::first_lanes<T>(valid);
        const V x = Full ? simd::load(p) : simd::load(p, m);
        simd::Mask<T> in;
        if constexpr (std::is_same_v<T, Tav8u>) {
            // lower <= x <= upper as one unsigned test: x - lower <= upper - lower.
            in = _mm512_cmple_epu8_mask(_mm512_sub_epi8(x, lo[K]), span[K]);
        } else {
            in = _mm512_cmp_ps_mask(x, lo[K], _CMP_NLT_UQ) & _mm512_cmp_ps_mask(x, hi[K], _CMP_LE_OQ);
        }
        bank.template add<K>(static_cast<simd::Mask<T>>(Full ? in : in & m));
    }
    int64_t room() const { return bank.room(); }
    void use(int64_t b) { bank.use(b); }
    void flush() { bank.flush(); }
};

template <class T, Layout L>
TavStatus count(const T* src, int step, TaviSize roi, int* counts, const T* lower, const T* upper) {
    constexpr int C = kPeriod<L>, NO = kOut<L>;
    if (!src || !counts || !lower || !upper) return tavErrNullPtr;
    if (bad_step(step)) return tavErrStep;
    if (bad_size(roi)) return tavErrSize;
    for (int c = 0; c < NO; ++c)
        if (lower[c] > upper[c]) return tavErrRange;
    int64_t n = row_elems<L>(roi.width);
    int h = roi.height;
    join_rows<T>(n, h, {step});
    Count<T, L> p(lower, upper);
    walk_rows(p, src, step, n, h);
    uint64_t t[C];
    p.bank.template finish<C>(t);
    for (int c = 0; c < NO; ++c) counts[c] = static_cast<int>(t[c]);
    return tavOk;
}

}  // namespace
}  // namespace tav::stats

using tav::Layout;
using tav::stats::count;

TavStatus own_taviCountInRange_8u_C1R(const Tav8u* p, int s, TaviSize r, int* n, Tav8u lo, Tav8u hi) { return count<Tav8u, Layout::C1>(p, s, r, n, &lo, &hi); }
TavStatus own_taviCountInRange_8u_C3R(const Tav8u* p, int s, TaviSize r, int* n, const Tav8u* lo, const Tav8u* hi) { return count<Tav8u, Layout::C3>(p, s, r, n, lo, hi); }
TavStatus own_taviCountInRange_8u_AC4R(const Tav8u* p, int s, TaviSize r, int* n, const Tav8u* lo, const Tav8u* hi) { return count<Tav8u, Layout::AC4>(p, s, r, n, lo, hi); }
TavStatus own_taviCountInRange_32f_C1R(const Tav32f* p, int s, TaviSize r, int* n, Tav32f lo, Tav32f hi) { return count<Tav32f, Layout::C1>(p, s, r, n, &lo, &hi); }
TavStatus own_taviCountInRange_32f_C3R(const Tav32f* p, int s, TaviSize r, int* n, const Tav32f* lo, const Tav32f* hi) { return count<Tav32f, Layout::C3>(p, s, r, n, lo, hi); }
TavStatus own_taviCountInRange_32f_AC4R(const Tav32f* p, int s, TaviSize r, int* n, const Tav32f* lo, const Tav32f* hi) { return count<Tav32f, Layout::AC4>(p, s, r, n, lo, hi); }
