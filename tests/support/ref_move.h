// Scalar reference models of the copies and fills: element by element, from
// the rules, with no vector code. Rows are byte spans; `es` is the element
// size, channels are counted in elements.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tavref {

// Copies `elems` elements a row; element e of a row is written only when
// keep(e) holds, and then from the same position of the source row.
template <class Keep>
void copy_elems(const std::uint8_t* s, std::ptrdiff_t ss, std::uint8_t* d, std::ptrdiff_t ds, long long elems,
                int h, int es, Keep keep) {
    for (int y = 0; y < h; ++y)
        for (long long e = 0; e < elems; ++e)
            if (keep(e)) std::memcpy(d + y * ds + e * es, s + y * ss + e * es, es);
}

// Writes element e of each row with value[e % channels] where keep(e) holds.
template <class Keep>
void set_elems(const std::uint8_t* value, int channels, std::uint8_t* d, std::ptrdiff_t ds, long long elems, int h,
               int es, Keep keep) {
    for (int y = 0; y < h; ++y)
        for (long long e = 0; e < elems; ++e)
            if (keep(e)) std::memcpy(d + y * ds + e * es, value + (e % channels) * es, es);
}

inline bool all_elems(long long) { return true; }

}  // namespace tavref

namespace tavref {

// An image seen element by element: interleaved rows of `channels` (the
// pointer on channel 0 of the first pixel, or on the channel of interest),
// or one plane a channel.
struct View {
    std::uint8_t* planes[4];
    std::ptrdiff_t step;
    int channels;
    bool planar;
    int es;
    std::uint8_t* at(int x, int y, int c) const {
        return planar ? planes[c] + y * step + x * es : planes[0] + y * step + (x * channels + c) * es;
    }
};

// Channel c of each destination pixel takes channel from[c] of the source
// pixel; from[c] < 0 leaves it alone.
inline void move_pixels(const View& src, const View& dst, int w, int h, const int* from, int dstChannels) {
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            for (int c = 0; c < dstChannels; ++c)
                if (from[c] >= 0) std::memcpy(dst.at(x, y, c), src.at(x, y, from[c]), src.es);
}

}  // namespace tavref

namespace tavref {

// Destination row x, pixel y takes source row y, pixel x; with `anti`,
// destination row w-1-x, pixel h-1-y takes it (the other diagonal).
inline void transpose(const std::uint8_t* s, std::ptrdiff_t ss, std::uint8_t* d, std::ptrdiff_t ds, int w, int h,
                      int pixelBytes, bool anti = false) {
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const int dr = anti ? w - 1 - x : x, dc = anti ? h - 1 - y : y;
            std::memcpy(d + dr * ds + dc * pixelBytes, s + y * ss + x * pixelBytes, pixelBytes);
        }
}

// Flip 0: rows top to bottom; 1: each row reversed; 2: both. Only the first
// `keptBytes` of each pixel are written (alpha stays).
inline void mirror(const std::uint8_t* s, std::ptrdiff_t ss, std::uint8_t* d, std::ptrdiff_t ds, int w, int h,
                   int pixelBytes, int keptBytes, int flip) {
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const int sy = flip == 1 ? y : h - 1 - y, sx = flip == 0 ? x : w - 1 - x;
            std::memcpy(d + y * ds + x * pixelBytes, s + sy * ss + sx * pixelBytes, keptBytes);
        }
}

}  // namespace tavref
