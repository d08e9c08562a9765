// taviCopy between layouts (one channel out and in, AC4, planes, channel of
// interest) and taviDup, against the element-by-element reference.
#include <memory>

#include "move/move_test_util.h"
#include "support/ref_move.h"

namespace {

using namespace movetest;

struct Shape {
    int channels;
    bool coi, planar;
};
constexpr Shape C1{1, false, false}, C3{3, false, false}, C4{4, false, false}, C3c{3, true, false},
    C4c{4, true, false}, P3{3, false, true}, P4{4, false, true};

long long row_bytes(Shape s, int w, int es) {
    if (s.planar) return static_cast<long long>(w) * es;
    return (s.coi ? s.channels * (w - 1LL) + 1 : static_cast<long long>(s.channels) * w) * es;
}
int streams_of(Shape s) { return s.planar ? s.channels : 1; }

// Every conversion seen through arrays of untyped plane pointers.
using AnyFn = TavStatus (*)(void* const*, int, void* const*, int, TaviSize);
template <class T, auto F>
TavStatus flat(void* const* s, int ss, void* const* d, int ds, TaviSize r) {
    return F(static_cast<const T*>(s[0]), ss, static_cast<T*>(d[0]), ds, r);
}
template <class T, auto F>
TavStatus to_planes(void* const* s, int ss, void* const* d, int ds, TaviSize r) {
    T* const p[4] = {static_cast<T*>(d[0]), static_cast<T*>(d[1]), static_cast<T*>(d[2]),
                     static_cast<T*>(d[3])};
    return F(static_cast<const T*>(s[0]), ss, p, ds, r);
}
template <class T, auto F>
TavStatus from_planes(void* const* s, int ss, void* const* d, int ds, TaviSize r) {
    const T* const p[4] = {static_cast<const T*>(s[0]), static_cast<const T*>(s[1]), static_cast<const T*>(s[2]),
                           static_cast<const T*>(s[3])};
    return F(p, ss, static_cast<T*>(d[0]), ds, r);
}

struct LayoutCase {
    const char* name;
    AnyFn fn;
    int es;
    Shape src, dst;
    int from[4];  // destination channel c takes source channel from[c]
    int dstChannels;
};

#define TAV_LAYOUT_ROWS(t, T)                                                                           \
    {"Copy_" #t "_C3C1R", flat<T, taviCopy_##t##_C3C1R>, sizeof(T), C3c, C1, {0}, 1},                   \
        {"Copy_" #t "_C4C1R", flat<T, taviCopy_##t##_C4C1R>, sizeof(T), C4c, C1, {0}, 1},               \
        {"Copy_" #t "_C1C3R", flat<T, taviCopy_##t##_C1C3R>, sizeof(T), C1, C3c, {0}, 1},               \
        {"Copy_" #t "_C1C4R", flat<T, taviCopy_##t##_C1C4R>, sizeof(T), C1, C4c, {0}, 1},               \
        {"Copy_" #t "_C3AC4R", flat<T, taviCopy_##t##_C3AC4R>, sizeof(T), C3, C4, {0, 1, 2}, 3},        \
        {"Copy_" #t "_AC4C3R", flat<T, taviCopy_##t##_AC4C3R>, sizeof(T), C4, C3, {0, 1, 2}, 3},        \
        {"Copy_" #t "_C3P3R", to_planes<T, taviCopy_##t##_C3P3R>, sizeof(T), C3, P3, {0, 1, 2}, 3},     \
        {"Copy_" #t "_C4P4R", to_planes<T, taviCopy_##t##_C4P4R>, sizeof(T), C4, P4, {0, 1, 2, 3}, 4}, \
        {"Copy_" #t "_P3C3R", from_planes<T, taviCopy_##t##_P3C3R>, sizeof(T), P3, C3, {0, 1, 2}, 3},  \
        {"Copy_" #t "_P4C4R", from_planes<T, taviCopy_##t##_P4C4R>, sizeof(T), P4, C4, {0, 1, 2, 3}, 4}, \
        {"Copy_" #t "_C3CR", flat<T, taviCopy_##t##_C3CR>, sizeof(T), C3c, C3c, {0}, 1},                \
        {"Copy_" #t "_C4CR", flat<T, taviCopy_##t##_C4CR>, sizeof(T), C4c, C4c, {0}, 1}

const LayoutCase kLayouts[] = {
    TAV_LAYOUT_ROWS(8u, Tav8u),
    TAV_LAYOUT_ROWS(16u, Tav16u),
    TAV_LAYOUT_ROWS(16s, Tav16s),
    TAV_LAYOUT_ROWS(32s, Tav32s),
    TAV_LAYOUT_ROWS(32f, Tav32f),
    {"Dup_8u_C1C3R", flat<Tav8u, taviDup_8u_C1C3R>, 1, C1, C3, {0, 0, 0}, 3},
    {"Dup_8u_C1C4R", flat<Tav8u, taviDup_8u_C1C4R>, 1, C1, C4, {0, 0, 0, 0}, 4},
};
#undef TAV_LAYOUT_ROWS

// The regions of one side: one, or one a plane, all with the same step.
struct Sides {
    std::vector<std::unique_ptr<Region>> r;
    Sides(Shape s, int w, int h, int es, int pad, const Placement& pl, bool isSrc) {
        const long long bytes = row_bytes(s, w, es);
        // A step wide enough for whole pixels even when the pointer stands on a channel.
        const long long step = (s.planar ? w : static_cast<long long>(s.channels) * w) * es + pad;
        for (int j = 0; j < streams_of(s); ++j)
            r.push_back(std::make_unique<Region>(bytes, h, step, isSrc ? pl.srcGuard : pl.dstGuard,
                                                 (isSrc ? pl.srcLead : pl.dstLead) + 7 * j));
    }
    void* ptr(int j) const { return j < static_cast<int>(r.size()) ? r[j]->ptr() : nullptr; }
    tavref::View view(Shape s, int es, std::vector<std::vector<std::uint8_t>>* snaps) const {
        tavref::View v{{}, r[0]->step(), s.channels, s.planar, es};
        for (std::size_t j = 0; j < r.size(); ++j) v.planes[j] = snaps ? r[j]->in((*snaps)[j]) : r[j]->ptr();
        return v;
    }
    std::vector<std::vector<std::uint8_t>> snapshots() const {
        std::vector<std::vector<std::uint8_t>> out;
        for (auto& x : r) out.push_back(x->snapshot());
        return out;
    }
};

void check_layout(const LayoutCase& c, int w, int h, int srcPad, int dstPad, const Placement& pl) {
    Sides src(c.src, w, h, c.es, srcPad, pl, true), dst(c.dst, w, h, c.es, dstPad, pl, false);
    auto srcBefore = src.snapshots();
    auto expected = dst.snapshots();
    tavref::move_pixels(src.view(c.src, c.es, nullptr), dst.view(c.dst, c.es, &expected), w, h, c.from,
                        c.dstChannels);
    void* const s[4] = {src.ptr(0), src.ptr(1), src.ptr(2), src.ptr(3)};
    void* const d[4] = {dst.ptr(0), dst.ptr(1), dst.ptr(2), dst.ptr(3)};
    ASSERT_EQ(c.fn(s, src.r[0]->step(), d, dst.r[0]->step(), {w, h}), tavOk) << c.name;
    for (std::size_t j = 0; j < dst.r.size(); ++j)
        EXPECT_TRUE(dst.r[j]->same(expected[j]))
            << c.name << " plane " << j << " " << w << "x" << h << " pads " << srcPad << "/" << dstPad;
    for (std::size_t j = 0; j < src.r.size(); ++j) EXPECT_TRUE(src.r[j]->same(srcBefore[j])) << c.name;
}

TEST(Layout, SweepsWidthsHeightsStepsAndAlignments) {
    const auto places = placements();
    for (const LayoutCase& c : kLayouts) {
        const auto widths = tavtest::sweep_widths(c.es);
        const auto pads = tavtest::sweep_paddings(c.es);
        for (std::size_t i = 0; i < widths.size(); ++i)
            for (int h : {1, 3}) {
                check_layout(c, widths[i], h, pads[(i + h) % pads.size()], pads[i % pads.size()],
                             places[(i + h) % places.size()]);
                if (::testing::Test::HasFailure()) return;
            }
    }
}

TEST(Layout, StatusesAndNothingWritten) {
    for (const LayoutCase& c : kLayouts) {
        Sides src(c.src, 8, 2, c.es, 0, placements()[0], true), dst(c.dst, 8, 2, c.es, 0, placements()[0], false);
        auto before = dst.snapshots();
        void* const s[4] = {src.ptr(0), src.ptr(1), src.ptr(2), src.ptr(3)};
        void* const d[4] = {dst.ptr(0), dst.ptr(1), dst.ptr(2), dst.ptr(3)};
        const int ss = src.r[0]->step(), ds = dst.r[0]->step();
        // A null pointer anywhere, plane pointers included, comes before the size.
        for (int j = 0; j < streams_of(c.src); ++j) {
            void* bad[4] = {s[0], s[1], s[2], s[3]};
            bad[j] = nullptr;
            EXPECT_EQ(c.fn(bad, ss, d, ds, {0, 2}), tavErrNullPtr) << c.name;
        }
        for (int j = 0; j < streams_of(c.dst); ++j) {
            void* bad[4] = {d[0], d[1], d[2], d[3]};
            bad[j] = nullptr;
            EXPECT_EQ(c.fn(s, ss, bad, ds, {8, 2}), tavErrNullPtr) << c.name;
        }
        EXPECT_EQ(c.fn(s, ss, d, ds, {0, 2}), tavErrSize) << c.name;
        EXPECT_EQ(c.fn(s, ss, d, ds, {8, -2}), tavErrSize) << c.name;
        // No step check.
        EXPECT_EQ(c.fn(s, 0, d, -ds, {8, 0}), tavErrSize) << c.name;
        for (std::size_t j = 0; j < dst.r.size(); ++j) EXPECT_TRUE(dst.r[j]->same(before[j])) << c.name;
    }
}

TEST(Layout, PlaneArraysMayBeNull) {
    Region src(24, 1, 24), dst(24, 1, 24);
    EXPECT_EQ(taviCopy_8u_C3P3R(src.ptr(), 24, nullptr, 8, {8, 1}), tavErrNullPtr);
    EXPECT_EQ(taviCopy_8u_P3C3R(nullptr, 8, dst.ptr(), 24, {8, 1}), tavErrNullPtr);
}

TEST(Layout, ChannelOfInterestWithinOneImage) {
    // Channel 0 of an image to its channel 1 and 2: the rows overlap, the
    // elements don't; every other element stays.
    for (int w : {1, 5, 64, 300})
        for (int to : {1, 2}) {
            Region img(3 * w, 3, 3 * w + 5);
            auto expected = img.snapshot();
            for (int y = 0; y < 3; ++y)
                for (int x = 0; x < w; ++x)
                    img.in(expected)[y * img.step() + 3 * x + to] = img.ptr()[y * img.step() + 3 * x];
            ASSERT_EQ(taviCopy_8u_C3CR(img.ptr(), img.step(), img.ptr() + to, img.step(), {w, 3}), tavOk);
            EXPECT_TRUE(img.same(expected)) << w << " to channel " << to;
        }
}

}  // namespace
