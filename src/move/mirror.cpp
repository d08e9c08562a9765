// taviMirror: flips about the horizontal and vertical axes, in place or
// not, and for three one-channel forms about the two diagonals.
#include "frame/cache.h"
#include "frame/entry.h"
#include "move/copy_kernels.h"
#include "move/transpose_kernels.h"

namespace tav::move {
namespace {

using transpose::V;

// Pixels reversed a chunk at a time: one vector of 1-, 2-, 4-, 8- or
// 16-byte pixels, or 48 bytes of three-channel pixels.
template <int P>
struct Reverser {
    static constexpr bool kNarrow = P == 3 || P == 6 || P == 12;
    static constexpr int kBytes = kNarrow ? 48 : 64;
    static constexpr int kPixels = kBytes / P;
    static V apply(V v) {
        if constexpr (kNarrow)
            return transpose::narrow_reg<P / 3>(transpose::reverse<P / 3 * 4>(transpose::widen_reg<P / 3>(v)));
        else
            return transpose::reverse<P>(v);
    }
};

inline __mmask64 bytes_from(int first, int last) {  // byte lanes [first, last)
    return lanes::byte_lanes(last) & ~lanes::byte_lanes(first);
}

// d[x] = s[w - 1 - x] for a row of w pixels; only `keep` bytes are written.
// The destination is brought to a cache line first, so that whole lines can
// go out non-temporally.
template <int P, bool Stream>
void reverse_row(const byte* s, byte* d, int w, std::uint64_t keep) {
    using R = Reverser<P>;
    // n destination pixels at x from the n source pixels ending at w - x: the
    // source is loaded into the top of a chunk so the reversal lands them at its bottom.
    auto part = [&](int x, int n) {
        const byte* base = s + std::ptrdiff_t(w - x - R::kPixels) * P;
        const V v = _mm512_maskz_loadu_epi8(bytes_from(R::kBytes - n * P, R::kBytes), base);
        _mm512_mask_storeu_epi8(d + std::ptrdiff_t(x) * P, lanes::byte_lanes(n * P) & keep, R::apply(v));
    };
    int x = 0;
    if constexpr (!R::kNarrow) {
        if ((reinterpret_cast<std::uintptr_t>(d) & (P - 1)) == 0) {
            int head = static_cast<int>(((0 - reinterpret_cast<std::uintptr_t>(d)) & 63) / P);
            if (head > w) head = w;
            if (head) part(0, head);
            x = head;
        }
    }
    const __mmask64 full = lanes::byte_lanes(R::kBytes) & keep;
    for (; x + R::kPixels <= w; x += R::kPixels) {
        const byte* from = s + std::ptrdiff_t(w - x - R::kPixels) * P;
        byte* to = d + std::ptrdiff_t(x) * P;
        if constexpr (R::kNarrow) {
            _mm512_mask_storeu_epi8(to, full, R::apply(_mm512_maskz_loadu_epi8(full, from)));
        } else {
            const V v = R::apply(_mm512_loadu_si512(from));
            if (keep != ~0ull) _mm512_mask_storeu_epi8(to, keep, v);
            else if constexpr (Stream) _mm512_stream_si512(reinterpret_cast<V*>(to), v);
            else _mm512_storeu_si512(to, v);
        }
    }
    if (x < w) part(x, w - x);
}

// A row reversed in place: chunks from both ends swapped, each pair loaded
// before either is stored, until they meet.
template <int P>
void reverse_in_place(byte* a, int w, std::uint64_t keep) {
    using R = Reverser<P>;
    const __mmask64 full = lanes::byte_lanes(R::kBytes);
    int l = 0, r = w;  // pixels [l, r) still to reverse
    while (r - l >= 2 * R::kPixels) {
        byte* pl = a + std::ptrdiff_t(l) * P;
        byte* pr = a + std::ptrdiff_t(r - R::kPixels) * P;
        const V vl = _mm512_maskz_loadu_epi8(full, pl), vr = _mm512_maskz_loadu_epi8(full, pr);
        _mm512_mask_storeu_epi8(pl, full & keep, R::apply(vr));
        _mm512_mask_storeu_epi8(pr, full & keep, R::apply(vl));
        l += R::kPixels;
        r -= R::kPixels;
    }
    const int m = r - l;
    if (m > R::kPixels) {
        // Two overlapping chunks, both loaded first: each store is right on its own.
        byte* pl = a + std::ptrdiff_t(l) * P;
        byte* pr = a + std::ptrdiff_t(r - R::kPixels) * P;
        const V vl = _mm512_maskz_loadu_epi8(full, pl), vr = _mm512_maskz_loadu_epi8(full, pr);
        _mm512_mask_storeu_epi8(pl, full & keep, R::apply(vr));
        _mm512_mask_storeu_epi8(pr, full & keep, R::apply(vl));
    } else if (m > 0) {
        byte* pl = a + std::ptrdiff_t(l) * P;
        const V v = _mm512_maskz_loadu_epi8(bytes_from(R::kBytes - m * P, R::kBytes), pl - std::ptrdiff_t(R::kPixels - m) * P);
        _mm512_mask_storeu_epi8(pl, lanes::byte_lanes(m * P) & keep, R::apply(v));
    }
}

// Two rows exchanged, kept bytes only.
void swap_rows(byte* a, byte* b, std::size_t n, std::uint64_t keep) {
    for (std::size_t i = 0; i < n; i += 64) {
        const __mmask64 m = lanes::byte_lanes(static_cast<std::ptrdiff_t>(n - i)) & keep;
        const V va = _mm512_maskz_loadu_epi8(m, a + i), vb = _mm512_maskz_loadu_epi8(m, b + i);
        _mm512_mask_storeu_epi8(a + i, m, vb);
        _mm512_mask_storeu_epi8(b + i, m, va);
    }
}

template <int P, int Channels, bool Alpha>
struct Mirror {
    static constexpr int kKept = Alpha ? P / 4 * 3 : P;
    static std::uint64_t keep() { return KeepMask(P, kKept).at(0); }

    // Non-temporal stores for out-of-place images large against the cache.
    // Masked (AC4) stores can't stream, so AC4 never asks.
    static bool streams(TaviSize roi) {
        if (Alpha) return false;
        const std::int64_t pixels = std::int64_t{roi.width} * roi.height;
        if constexpr (Channels == 4) {
            const std::int64_t traffic = pixels * 2 * P;
            if (traffic <= 0x100000) return false;
            const long long c = cache_bytes();
            return c >= 0 && traffic >= c;
        } else {
            const std::int64_t traffic = pixels * P;
            const bool small = P <= 2;
            if (traffic <= (small ? 0x80000 : 0x100000)) return false;
            const long long c = cache_bytes();
            return c >= 0 && traffic >= (small ? c / 8 : c / 4) / 16 * 15;
        }
    }

    static TavStatus in_place(void* img, int step, TaviSize roi, int flip) {
        if (img == nullptr) return tavErrNullPtr;
        if (bad_size(roi)) return tavErrSize;
        if (flip < 0 || flip > 2) return tavErrMirrorFlip;
        if (flip == 1 && roi.width == 1) return tavOk;
        auto* a = static_cast<byte*>(img);
        const int w = roi.width, h = roi.height;
        const std::uint64_t k = keep();
        if (flip != 0 && h == 1) {
            // One row: pixel pairs from both ends.
            byte t[P];
            for (int x = 0; x < w / 2; ++x) {
                byte* l = a + std::ptrdiff_t(x) * P;
                byte* r = a + std::ptrdiff_t(w - 1 - x) * P;
                std::memcpy(t, l, kKept);
                std::memcpy(l, r, kKept);
                std::memcpy(r, t, kKept);
            }
            return tavOk;
        }
        if (flip != 1)  // rows from the outside in; an odd middle row stays
            for (int y = 0; y < h / 2; ++y)
                swap_rows(a + std::ptrdiff_t(y) * step, a + std::ptrdiff_t(h - 1 - y) * step, std::size_t(w) * P, k);
        if (flip != 0)
            for (int y = 0; y < h; ++y) reverse_in_place<P>(a + std::ptrdiff_t(y) * step, w, k);
        return tavOk;
    }

    template <bool Stream>
    static void run(const byte* s, int ss, byte* d, int ds, TaviSize roi, int flip) {
        const int w = roi.width, h = roi.height;
        const std::uint64_t k = keep();
        const std::size_t rowBytes = std::size_t(w) * P;
        if (flip == 0 && !Alpha) {
            // Row r to row h - 1 - r: the block copy's rows, walking the destination up.
            copy_rows(s, ss, d + std::ptrdiff_t(h - 1) * ds, -std::ptrdiff_t(ds), rowBytes, h, Stream);
        } else {
            for (int y = 0; y < h; ++y) {
                const byte* sr = s + std::ptrdiff_t(y) * ss;
                byte* dr = d + std::ptrdiff_t(flip == 1 ? y : h - 1 - y) * ds;
                if (flip == 0) copy_row_keep(sr, dr, rowBytes, KeepMask(P, kKept));
                else reverse_row<P, Stream>(sr, dr, w, k);
            }
        }
        if (Stream) _mm_sfence();
    }

    static TavStatus out_of_place(const void* s, int ss, void* d, int ds, TaviSize roi, int flip) {
        if (s == d && ss == ds) return in_place(d, ds, roi, flip);
        if (any_null(s, d)) return tavErrNullPtr;
        if (bad_size(roi)) return tavErrSize;
        if (flip < 0 || flip > 2) return tavErrMirrorFlip;
        const auto* sb = static_cast<const byte*>(s);
        auto* db = static_cast<byte*>(d);
        if (streams(roi)) run<true>(sb, ss, db, ds, roi, flip);
        else run<false>(sb, ss, db, ds, roi, flip);
        return tavOk;
    }
};

// Whether two blocks share a byte: each row of one against the four corners
// of the other, both ways round. A block is rows of rowBytes, step apart.
struct Block {
    const byte* p;
    std::ptrdiff_t step, rowBytes;
    int rows;
    bool row_holds_corner_of(const Block& o) const {
        const byte* corners[4] = {o.p, o.p + o.rowBytes - 1, o.p + std::ptrdiff_t(o.rows - 1) * o.step,
                                  o.p + std::ptrdiff_t(o.rows - 1) * o.step + o.rowBytes - 1};
        for (int r = 0; r < rows; ++r) {
            const byte* s = p + std::ptrdiff_t(r) * step;
            const byte* e = s + rowBytes - 1;
            for (const byte* a : corners)
                if (s <= a && a <= e) return true;
        }
        return false;
    }
};

// Flips across the diagonals: checks of their own, refused on overlapping
// images; across the main diagonal the transposition of the same type.
template <int P, TavStatus (*Transpose)(const void*, int, void*, int, TaviSize)>
TavStatus diagonal(const void* s, int ss, void* d, int ds, TaviSize roi, int flip) {
    if (any_null(s, d)) return tavErrNullPtr;
    if (ss < 1 || ds < 1) return tavErrStep;
    if (bad_size(roi)) return tavErrSize;
    const Block src{static_cast<const byte*>(s), ss, std::ptrdiff_t(roi.width) * P, roi.height};
    const Block dst{static_cast<const byte*>(d), ds, std::ptrdiff_t(roi.height) * P, roi.width};
    if (src.row_holds_corner_of(dst) || dst.row_holds_corner_of(src)) return tavErrNotSupportedMode;
    if (flip == 3) return Transpose(s, ss, d, ds, roi);
    transpose::image<P, true>(static_cast<const byte*>(s), ss, static_cast<byte*>(d), ds, roi.width, roi.height);
    return tavOk;
}

template <class T, TavStatus (*F)(const T*, int, T*, int, TaviSize)>
TavStatus typed_transpose(const void* s, int ss, void* d, int ds, TaviSize roi) {
    return F(static_cast<const T*>(s), ss, static_cast<T*>(d), ds, roi);
}

template <int P, int Channels, bool Alpha, class T = void, TavStatus (*F)(const T*, int, T*, int, TaviSize) = nullptr>
TavStatus mirror(const void* s, int ss, void* d, int ds, TaviSize roi, int flip) {
    if constexpr (F != nullptr)
        if (flip == 3 || flip == 4) return diagonal<P, typed_transpose<T, F>>(s, ss, d, ds, roi, flip);
    return Mirror<P, Channels, Alpha>::out_of_place(s, ss, d, ds, roi, flip);
}

template <int P, int Channels, bool Alpha>
TavStatus mirror_ip(void* img, int step, TaviSize roi, int flip) {
    return Mirror<P, Channels, Alpha>::in_place(img, step, roi, flip);
}

}  // namespace
}  // namespace tav::move

using namespace tav::move;

// clang-format off
TavStatus own_taviMirror_8u_C1R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<1, 1, false, Tav8u, own_taviTranspose_8u_C1R>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_8u_C3R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<3, 3, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_8u_C4R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<4, 4, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_8u_AC4R(const Tav8u* pSrc, int srcStep, Tav8u* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<4, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_16u_C1R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<2, 1, false, Tav16u, own_taviTranspose_16u_C1R>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_16u_C3R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<6, 3, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_16u_C4R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<8, 4, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_16u_AC4R(const Tav16u* pSrc, int srcStep, Tav16u* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<8, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_16s_C1R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<2, 1, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_16s_C3R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<6, 3, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_16s_C4R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<8, 4, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_16s_AC4R(const Tav16s* pSrc, int srcStep, Tav16s* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<8, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_32s_C1R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<4, 1, false, Tav32s, own_taviTranspose_32s_C1R>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_32s_C3R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<12, 3, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_32s_C4R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<16, 4, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_32s_AC4R(const Tav32s* pSrc, int srcStep, Tav32s* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<16, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_32f_C1R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<4, 1, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_32f_C3R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<12, 3, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_32f_C4R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<16, 4, false>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }
TavStatus own_taviMirror_32f_AC4R(const Tav32f* pSrc, int srcStep, Tav32f* pDst, int dstStep, TaviSize roiSize, TavAxis flip) { return mirror<16, 4, true>(pSrc, srcStep, pDst, dstStep, roiSize, flip); }

TavStatus own_taviMirror_8u_C1IR(Tav8u* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<1, 1, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_8u_C3IR(Tav8u* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<3, 3, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_8u_C4IR(Tav8u* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<4, 4, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_8u_AC4IR(Tav8u* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<4, 4, true>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_16u_C1IR(Tav16u* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<2, 1, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_16u_C3IR(Tav16u* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<6, 3, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_16u_C4IR(Tav16u* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<8, 4, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_16u_AC4IR(Tav16u* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<8, 4, true>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_16s_C1IR(Tav16s* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<2, 1, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_16s_C3IR(Tav16s* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<6, 3, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_16s_C4IR(Tav16s* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<8, 4, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_16s_AC4IR(Tav16s* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<8, 4, true>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_32s_C1IR(Tav32s* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<4, 1, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_32s_C3IR(Tav32s* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<12, 3, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_32s_C4IR(Tav32s* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<16, 4, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_32s_AC4IR(Tav32s* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<16, 4, true>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_32f_C1IR(Tav32f* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<4, 1, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_32f_C3IR(Tav32f* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<12, 3, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_32f_C4IR(Tav32f* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<16, 4, false>(pSrcDst, srcDstStep, roiSize, flip); }
TavStatus own_taviMirror_32f_AC4IR(Tav32f* pSrcDst, int srcDstStep, TaviSize roiSize, TavAxis flip) { return mirror_ip<16, 4, true>(pSrcDst, srcDstStep, roiSize, flip); }
// clang-format on
