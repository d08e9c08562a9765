// LUT sizes and Init: integer types get their complete tables here, once;
// 32f keeps copies of its levels and values for the search at work time.
#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "decide/lut_interp.h"
#include "decide/lut_spec.h"

// Interpolation is specified operation by operation: no fused multiply-adds.
#pragma GCC optimize("fp-contract=off")

namespace tav::decide::lut {
namespace {

// Channel codes: 1, 3, 4, and 9 for AC4 (three tables).
int tables_of(int channels) { return channels == 1 ? 1 : channels == 4 ? 4 : 3; }

// The checks shared by GetSize and Init, in their order; the data type of
// GetSize comes after them.
TavStatus check_levels(TavInterpolationType interp, const void* p1, const void* p2, const void* p3, const void* p4,
                       TaviSize roi, int channels, const int* nLevels) {
    if (interp != tavNearest && interp != tavLinear && interp != tavCubic2p) return tavErrInterpolation;
    if (any_null(p1, p2, p3, p4)) return tavErrNullPtr;
    if (bad_size(roi)) return tavErrSize;
    if (channels == 4 && nLevels[3] < 2) return tavErrLutLevels;
    if (channels != 1 && channels != 3 && channels != 4 && channels != 9) return tavErrChannelNumber;
    if (channels != 1 && (nLevels[1] < 2 || nLevels[2] < 2)) return tavErrLutLevels;
    if (nLevels[0] < 2) return tavErrLutLevels;
    return tavOk;
}

std::int64_t round64(std::int64_t n) { return (n + 63) / 64 * 64; }

// Bytes behind the 288 of the record and its alignment slack.
std::int64_t data_bytes(TavInterpolationType interp, TavDataType type, int channels, const int* nLevels) {
    const int tables = tables_of(channels);
    std::int64_t sum = 0;
    bool allFour = true;
    for (int c = 0; c < tables; ++c) {
        sum += nLevels[c];
        allFour &= nLevels[c] >= 4;
    }
    switch (type) {
        case tav8u: return 256 * tables;
        case tav16u:
        case tav16s:
            if (interp != tavNearest) return 0x20000 * tables;
            if (channels == 1) return 8 * std::int64_t{nLevels[0]} + 0x20000;
            if (channels == 4) return 0x80000;
            return round64(8 * sum) + 0x60000;
        case tav32f:
            if (interp == tavNearest) return channels == 1 ? 8 * sum : round64(8 * sum);
            if (interp == tavCubic2p && allFour) return round64(8 * sum) + 24 * sum - 24 * tables;
            return round64(8 * sum) + 8 * sum - 8 * tables;
        default: return -1;
    }
}

template <class T>
constexpr T saturate(double v) {
    constexpr double lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
    return v <= lo ? T(lo) : v >= hi ? T(hi) : static_cast<T>(v);  // in range: truncated toward zero
}

// One channel's table over every value of T: identity, then each level
// interval [levels[k], levels[k+1]) mapped by the interpolation, later
// intervals written over earlier ones where levels overlap.
template <class T>
void build_table(T* table, TavInterpolationType interp, const Tav32s* values, const Tav32s* levels, int n) {
    constexpr std::int64_t lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
    constexpr std::int64_t bias = -lo;
    for (std::int64_t x = lo; x <= hi; ++x) table[x + bias] = static_cast<T>(x);
    const Levels<Tav32s> lv{values, levels, n};
    for (int k = 0; k + 1 < n; ++k) {
        const std::int64_t first = std::max<std::int64_t>(levels[k], lo);
        const std::int64_t last = std::min<std::int64_t>(std::int64_t{levels[k + 1]} - 1, hi);
        for (std::int64_t x = first; x <= last; ++x) {
            double v;
            if (interp == tavNearest) v = values[k];
            else if (interp == tavLinear) v = linear(lv, k, static_cast<double>(x));
            else v = cubic(lv, k, static_cast<double>(x));
            table[x + bias] = saturate<T>(v);
        }
    }
}

template <class T>
struct Source {
    using type = Tav32s;
};
template <>
struct Source<Tav32f> {
    using type = Tav32f;
};

template <class T>
TavStatus init(TavInterpolationType interp, int channels, TaviSize roi, const typename Source<T>::type* const* values,
               const typename Source<T>::type* const* levels, const int* nLevels, Tav8u* pSpec) {
    if (TavStatus st = check_levels(interp, values, levels, nLevels, pSpec, roi, channels, nLevels)) return st;
    const int tables = tables_of(channels);
    for (int c = 0; c < tables; ++c)
        if (any_null(values[c], levels[c])) return tavErrNullPtr;

    Spec* spec = align64(reinterpret_cast<Spec*>(pSpec));
    std::memset(spec, 0, sizeof(Spec));
    const Layout layout = channels == 1 ? Layout::C1 : channels == 3 ? Layout::C3
                        : channels == 4 ? Layout::C4 : Layout::AC4;
    int kind = kNearest;
    if constexpr (std::is_same_v<T, Tav32f>) kind = interp == tavNearest ? kNearest : interp == tavLinear ? kLinear : kCubic;
    spec->id = kIdBase + 4 * kTypeIndex<T> + layout_index(layout) + 16 * kind;
    spec->channels = channels;
    Tav8u* data = reinterpret_cast<Tav8u*>(spec) + kDataOffset;
    for (int c = 0; c < tables; ++c) spec->nLevels[c] = nLevels[c];
    if constexpr (std::is_same_v<T, Tav32f>) {
        float* f = reinterpret_cast<float*>(data);
        for (int c = 0; c < tables; ++c) {
            std::memcpy(f, values[c], sizeof(float) * nLevels[c]);
            spec->values[c] = f;
            f += nLevels[c];
            std::memcpy(f, levels[c], sizeof(float) * nLevels[c]);
            spec->levels[c] = f;
            f += nLevels[c];
        }
    } else {
        constexpr std::size_t entries = std::size_t{1} << (8 * sizeof(T));
        T* t = reinterpret_cast<T*>(data);
        spec->table = t;
        for (int c = 0; c < tables; ++c) build_table(t + c * entries, interp, values[c], levels[c], nLevels[c]);
    }
    return tavOk;
}

}  // namespace
}  // namespace tav::decide::lut

using namespace tav::decide::lut;

TavStatus own_taviLUT_GetSize(TavInterpolationType interpolation, TavDataType dataType, int channels, TaviSize roiSize,
                              const int nLevels[], int* pSpecSize) {
    if (TavStatus st = check_levels(interpolation, nLevels, pSpecSize, nLevels, nLevels, roiSize, channels, nLevels))
        return st;
    const std::int64_t data = data_bytes(interpolation, dataType, channels, nLevels);
    if (data < 0) return tavErrDataType;
    if (288 + data > INT_MAX) return tavErrSizeOverflow;
    *pSpecSize = static_cast<int>(288 + data);
    return tavOk;
}

// clang-format off
TavStatus own_taviLUT_Init_8u(TavInterpolationType i, int ch, TaviSize r, const Tav32s* const v[], const Tav32s* const l[], const int n[], Tav8u* s) { return init<Tav8u>(i, ch, r, v, l, n, s); }
TavStatus own_taviLUT_Init_16u(TavInterpolationType i, int ch, TaviSize r, const Tav32s* const v[], const Tav32s* const l[], const int n[], Tav8u* s) { return init<Tav16u>(i, ch, r, v, l, n, s); }
TavStatus own_taviLUT_Init_16s(TavInterpolationType i, int ch, TaviSize r, const Tav32s* const v[], const Tav32s* const l[], const int n[], Tav8u* s) { return init<Tav16s>(i, ch, r, v, l, n, s); }
TavStatus own_taviLUT_Init_32f(TavInterpolationType i, int ch, TaviSize r, const Tav32f* const v[], const Tav32f* const l[], const int n[], Tav8u* s) { return init<Tav32f>(i, ch, r, v, l, n, s); }
// clang-format on
