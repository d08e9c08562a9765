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
