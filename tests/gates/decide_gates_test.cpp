// Thresholds of 16u images large enough to ask for the cache size: the same
// bytes whatever the core module answers (this executable also runs under
// doubles reporting no cache, a tiny cache and an error), destinations at
// every phase of the 64-byte grid, and no query below the gate or in place.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "support/core_double.h"
#include "support/image.h"
#include "support/ref_decide.h"
#include "tavi.h"

namespace {

using tavref::Thr;

struct Case {
    const char* name;
    int channels, values;
    Thr kind;
};

TavStatus call(const Case& c, const Tav16u* s, int ss, Tav16u* d, int ds, TaviSize r, const tavref::ThrArgs<Tav16u>& a) {
    switch (c.channels * 10 + c.values) {
        case 11: return taviThreshold_LTValGTVal_16u_C1R(s, ss, d, ds, r, a.tl[0], a.vl[0], a.tg[0], a.vg[0]);
        case 33: return taviThreshold_16u_C3R(s, ss, d, ds, r, a.t, a.cmp);
        case 43: return taviThreshold_Val_16u_AC4R(s, ss, d, ds, r, a.t, a.v, a.cmp);
        default: return taviThreshold_GTVal_16u_C4R(s, ss, d, ds, r, a.t, a.v);
    }
}

// Destination offsets from a 64-byte boundary: peels of every length modulo
// the pixel, and an address off the element grid.
TEST(DecideGates, Threshold16uStreamsAlike) {
    const Case cases[] = {{"LTValGTVal C1", 1, 1, Thr::ReplaceOutside},
                          {"C3", 3, 3, Thr::Limit},
                          {"Val AC4", 4, 3, Thr::Replace},
                          {"GTVal C4", 4, 4, Thr::ReplaceAbove}};
    const int width = 520, height = 130;  // above 0x40000 bytes for every layout
    for (const Case& c : cases) {
        tavref::ThrArgs<Tav16u> a{};
        for (int k = 0; k < 4; ++k) {
            a.t[k] = Tav16u(20000 + 9000 * k);
            a.v[k] = Tav16u(7 * k + 1);
            a.tl[k] = Tav16u(10000 + k);
            a.vl[k] = 3;
            a.tg[k] = Tav16u(50000 - k);
            a.vg[k] = 65000;
        }
        a.cmp = tavCmpLess;
        const int elems = width * c.channels;
        const int srcStep = elems * 2 + 32, dstStep = elems * 2 + 70;
        tavtest::Image<Tav16u> src(elems, height, srcStep);
        src.fill(0, 65535);
        for (int off : {0, 2, 6, 10, 34, 62, 1}) {
            const std::size_t span = std::size_t(height - 1) * dstStep + elems * 2;
            tavtest::GuardedBytes buf(span + 64, tavtest::GuardAt::Start);
            tavtest::fill_bytes_random(buf.data(), buf.size());
            auto* dst = reinterpret_cast<Tav16u*>(buf.data() + off);
            std::vector<std::uint8_t> expected(buf.data(), buf.data() + buf.size());
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    for (int k = 0; k < c.values; ++k) {
                        const int e = x * c.channels + k;
                        const Tav16u v = tavref::threshold(c.kind, src.row(y)[e], a, k);
                        std::memcpy(expected.data() + off + std::size_t(y) * dstStep + 2 * e, &v, 2);
                    }
            ASSERT_EQ(call(c, src.ptr(), src.step(), dst, dstStep, {width, height}, a), tavOk);
            ASSERT_TRUE(tavtest::same_bytes(buf.data(), expected.data(), buf.size(), dstStep))
                << c.name << " destination offset " << off;
        }
    }
}

// The cache size is asked only above the gate, out of place, and only by 16u.
TEST(DecideGates, QueriesOnlyAboveTheGate) {
    if (tavtest::core_cache_queries() < 0) GTEST_SKIP() << "the real core module counts nothing";
    tavtest::Image<Tav16u> big(512, 257), out(512, 257), small(512, 256), smallOut(512, 256);
    tavtest::Image<Tav8u> big8(1024, 512), out8(1024, 512);
    big.fill(0, 65535);
    small.fill(0, 65535);
    big8.fill(0, 255);
    auto asked = [](auto&& f) {
        const long long before = tavtest::core_cache_queries();
        EXPECT_EQ(f(), tavOk);
        return tavtest::core_cache_queries() - before;
    };
    // 512 x 256 x 2 bytes is the gate itself: not above it.
    EXPECT_EQ(asked([&] { return taviThreshold_GT_16u_C1R(small.ptr(), small.step(), smallOut.ptr(), smallOut.step(),
                                                          {512, 256}, 9); }),
              0);
    EXPECT_EQ(asked([&] { return taviThreshold_GT_16u_C1R(big.ptr(), big.step(), out.ptr(), out.step(), {512, 257}, 9); }),
              1);
    EXPECT_EQ(asked([&] { return taviThreshold_GT_16u_C1IR(big.ptr(), big.step(), {512, 257}, 9); }), 0);
    EXPECT_EQ(asked([&] { return taviThreshold_GT_16u_C1R(big.ptr(), big.step(), big.ptr(), big.step(), {512, 257}, 9); }),
              0);
    EXPECT_EQ(asked([&] { return taviThreshold_GT_8u_C1R(big8.ptr(), big8.step(), out8.ptr(), out8.step(), {1024, 512}, 9); }),
              0);
}

// Out-of-place thresholds of the other types and compares write around the
// cache above a fixed traffic gate, never asking the core module. Row steps
// off the 64-byte grid give the peel every length across the image; each
// destination sits at a few offsets in a noisy buffer whose bytes outside
// the rows must survive.
struct Big {
    const char* name;
    int elemBytes, channels, width, height;
    // Writes the destination rows at d from src (and src2 for compares).
    std::function<TavStatus(const std::uint8_t*, const std::uint8_t*, int, std::uint8_t*, int, TaviSize)> call;
    // The expected bytes of element e of row y.
    std::function<void(const std::uint8_t*, const std::uint8_t*, int, int, std::uint8_t*)> model;
};

template <class T>
T get(const std::uint8_t* p, std::size_t i) {
    T v;
    std::memcpy(&v, p + i * sizeof(T), sizeof(T));
    return v;
}

TEST(DecideGates, OtherTypesStreamWithoutAsking) {
    const Tav8u t8[3] = {100, 30, 200};
    const Big cases[] = {
        {"Threshold_GT_8u_C3R", 1, 3, 301, 9300,
         [&](const std::uint8_t* s, const std::uint8_t*, int ss, std::uint8_t* d, int ds, TaviSize r) {
             return taviThreshold_GT_8u_C3R(s, ss, d, ds, r, t8);
         },
         [&](const std::uint8_t* s, const std::uint8_t*, int e, int, std::uint8_t* out) {
             *out = std::min(s[e], t8[e % 3]);
         }},
        {"Threshold_GTVal_32f_C1R", 4, 1, 301, 7000,
         [](const std::uint8_t* s, const std::uint8_t*, int ss, std::uint8_t* d, int ds, TaviSize r) {
             return taviThreshold_GTVal_32f_C1R(reinterpret_cast<const Tav32f*>(s), ss, reinterpret_cast<Tav32f*>(d),
                                                ds, r, 0.25f, -7.f);
         },
         [](const std::uint8_t* s, const std::uint8_t*, int e, int, std::uint8_t* out) {
             const float x = get<float>(s, e), y = x > 0.25f ? -7.f : x;
             std::memcpy(out, &y, 4);
         }},
        {"Threshold_GT_16s_C1R", 2, 1, 301, 14000,
         [](const std::uint8_t* s, const std::uint8_t*, int ss, std::uint8_t* d, int ds, TaviSize r) {
             return taviThreshold_GT_16s_C1R(reinterpret_cast<const Tav16s*>(s), ss, reinterpret_cast<Tav16s*>(d),
                                             ds, r, -5);
         },
         [](const std::uint8_t* s, const std::uint8_t*, int e, int, std::uint8_t* out) {
             const Tav16s x = get<Tav16s>(s, e), y = x > -5 ? Tav16s(-5) : x;
             std::memcpy(out, &y, 2);
         }},
        {"Compare_32f_C1R", 4, 1, 200, 9400,
         [](const std::uint8_t* a, const std::uint8_t* b, int ss, std::uint8_t* d, int ds, TaviSize r) {
             return taviCompare_32f_C1R(reinterpret_cast<const Tav32f*>(a), ss, reinterpret_cast<const Tav32f*>(b),
                                        ss, d, ds, r, tavCmpLess);
         },
         [](const std::uint8_t* a, const std::uint8_t* b, int e, int, std::uint8_t* out) {
             *out = get<float>(a, e) < get<float>(b, e) ? 255 : 0;
         }},
        {"Compare_8u_C3R", 1, 3, 200, 12000,
         [](const std::uint8_t* a, const std::uint8_t* b, int ss, std::uint8_t* d, int ds, TaviSize r) {
             return taviCompare_8u_C3R(a, ss, b, ss, d, ds, r, tavCmpGreaterEq);
         },
         [](const std::uint8_t* a, const std::uint8_t* b, int e, int, std::uint8_t* out) {
             bool all = true;
             for (int k = 0; k < 3; ++k) all &= a[3 * e + k] >= b[3 * e + k];
             *out = all ? 255 : 0;
         }},
    };
    for (const Big& c : cases) {
        const bool mask = std::string(c.name).rfind("Compare", 0) == 0;
        const int rowBytes = c.width * c.channels * c.elemBytes;
        const int srcStep = rowBytes + 24;
        const int outElems = mask ? c.width : c.width * c.channels, outSize = mask ? 1 : c.elemBytes;
        const int dstStep = outElems * outSize + (mask ? 13 : 2 * c.elemBytes * 3 + 4);
        std::vector<std::uint8_t> a(std::size_t(srcStep) * c.height), b(a.size());
        tavtest::fill_bytes_random(a.data(), a.size());
        tavtest::fill_bytes_random(b.data(), b.size());
        if (c.elemBytes == 4)  // finite floats, some equal across the two sources
            for (std::size_t i = 0; i + 4 <= a.size(); i += 4) {
                const float x = float(int(a[i] % 64) - 32) / 4, y = i % 12 ? float(int(b[i] % 64) - 32) / 4 : x;
                std::memcpy(&a[i], &x, 4);
                std::memcpy(&b[i], &y, 4);
            }
        for (int off : {0, 4, 37}) {
            const std::size_t span = std::size_t(c.height - 1) * dstStep + std::size_t(outElems) * outSize;
            std::vector<std::uint8_t> buf(span + off);
            tavtest::fill_bytes_random(buf.data(), buf.size());
            std::vector<std::uint8_t> expected = buf;
            for (int y = 0; y < c.height; ++y)
                for (int e = 0; e < outElems; ++e)
                    c.model(&a[std::size_t(y) * srcStep], &b[std::size_t(y) * srcStep], e, y,
                            &expected[off + std::size_t(y) * dstStep + std::size_t(e) * outSize]);
            const long long before = tavtest::core_cache_queries();
            ASSERT_EQ(c.call(a.data(), b.data(), srcStep, buf.data() + off, dstStep, {c.width, c.height}), tavOk);
            if (before >= 0) {
                EXPECT_EQ(tavtest::core_cache_queries(), before) << c.name;
            }
            ASSERT_TRUE(tavtest::same_bytes(buf.data(), expected.data(), buf.size(), dstStep))
                << c.name << " destination offset " << off;
        }
    }
}

}  // namespace
