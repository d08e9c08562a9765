// Scalar reference of the border copies, from the rules: each destination
// pixel takes the source pixel its kind of border names, or the constant.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace tavref {

enum class Border { Const, Replicate, Mirror, Wrap };

struct BorderFrame {
    int64_t srcW, srcH, dstW, dstH, top, left;
};

// Source index of position p along an axis of n pixels, or -1 for the
// constant outside the source.
inline int64_t border_index(Border k, int64_t p, int64_t n) {
    if (p >= 0 && p < n) return p;
    switch (k) {
        case Border::Const: return -1;
        case Border::Replicate: return p < 0 ? 0 : n - 1;
        case Border::Wrap: return ((p % n) + n) % n;
        case Border::Mirror: {
            if (n == 1) return 0;
            const int64_t period = 2 * n - 2;
            const int64_t q = ((p % period) + period) % period;
            return q < n ? q : period - q;
        }
    }
    return -1;
}

// Writes the expected destination into `dst` (bytes of rows dstStep apart):
// channels of a pixel, `written` of them (3 for AC4), from the source pixel
// or from value. Bytes outside the channels written are left as they are.
template <class T>
void border_expect(Border k, const BorderFrame& f, int channels, int written, const T* src, std::ptrdiff_t srcStep,
                   std::uint8_t* dst, std::ptrdiff_t dstStep, const T* value) {
    for (int64_t y = 0; y < f.dstH; ++y) {
        const int64_t sy = border_index(k, y - f.top, f.srcH);
        for (int64_t x = 0; x < f.dstW; ++x) {
            const int64_t sx = border_index(k, x - f.left, f.srcW);
            for (int c = 0; c < written; ++c) {
                T v;
                if (sx < 0 || sy < 0) {
                    v = value[c];
                } else {
                    const auto* row = reinterpret_cast<const std::uint8_t*>(src) + sy * srcStep;
                    std::memcpy(&v, row + (sx * channels + c) * sizeof(T), sizeof(T));
                }
                std::memcpy(dst + y * dstStep + (x * channels + c) * sizeof(T), &v, sizeof(T));
            }
        }
    }
}

}  // namespace tavref
