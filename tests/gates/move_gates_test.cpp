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
        // Mirrors and planar copies below their gates.
        taviMirror_8u_C4R(src.ptr(), 2048, dst.ptr(), dst.step(), {512, 64}, 1);
        taviMirror_8u_C1R(src.ptr(), 2048, dst.ptr(), dst.step(), {2048, 64}, 0);
        Tav8u* const planes[3] = {dst.ptr(), dst.ptr() + 640, dst.ptr() + 1280};
        taviCopy_8u_C3P3R(src.ptr(), 2048, planes, dst.step(), {640, 64});
        taviTranspose_32s_C4R(reinterpret_cast<const Tav32s*>(src.ptr()), 2048, reinterpret_cast<Tav32s*>(dst.ptr()),
                              1024, {128, 16});
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

TEST(MoveGates, PlanarCopiesAboveTheirGates) {
    // Line-aligned planes and rows: the streaming kernels where the gate says.
    const int w = 448, h = 400;
    auto run = [&](int es, int planes, bool toPlanes) {
        const int rowBytes = w * planes * es;
        Region packed(rowBytes, h, rowBytes, GuardAt::Start, 0);
        Region p0(w * es, h, w * es, GuardAt::Start, 0), p1(w * es, h, w * es, GuardAt::Start, 0),
            p2(w * es, h, w * es, GuardAt::Start, 0), p3(w * es, h, w * es, GuardAt::Start, 0);
        Region* pl[4] = {&p0, &p1, &p2, &p3};
        std::vector<std::vector<std::uint8_t>> expected;
        auto packedExpected = packed.snapshot();
        for (int j = 0; j < planes; ++j) expected.push_back(pl[j]->snapshot());
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                for (int c = 0; c < planes; ++c) {
                    std::uint8_t* pk = (toPlanes ? packed.ptr() : packed.in(packedExpected)) + y * rowBytes +
                                       (x * planes + c) * es;
                    std::uint8_t* pp = (toPlanes ? pl[c]->in(expected[c]) : pl[c]->ptr()) + (y * w + x) * es;
                    if (toPlanes) std::memcpy(pp, pk, es);
                    else std::memcpy(pk, pp, es);
                }
        TavStatus st = tavErrBadArg;
        if (es == 1 && planes == 3 && toPlanes) {
            Tav8u* const d[3] = {p0.ptr(), p1.ptr(), p2.ptr()};
            st = taviCopy_8u_C3P3R(packed.ptr(), rowBytes, d, w, {w, h});
        } else if (es == 1 && planes == 3) {
            const Tav8u* const sp[3] = {p0.ptr(), p1.ptr(), p2.ptr()};
            st = taviCopy_8u_P3C3R(sp, w, packed.ptr(), rowBytes, {w, h});
        } else if (es == 2 && planes == 4 && toPlanes) {
            Tav16u* const d[4] = {reinterpret_cast<Tav16u*>(p0.ptr()), reinterpret_cast<Tav16u*>(p1.ptr()),
                                  reinterpret_cast<Tav16u*>(p2.ptr()), reinterpret_cast<Tav16u*>(p3.ptr())};
            st = taviCopy_16u_C4P4R(reinterpret_cast<Tav16u*>(packed.ptr()), rowBytes, d, w * 2, {w, h});
        } else if (es == 4 && planes == 3) {
            Tav32f* const d[3] = {reinterpret_cast<Tav32f*>(p0.ptr()), reinterpret_cast<Tav32f*>(p1.ptr()),
                                  reinterpret_cast<Tav32f*>(p2.ptr())};
            st = taviCopy_32f_C3P3R(reinterpret_cast<Tav32f*>(packed.ptr()), rowBytes, d, w * 4, {w, h});
        } else if (es == 4 && planes == 4) {
            const Tav32s* const sp[4] = {reinterpret_cast<Tav32s*>(p0.ptr()), reinterpret_cast<Tav32s*>(p1.ptr()),
                                         reinterpret_cast<Tav32s*>(p2.ptr()), reinterpret_cast<Tav32s*>(p3.ptr())};
            st = taviCopy_32s_P4C4R(sp, w * 4, reinterpret_cast<Tav32s*>(packed.ptr()), rowBytes, {w, h});
        }
        ASSERT_EQ(st, tavOk);
        if (toPlanes)
            for (int j = 0; j < planes; ++j) EXPECT_TRUE(pl[j]->same(expected[j])) << es << " plane " << j;
        else
            EXPECT_TRUE(packed.same(packedExpected)) << es;
    };
    run(1, 3, true);
    run(1, 3, false);
    run(2, 4, true);
    run(4, 3, true);
    run(4, 4, false);
}

TEST(MoveGates, MirrorsAboveTheirGates) {
    struct Case {
        int pixelBytes, w, h;
        TavStatus (*fn)(const void*, int, void*, int, TaviSize, int);
    };
    const Case cases[] = {
        {1, 800, 700, [](const void* s, int ss, void* d, int ds, TaviSize r, int f) {
             return taviMirror_8u_C1R(static_cast<const Tav8u*>(s), ss, static_cast<Tav8u*>(d), ds, r, f);
         }},
        {4, 420, 400, [](const void* s, int ss, void* d, int ds, TaviSize r, int f) {
             return taviMirror_8u_C4R(static_cast<const Tav8u*>(s), ss, static_cast<Tav8u*>(d), ds, r, f);
         }},
        {4, 600, 500, [](const void* s, int ss, void* d, int ds, TaviSize r, int f) {
             return taviMirror_32f_C1R(static_cast<const Tav32f*>(s), ss, static_cast<Tav32f*>(d), ds, r, f);
         }},
        {12, 300, 300, [](const void* s, int ss, void* d, int ds, TaviSize r, int f) {
             return taviMirror_32s_C3R(static_cast<const Tav32s*>(s), ss, static_cast<Tav32s*>(d), ds, r, f);
         }},
    };
    for (const Case& c : cases)
        for (int flip = 0; flip < 3; ++flip)
            for (int lead : {0, 4}) {
                const int rowBytes = c.w * c.pixelBytes;
                Region src(rowBytes, c.h, rowBytes + 64), dst(rowBytes, c.h, rowBytes + 64, GuardAt::Start, lead);
                auto expected = dst.snapshot();
                tavref::mirror(src.ptr(), src.step(), dst.in(expected), dst.step(), c.w, c.h, c.pixelBytes,
                               c.pixelBytes, flip);
                ASSERT_EQ(c.fn(src.ptr(), src.step(), dst.ptr(), dst.step(), {c.w, c.h}, flip), tavOk);
                EXPECT_TRUE(dst.same(expected)) << c.pixelBytes << " flip " << flip << " lead " << lead;
            }
}

TEST(MoveGates, WideTransposesAboveTheirGates) {
    // 16u C4 from width 385 with aligned rows; 32s C3 and C4 from width 257.
    auto check = [](int P, int w, int h, int lead, auto fn) {
        Region src(w * P, h, w * P + 64, GuardAt::Start, 0), dst(h * P, w, h * P + 64, GuardAt::Start, lead);
        auto expected = dst.snapshot();
        tavref::transpose(src.ptr(), src.step(), dst.in(expected), dst.step(), w, h, P);
        ASSERT_EQ(fn(src.ptr(), src.step(), dst.ptr(), dst.step(), TaviSize{w, h}), tavOk);
        EXPECT_TRUE(dst.same(expected)) << P << " " << w << "x" << h << " lead " << lead;
    };
    auto t16u = [](std::uint8_t* s, int ss, std::uint8_t* d, int ds, TaviSize r) {
        return taviTranspose_16u_C4R(reinterpret_cast<Tav16u*>(s), ss, reinterpret_cast<Tav16u*>(d), ds, r);
    };
    auto t32c3 = [](std::uint8_t* s, int ss, std::uint8_t* d, int ds, TaviSize r) {
        return taviTranspose_32s_C3R(reinterpret_cast<Tav32s*>(s), ss, reinterpret_cast<Tav32s*>(d), ds, r);
    };
    auto t32c4 = [](std::uint8_t* s, int ss, std::uint8_t* d, int ds, TaviSize r) {
        return taviTranspose_32s_C4R(reinterpret_cast<Tav32s*>(s), ss, reinterpret_cast<Tav32s*>(d), ds, r);
    };
    check(8, 392, 200, 0, t16u);
    check(8, 392, 200, 16, t16u);
    check(8, 1208, 1800, 0, t16u);  // larger than a 32 MiB cache
    check(12, 300, 90, 0, t32c3);
    check(16, 300, 90, 0, t32c4);
    check(16, 300, 90, 48, t32c4);
    // Narrow images never ask.
    Region a(8 * 384, 4, 8 * 384), b(8 * 4, 384, 8 * 4);
    const long long n = queries_of([&] { t16u(a.ptr(), a.step(), b.ptr(), b.step(), TaviSize{384, 4}); });
    if (n >= 0) {
        EXPECT_EQ(n, 0);
    }
}

}  // namespace

