// The border copies: checks, the rows of the source part (sides made and
// the source copied), then the frame rows above and below, each a copy of a
// finished row through the central row copy. The in-place forms do the same
// on one image, never reading what they have written.
#pragma once

#include "move/border_kernels.h"

#include "frame/cache.h"
#include "frame/entry.h"
#include "move/copy_kernels.h"

namespace tav::move::border {

enum class Kind { Const, Replicate, Mirror, Wrap };

struct Frame {
    int64_t srcW, srcH, dstW, dstH, top, left;
    int64_t right() const { return dstW - srcW - left; }
    int64_t bottom() const { return dstH - srcH - top; }
};

template <class S, class P>
inline Frame frame_of(S src, S dst, P top, P left) {
    return {src.width, src.height, dst.width, dst.height, top, left};
}

// Sizes not positive, negative borders, or a source that does not fit.
inline bool bad_frame(const Frame& f) {
    return f.srcW <= 0 || f.srcH <= 0 || f.dstW <= 0 || f.dstH <= 0 || f.top < 0 || f.left < 0 ||
           f.srcW + f.left > f.dstW || f.srcH + f.top > f.dstH;
}

// Source row r of a frame row at outside position p (rows above are negative).
template <Kind K>
inline int64_t source_row(int64_t p, int64_t n) {
    if constexpr (K == Kind::Mirror) return reflect(p, n);
    else if constexpr (K == Kind::Wrap) return wrap(p, n);
    else return std::clamp<int64_t>(p, 0, n - 1);
}

// The gate of the border row kernels: pixel bytes of the destination, then
// stream above a quarter of the largest cache.
inline bool stream_borders(const Frame& f, int pixelBytes) {
    const int64_t t = f.dstW * f.dstH * pixelBytes;
    if (t < 0x180001) return false;
    const long long c = cache_bytes();
    return c >= 0 && t > c / 4;
}

// The sides of a row are made from its two ends before its middle is
// copied, so both ends of the next source row are asked for a row ahead:
// a wait for either would hold up every store behind it.
template <class T>
inline void ask_for_edges(const T* s, int64_t elems) {
    _mm_prefetch(reinterpret_cast<const char*>(s), _MM_HINT_T0);
    _mm_prefetch(reinterpret_cast<const char*>(s + elems - 1), _MM_HINT_T0);
}

template <Kind K, class T, int Ch, bool Ac4>
struct Rows {
    const Frame& f;
    T* dst;  // the destination's first pixel
    std::ptrdiff_t step;
    const T* value;  // Const only
    // Source part of at least a vector and sides of at most one: the sides
    // go out first as whole vectors (or small shuffles), then the plain copy
    // of the source part overwrites what they spilled into it.
    bool overlap = false;
    bool smallMirror = false;
    SmallMirror<T> mirrorSides{};

    void plan_overlap() {
        constexpr int64_t B = kLanes<T>;
        const int64_t w = f.srcW * Ch, L = f.left * Ch, R = f.right() * Ch;
        overlap = !Ac4 && w >= B && L <= B && R <= B;
        if constexpr (K == Kind::Mirror) {
            smallMirror = overlap && SmallMirror<T>::fits(f.left, f.right(), Ch * sizeof(T));
            if (smallMirror) mirrorSides = SmallMirror<T>(f.left, f.right(), Ch * sizeof(T));
        }
    }

    T* row(int64_t y) const { return advance(dst, y * step); }

    // Left and right sides of a row whose source pixels are at s.
    void mirror_or_wrap_sides(const T* s, T* d) const {
        const int64_t w = f.srcW, L = f.left, R = f.right();
        T* right = d + (L + w) * Ch;
        constexpr bool mirror = K == Kind::Mirror;
        if (mirror ? L <= w - 1 : L <= w) {
            if constexpr (mirror) reverse_pixels<T, Ch>(s + Ch, L, d);
            else copy_pixels<T, Ch>(s + (w - L) * Ch, L, d);
        } else {
            for (int64_t x = 0; x < L; ++x)
                std::memcpy(d + x * Ch, s + (mirror ? reflect(x - L, w) : wrap(x - L, w)) * Ch, Ch * sizeof(T));
        }
        if (mirror ? R <= w - 1 : R <= w) {
            if constexpr (mirror) reverse_pixels<T, Ch>(s + (w - 1 - R) * Ch, R, right);
            else copy_pixels<T, Ch>(s, R, right);
        } else {
            for (int64_t x = 0; x < R; ++x)
                std::memcpy(right + x * Ch, s + (mirror ? reflect(w + x, w) : wrap(w + x, w)) * Ch, Ch * sizeof(T));
        }
    }

    // Row top + y of the destination from source row s: with copy, the
    // source part is written too (out of place).
    template <bool NT, bool Copy>
    void source_part(const T* s, T* d, const Pattern<T, Ch>& constant, const RowPlan& plan) const {
        const int64_t w = f.srcW * Ch, L = f.left * Ch, N = f.dstW * Ch;
        if constexpr (K == Kind::Const || K == Kind::Replicate) {
            const int count = Ac4 ? 3 : Ch;
            // The constant frame uses the call's pattern; replicated sides are
            // made from the row's edge pixels.
            const Pattern<T, Ch> edges[2] = {K == Kind::Const ? Pattern<T, Ch>() : Pattern<T, Ch>(s, count),
                                             K == Kind::Const ? Pattern<T, Ch>() : Pattern<T, Ch>(s + w - Ch, count)};
            const Pattern<T, Ch>& lp = K == Kind::Const ? constant : edges[0];
            const Pattern<T, Ch>& rp = K == Kind::Const ? constant : edges[1];
            if constexpr (Copy) {
                if (!NT && plan.fits) compose_planned<T, Ch, Ac4>(s, d, L, plan, lp, rp);
                else compose_row<T, Ch, Ac4, NT>(s, w, d, L, N, lp, rp);
            } else {
                compose_row<T, Ch, Ac4, false>(nullptr, 0, d, L, L, lp, lp);
                compose_row<T, Ch, Ac4, false>(nullptr, 0, d + L + w, N - L - w, N - L - w, rp, rp);
            }
        } else {
            mirror_or_wrap_sides(s, d);
            if constexpr (Copy) {
                if (!NT && plan.fits) compose_planned<T, Ch, false>(s, d + L, 0, plan, constant, constant);
                else compose_row<T, Ch, false, NT>(s, w, d + L, 0, w, constant, constant);
            }
        }
    }

    // All rows of the source part when `overlap` holds, plain stores. What
    // every row shares is made before the loop, so it stays in registers.
    void overlap_rows(const T* s, int64_t srcStep, const Pattern<T, Ch>& constant) const {
        constexpr int64_t B = kLanes<T>;
        const int64_t w = f.srcW * Ch, L = f.left * Ch, N = f.dstW * Ch;
        T* d = row(f.top);
        const auto each = [&](auto&& sides) {
            for (int64_t y = 0; y < f.srcH; ++y, s = advance(s, srcStep), d = advance(d, step)) {
                if (y + 1 < f.srcH) ask_for_edges(advance(s, srcStep), w);
                sides(s, d);
                copy_overlapping(s, w, d + L);
            }
        };
        if constexpr (K == Kind::Const) {
            const __m512i lp = constant.at(0), rp = constant.at(N - B);
            each([&](const T*, T* dr) {
                _mm512_storeu_si512(dr, lp);
                _mm512_storeu_si512(dr + N - B, rp);
            });
        } else if constexpr (K == Kind::Replicate) {
            const int phase = Ch == 3 ? static_cast<int>((N - B) % 3) : 0;
            each([&](const T* sr, T* dr) {
                _mm512_storeu_si512(dr, Pattern<T, Ch>::one(sr, 0));
                _mm512_storeu_si512(dr + N - B, Pattern<T, Ch>::one(sr + w - Ch, phase));
            });
        } else if (smallMirror) {
            const SmallMirror<T> sides = mirrorSides;
            each([&](const T* sr, T* dr) { sides.sides(sr, w * sizeof(T), dr, dr + N); });
        } else {
            each([&](const T* sr, T* dr) { mirror_or_wrap_sides(sr, dr); });
        }
    }

    // Frame rows: copies of finished rows of the source part. The constant
    // frame copies one row filled once (AC4 fills each, since a copy would
    // carry alpha).
    void frame_rows(const Pattern<T, Ch>& constant) const {
        const int64_t N = f.dstW * Ch;
        const auto bytes = static_cast<std::size_t>(N * sizeof(T));
        const int64_t firstBelow = f.top + f.srcH;
        const auto each_frame_row = [&](auto&& fn) {
            for (int64_t y = 0; y < f.top; ++y) fn(y);
            for (int64_t y = firstBelow; y < f.dstH; ++y) fn(y);
        };
        if constexpr (K == Kind::Const) {
            if constexpr (Ac4) {
                each_frame_row([&](int64_t y) { compose_row<T, Ch, true, false>(nullptr, 0, row(y), N, N, constant, constant); });
            } else {
                const int64_t made = f.top > 0 ? 0 : firstBelow;
                if (made >= f.dstH) return;
                compose_row<T, Ch, false, false>(nullptr, 0, row(made), N, N, constant, constant);
                each_frame_row([&](int64_t y) {
                    if (y != made) copy_row(row(made), row(y), bytes);
                });
            }
        } else {
            each_frame_row([&](int64_t y) {
                const T* from = row(f.top + source_row<K>(y - f.top, f.srcH));
                if constexpr (Ac4) copy_row_ac4(from, row(y), N);
                else copy_row(from, row(y), bytes);
            });
        }
    }
};

template <Kind K, class T, int Ch, bool Ac4>
inline Pattern<T, Ch> constant_of(const T* value) {
    return K == Kind::Const ? Pattern<T, Ch>(value, Ac4 ? 3 : Ch) : Pattern<T, Ch>();
}

// Out of place: pointers, steps, sizes.
template <Kind K, class T, int Ch, bool Ac4>
TavStatus copy_with_border(const T* pSrc, int64_t srcStep, T* pDst, int64_t dstStep, Frame f, const T* value) {
    if (any_null(pSrc, pDst) || (K == Kind::Const && !value)) return tavErrNullPtr;
    if (srcStep < 1 || dstStep < 1) return tavErrStep;
    if (bad_frame(f)) return tavErrSize;
    Rows<K, T, Ch, Ac4> rows{f, pDst, dstStep, value};
    rows.plan_overlap();
    const Pattern<T, Ch> constant = constant_of<K, T, Ch, Ac4>(value);
    const bool nt = !Ac4 && stream_borders(f, Ch * sizeof(T));
    // Mirrored and wrapped sides are written apart: the plan covers the
    // source part alone.
    constexpr bool patterned = K == Kind::Const || K == Kind::Replicate;
    const RowPlan plan = plan_row<T, patterned && Ac4>(f.srcW * Ch, patterned ? f.left * Ch : 0,
                                                         patterned ? f.dstW * Ch : f.srcW * Ch);
    const auto sourceRows = [&]<bool NT>() {
        const T* s = pSrc;
        for (int64_t y = 0; y < f.srcH; ++y, s = advance(s, srcStep)) {
            if (y + 1 < f.srcH) ask_for_edges(advance(s, srcStep), f.srcW * Ch);
            rows.template source_part<NT, true>(s, rows.row(f.top + y), constant, plan);
        }
    };
    if (!nt && rows.overlap) {
        rows.overlap_rows(pSrc, srcStep, constant);
    } else if (nt) {
        sourceRows.template operator()<true>();
        _mm_sfence();
    } else {
        sourceRows.template operator()<false>();
    }
    rows.frame_rows(constant);
    return tavOk;
}

// In place: pSrc is the source inside the destination, whose first pixel is
// top rows above and left pixels to the left. Pointers, step, sizes.
template <Kind K, class T, int Ch, bool Ac4>
TavStatus border_in_place(T* pSrc, int64_t step, Frame f, const T* value) {
    if (!pSrc || (K == Kind::Const && !value)) return tavErrNullPtr;
    if (step < 1) return tavErrStep;
    if (bad_frame(f)) return tavErrSize;
    T* origin = advance(pSrc, -f.top * step) - f.left * Ch;
    const Rows<K, T, Ch, Ac4> rows{f, origin, step, value};
    const Pattern<T, Ch> constant = constant_of<K, T, Ch, Ac4>(value);
    const RowPlan unused{};
    for (int64_t y = 0; y < f.srcH; ++y) {
        T* d = rows.row(f.top + y);
        rows.template source_part<false, false>(d + f.left * Ch, d, constant, unused);
    }
    rows.frame_rows(constant);
    return tavOk;
}

// A mirrored copy onto itself (pSrc == pDst) is the in-place form.
template <class T, int Ch>
TavStatus mirror_copy(const T* pSrc, int64_t srcStep, T* pDst, int64_t dstStep, Frame f) {
    if (pSrc == pDst) return border_in_place<Kind::Mirror, T, Ch, false>(pDst, srcStep, f, nullptr);
    return copy_with_border<Kind::Mirror, T, Ch, false>(pSrc, srcStep, pDst, dstStep, f, nullptr);
}

}  // namespace tav::move::border
