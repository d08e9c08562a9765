// The entry side of the conversion families: checks, the one-row merge of
// contiguous images, the decisions to stream, and the row loop.
#pragma once

// First: the kernels' header sets up the intrinsics.
#include "move/convert_kernels.h"

#include <cstdint>

#include "frame/cache.h"
#include "frame/entry.h"

namespace tav::move::cvt {

struct Shape {
    int64_t n;  // elements a row (channels counted)
    int64_t h;  // rows
};

// Rows that follow one another without a gap in both images are one row:
// the steps agree when scaled by the element sizes, and the source step is
// the row's bytes. capped: merge only when the merged length stays below
// 0x7fffffff.
template <Layout L, class S, class D>
inline Shape shape_of(TaviSize roi, int64_t srcStep, int64_t dstStep, bool capped = false) {
    Shape s{row_elems<L>(roi.width), roi.height};
    const bool contiguous = srcStep * int64_t{sizeof(D)} == dstStep * int64_t{sizeof(S)} &&
                            srcStep == s.n * int64_t{sizeof(S)};
    if (contiguous && (!capped || s.n * s.h < 0x7fffffff)) {
        s.n *= s.h;
        s.h = 1;
    }
    return s;
}

// Traffic gate: T (bytes read plus written, in 32-bit arithmetic as the core
// module's users compute it) above the gate asks for the cache size, and T
// at least the cache streams.
inline bool stream_by_traffic(Shape s, int bytesPerElem, int32_t gate) {
    const auto t = static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint64_t>(s.n * s.h) * bytesPerElem));
    if (t <= gate) return false;
    const long long c = cache_bytes();
    return c >= 0 && t >= c;
}

// The tile decision of the saturating narrowings from floating point: a row
// shorter than two cache lines never streams.
inline bool stream_by_tile(Shape s, bool oneByteDst) {
    const int line = cache_line_bytes();
    if (2 * s.n < 2 * int64_t{line}) return false;
    const long long c = cache_bytes();
    return c >= 0 && s.n * s.h * (oneByteDst ? 5 : 6) >= c;
}

template <class Op, Layout L, class Ctx>
inline void run_rows(const typename Op::S* s, std::ptrdiff_t ss, typename Op::D* d, std::ptrdiff_t ds, Shape sh,
                     const Ctx& c, bool nt) {
    for_rows(s, ss, d, ds, sh.h, [&](auto* a, auto* b) { convert_row<Op, L == Layout::AC4>(a, b, sh.n, c, nt); });
    if (nt) _mm_sfence();
}

enum class Steps { Checked, Unchecked };

// A whole out-of-place conversion: checks (pointers, size, steps when
// checked), the merge, the stream decision stream(shape) -> bool, the rows.
template <class Op, Layout L, class Ctx, class StreamRule>
inline TavStatus convert_image(const typename Op::S* pSrc, int srcStep, typename Op::D* pDst, int dstStep,
                               TaviSize roi, Steps steps, StreamRule stream, const Ctx& c) {
    using S = typename Op::S;
    using D = typename Op::D;
    if (any_null(pSrc, pDst)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (steps == Steps::Checked && bad_step(srcStep, dstStep)) return tavErrStep;
    const Shape sh = shape_of<L, S, D>(roi, srcStep, dstStep);
    run_rows<Op, L>(pSrc, srcStep, pDst, dstStep, sh, c, stream(sh));
    return tavOk;
}

inline constexpr auto kNoStream = [](Shape) { return false; };

// Picks the instantiation for a rounding mode once, outside the row loop:
// f.template operator()<R>() for the mode's Rnd.
template <class F>
inline TavStatus with_rnd(TavRoundMode mode, F&& f) {
    switch (rnd_of(mode)) {
        case Rnd::Zero: return f.template operator()<Rnd::Zero>();
        case Rnd::Fin: return f.template operator()<Rnd::Fin>();
        default: return f.template operator()<Rnd::Near>();
    }
}

}  // namespace tav::move::cvt
