// taviMinEvery, taviMaxEvery: per-element extrema of two images.
//
// 32f takes the form op(src, other), where an unordered comparison yields
// the second operand: a NaN in pSrc leaves the other value, a NaN in the
// other operand stays.
#include "stats/extrema.h"

namespace tav::stats {
namespace {

template <class T, bool IsMin>
inline auto pick(typename VecOps<T>::V a, typename VecOps<T>::V b) {
    return IsMin ? VecOps<T>::min(a, b) : VecOps<T>::max(a, b);
}

// d = op(a, b) over n elements; AC4 leaves the alpha lanes unwritten.
template <class T, bool IsMin, bool Ac4>
void every_row(const T* a, const T* b, T* d, int64_t n) {
    constexpr int64_t E = 64 / sizeof(T);
    constexpr simd::Mask<T> keep = Ac4 ? simd::kAc4<T> : simd::kAll<T>;
    int64_t i = 0;
    for (; i + 4 * E <= n; i += 4 * E) {
        unroll<4>([&](auto k) {
            const auto v = pick<T, IsMin>(simd::load(a + i + k * E), simd::load(b + i + k * E));
            // Whole-vector stores where nothing is kept: masked stores are slow on some cores.
            if constexpr (Ac4) simd::store(d + i + k * E, keep, v);
            else simd::store(d + i + k * E, v);
        });
    }
    for (; i < n; i += E) {
        const auto m = simd::first_lanes<T>(static_cast<std::size_t>(n - i));
        simd::store(d + i, static_cast<simd::Mask<T>>(m & keep),
                    pick<T, IsMin>(simd::load(a + i, m), simd::load(b + i, m)));
    }
}

// The same with stores that go around the caches: the destination's lines
// are never read. The row first reaches a 64-byte boundary of d.
template <class T, bool IsMin>
void every_row_streaming(const T* a, const T* b, T* d, int64_t n) {
    constexpr int64_t E = 64 / sizeof(T);
    const auto mis = reinterpret_cast<std::uintptr_t>(d) & 63;
    if (mis % sizeof(T) != 0) return every_row<T, IsMin, false>(a, b, d, n);
    int64_t i = std::min<int64_t>(mis ? int64_t(64 - mis) / int64_t(sizeof(T)) : 0, n);
    every_row<T, IsMin, false>(a, b, d, i);
    for (; i + 2 * E <= n; i += 2 * E) {
        unroll<2>([&](auto k) {
            const auto v = pick<T, IsMin>(simd::load(a + i + k * E), simd::load(b + i + k * E));
            if constexpr (std::is_same_v<T, Tav32f>) _mm512_stream_ps(d + i + k * E, v);
            else _mm512_stream_si512(reinterpret_cast<__m512i*>(d + i + k * E), v);
        });
    }
    every_row<T, IsMin, false>(a + i, b + i, d + i, n - i);
}

// Out of place, an image streams when everything it reads and writes passes
// a fixed size, the one the point arithmetic uses (the core module is not
// asked): from there a destination written around the caches was measured
// faster, down to 8-bit 4K images. Not when the destination is a source.
inline constexpr int64_t kStreamTraffic = int64_t{20} << 20;

template <class T, Layout L, bool IsMin>
TavStatus every_ir(const T* src, int srcStep, T* srcDst, int srcDstStep, TaviSize roi) {
    if (any_null(src, srcDst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (bad_step(srcStep, srcDstStep)) return tavErrStep;
    int64_t n = row_elems<L>(roi.width);
    int h = roi.height;
    // AC4 keeps the alpha element of pSrcDst: three lanes of every four.
    if (L != Layout::AC4) join_rows<T>(n, h, {srcStep, srcDstStep});
    for (int y = 0; y < h; ++y, src = advance(src, srcStep), srcDst = advance(srcDst, srcDstStep))
        every_row<T, IsMin, L == Layout::AC4>(src, srcDst, srcDst, n);
    return tavOk;
}

template <class T, bool IsMin>
TavStatus every_r(const T* a, int aStep, const T* b, int bStep, T* d, int dStep, TaviSize roi) {
    if (any_null(a, b) || !d) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (bad_step(aStep, bStep, dStep)) return tavErrStep;
    int64_t n = roi.width;
    int h = roi.height;
    join_rows<T>(n, h, {aStep, bStep, dStep});
    if (3 * n * h * int64_t(sizeof(T)) >= kStreamTraffic && d != a && d != b) {
        for (int y = 0; y < h; ++y, a = advance(a, aStep), b = advance(b, bStep), d = advance(d, dStep))
            every_row_streaming<T, IsMin>(a, b, d, n);
        _mm_sfence();
        return tavOk;
    }
    for (int y = 0; y < h; ++y, a = advance(a, aStep), b = advance(b, bStep), d = advance(d, dStep))
        every_row<T, IsMin, false>(a, b, d, n);
    return tavOk;
}

}  // namespace
}  // namespace tav::stats

using tav::Layout;
using tav::stats::every_ir;
using tav::stats::every_r;

TavStatus own_taviMinEvery_8u_C1IR(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r) { return every_ir<Tav8u, Layout::C1, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_8u_C3IR(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r) { return every_ir<Tav8u, Layout::C3, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_8u_C4IR(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r) { return every_ir<Tav8u, Layout::C4, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_8u_AC4IR(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r) { return every_ir<Tav8u, Layout::AC4, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_16u_C1IR(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r) { return every_ir<Tav16u, Layout::C1, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_16u_C3IR(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r) { return every_ir<Tav16u, Layout::C3, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_16u_C4IR(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r) { return every_ir<Tav16u, Layout::C4, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_16u_AC4IR(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r) { return every_ir<Tav16u, Layout::AC4, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_16s_C1IR(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return every_ir<Tav16s, Layout::C1, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_16s_C3IR(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return every_ir<Tav16s, Layout::C3, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_16s_C4IR(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return every_ir<Tav16s, Layout::C4, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_16s_AC4IR(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return every_ir<Tav16s, Layout::AC4, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_32f_C1IR(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return every_ir<Tav32f, Layout::C1, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_32f_C3IR(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return every_ir<Tav32f, Layout::C3, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_32f_C4IR(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return every_ir<Tav32f, Layout::C4, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_32f_AC4IR(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return every_ir<Tav32f, Layout::AC4, true>(s, ss, d, ds, r); }
TavStatus own_taviMinEvery_8u_C1R(const Tav8u* a, int as, const Tav8u* b, int bs, Tav8u* d, int ds, TaviSize r) { return every_r<Tav8u, true>(a, as, b, bs, d, ds, r); }
TavStatus own_taviMinEvery_16u_C1R(const Tav16u* a, int as, const Tav16u* b, int bs, Tav16u* d, int ds, TaviSize r) { return every_r<Tav16u, true>(a, as, b, bs, d, ds, r); }
TavStatus own_taviMinEvery_32f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, Tav32f* d, int ds, TaviSize r) { return every_r<Tav32f, true>(a, as, b, bs, d, ds, r); }

TavStatus own_taviMaxEvery_8u_C1IR(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r) { return every_ir<Tav8u, Layout::C1, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_8u_C3IR(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r) { return every_ir<Tav8u, Layout::C3, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_8u_C4IR(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r) { return every_ir<Tav8u, Layout::C4, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_8u_AC4IR(const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r) { return every_ir<Tav8u, Layout::AC4, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_16u_C1IR(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r) { return every_ir<Tav16u, Layout::C1, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_16u_C3IR(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r) { return every_ir<Tav16u, Layout::C3, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_16u_C4IR(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r) { return every_ir<Tav16u, Layout::C4, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_16u_AC4IR(const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r) { return every_ir<Tav16u, Layout::AC4, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_16s_C1IR(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return every_ir<Tav16s, Layout::C1, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_16s_C3IR(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return every_ir<Tav16s, Layout::C3, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_16s_C4IR(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return every_ir<Tav16s, Layout::C4, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_16s_AC4IR(const Tav16s* s, int ss, Tav16s* d, int ds, TaviSize r) { return every_ir<Tav16s, Layout::AC4, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_32f_C1IR(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return every_ir<Tav32f, Layout::C1, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_32f_C3IR(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return every_ir<Tav32f, Layout::C3, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_32f_C4IR(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return every_ir<Tav32f, Layout::C4, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_32f_AC4IR(const Tav32f* s, int ss, Tav32f* d, int ds, TaviSize r) { return every_ir<Tav32f, Layout::AC4, false>(s, ss, d, ds, r); }
TavStatus own_taviMaxEvery_8u_C1R(const Tav8u* a, int as, const Tav8u* b, int bs, Tav8u* d, int ds, TaviSize r) { return every_r<Tav8u, false>(a, as, b, bs, d, ds, r); }
TavStatus own_taviMaxEvery_16u_C1R(const Tav16u* a, int as, const Tav16u* b, int bs, Tav16u* d, int ds, TaviSize r) { return every_r<Tav16u, false>(a, as, b, bs, d, ds, r); }
TavStatus own_taviMaxEvery_32f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, Tav32f* d, int ds, TaviSize r) { return every_r<Tav32f, false>(a, as, b, bs, d, ds, r); }
