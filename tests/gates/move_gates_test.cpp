// Copies and fills large enough to pass their cache-size gates. This suite
// runs with the real core module and under doubles reporting no cache, a
// tiny cache and a failing query: the bytes must be the same every time, and
// calls below a gate must not ask at all.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "move/move_test_util.h"
#include "support/core_double.h"
#include "support/ref_move.h"
#include "tavi.h"

namespace {

using movetest::Region;
using tavtest::GuardAt;

// Counts the cache queries a call makes (-1: the real core, not counted).
template <class F>
long long queries_of(F&& f) {
    const long long before = tavtest::core_cache_queries();
    f();
    const long long after = tavtest::core_cache_queries();
    return before < 0 ? -1 : after - before;
}

void expect_copy(int rowBytes, int h, int srcStep, int dstStep, int dstLead = 0) {
    Region src(rowBytes, h, srcStep), dst(rowBytes, h, dstStep, GuardAt::Start, dstLead);
    auto expected = dst.snapshot();
    tavref::copy_elems(src.ptr(), srcStep, dst.in(expected), dstStep, rowBytes, h, 1, tavref::all_elems);
    ASSERT_EQ(taviCopy_8u_C1R(src.ptr(), srcStep, dst.ptr(), dstStep, {rowBytes, h}), tavOk);
    EXPECT_TRUE(dst.same(expected)) << rowBytes << "x" << h << " steps " << srcStep << "/" << dstStep;
}

TEST(MoveGates, RowCopyAboveItsGate) {
    // One contiguous row above 4 MiB, and one above half of a 32 MiB cache.
    expect_copy(2100, 2100, 2100, 2100);
    expect_copy(4352, 4000, 4352, 4352, 64);
    expect_copy(4352, 4000, 4352, 4352, 7);
}

TEST(MoveGates, BlockCopyAboveItsGate) {
    // Padded rows: the aligned and the unaligned streaming kernels.
    expect_copy(2048, 1700, 2048 + 64, 2048 + 64);
    expect_copy(2048, 1700, 2048 + 64, 2048 + 64, 32);
    expect_copy(3001, 1200, 3001 + 5, 3001 + 3, 1);
    expect_copy(4000, 8200, 4096, 4096);
}

TEST(MoveGates, SmallCallsDoNotAsk) {
    Region src(2048, 64, 2048), dst(2048, 64, 2048 + 64);
    std::uint8_t v3[3] = {1, 2, 3};
    const long long n = queries_of([&] {
        taviCopy_8u_C1R(src.ptr(), 2048, dst.ptr(), 2048, {2048, 64});
        taviCopy_8u_C1R(src.ptr(), 2048, dst.ptr(), dst.step(), {2048, 64});
        taviCopy_8u_AC4R(src.ptr(), 2048, dst.ptr(), dst.step(), {512, 64});
        taviSet_8u_C1R(7, dst.ptr(), dst.step(), {2048, 64});
        taviSet_8u_C3R(v3, dst.ptr(), dst.step(), {600, 64});
        taviSet_32f_C4R(reinterpret_cast<const Tav32f*>(src.ptr()), reinterpret_cast<Tav32f*>(dst.ptr()),
                        dst.step(), {128, 64});
    });
    if (n >= 0) {
        EXPECT_EQ(n, 0);
    }
}

TEST(MoveGates, QueriesHappenOnlyAboveTheGates) {
    // A 2 MiB + 1 fill asks; one byte less doesn't; an odd address of a
    // 16-bit fill never asks.
    Region big(0x200005, 1, 0x200005);
    if (tavtest::core_cache_queries() < 0) GTEST_SKIP() << "queries are counted by the doubles only";
    EXPECT_EQ(queries_of([&] { taviSet_8u_C1R(9, big.ptr(), 0x200001, {0x200001, 1}); }), 1);
    EXPECT_EQ(queries_of([&] { taviSet_8u_C1R(9, big.ptr(), 0x200000, {0x200000, 1}); }), 0);
    std::uint8_t* odd = big.ptr() + (reinterpret_cast<std::uintptr_t>(big.ptr()) & 1 ? 0 : 1);
    EXPECT_EQ(queries_of([&] { taviSet_16u_C1R(9, reinterpret_cast<Tav16u*>(odd), 0x200002, {0x100001, 1}); }), 0);
    EXPECT_EQ(queries_of([&] { taviSet_16u_C1R(9, reinterpret_cast<Tav16u*>(odd + 1), 0x200002, {0x100001, 1}); }),
              1);
    Region src(0x400001, 1, 0x400001), dst(0x400001, 1, 0x400001);
    EXPECT_EQ(queries_of([&] { taviCopy_8u_C1R(src.ptr(), 0x400001, dst.ptr(), 0x400001, {0x400001, 1}); }), 1);
    EXPECT_EQ(queries_of([&] { taviCopy_8u_C1R(src.ptr(), 0x400000, dst.ptr(), 0x400000, {0x400000, 1}); }), 0);
    // The block copy asks from 0x300001 bytes on.
    EXPECT_EQ(queries_of([&] { taviCopy_8u_C1R(src.ptr(), 1024, dst.ptr(), 1025, {1024, 3072}); }), 0);
    EXPECT_EQ(queries_of([&] { taviCopy_8u_C1R(src.ptr(), 1026, dst.ptr(), 1025, {1025, 3070}); }), 1);
}

void expect_set_c1(int w, int h, int pad, int lead) {
    Region dst(w, h, w + pad, GuardAt::Start, lead);
    auto expected = dst.snapshot();
    const std::uint8_t v = 0x5a;
    tavref::set_elems(&v, 1, dst.in(expected), dst.step(), w, h, 1, tavref::all_elems);
    ASSERT_EQ(taviSet_8u_C1R(v, dst.ptr(), dst.step(), {w, h}), tavOk);
    EXPECT_TRUE(dst.same(expected));
}

TEST(MoveGates, FillsAboveTheirGates) {
    expect_set_c1(1500, 1500, 0, 0);
    expect_set_c1(1500, 1500, 0, 13);
    expect_set_c1(0x200001, 2, 3, 5);
    // Four-channel 32-bit fills: the image gate.
    for (int lead : {0, 4, 12}) {
        const int w = 300, h = 260;
        Region dst(w * 16, h, w * 16 + (lead ? 16 : 0), GuardAt::Start, lead);
        const Tav32f v[4] = {1.0f, -2.5f, 3.0f, 1e9f};
        auto expected = dst.snapshot();
        tavref::set_elems(reinterpret_cast<const std::uint8_t*>(v), 4, dst.in(expected), dst.step(), 4 * w, h, 4,
                          tavref::all_elems);
        ASSERT_EQ(taviSet_32f_C4R(v, reinterpret_cast<Tav32f*>(dst.ptr()), dst.step(), {w, h}), tavOk);
        EXPECT_TRUE(dst.same(expected)) << "lead " << lead;
    }
}

}  // namespace
