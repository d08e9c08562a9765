// The compare families, written once for every type and layout.
//
// Row kernel contract: 64 pixels a step. The element tests of a step are
// gathered as bit words (one bit an element, channels interleaved) and folded
// to one bit a pixel, which becomes a byte of 255 or 0; a short last step
// loads and stores under masks. Sources and destination are read and written
// only inside their rows; no alignment is assumed.
#pragma once

#include <immintrin.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "decide/decide_vec.h"

namespace tav::decide::cmp {

template <class T>
using V = typename Vec<T>::V;

// An operand: a row of an image, or one constant a channel.
template <class T>
struct RowOperand {
    const T* p;
    static constexpr bool kImage = true;
    V<T> get(std::size_t e, int) const { return simd::load(p + e); }
    V<T> get(std::size_t e, Mask<T> m, int) const { return simd::load(p + e, m); }
    void next(std::ptrdiff_t step) { p = advance(p, step); }
};

template <class T, Layout L>
struct ConstOperand {
    V<T> c[kPhases<L>];
    static constexpr bool kImage = false;
    const T* p = nullptr;
    explicit ConstOperand(const std::array<T, 4>& perChannel) {
        const RowConsts<T, L, 1> rc({perChannel});
        for (int k = 0; k < kPhases<L>; ++k) c[k] = rc.at(0, 0, k);
    }
    V<T> get(std::size_t, int k) const { return c[k]; }
    V<T> get(std::size_t, Mask<T>, int k) const { return c[k]; }
    void next(std::ptrdiff_t) {}
};

// Element tests.
template <class T>
struct Less {
    Mask<T> operator()(V<T> a, V<T> b) const { return Vec<T>::lt(a, b); }
};
template <class T>
struct LessEq {
    Mask<T> operator()(V<T> a, V<T> b) const { return Vec<T>::le(a, b); }
};
template <class T>
struct Equal {
    Mask<T> operator()(V<T> a, V<T> b) const { return Vec<T>::eq(a, b); }
};
// |a - b| <= eps in single precision; not-a-number fails.
struct NearEps {
    __m512 eps;
    __mmask16 operator()(__m512 a, __m512 b) const {
        return _mm512_cmp_ps_mask(_mm512_abs_ps(_mm512_sub_ps(a, b)), eps, _CMP_LE_OQ);
    }
};

// Bits at positions first, first + 3, ... below 64.
constexpr std::uint64_t every_third(int first) {
    std::uint64_t m = 0;
    for (int i = first; i < 64; i += 3) m |= 1ull << i;
    return m;
}

// Element bits to pixel bits: a pixel holds when all its channels do.
template <Layout L>
inline std::uint64_t all_channels(const std::uint64_t* w) {
    if constexpr (L == Layout::C1) {
        return w[0];
    } else if constexpr (L == Layout::C3) {
        // 192 element bits; pixel p starts at bit 3p, 22 pixels in the first
        // word and 21 in each of the others.
        const std::uint64_t a0 = w[0] & (w[0] >> 1 | w[1] << 63) & (w[0] >> 2 | w[1] << 62);
        const std::uint64_t a1 = w[1] & (w[1] >> 1 | w[2] << 63) & (w[1] >> 2 | w[2] << 62);
        const std::uint64_t a2 = w[2] & w[2] >> 1 & w[2] >> 2;
        return _pext_u64(a0, every_third(0)) | _pext_u64(a1, every_third(2)) << 22 |
               _pext_u64(a2, every_third(1)) << 43;
    } else {
        // Alpha bits of AC4 count as held.
        const std::uint64_t alpha = L == Layout::AC4 ? 0x8888888888888888ull : 0;
        std::uint64_t r = 0;
        for (int k = 0; k < 4; ++k) {
            std::uint64_t x = w[k] | alpha;
            x &= x >> 1;
            x &= x >> 2;
            r |= _pext_u64(x, 0x1111111111111111ull) << (16 * k);
        }
        return r;
    }
}

// Pixel bits of 64 pixels from element e0; a partial step has `remaining`
// elements left in the row.
template <class T, Layout L, bool Full, class A, class B, class Test>
inline std::uint64_t step_bits(const A& a, const B& b, std::size_t e0, std::size_t remaining, const Test& test) {
    constexpr std::size_t W = kLanes<T>;
    constexpr int NV = static_cast<int>(64 * kChannels<L> / W);
    if constexpr (L == Layout::C1 && W < 64 && Full) {
        // One channel: the masks join in mask registers, never passing
        // through general registers.
        Mask<T> m[NV];
        for (int v = 0; v < NV; ++v) m[v] = test(a.get(e0 + v * W, 0), b.get(e0 + v * W, 0));
        if constexpr (W == 32) return _mm512_kunpackd(m[1], m[0]);
        else return _mm512_kunpackd(_mm512_kunpackw(m[3], m[2]), _mm512_kunpackw(m[1], m[0]));
    }
    std::uint64_t w[kChannels<L>] = {};
    for (int v = 0; v < NV; ++v) {
        const std::size_t at = v * W;
        const int k = v % kPhases<L>;
        std::uint64_t bits;
        if constexpr (Full) {
            bits = test(a.get(e0 + at, k), b.get(e0 + at, k));
        } else {
            const Mask<T> m = at < remaining ? first_lanes<T>(remaining - at) : Mask<T>(0);
            bits = test(a.get(e0 + at, m, k), b.get(e0 + at, m, k));
        }
        w[at / 64] |= bits << (at % 64);
    }
    return all_channels<L>(w);
}

// The pixels [px, px + n) of a row, n below 64, under masks.
template <class T, Layout L, class A, class B, class Test>
void part(const A& a, const B& b, Tav8u* d, std::size_t px, std::size_t n, const Test& test) {
    constexpr std::size_t C = kChannels<L>;
    const std::uint64_t bits = step_bits<T, L, false>(a, b, px * C, n * C, test);
    _mm512_mask_storeu_epi8(d + px, first_lanes<Tav8u>(n), _mm512_movm_epi8(bits));
}

// The streaming form peels up to the destination's 64-byte boundary and
// writes the whole steps behind it with non-temporal stores; the caller fences.
template <class T, Layout L, bool Stream, class A, class B, class Test>
void row(const A& a, const B& b, Tav8u* d, std::size_t width, const Test& test) {
    constexpr std::size_t C = kChannels<L>;
    std::size_t px = 0;
    if constexpr (Stream) {
        px = std::min<std::size_t>((64 - reinterpret_cast<std::uintptr_t>(d) % 64) % 64, width);
        if (px) part<T, L>(a, b, d, 0, px, test);
        for (; px + 64 <= width; px += 64)
            _mm512_stream_si512(reinterpret_cast<__m512i*>(d + px),
                                _mm512_movm_epi8(step_bits<T, L, true>(a, b, px * C, 0, test)));
    } else {
        for (; px + 128 <= width; px += 128) {
            const std::uint64_t lo = step_bits<T, L, true>(a, b, px * C, 0, test);
            const std::uint64_t hi = step_bits<T, L, true>(a, b, (px + 64) * C, 0, test);
            _mm512_storeu_si512(d + px, _mm512_movm_epi8(lo));
            _mm512_storeu_si512(d + px + 64, _mm512_movm_epi8(hi));
        }
        if (px + 64 <= width) {
            _mm512_storeu_si512(d + px, _mm512_movm_epi8(step_bits<T, L, true>(a, b, px * C, 0, test)));
            px += 64;
        }
    }
    if (px < width) part<T, L>(a, b, d, px, width - px, test);
}

template <class T, Layout L, class A>
std::int64_t read_bytes(const A&, std::int64_t width) {
    return A::kImage ? row_elems<L>(width) * static_cast<std::int64_t>(sizeof(T)) : 0;
}

// A constant operand counts as contiguous: it has no rows.
template <class T, Layout L, class A, class B, class Test>
void run(A a, std::ptrdiff_t aStep, B b, std::ptrdiff_t bStep, Tav8u* d, int dStep, TaviSize r, const Test& test) {
    const std::ptrdiff_t rowBytes = static_cast<std::ptrdiff_t>(row_elems<L>(r.width) * sizeof(T));
    const Rows rows = rows_of(r.width, r.height, aStep == rowBytes && bStep == rowBytes && dStep == r.width);
    const std::int64_t traffic =
        (read_bytes<T, L>(a, r.width) + read_bytes<T, L>(b, r.width) + r.width) * std::int64_t{r.height};
    // The mask of a large out-of-place call is never read back by it: it goes
    // around the cache and the sources keep it.
    const void* dv = d;
    const bool stream = traffic >= kStreamTrafficBytes && dv != a.p && dv != b.p;
    const auto each = [&](auto streaming) {
        for (std::int64_t y = 0; y < rows.height; ++y) {
            row<T, L, decltype(streaming)::value>(a, b, d, static_cast<std::size_t>(rows.elems), test);
            a.next(aStep);
            b.next(bStep);
            d = advance(d, dStep);
        }
    };
    if (stream) {
        each(std::true_type{});
        _mm_sfence();
    } else {
        each(std::false_type{});
    }
}

// Five operations from three tests: greater and greater-or-equal exchange
// the operands. A code outside 0..4 does nothing.
template <class T, Layout L, class A, class B>
TavStatus dispatch(TavCmpOp op, A a, std::ptrdiff_t aStep, B b, std::ptrdiff_t bStep, Tav8u* d, int dStep,
                   TaviSize r) {
    switch (op) {
        case tavCmpLess: run<T, L>(a, aStep, b, bStep, d, dStep, r, Less<T>{}); break;
        case tavCmpGreater: run<T, L>(b, bStep, a, aStep, d, dStep, r, Less<T>{}); break;
        case tavCmpLessEq: run<T, L>(a, aStep, b, bStep, d, dStep, r, LessEq<T>{}); break;
        case tavCmpGreaterEq: run<T, L>(b, bStep, a, aStep, d, dStep, r, LessEq<T>{}); break;
        case tavCmpEq: run<T, L>(a, aStep, b, bStep, d, dStep, r, Equal<T>{}); break;
        default: break;
    }
    return tavOk;
}

template <Layout L, class T>
std::ptrdiff_t row_bytes(TaviSize r) {
    return static_cast<std::ptrdiff_t>(row_elems<L>(r.width) * sizeof(T));
}

// taviCompare: pointers, steps, size.
template <Layout L, class T>
TavStatus compare(const T* s1, int s1Step, const T* s2, int s2Step, Tav8u* d, int dStep, TaviSize r, TavCmpOp op) {
    if (any_null(s1, s2, d)) return tavErrNullPtr;
    if (bad_step(s1Step, s2Step, dStep)) return tavErrStep;
    if (bad_size(r)) return tavErrSize;
    return dispatch<T, L>(op, RowOperand<T>{s1}, s1Step, RowOperand<T>{s2}, s2Step, d, dStep, r);
}

// taviCompareC. For 8u, less than 0 and greater than 255 can hold nowhere:
// the destination is cleared without a pass of compares.
template <Layout L, class T, class A>
TavStatus compare_c(const T* s, int sStep, A value, Tav8u* d, int dStep, TaviSize r, TavCmpOp op) {
    if (any_null(s, d) || is_null(value)) return tavErrNullPtr;
    if (bad_step(sStep, dStep)) return tavErrStep;
    if (bad_size(r)) return tavErrSize;
    const std::array<T, 4> v = per_channel<L>(value);
    if constexpr (std::is_same_v<T, Tav8u>) {
        bool never = false;
        for (int c = 0; c < kValueChannels<L>; ++c)
            never |= (op == tavCmpLess && v[c] == 0) || (op == tavCmpGreater && v[c] == 255);
        if (never) {
            for (int y = 0; y < r.height; ++y, d = advance(d, dStep)) std::memset(d, 0, r.width);
            return tavOk;
        }
    }
    return dispatch<T, L>(op, RowOperand<T>{s}, sStep, ConstOperand<T, L>(v), row_bytes<L, T>(r), d, dStep, r);
}

// taviCompareEqualEps: pointers, steps, size, then eps.
template <Layout L>
TavStatus equal_eps(const float* s1, int s1Step, const float* s2, int s2Step, Tav8u* d, int dStep, TaviSize r,
                    float eps) {
    if (any_null(s1, s2, d)) return tavErrNullPtr;
    if (bad_step(s1Step, s2Step, dStep)) return tavErrStep;
    if (bad_size(r)) return tavErrSize;
    if (eps < 0) return tavErrEpsilon;
    run<float, L>(RowOperand<float>{s1}, s1Step, RowOperand<float>{s2}, s2Step, d, dStep, r,
                  NearEps{_mm512_set1_ps(eps)});
    return tavOk;
}

template <Layout L, class A>
TavStatus equal_eps_c(const float* s, int sStep, A value, Tav8u* d, int dStep, TaviSize r, float eps) {
    if (any_null(s, d) || is_null(value)) return tavErrNullPtr;
    if (bad_step(sStep, dStep)) return tavErrStep;
    if (bad_size(r)) return tavErrSize;
    if (eps < 0) return tavErrEpsilon;
    run<float, L>(RowOperand<float>{s}, sStep, ConstOperand<float, L>(per_channel<L>(value)), row_bytes<L, float>(r),
                  d, dStep, r, NearEps{_mm512_set1_ps(eps)});
    return tavOk;
}

}  // namespace tav::decide::cmp
