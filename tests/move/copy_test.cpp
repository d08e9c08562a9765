// taviCopy in one layout, the 64-bit twins and the managed copy, against the
// scalar reference over widths, heights, steps and start alignments.
#include <sys/mman.h>

#include <cstring>

#include "move/move_test_util.h"
#include "support/ref_move.h"

namespace {

using namespace movetest;

struct CopyCase {
    const char* name;
    UnaryFn fn;
    int es, channels;
    bool alpha;  // AC4: the fourth element keeps the destination's value
};

#define TAV_COPY_ROWS(t, T)                                                          \
    {#t "_C1R", unary<T, taviCopy_##t##_C1R>, sizeof(T), 1, false},                  \
        {#t "_C3R", unary<T, taviCopy_##t##_C3R>, sizeof(T), 3, false},              \
        {#t "_C4R", unary<T, taviCopy_##t##_C4R>, sizeof(T), 4, false},              \
        {#t "_AC4R", unary<T, taviCopy_##t##_AC4R>, sizeof(T), 4, true}

const CopyCase kCopies[] = {TAV_COPY_ROWS(8u, Tav8u), TAV_COPY_ROWS(16u, Tav16u), TAV_COPY_ROWS(16s, Tav16s),
                            TAV_COPY_ROWS(32s, Tav32s), TAV_COPY_ROWS(32f, Tav32f)};
#undef TAV_COPY_ROWS

// Runs one copy between fresh regions and compares both whole spans.
void check_copy(const CopyCase& c, int width, int height, int srcPad, int dstPad, const Placement& pl) {
    const long long rowBytes = static_cast<long long>(width) * c.channels * c.es;
    Region src(rowBytes, height, rowBytes + srcPad, pl.srcGuard, pl.srcLead);
    Region dst(rowBytes, height, rowBytes + dstPad, pl.dstGuard, pl.dstLead);
    auto srcBefore = src.snapshot();
    auto expected = dst.snapshot();
    const int ch = c.channels;
    auto keep = [&](long long e) { return !c.alpha || e % ch != 3; };
    tavref::copy_elems(src.ptr(), src.step(), dst.in(expected), dst.step(), width * ch, height, c.es, keep);
    ASSERT_EQ(c.fn(src.ptr(), src.step(), dst.ptr(), dst.step(), {width, height}), tavOk);
    EXPECT_TRUE(dst.same(expected)) << c.name << " " << width << "x" << height << " pads " << srcPad << "/"
                                    << dstPad << " leads " << pl.srcLead << "/" << pl.dstLead;
    EXPECT_TRUE(src.same(srcBefore)) << c.name << ": the source was written";
}

TEST(Copy, SweepsWidthsHeightsStepsAndAlignments) {
    const auto places = placements();
    for (const CopyCase& c : kCopies) {
        const auto widths = tavtest::sweep_widths(c.es);
        const auto pads = tavtest::sweep_paddings(c.es);
        for (std::size_t i = 0; i < widths.size(); ++i)
            for (int h : {1, 3}) {
                const Placement& pl = places[(i + h) % places.size()];
                const int sp = pads[i % pads.size()], dp = pads[(i / 2 + h) % pads.size()];
                check_copy(c, widths[i], h, sp, dp, pl);
                if (::testing::Test::HasFailure()) return;
            }
    }
}

// The block copy's kernels by row width and address: short rows, the
// unaligned, 32-byte aligned and 4-KiB aliased kernels, contiguous images as
// one row (plain, aliased and forward row copies).
TEST(Copy, BlockKernelsByWidthStepAndPageOffset) {
    const CopyCase& c = kCopies[0];
    struct Lead {
        GuardAt sg, dg;
        int s, d;
    };
    const Lead leads[] = {{GuardAt::Start, GuardAt::Start, 0, 0},   {GuardAt::Start, GuardAt::Start, 0, 32},
                          {GuardAt::Start, GuardAt::Start, 0, 159}, {GuardAt::Start, GuardAt::Start, 0, 160},
                          {GuardAt::Start, GuardAt::Start, 200, 0}, {GuardAt::Start, GuardAt::Start, 7, 0},
                          {GuardAt::End, GuardAt::End, 0, 0},       {GuardAt::End, GuardAt::Start, 0, 3}};
    for (int w : {511, 512, 544, 1000, 4096, 40000})
        for (int pad : {0, 32, 65})
            for (int h : {1, 2, 7})
                for (const Lead& l : leads) {
                    check_copy(c, w, h, pad, pad, {l.sg, l.dg, l.s, l.d});
                    if (::testing::Test::HasFailure()) return;
                }
    // Contiguous images long enough for the large row copies.
    for (const Lead& l : leads) check_copy(c, 300, 130, 0, 0, {l.sg, l.dg, l.s, l.d});
}

TEST(Copy, StepsAreUsedAsGivenNegativeAndZero) {
    // A negative source step walks the source bottom-up; a zero step repeats a row.
    const int w = 37, h = 5;
    Region src(w, h, w), dst(w, h, w + 3);
    auto expected = dst.snapshot();
    for (int y = 0; y < h; ++y) std::memcpy(dst.in(expected) + y * dst.step(), src.ptr() + (h - 1 - y) * w, w);
    ASSERT_EQ(taviCopy_8u_C1R(src.ptr() + (h - 1) * w, -w, dst.ptr(), dst.step(), {w, h}), tavOk);
    EXPECT_TRUE(dst.same(expected));

    Region one(w, 1, w), many(w, h, w);
    auto rep = many.snapshot();
    for (int y = 0; y < h; ++y) std::memcpy(many.in(rep) + y * w, one.ptr(), w);
    ASSERT_EQ(taviCopy_8u_C1R(one.ptr(), 0, many.ptr(), w, {w, h}), tavOk);
    EXPECT_TRUE(many.same(rep));
}

TEST(Copy, StatusesAndNothingWritten) {
    struct Bad {
        bool nullSrc, nullDst;
        TaviSize roi;
        TavStatus expect;
    };
    const Bad bad[] = {{true, false, {4, 4}, tavErrNullPtr}, {false, true, {4, 4}, tavErrNullPtr},
                       {true, false, {0, 4}, tavErrNullPtr}, {false, false, {0, 4}, tavErrSize},
                       {false, false, {4, 0}, tavErrSize},   {false, false, {-3, 4}, tavErrSize},
                       {false, false, {4, -1}, tavErrSize}};
    for (const CopyCase& c : kCopies) {
        Region src(256, 4, 256), dst(256, 4, 256);
        auto before = dst.snapshot();
        for (const Bad& b : bad) {
            EXPECT_EQ(c.fn(b.nullSrc ? nullptr : src.ptr(), 256, b.nullDst ? nullptr : dst.ptr(), 256, b.roi),
                      b.expect)
                << c.name;
            // Steps are never checked: a zero or negative step doesn't change the status.
            EXPECT_EQ(c.fn(b.nullSrc ? nullptr : src.ptr(), 0, b.nullDst ? nullptr : dst.ptr(), -5, b.roi), b.expect)
                << c.name;
        }
        EXPECT_TRUE(dst.same(before)) << c.name;
    }
}

// The 64-bit twins give the 32-bit functions' bytes.
using LongFn = TavStatus (*)(const void*, int64_t, void*, int64_t, TaviSizeL);
template <class T, auto F>
TavStatus long_unary(const void* s, int64_t ss, void* d, int64_t ds, TaviSizeL r) {
    return F(static_cast<const T*>(s), ss, static_cast<T*>(d), ds, r);
}
struct LongCase {
    LongFn fn;
    const CopyCase* twin;
};
const LongCase kLongs[] = {
    {long_unary<Tav8u, taviCopy_8u_C1R_L>, &kCopies[0]},    {long_unary<Tav8u, taviCopy_8u_C3R_L>, &kCopies[1]},
    {long_unary<Tav8u, taviCopy_8u_C4R_L>, &kCopies[2]},    {long_unary<Tav8u, taviCopy_8u_AC4R_L>, &kCopies[3]},
    {long_unary<Tav32f, taviCopy_32f_C1R_L>, &kCopies[16]}, {long_unary<Tav32f, taviCopy_32f_C3R_L>, &kCopies[17]},
    {long_unary<Tav32f, taviCopy_32f_C4R_L>, &kCopies[18]}, {long_unary<Tav32f, taviCopy_32f_AC4R_L>, &kCopies[19]},
};

TEST(CopyL, MatchesTwinAndChecksPointersThenSize) {
    for (const LongCase& l : kLongs) {
        const CopyCase& c = *l.twin;
        for (int w : {1, 5, 17, 64, 333}) {
            const long long rowBytes = static_cast<long long>(w) * c.channels * c.es;
            Region src(rowBytes, 3, rowBytes + 7), a(rowBytes, 3, rowBytes + 9), b(rowBytes, 3, rowBytes + 9);
            std::memcpy(b.ptr() - 0, a.ptr(), Region::span(rowBytes, 3, rowBytes + 9));
            ASSERT_EQ(c.fn(src.ptr(), src.step(), a.ptr(), a.step(), {w, 3}), tavOk);
            ASSERT_EQ(l.fn(src.ptr(), src.step(), b.ptr(), b.step(), {w, 3}), tavOk);
            EXPECT_TRUE(b.same(a.snapshot())) << c.name << "_L width " << w;
        }
        Region src(64, 1, 64), dst(64, 1, 64);
        EXPECT_EQ(l.fn(nullptr, 64, dst.ptr(), 64, {0, 0}), tavErrNullPtr);
        EXPECT_EQ(l.fn(src.ptr(), 64, nullptr, 64, {1, 1}), tavErrNullPtr);
        EXPECT_EQ(l.fn(src.ptr(), 64, dst.ptr(), 64, {0, 1}), tavErrSize);
        EXPECT_EQ(l.fn(src.ptr(), 64, dst.ptr(), 64, {1, -1}), tavErrSize);
    }
}

TEST(CopyL, StepsBeyondThirtyTwoBits) {
    // Two rows 4 GiB + 64 bytes apart in sparse memory: only the rows are touched.
    const int64_t step = (int64_t{1} << 32) + 64;
    const std::size_t len = static_cast<std::size_t>(step) + 4096;
    auto* src = static_cast<std::uint8_t*>(
        mmap(nullptr, len, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    auto* dst = static_cast<std::uint8_t*>(
        mmap(nullptr, len, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    ASSERT_NE(src, MAP_FAILED);
    ASSERT_NE(dst, MAP_FAILED);
    for (int i = 0; i < 100; ++i) {
        src[i] = static_cast<std::uint8_t>(i + 1);
        src[step + i] = static_cast<std::uint8_t>(200 - i);
    }
    EXPECT_EQ(taviCopy_32f_C1R_L(reinterpret_cast<Tav32f*>(src), step, reinterpret_cast<Tav32f*>(dst), step, {25, 2}),
              tavOk);
    EXPECT_EQ(std::memcmp(src, dst, 100), 0);
    EXPECT_EQ(std::memcmp(src + step, dst + step, 100), 0);
    EXPECT_EQ(dst[100], 0);
    EXPECT_EQ(dst[step + 100], 0);
    munmap(src, len);
    munmap(dst, len);
}

TEST(CopyManaged, EveryFlagGivesThePlainCopy) {
    const auto places = placements();
    int k = 0;
    for (int flags = 0; flags < 4; ++flags)
        for (int w : {1, 63, 64, 65, 200, 1000})
            for (int h : {1, 3})
                for (int pad : {0, 1, 64}) {
                    const Placement& pl = places[k++ % places.size()];
                    Region src(w, h, w + pad, pl.srcGuard, pl.srcLead), dst(w, h, w + pad, pl.dstGuard, pl.dstLead);
                    auto expected = dst.snapshot();
                    tavref::copy_elems(src.ptr(), src.step(), dst.in(expected), dst.step(), w, h, 1, tavref::all_elems);
                    ASSERT_EQ(taviCopyManaged_8u_C1R(src.ptr(), src.step(), dst.ptr(), dst.step(), {w, h}, flags), tavOk);
                    EXPECT_TRUE(dst.same(expected)) << "flags " << flags << " " << w << "x" << h << " pad " << pad;
                }
    Region src(8, 1, 8), dst(8, 1, 8);
    EXPECT_EQ(taviCopyManaged_8u_C1R(nullptr, 8, dst.ptr(), 8, {0, 1}, 1), tavErrNullPtr);
    EXPECT_EQ(taviCopyManaged_8u_C1R(src.ptr(), 8, dst.ptr(), 8, {8, 0}, 1), tavErrSize);
}

}  // namespace
