// Otsu's threshold: a two-bank histogram, then a scan in double precision of
// the between-class variance over the 256 possible splits.
#include <cstdint>
#include <cstring>

#include "frame/entry.h"

// The scan is specified operation by operation: no fused multiply-adds.
#pragma GCC optimize("fp-contract=off")

namespace {

// Counting goes through 16-bit banks, flushed into the 32-bit ones before
// they can overflow: narrower counters increment faster.
using Part = std::uint16_t[256];

// Even columns count in one bank and odd columns in the other, so that two
// equal neighbours never wait on the same counter.
void count_row(const Tav8u* p, int width, Part& even, Part& odd) {
    int x = 0;
    for (; x + 8 <= width; x += 8) {
        std::uint64_t v;
        std::memcpy(&v, p + x, 8);
        ++even[v & 0xff];
        ++odd[(v >> 8) & 0xff];
        ++even[(v >> 16) & 0xff];
        ++odd[(v >> 24) & 0xff];
        ++even[(v >> 32) & 0xff];
        ++odd[(v >> 40) & 0xff];
        ++even[(v >> 48) & 0xff];
        ++odd[v >> 56];
    }
    for (; x < width; ++x) ++((x & 1) ? odd : even)[p[x]];
}

void flush(std::uint32_t (&bank)[2][256], Part (&part)[2]) {
    for (int k = 0; k < 2; ++k)
        for (int i = 0; i < 256; ++i) bank[k][i] += part[k][i];
    std::memset(part, 0, sizeof part);
}

// Eight lanes folded pairwise, halves first.
double fold(double* lanes) {
    for (int half = 4; half > 0; half /= 2)
        for (int j = 0; j < half; ++j) lanes[j] += lanes[j + half];
    return lanes[0];
}

}  // namespace

TavStatus own_taviComputeThreshold_Otsu_8u_C1R(const Tav8u* pSrc, int srcStep, TaviSize roiSize, Tav8u* pThreshold) {
    using namespace tav;
    if (any_null(pSrc, pThreshold)) return tavErrNullPtr;
    if (bad_size(roiSize)) return tavErrSize;
    if (srcStep < roiSize.width) return tavErrStep;

    alignas(64) std::uint32_t bank[2][256] = {};
    alignas(64) Part part[2] = {};
    // A piece of a row adds at most half its pixels, rounded up, to a bank.
    // Pieces start at even columns, so column parity holds.
    constexpr int kPiece = 1 << 16;
    int load = 0;
    for (int y = 0; y < roiSize.height; ++y) {
        const Tav8u* row = advance(pSrc, std::ptrdiff_t(y) * srcStep);
        for (int x0 = 0; x0 < roiSize.width; x0 += kPiece) {
            const int n = roiSize.width - x0 < kPiece ? roiSize.width - x0 : kPiece;
            if (load + (n + 1) / 2 > 0xFFFF) {
                flush(bank, part);
                load = 0;
            }
            count_row(row + x0, n, part[0], part[1]);
            load += (n + 1) / 2;
        }
    }
    flush(bank, part);

    double h[256], n8[8] = {}, s8[8] = {};
    for (int i = 0; i < 256; ++i) {
        h[i] = double(bank[0][i]) + double(bank[1][i]);
        n8[i % 8] += h[i];
        s8[i % 8] += (i + 0.5) * h[i];
    }
    const double n = fold(n8), s = fold(s8);

    const double eps = 1.1920928955078125e-7;
    const double inv = n > eps ? 1.0 / n : 0.0;
    const double mu = s * inv;
    double w = 0, m = 0, best = 0, t = 0;
    for (int i = 0; i < 256; ++i) {
        const double p = inv * h[i];
        w = w + p;
        const double q = 1.0 - w;
        const double lo = w < q ? w : q, hi = w < q ? q : w;
        // Bins before the first admitted split add nothing to m, though mu
        // counts them.
        if (lo > eps && hi < 0.9999998807907104) {
            m = m + (i + 0.5) * p;
            const double d = (w + q) * m - mu * w;
            const double sigma = d * d / (w * q);
            if (sigma > best) {
                best = sigma;
                t = i + 0.5;
            }
        }
    }
    *pThreshold = static_cast<Tav8u>(t);
    return tavOk;
}
