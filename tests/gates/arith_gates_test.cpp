// Point arithmetic and logic on images past the streaming gate: the results
// are the same whatever the core module answers, and small calls never ask.
#include <gtest/gtest.h>

#include "support/core_double.h"
#include "support/image.h"
#include "support/ref_arith.h"
#include "tavi.h"

namespace {

// Contiguous rows count as one row for the gate; padded rows each on their own.
struct Big {
    int w, h, pad;
};
const Big kBig[] = {{2048, 1024, 0}, {0x180040, 2, 24}, {4096, 2816, 0}};

TEST(ArithGates, StreamedResultsMatch) {
    for (const Big& g : kBig) {
        const int step = g.w + g.pad;
        tavtest::Image<Tav8u> a(g.w, g.h, step), b(g.w, g.h, step), d(g.w + 3, g.h, step + 3);
        a.fill(0, 255);
        b.fill(0, 255);
        Tav8u* dst = d.ptr() + 3;  // off the 64-byte boundary: the streamed rows peel first
        ASSERT_EQ(taviAdd_8u_C1RSfs(a.ptr(), step, b.ptr(), step, dst, d.step(), {g.w, g.h}, 1), tavOk);
        for (int y = 0; y < g.h; ++y)
            for (int x = 0; x < g.w; x += 997)
                ASSERT_EQ(dst[std::size_t(y) * d.step() + x], tavref::scaled<Tav8u>(tavref::Op::Add, b.at(x, y), a.at(x, y), 1));
        ASSERT_EQ(taviXorC_8u_C1R(a.ptr(), step, 0x5a, dst, d.step(), {g.w, g.h}), tavOk);
        for (int y = 0; y < g.h; ++y)
            for (int x = 0; x < g.w; ++x) ASSERT_EQ(dst[std::size_t(y) * d.step() + x], Tav8u(a.at(x, y) ^ 0x5a));
        const float* fa = reinterpret_cast<const float*>(a.ptr());
        ASSERT_EQ(taviMulC_32f_C1R(fa, step, 0.5f, reinterpret_cast<float*>(d.ptr() + 4), d.step(), {g.w / 4 - 1, g.h}), tavOk);
        for (int y = 0; y < g.h; ++y)
            for (int x = 0; x < g.w / 4 - 1; x += 101) {
                float want = reinterpret_cast<const float*>(a.row(y))[x] * 0.5f, got;
                std::memcpy(&got, d.ptr() + 4 + std::size_t(y) * d.step() + 4 * x, 4);
                if (want == want) {
                    ASSERT_EQ(std::memcmp(&got, &want, 4), 0);
                }
            }
    }
}

TEST(ArithGates, SmallCallsNeverAsk) {
    const long long before = tavtest::core_cache_queries();
    // A row of a constant's logic below 0x180001 bytes; two sources and a
    // destination below it in all.
    tavtest::Image<Tav8u> a(1000, 1500), d(1000, 1500);
    ASSERT_EQ(taviAndC_8u_C1R(a.ptr(), 1000, 7, d.ptr(), 1000, {1000, 1500}), tavOk);
    ASSERT_EQ(taviSub_8u_C1RSfs(a.ptr(), 1000, a.ptr(), 1000, d.ptr(), 1000, {1000, 500}, 0), tavOk);
    EXPECT_EQ(tavtest::core_cache_queries(), before);
}

// Arithmetic decides on bytes alone: even an image past its streaming size
// never reaches the core module.
TEST(ArithGates, ArithmeticNeverAsks) {
    const long long before = tavtest::core_cache_queries();
    tavtest::Image<Tav8u> a(4096, 2816), d(4096, 2816);
    ASSERT_EQ(taviAdd_8u_C1RSfs(a.ptr(), 4096, a.ptr(), 4096, d.ptr(), 4096, {4096, 2816}, 0), tavOk);
    EXPECT_EQ(tavtest::core_cache_queries(), before);
}

}  // namespace
