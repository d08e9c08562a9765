// Which bytes of a row a periodic kernel touches: a pixel of `period` bytes
// of which the first `keep` are written, repeated over 256 bytes. Periods of
// 1, 2, 4, 8 or 16 bytes repeat in one vector, those of 3, 6 and 12 (three
// channels) in three.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tav::move {

struct KeepMask {
    std::uint64_t bits[4] = {0, 0, 0, 0};
    int vecs = 1;
    bool all = true;

    constexpr KeepMask(int period, int keep) : vecs(64 % period == 0 ? 1 : 3), all(keep >= period) {
        for (int i = 0; i < 256; ++i)
            if (i % period < keep) bits[i / 64] |= 1ull << (i % 64);
    }

    // The 64 bits from byte offset o (0 to 192) of the repeated pixel.
    constexpr std::uint64_t at(std::size_t o) const {
        const std::size_t w = o / 64, r = o % 64;
        return r == 0 ? bits[w] : (bits[w] >> r) | (bits[w + 1] << (64 - r));
    }
};

}  // namespace tav::move
