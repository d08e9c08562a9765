// Image allocation: steps, null rules, limits and the shared implementations.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

#include "tavi.h"

namespace {

struct StepCase {
    int width, height;
    int pixelBytes;
    int expectStep;
    bool expectBlock;
};

Tav8u* alloc_by_pixel_bytes(int pixelBytes, int w, int h, int* step) {
    switch (pixelBytes) {
        case 1: return taviMalloc_8u_C1(w, h, step);
        case 2: return reinterpret_cast<Tav8u*>(taviMalloc_16s_C1(w, h, step));
        case 3: return taviMalloc_8u_C3(w, h, step);
        case 4: return reinterpret_cast<Tav8u*>(taviMalloc_32f_C1(w, h, step));
        case 6: return reinterpret_cast<Tav8u*>(taviMalloc_16u_C3(w, h, step));
        case 8: return reinterpret_cast<Tav8u*>(taviMalloc_32fc_C1(w, h, step));
        case 12: return reinterpret_cast<Tav8u*>(taviMalloc_32s_C3(w, h, step));
        case 16: return reinterpret_cast<Tav8u*>(taviMalloc_32f_AC4(w, h, step));
        case 24: return reinterpret_cast<Tav8u*>(taviMalloc_32sc_C3(w, h, step));
        case 32: return reinterpret_cast<Tav8u*>(taviMalloc_32fc_AC4(w, h, step));
    }
    return nullptr;
}

TEST(Malloc, StepIsRowBytesRoundedTo64) {
    const StepCase cases[] = {
        {1, 1, 1, 64, true},      {64, 2, 1, 64, true},   {65, 2, 1, 128, true},
        {22, 1, 3, 128, true},    {21, 1, 3, 64, true},   {16, 3, 4, 64, true},
        {17, 3, 4, 128, true},    {5, 5, 6, 64, true},    {11, 2, 6, 128, true},
        {8, 1, 8, 64, true},      {6, 4, 12, 128, true},  {4, 4, 16, 64, true},
        {3, 2, 24, 128, true},    {2, 2, 32, 64, true},   {3, 2, 32, 128, true},
    };
    for (const StepCase& c : cases) {
        int step = -1;
        Tav8u* p = alloc_by_pixel_bytes(c.pixelBytes, c.width, c.height, &step);
        EXPECT_EQ(step, c.expectStep) << c.width << "x" << c.height << " of " << c.pixelBytes;
        ASSERT_EQ(p != nullptr, c.expectBlock);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(p) % 64, 0u);
        // The whole block is usable: write the last byte of the last row.
        p[std::size_t(c.height - 1) * step + std::size_t(c.width) * c.pixelBytes - 1] = 1;
        taviFree(p);
    }
}

TEST(Malloc, BadSizesStoreZeroAndNullStepWritesNothing) {
    const int bad[][2] = {{0, 5}, {5, 0}, {-1, 5}, {5, -3}, {INT_MIN, 1}};
    for (auto& s : bad) {
        int step = 77;
        EXPECT_EQ(taviMalloc_32fc_C4(s[0], s[1], &step), nullptr);
        EXPECT_EQ(step, 0);
        int64_t stepL = 77;
        EXPECT_EQ(taviMalloc_32fc_C4_L(s[0], s[1], &stepL), nullptr);
        EXPECT_EQ(stepL, 0);
    }
    EXPECT_EQ(taviMalloc_8u_C1(5, 5, nullptr), nullptr);
    EXPECT_EQ(taviMalloc_8u_C1_L(5, 5, nullptr), nullptr);
    EXPECT_EQ(taviMalloc_8u_C1(0, 0, nullptr), nullptr);
}

TEST(Malloc, RowTooWideFor32Bits) {
    int step = 77;
    // 0x40000000 pixels of 2 bytes: the row alone exceeds 0x7fffffff bytes.
    EXPECT_EQ(taviMalloc_16u_C1(0x40000000, 1, &step), nullptr);
    EXPECT_EQ(step, 0);
    // A row of 0x7fffffc1..0x7fffffff bytes rounds to 0x80000000: the step is
    // stored, negative, and the total check refuses it.
    step = 77;
    EXPECT_EQ(taviMalloc_8u_C1(0x7fffffc1, 1, &step), nullptr);
    EXPECT_EQ(step, INT_MIN);
}

TEST(Malloc, TotalAbove31BitsRefusedWithStepKept) {
    int step = 0;
    EXPECT_EQ(taviMalloc_8u_C1(4096, 0x80000, &step), nullptr);  // 2 GiB exactly
    EXPECT_EQ(step, 4096);
    int64_t stepL = 0;
    // The 64-bit form serves a block past 2 GiB (reserved lazily by the system).
    Tav8u* p = taviMalloc_8u_C1_L(4096, 0x80001, &stepL);
    EXPECT_EQ(stepL, 4096);
    if (p) {
        p[int64_t{4096} * 0x80000] = 7;  // a byte past the 32-bit range
        taviFree(p);
    }
}

TEST(Malloc, LongFormLimits) {
    int64_t step = 0;
    // step x height beyond 64 bits: refused after the step is stored.
    EXPECT_EQ(taviMalloc_8u_C1_L(int64_t{1} << 40, int64_t{1} << 30, &step), nullptr);
    EXPECT_EQ(step, int64_t{1} << 40);
    // A row whose rounding wraps past 2^64 is refused with step 0.
    step = 5;
    EXPECT_EQ(taviMalloc_32fc_C4_L(INT64_C(0x07ffffffffffffff), 1, &step), nullptr);
    EXPECT_EQ(step, 0);
    // Large but representable: the step is stored and the core module refuses the block.
    step = 0;
    EXPECT_EQ(taviMalloc_8u_C1_L(int64_t{1} << 40, 1 << 20, &step), nullptr);
    EXPECT_EQ(step, int64_t{1} << 40);
}

TEST(Malloc, LongAndShortFormsAgree) {
    for (int w : {1, 7, 63, 64, 65, 1000}) {
        int s32 = 0;
        int64_t s64 = 0;
        Tav16s* a = taviMalloc_16s_C3(w, 3, &s32);
        Tav16s* b = taviMalloc_16s_C3_L(w, 3, &s64);
        EXPECT_EQ(int64_t{s32}, s64);
        taviFree(a);
        taviFree(b);
    }
    taviFree(nullptr);
}

TEST(Version, ConstantRecord) {
    const TavLibraryVersion* v = taviGetLibVersion();
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v, taviGetLibVersion());
    EXPECT_EQ(v->major, 2018);
    EXPECT_EQ(v->minor, 0);
    EXPECT_EQ(v->majorBuild, 0);
    EXPECT_EQ(v->build, 55856);
    EXPECT_EQ(std::string(v->targetCpu, 4), std::string("n0\0\0", 4));
    EXPECT_STREQ(v->Version, "2018.0.0 (r55856)");
    EXPECT_STREQ(v->BuildDate, "May 27 2017");
    const std::string name = v->Name;
    EXPECT_EQ(name.rfind("tavIP ", 0), 0u);
    EXPECT_EQ(name.substr(name.size() - 5), " (n0)");
}

}  // namespace
