// The row loop of the layout conversions: checks, the streaming decision of
// the planar copies, and a run_row call per row with plane pointers stepped.
#pragma once

#include "frame/cache.h"
#include "frame/entry.h"
#include "move/lanes.h"

namespace tav::move::lanes {

// Whether a planar conversion streams: traffic above the gate, large against
// the cache, and every destination row start on a cache line (the kernels
// store whole blocks from there).
struct StreamGate {
    std::int64_t traffic;  // bytes, as the family counts them
    std::int64_t gate;     // ask for the cache size only above this
    int divisor;           // stream from cache / divisor on
};

template <int Planes>
inline bool dst_on_lines(byte* const* d, int step) {
    std::uintptr_t bits = static_cast<std::uintptr_t>(step);
    for (int j = 0; j < Planes; ++j) bits |= reinterpret_cast<std::uintptr_t>(d[j]);
    return (bits & 63) == 0;
}

inline bool streams(const StreamGate& g) {
    if (g.traffic <= g.gate) return false;
    const long long c = cache_bytes();
    return c >= 0 && g.traffic >= c / g.divisor;
}

// Runs every row; src and dst hold one pointer, or one a plane.
template <int Es, Side In, Side Out, class K>
void convert_rows(const K& k, const byte* const* src, int srcStep, byte* const* dst, int dstStep, TaviSize roi,
                  const KeepMask& keep, bool stream = false) {
    constexpr int ni = In.planar ? In.vecs : 1, no = Out.planar ? Out.vecs : 1;
    const byte* s[4];
    byte* d[4];
    for (int j = 0; j < ni; ++j) s[j] = src[j];
    for (int j = 0; j < no; ++j) d[j] = dst[j];
    const auto w = static_cast<std::size_t>(roi.width);
    for (int y = 0; y < roi.height; ++y) {
        if (stream) run_row<Es, In, Out, Store::Streaming>(k, s, d, w, keep);
        else run_row<Es, In, Out, Store::Cached>(k, s, d, w, keep);
        for (int j = 0; j < ni; ++j) s[j] += srcStep;
        for (int j = 0; j < no; ++j) d[j] += dstStep;
    }
    if (stream) _mm_sfence();
}

template <class P>
inline bool any_null_plane(const P* const* planes, int n) {
    if (planes == nullptr) return true;
    for (int j = 0; j < n; ++j)
        if (planes[j] == nullptr) return true;
    return false;
}

}  // namespace tav::move::lanes
