// Masked copies and fills against the reference, with masks of every density.
#include <cstring>

#include "move/move_test_util.h"
#include "support/ref_move.h"

namespace {

using namespace movetest;

// Every member seen as (source or value bytes, destination, step, size, mask, mask step).
using MaskedFn = TavStatus (*)(const void*, int, void*, int, TaviSize, const Tav8u*, int);
template <class T, auto F>
TavStatus copy_mr(const void* s, int ss, void* d, int ds, TaviSize r, const Tav8u* m, int ms) {
    return F(static_cast<const T*>(s), ss, static_cast<T*>(d), ds, r, m, ms);
}
template <class T, auto F>
TavStatus set_by_value(const void* v, int, void* d, int ds, TaviSize r, const Tav8u* m, int ms) {
    T x;
    std::memcpy(&x, v, sizeof x);
    return F(x, static_cast<T*>(d), ds, r, m, ms);
}
template <class T, auto F>
TavStatus set_by_array(const void* v, int, void* d, int ds, TaviSize r, const Tav8u* m, int ms) {
    return F(static_cast<const T*>(v), static_cast<T*>(d), ds, r, m, ms);
}

struct MaskedCase {
    const char* name;
    MaskedFn fn;
    int es, channels;
    bool alpha, isSet;
};

#define TAV_MASKED_ROWS(t, T)                                                                      \
    {"Copy_" #t "_C1MR", copy_mr<T, taviCopy_##t##_C1MR>, sizeof(T), 1, false, false},             \
        {"Copy_" #t "_C3MR", copy_mr<T, taviCopy_##t##_C3MR>, sizeof(T), 3, false, false},         \
        {"Copy_" #t "_C4MR", copy_mr<T, taviCopy_##t##_C4MR>, sizeof(T), 4, false, false},         \
        {"Copy_" #t "_AC4MR", copy_mr<T, taviCopy_##t##_AC4MR>, sizeof(T), 4, true, false},        \
        {"Set_" #t "_C1MR", set_by_value<T, taviSet_##t##_C1MR>, sizeof(T), 1, false, true},       \
        {"Set_" #t "_C3MR", set_by_array<T, taviSet_##t##_C3MR>, sizeof(T), 3, false, true},       \
        {"Set_" #t "_C4MR", set_by_array<T, taviSet_##t##_C4MR>, sizeof(T), 4, false, true},       \
        {"Set_" #t "_AC4MR", set_by_array<T, taviSet_##t##_AC4MR>, sizeof(T), 4, true, true}

const MaskedCase kMasked[] = {TAV_MASKED_ROWS(8u, Tav8u), TAV_MASKED_ROWS(16u, Tav16u),
                              TAV_MASKED_ROWS(16s, Tav16s), TAV_MASKED_ROWS(32s, Tav32s),
                              TAV_MASKED_ROWS(32f, Tav32f)};
#undef TAV_MASKED_ROWS

// Mask densities: none, all, and random with about one in `every` set.
void fill_mask(Region& m, int w, int h, int every) {
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            std::uint8_t& b = m.ptr()[y * m.step() + x];
            if (every == 0) b = 0;
            else b = tavtest::rng()() % every == 0 ? static_cast<std::uint8_t>(1 + tavtest::rng()() % 255) : 0;
        }
}

void check_masked(const MaskedCase& c, int w, int h, int pad, int every, const Placement& pl) {
    const int pixelBytes = c.channels * c.es;
    Region src(static_cast<long long>(w) * pixelBytes, h, w * pixelBytes + pad, pl.srcGuard, pl.srcLead);
    Region dst(static_cast<long long>(w) * pixelBytes, h, w * pixelBytes + pad, pl.dstGuard, pl.dstLead);
    Region mask(w, h, w + pad % 5, pl.dstGuard, pl.srcLead);
    fill_mask(mask, w, h, every);
    std::uint8_t value[16];
    tavtest::fill_bytes_random(value, sizeof value);
    auto expected = dst.snapshot();
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            if (mask.ptr()[y * mask.step() + x] == 0) continue;
            for (int ch = 0; ch < (c.alpha ? 3 : c.channels); ++ch) {
                std::uint8_t* to = dst.in(expected) + y * dst.step() + (x * c.channels + ch) * c.es;
                const std::uint8_t* from =
                    c.isSet ? value + ch * c.es : src.ptr() + y * src.step() + (x * c.channels + ch) * c.es;
                std::memcpy(to, from, c.es);
            }
        }
    const void* first = c.isSet ? static_cast<const void*>(value) : src.ptr();
    ASSERT_EQ(c.fn(first, src.step(), dst.ptr(), dst.step(), {w, h}, mask.ptr(), mask.step()), tavOk) << c.name;
    EXPECT_TRUE(dst.same(expected)) << c.name << " " << w << "x" << h << " one in " << every;
}

TEST(Masked, SweepsWidthsAndMaskDensities) {
    const auto places = placements();
    for (const MaskedCase& c : kMasked) {
        const auto widths = tavtest::sweep_widths(c.es);
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const int every[] = {2, 1, 0, 7};
            check_masked(c, widths[i], 1 + static_cast<int>(i % 3), static_cast<int>(i % 3) * c.es,
                         every[i % 4], places[i % places.size()]);
            if (::testing::Test::HasFailure()) return;
        }
    }
}

TEST(Masked, StatusesAndNothingWritten) {
    for (const MaskedCase& c : kMasked) {
        Region src(64, 2, 64), dst(64, 2, 64), mask(4, 2, 4);
        fill_mask(mask, 4, 2, 1);
        auto before = dst.snapshot();
        const void* first = src.ptr();
        EXPECT_EQ(c.fn(first, 64, dst.ptr(), 64, {4, 2}, nullptr, 4), tavErrNullPtr) << c.name;
        EXPECT_EQ(c.fn(first, 64, nullptr, 64, {0, 2}, mask.ptr(), 4), tavErrNullPtr) << c.name;
        // A one-channel value is passed by value: there is no pointer to test.
        if (!(c.isSet && c.channels == 1)) {
            EXPECT_EQ(c.fn(nullptr, 64, dst.ptr(), 64, {0, 2}, mask.ptr(), 4), tavErrNullPtr) << c.name;
        }
        EXPECT_EQ(c.fn(first, 64, dst.ptr(), 64, {4, 0}, mask.ptr(), 4), tavErrSize) << c.name;
        EXPECT_EQ(c.fn(first, 0, dst.ptr(), -64, {-1, 2}, mask.ptr(), 0), tavErrSize) << c.name;
        EXPECT_TRUE(dst.same(before)) << c.name;
    }
}

}  // namespace
