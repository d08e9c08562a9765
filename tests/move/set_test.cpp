// taviSet: whole pixels, alpha kept, one channel; against the scalar
// reference over widths, heights, steps and start alignments.
#include <cstring>

#include "move/move_test_util.h"
#include "support/ref_move.h"

namespace {

using namespace movetest;

// Every set seen as (value bytes, destination, step, size).
using SetFn = TavStatus (*)(const void*, void*, int, TaviSize);
template <class T, auto F>
TavStatus by_value(const void* v, void* d, int s, TaviSize r) {
    T x;
    std::memcpy(&x, v, sizeof x);
    return F(x, static_cast<T*>(d), s, r);
}
template <class T, auto F>
TavStatus by_array(const void* v, void* d, int s, TaviSize r) {
    return F(static_cast<const T*>(v), static_cast<T*>(d), s, r);
}

enum class Kind { C1, C3, C4, AC4, C3C, C4C };
struct SetCase {
    const char* name;
    SetFn fn;
    int es;
    Kind kind;
    bool byPointer;
};

#define TAV_SET_ROWS(t, T)                                                                        \
    {#t "_C1R", by_value<T, taviSet_##t##_C1R>, sizeof(T), Kind::C1, false},                      \
        {#t "_C3R", by_array<T, taviSet_##t##_C3R>, sizeof(T), Kind::C3, true},                   \
        {#t "_C4R", by_array<T, taviSet_##t##_C4R>, sizeof(T), Kind::C4, true},                   \
        {#t "_AC4R", by_array<T, taviSet_##t##_AC4R>, sizeof(T), Kind::AC4, true},                \
        {#t "_C3CR", by_value<T, taviSet_##t##_C3CR>, sizeof(T), Kind::C3C, false},               \
        {#t "_C4CR", by_value<T, taviSet_##t##_C4CR>, sizeof(T), Kind::C4C, false}

const SetCase kSets[] = {TAV_SET_ROWS(8u, Tav8u), TAV_SET_ROWS(16u, Tav16u), TAV_SET_ROWS(16s, Tav16s),
                         TAV_SET_ROWS(32s, Tav32s), TAV_SET_ROWS(32f, Tav32f)};
#undef TAV_SET_ROWS

int channels(Kind k) { return k == Kind::C1 ? 1 : (k == Kind::C3 || k == Kind::C3C) ? 3 : 4; }

void check_set(const SetCase& c, int width, int height, int pad, const Placement& pl) {
    const int ch = channels(c.kind);
    // A channel-of-interest row spans from its channel to the last pixel's.
    const bool coi = c.kind == Kind::C3C || c.kind == Kind::C4C;
    const long long elems = coi ? ch * (width - 1LL) + 1 : static_cast<long long>(ch) * width;
    const long long step = static_cast<long long>(ch) * width * c.es + pad;
    Region dst(elems * c.es, height, step, pl.dstGuard, pl.dstLead);
    std::uint8_t value[16];
    tavtest::fill_bytes_random(value, sizeof value);
    auto expected = dst.snapshot();
    auto keep = [&](long long e) {
        if (c.kind == Kind::AC4) return e % 4 != 3;
        if (coi) return e % ch == 0;
        return true;
    };
    // Channel-of-interest and one-channel fills write value[0] everywhere.
    tavref::set_elems(value, coi ? 1 : ch, dst.in(expected), step, elems, height, c.es, keep);
    ASSERT_EQ(c.fn(value, dst.ptr(), dst.step(), {width, height}), tavOk);
    EXPECT_TRUE(dst.same(expected)) << c.name << " " << width << "x" << height << " pad " << pad << " lead "
                                    << pl.dstLead;
}

TEST(Set, SweepsWidthsHeightsStepsAndAlignments) {
    const auto places = placements();
    for (const SetCase& c : kSets) {
        const auto widths = tavtest::sweep_widths(c.es);
        const auto pads = tavtest::sweep_paddings(c.es);
        for (std::size_t i = 0; i < widths.size(); ++i)
            for (int h : {1, 2, 5}) {
                check_set(c, widths[i], h, pads[(i + h) % pads.size()], places[(i + 2 * h) % places.size()]);
                if (::testing::Test::HasFailure()) return;
            }
        // Contiguous images are filled as one row.
        for (int w : {3, 100, 1000}) check_set(c, w, 40, 0, places[w % places.size()]);
    }
}

TEST(Set, LongRowsAcrossEveryStartOffset) {
    // Long rows start on each offset in a line, element-aligned or not, so
    // that the peel and the pattern phase are exercised.
    for (const SetCase& c : kSets)
        for (int lead = 0; lead < 64; lead += (c.es == 1 ? 7 : 5))
            check_set(c, 700, 2, 3, {GuardAt::Start, GuardAt::Start, 0, lead});
}

TEST(Set, StatusesAndNothingWritten) {
    std::uint8_t value[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    for (const SetCase& c : kSets) {
        Region dst(256, 4, 256);
        auto before = dst.snapshot();
        EXPECT_EQ(c.fn(value, nullptr, 256, {4, 4}), tavErrNullPtr) << c.name;
        EXPECT_EQ(c.fn(value, nullptr, 256, {0, 4}), tavErrNullPtr) << c.name;
        EXPECT_EQ(c.fn(value, dst.ptr(), 256, {0, 4}), tavErrSize) << c.name;
        EXPECT_EQ(c.fn(value, dst.ptr(), -1, {4, 0}), tavErrSize) << c.name;
        EXPECT_EQ(c.fn(value, dst.ptr(), 0, {-4, 2}), tavErrSize) << c.name;
        if (c.byPointer) {
            EXPECT_EQ(c.fn(nullptr, dst.ptr(), 256, {4, 4}), tavErrNullPtr) << c.name;
        }
        EXPECT_TRUE(dst.same(before)) << c.name;
    }
}

}  // namespace
