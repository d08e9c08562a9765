// taviSwapChannels: every member against the reference with random orders,
// in place, and each member's own order of checks.
#include <cstring>

#include "move/move_test_util.h"
#include "support/ref_move.h"

namespace {

using namespace movetest;

// Every member seen as (src, srcStep, dst, dstStep, size, order, val bytes).
using SwapFn = TavStatus (*)(const void*, int, void*, int, TaviSize, const int*, const void*);
template <class T, auto F>
TavStatus plain(const void* s, int ss, void* d, int ds, TaviSize r, const int* o, const void*) {
    return F(static_cast<const T*>(s), ss, static_cast<T*>(d), ds, r, o);
}
template <class T, auto F>
TavStatus with_val(const void* s, int ss, void* d, int ds, TaviSize r, const int* o, const void* v) {
    T val;
    std::memcpy(&val, v, sizeof val);
    return F(static_cast<const T*>(s), ss, static_cast<T*>(d), ds, r, o, val);
}

enum class Member { C3, AC4, C4, C4C3, C3C4 };
struct SwapCase {
    const char* name;
    SwapFn fn;
    int es;
    Member m;
};

#define TAV_SWAP_ROWS(t, T)                                                                    \
    {#t "_C3R", plain<T, taviSwapChannels_##t##_C3R>, sizeof(T), Member::C3},                  \
        {#t "_AC4R", plain<T, taviSwapChannels_##t##_AC4R>, sizeof(T), Member::AC4},           \
        {#t "_C4R", plain<T, taviSwapChannels_##t##_C4R>, sizeof(T), Member::C4},              \
        {#t "_C4C3R", plain<T, taviSwapChannels_##t##_C4C3R>, sizeof(T), Member::C4C3},        \
        {#t "_C3C4R", with_val<T, taviSwapChannels_##t##_C3C4R>, sizeof(T), Member::C3C4}

const SwapCase kSwaps[] = {TAV_SWAP_ROWS(8u, Tav8u), TAV_SWAP_ROWS(16u, Tav16u), TAV_SWAP_ROWS(16s, Tav16s),
                           TAV_SWAP_ROWS(32s, Tav32s), TAV_SWAP_ROWS(32f, Tav32f)};
#undef TAV_SWAP_ROWS

int src_channels(Member m) { return m == Member::C3 || m == Member::C3C4 ? 3 : 4; }
int dst_channels(Member m) { return m == Member::C3 || m == Member::C4C3 ? 3 : 4; }
int entries(Member m) { return m == Member::C3 || m == Member::AC4 || m == Member::C4C3 ? 3 : 4; }
int limit(Member m) { return m == Member::C3 || m == Member::AC4 ? 3 : 4; }

void check_swap(const SwapCase& c, int w, int h, int pad, const int* order, const Placement& pl) {
    const int sc = src_channels(c.m), dc = dst_channels(c.m);
    Region src(static_cast<long long>(sc) * w * c.es, h, sc * w * c.es + pad, pl.srcGuard, pl.srcLead);
    Region dst(static_cast<long long>(dc) * w * c.es, h, dc * w * c.es + pad, pl.dstGuard, pl.dstLead);
    std::uint8_t val[4];
    tavtest::fill_bytes_random(val, sizeof val);
    auto expected = dst.snapshot();
    int from[4] = {-1, -1, -1, -1};
    for (int i = 0; i < entries(c.m); ++i) from[i] = order[i] < sc ? order[i] : -1;
    tavref::View sv{{src.ptr()}, src.step(), sc, false, c.es};
    tavref::View dv{{dst.in(expected)}, dst.step(), dc, false, c.es};
    tavref::move_pixels(sv, dv, w, h, from, entries(c.m));
    if (c.m == Member::C3C4)
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                for (int i = 0; i < 4; ++i)
                    if (order[i] >= 3) std::memcpy(dv.at(x, y, i), val, c.es);
    ASSERT_EQ(c.fn(src.ptr(), src.step(), dst.ptr(), dst.step(), {w, h}, order, val), tavOk) << c.name;
    EXPECT_TRUE(dst.same(expected)) << c.name << " " << w << "x" << h << " order " << order[0] << order[1]
                                    << order[2] << order[3];
}

TEST(SwapChannels, SweepsWidthsAndRandomOrders) {
    const auto places = placements();
    for (const SwapCase& c : kSwaps) {
        const auto widths = tavtest::sweep_widths(c.es);
        for (std::size_t i = 0; i < widths.size(); ++i) {
            // Repeated entries are allowed; C3C4 takes entries above 2 as fills.
            int order[4];
            for (int& o : order) o = static_cast<int>(tavtest::rng()() % (c.m == Member::C3C4 ? 6 : limit(c.m)));
            check_swap(c, widths[i], 1 + static_cast<int>(i % 3), static_cast<int>(i % 4) * c.es, order,
                       places[i % places.size()]);
            if (::testing::Test::HasFailure()) return;
        }
    }
}

TEST(SwapChannels, InPlaceMatchesOutOfPlace) {
    for (int w : {1, 7, 21, 22, 64, 65, 300})
        for (int channels : {3, 4}) {
            const int order[4] = {2, 0, 0, 1};
            Region img(channels * w, 3, channels * w + 3), copy(channels * w, 3, channels * w + 3);
            Region out(channels * w, 3, channels * w + 3);
            std::memcpy(copy.ptr(), img.ptr(), Region::span(channels * w, 3, channels * w + 3));
            std::memcpy(out.ptr(), img.ptr(), Region::span(channels * w, 3, channels * w + 3));
            const TaviSize roi{w, 3};
            if (channels == 3) {
                ASSERT_EQ(taviSwapChannels_8u_C3R(copy.ptr(), copy.step(), out.ptr(), out.step(), roi, order), tavOk);
                ASSERT_EQ(taviSwapChannels_8u_C3IR(img.ptr(), img.step(), roi, order), tavOk);
            } else {
                ASSERT_EQ(taviSwapChannels_8u_C4R(copy.ptr(), copy.step(), out.ptr(), out.step(), roi, order), tavOk);
                ASSERT_EQ(taviSwapChannels_8u_C4IR(img.ptr(), img.step(), roi, order), tavOk);
            }
            EXPECT_TRUE(img.same(out.snapshot())) << channels << " channels, width " << w;
        }
}

// Faults combined so that each check's position in the order shows.
struct Fault {
    bool nullSrc = false, zeroSrcStep = false, zeroDstStep = false, negStep = false, badSize = false,
         nullOrder = false;
    int entry = -100;  // replaces order[0] unless -100
};

TavStatus run_fault(const SwapCase& c, const Fault& f, Region& src, Region& dst) {
    int order[4] = {0, 1, 2, 0};
    if (f.entry != -100) order[0] = f.entry;
    const int ss = f.zeroSrcStep ? 0 : f.negStep ? -src.step() : src.step();
    const int ds = f.zeroDstStep ? 0 : dst.step();
    const std::uint8_t val[4] = {};
    // A negative step walks up from the last row.
    const std::uint8_t* s = f.nullSrc ? nullptr : f.negStep ? src.ptr() + src.step() : src.ptr();
    return c.fn(s, ss, dst.ptr(), ds, f.badSize ? TaviSize{0, 2} : TaviSize{4, 2}, f.nullOrder ? nullptr : order,
                val);
}

TEST(SwapChannels, CheckOrderOfEachMember) {
    struct Row {
        Fault f;
        TavStatus common, c3c4;  // the C3C4 member checks in its own order
    };
    const Row rows[] = {
        {{.nullSrc = true, .zeroSrcStep = true, .badSize = true}, tavErrNullPtr, tavErrNullPtr},
        {{.zeroSrcStep = true, .badSize = true}, tavErrStep, tavErrSize},
        {{.zeroDstStep = true, .nullOrder = true}, tavErrStep, tavErrNullPtr},
        {{.badSize = true, .nullOrder = true}, tavErrSize, tavErrNullPtr},
        {{.nullOrder = true}, tavErrNullPtr, tavErrNullPtr},
        {{.zeroDstStep = true, .entry = -1}, tavErrStep, tavErrStep},
        {{.entry = -1}, tavErrChannelOrder, tavErrChannelOrder},
        {{.negStep = true}, tavOk, tavOk},
    };
    for (const SwapCase& c : kSwaps) {
        Region src(4 * 4 * c.es, 2, 4 * 4 * c.es), dst(4 * 4 * c.es, 2, 4 * 4 * c.es);
        for (const Row& r : rows) {
            auto before = dst.snapshot();
            const TavStatus st = run_fault(c, r.f, src, dst);
            EXPECT_EQ(st, c.m == Member::C3C4 ? r.c3c4 : r.common) << c.name << " row " << (&r - rows);
            if (st != tavOk) {
                EXPECT_TRUE(dst.same(before)) << c.name;
            }
        }
        // The first entry out of range: 3 for three-channel sources, 4 for four; C3C4 fills instead.
        Fault atLimit;
        atLimit.entry = limit(c.m);
        EXPECT_EQ(run_fault(c, atLimit, src, dst), c.m == Member::C3C4 ? tavOk : tavErrChannelOrder) << c.name;
        atLimit.entry = limit(c.m) - 1;
        EXPECT_EQ(run_fault(c, atLimit, src, dst), tavOk) << c.name;
    }
    // The in-place forms check like their out-of-place twins.
    Region img(12, 1, 12);
    const int bad[4] = {0, 3, 1, 2};
    EXPECT_EQ(taviSwapChannels_8u_C3IR(img.ptr(), 12, {4, 1}, bad), tavErrChannelOrder);
    EXPECT_EQ(taviSwapChannels_8u_C4IR(img.ptr(), 12, {3, 1}, bad), tavOk);
    EXPECT_EQ(taviSwapChannels_8u_C3IR(img.ptr(), 0, {4, 1}, bad), tavErrStep);
    EXPECT_EQ(taviSwapChannels_8u_C4IR(nullptr, 12, {3, 1}, bad), tavErrNullPtr);
    EXPECT_EQ(taviSwapChannels_8u_C4IR(img.ptr(), 12, {3, 1}, nullptr), tavErrNullPtr);
}

}  // namespace
