// Every palette export against a plain lookup over bit sizes and the width
// sweep, palettes held in blocks of exactly their entries, the destination
// rows of 8u C1 spaced by srcStep, and the checks.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "decide/decide_test.h"
#include "support/image.h"
#include "tavi.h"

namespace {

using tavtest::GuardedBytes;
using tavtest::Image;

struct Call {
    const void* src;
    int srcStep;
    void* dst;
    int dstStep;
    TaviSize roi;
    const void* tables[4];
    const void* tableArg;  // what the export receives: one table, or the array
    int nBits;
};

struct Row {
    std::string name;
    int srcBytes, entryBytes, dstBytes;  // dstBytes: bytes written a pixel element
    bool stepsBySource;
    std::function<TavStatus(const Call&)> call;
};

template <class S, class D, class E>
Row make_row(const char* name, TavStatus (*f)(const S*, int, D*, int, TaviSize, const E*, int)) {
    const int dstBytes = std::string(name).find("24u") != std::string::npos ? 3 : int(sizeof(D));
    return {name, int(sizeof(S)), int(sizeof(E)), dstBytes, std::string(name) == "taviLUTPalette_8u_C1R",
            [f](const Call& c) {
                return f(static_cast<const S*>(c.src), c.srcStep, static_cast<D*>(c.dst), c.dstStep, c.roi,
                         static_cast<const E*>(c.tableArg), c.nBits);
            }};
}
template <class S>
Row make_row(const char* name, TavStatus (*f)(const S*, int, S*, int, TaviSize, const S* const*, int)) {
    return {name, int(sizeof(S)), int(sizeof(S)), int(sizeof(S)), false, [f](const Call& c) {
                return f(static_cast<const S*>(c.src), c.srcStep, static_cast<S*>(c.dst), c.dstStep, c.roi,
                         static_cast<const S* const*>(c.tableArg), c.nBits);
            }};
}

#define R(f) make_row(#f, f)
std::vector<Row> rows() {
    return {R(taviLUTPalette_8u_C1R),     R(taviLUTPalette_8u_C3R),     R(taviLUTPalette_8u_C4R),
            R(taviLUTPalette_8u_AC4R),    R(taviLUTPalette_16u_C1R),    R(taviLUTPalette_16u_C3R),
            R(taviLUTPalette_16u_C4R),    R(taviLUTPalette_16u_AC4R),   R(taviLUTPalette_8u24u_C1R),
            R(taviLUTPalette_8u32u_C1R),  R(taviLUTPalette_16u24u_C1R), R(taviLUTPalette_16u32u_C1R),
            R(taviLUTPalette_16u8u_C1R)};
}

std::uint32_t load(const std::uint8_t* p, int bytes) {
    std::uint32_t v = 0;
    std::memcpy(&v, p, bytes);
    return v;
}

// Palettes of exactly 2^nBits entries, each against a guard page.
struct Palettes {
    std::vector<std::unique_ptr<GuardedBytes>> blocks;
    const void* tables[4] = {};
    Palettes(int entries, int entryBytes) {
        for (int c = 0; c < 4; ++c) {
            blocks.push_back(std::make_unique<GuardedBytes>(std::size_t(entries) * entryBytes));
            tavtest::fill_bytes_random(blocks.back()->data(), blocks.back()->size());
            tables[c] = blocks.back()->data();
        }
    }
};

void run_case(const Row& row, const dtest::Geometry& g, int nBits, int dstStepGap) {
    const dtest::Layout lay = dtest::layout_of(row.name);
    const int elems = g.width * lay.channels;
    const int srcStep = elems * row.srcBytes + g.padBytes;
    const int dstRow = elems * row.dstBytes;
    // 8u C1 spaces its destination rows by srcStep, whatever dstStep says.
    const int dstStep = row.stepsBySource ? srcStep : dstRow + dstStepGap;
    Image<std::uint8_t> src(elems * row.srcBytes, g.height, srcStep, g.guard);
    Image<std::uint8_t> dst(dstRow, g.height, dstStep, g.guard);
    src.fill(0, 255);
    Palettes pal(1 << nBits, row.entryBytes);
    const std::uint32_t mask = (1u << nBits) - 1;
    std::vector<std::uint8_t> expected = dst.snapshot();
    for (int y = 0; y < g.height; ++y)
        for (int x = 0; x < g.width; ++x)
            for (int c = 0; c < lay.values; ++c) {
                const int e = x * lay.channels + c;
                const std::uint32_t index = load(src.row(y) + e * row.srcBytes, row.srcBytes) & mask;
                const auto* entry = static_cast<const std::uint8_t*>(pal.tables[c]) + index * row.entryBytes;
                std::memcpy(expected.data() + std::size_t(y) * dstStep + e * row.dstBytes, entry, row.dstBytes);
            }
    Call call{src.ptr(), srcStep, dst.ptr(), row.stepsBySource ? dstRow + dstStepGap : dstStep, {g.width, g.height},
              {}, nullptr, nBits};
    std::memcpy(call.tables, pal.tables, sizeof call.tables);
    call.tableArg = lay.channels == 1 ? pal.tables[0] : static_cast<const void*>(call.tables);
    ASSERT_EQ(row.call(call), tavOk) << row.name;
    ASSERT_TRUE(tavtest::same_bytes(dst, expected))
        << row.name << " bits " << nBits << " width " << g.width << " height " << g.height;
}

TEST(Palette, Sweep) {
    for (const Row& row : rows()) {
        const std::vector<int> bits = row.srcBytes == 1 ? std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}
                                                        : std::vector<int>{1, 4, 5, 8, 9, 13, 16};
        const auto geometries = dtest::sweep(row.srcBytes);
        for (std::size_t i = 0; i < geometries.size(); ++i) {
            run_case(row, geometries[i], bits[i % bits.size()], int(i % 3) * 8);
            if (HasFatalFailure()) return;
        }
    }
}

// Pointers, size, then the bit size, then steps against the width.
TEST(Palette, CheckOrder) {
    for (const Row& row : rows()) {
        const dtest::Layout lay = dtest::layout_of(row.name);
        const int maxBits = 8 * row.srcBytes;
        struct Fault {
            std::string what;
            TavStatus expect;
            std::function<void(Call&)> apply;
        };
        std::vector<Fault> faults = {
            {"null source", tavErrNullPtr, [](Call& c) { c.src = nullptr; }},
            {"null destination", tavErrNullPtr, [](Call& c) { c.dst = nullptr; }},
            {"null palette", tavErrNullPtr, [](Call& c) { c.tableArg = nullptr; }},
            {"null and zero width", tavErrNullPtr, [](Call& c) { c.dst = nullptr, c.roi.width = 0; }},
            {"zero width", tavErrSize, [](Call& c) { c.roi.width = 0; }},
            {"negative height and bits", tavErrSize, [](Call& c) { c.roi.height = -1, c.nBits = 0; }},
            {"bits 0", tavErrOutOfRange, [](Call& c) { c.nBits = 0; }},
            {"bits above the source", tavErrOutOfRange, [maxBits](Call& c) { c.nBits = maxBits + 1; }},
            {"bits before steps", tavErrOutOfRange, [](Call& c) { c.nBits = -3, c.srcStep = 0; }},
            {"source step below the width", tavErrStep, [](Call& c) { c.srcStep = c.roi.width - 1; }},
            {"destination step below the width", tavErrStep, [](Call& c) { c.dstStep = c.roi.width - 1; }},
            {"destination step at the width", tavOk, [](Call& c) { c.dstStep = c.roi.width; }},
        };
        if (lay.channels > 1)
            faults.push_back({"null channel palette", tavErrNullPtr, [](Call& c) { c.tables[2] = nullptr; }});
        for (const Fault& f : faults) {
            const int w = 9, elems = w * lay.channels;
            Image<std::uint8_t> src(elems * row.srcBytes, 2), dst(elems * 4, 2);
            const auto before = dst.snapshot();
            Palettes pal(1 << 4, row.entryBytes);
            Call call{src.ptr(), src.step(), dst.ptr(), dst.step(), {w, 2}, {}, nullptr, 4};
            std::memcpy(call.tables, pal.tables, sizeof call.tables);
            call.tableArg = lay.channels == 1 ? pal.tables[0] : static_cast<const void*>(call.tables);
            f.apply(call);
            EXPECT_EQ(row.call(call), f.expect) << row.name << ": " << f.what;
            if (f.expect != tavOk) {
                EXPECT_TRUE(tavtest::same_bytes(dst, before)) << row.name << ": " << f.what;
            }
        }
    }
}

// Two bits select among four entries: the other six bits of each pixel
// don't matter.
TEST(Palette, LowBitsOnly) {
    const Tav8u table[4] = {11, 22, 33, 44};
    Tav8u src[8] = {0, 1, 2, 3, 0xfc, 0xfd, 0xfe, 0xff}, dst[8] = {};
    ASSERT_EQ(taviLUTPalette_8u_C1R(src, 8, dst, 8, {8, 1}, table, 2), tavOk);
    EXPECT_EQ(std::vector<Tav8u>(dst, dst + 8), (std::vector<Tav8u>{11, 22, 33, 44, 11, 22, 33, 44}));
    EXPECT_EQ(taviLUTPalette_8u_C1R(src, 8, dst, 8, {8, 1}, table, 9), tavErrOutOfRange);
}

}  // namespace
