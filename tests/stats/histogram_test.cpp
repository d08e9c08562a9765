// taviHistogram and its helpers: sizes, the levels of both Inits, counts
// against the bin rule on every type and layout, NaN and the open top level,
// statuses.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "stats/stats_fns.h"
#include "support/image.h"
#include "support/ref_hist.h"

namespace {

using namespace tavtest;

template <class T>
constexpr int type_code() {
    return std::is_same_v<T, Tav8u> ? tav8u : std::is_same_v<T, Tav16u> ? tav16u : std::is_same_v<T, Tav16s> ? tav16s : tav32f;
}

// A spec in its own block, made by one of the two Inits.
struct Spec {
    std::vector<uint8_t> block;
    TaviHistogramSpec* get() { return reinterpret_cast<TaviHistogramSpec*>(block.data()); }
    std::vector<std::vector<double>> levels;  // the reference levels
};

template <class T>
Spec make_spec(int ch, const std::vector<std::vector<float>>& lv, bool uniform, TavStatus expect = tavOk) {
    const int type = type_code<T>();
    int n[4] = {0, 0, 0, 0};
    for (int c = 0; c < ch; ++c) n[c] = int(lv[c].size());
    int specSize = 0, bufSize = 0;
    EXPECT_EQ(taviHistogramGetBufferSize(type, {1, 1}, n, ch, uniform, &specSize, &bufSize), tavOk);
    Spec s;
    s.block.assign(specSize, 0xcd);
    const bool isFloat = type == tav32f;
    if (uniform) {
        float lo[4], hi[4];
        for (int c = 0; c < ch; ++c) lo[c] = lv[c].front(), hi[c] = lv[c].back();
        EXPECT_EQ(taviHistogramUniformInit(type, lo, hi, n, ch, s.get()), expect);
        for (int c = 0; c < ch; ++c) s.levels.push_back(tavref::uniform_levels(lo[c], hi[c], n[c], isFloat));
    } else {
        const float* p[4];
        for (int c = 0; c < ch; ++c) p[c] = lv[c].data();
        EXPECT_EQ(taviHistogramInit(type, p, n, ch, s.get()), expect);
        for (int c = 0; c < ch; ++c) s.levels.push_back(tavref::init_levels(p[c], n[c], isFloat));
    }
    return s;
}

template <class T, int C>
TavStatus call_hist(const T* p, int step, TaviSize r, Tav32u* const* h, const TaviHistogramSpec* s, Tav8u* buf) {
    constexpr auto fn = std::get<C == 1 ? 0 : C == 3 ? 1 : 2>(Fns<T>::hist);
    constexpr bool kBuffer = !std::is_same_v<T, float>;
    if constexpr (C == 1) {
        if constexpr (kBuffer) return fn(p, step, r, h[0], s, buf);
        else return fn(p, step, r, h[0], s);
    } else {
        if constexpr (kBuffer) return fn(p, step, r, h, s, buf);
        else return fn(p, step, r, h, s);
    }
}

// Random ascending levels around and beyond the type's range.
template <class T>
std::vector<float> random_levels(int n, double lo, double hi) {
    std::vector<float> v;
    double x = lo + random_value<double>(0, (hi - lo) / n);
    for (int i = 0; i < n; ++i) {
        v.push_back(float(x));
        x += random_value<double>(0.3, 2.0 * (hi - lo) / n);
    }
    return v;
}

template <class T, int C>
void sweep_histogram(double lo, double hi) {
    int bufSize = 0, specSize = 0;
    const int n1[4] = {2, 2, 2, 2};
    ASSERT_EQ(taviHistogramGetBufferSize(type_code<T>(), {1, 1}, n1, C, 0, &specSize, &bufSize), tavOk);
    GuardedBytes buf(std::max(bufSize, 1));
    for (bool uniform : {false, true}) {
        for (int nl : {2, 3, 17, 300}) {
            std::vector<std::vector<float>> lv;
            for (int c = 0; c < C; ++c) lv.push_back(random_levels<T>(nl, lo - (hi - lo) / 8, hi + (hi - lo) / 8));
            Spec s = make_spec<T>(C, lv, uniform);
            for (int w : {1, 7, 16, 17, 63, 100, 2500}) {
                const int h = w > 1000 ? 2 : 5;
                Image<T> img(w * C, h, std::ptrdiff_t(w) * C * sizeof(T) + (w % 2 ? 2 * sizeof(T) : 0));
                img.fill(lo, hi);
                std::vector<std::vector<Tav32u>> out(C, std::vector<Tav32u>(nl - 1, 0xdeadbeef));
                Tav32u* ptrs[4];
                for (int c = 0; c < C; ++c) ptrs[c] = out[c].data();
                ASSERT_EQ((call_hist<T, C>(img.ptr(), img.step(), {w, h}, ptrs, s.get(), buf.data())), tavOk);
                for (int c = 0; c < C; ++c)
                    ASSERT_EQ(out[c], tavref::histogram(img.ptr(), img.step(), w, h, c, C, s.levels[c]))
                        << "levels " << nl << " uniform " << uniform << " w=" << w << " c=" << c;
            }
        }
    }
}

TEST(Histogram, IntegerSweep) {
    sweep_histogram<Tav8u, 1>(0, 255);
    sweep_histogram<Tav8u, 3>(0, 255);
    sweep_histogram<Tav8u, 4>(0, 255);
    sweep_histogram<Tav16u, 1>(0, 65535);
    sweep_histogram<Tav16u, 4>(0, 3000);
    sweep_histogram<Tav16s, 1>(-32768, 32767);
    sweep_histogram<Tav16s, 3>(-500, 500);
}

TEST(Histogram, FloatSweep) {
    sweep_histogram<float, 1>(-10, 10);
    sweep_histogram<float, 3>(0, 1);
    sweep_histogram<float, 4>(-1000, 3000);
}

TEST(Histogram, LevelsOfTheTwoInits) {
    // Ceilings of explicit levels, truncations of uniform ones.
    Spec a = make_spec<Tav8u>(1, {{0.5f, 2.5f}}, false);
    float got[300];
    float* out[1] = {got};
    ASSERT_EQ(taviHistogramGetLevels(a.get(), out), tavOk);
    EXPECT_TRUE(got[0] == 1 && got[1] == 3);
    // Step 0.25: levels 0, 0, 0, 0, 1 and a warning, the work done.
    Spec b = make_spec<Tav8u>(1, {{0.0f, 1.0f, 1.0f, 1.0f, 1.0f}}, true, tavWarnSize);
    ASSERT_EQ(taviHistogramGetLevels(b.get(), out), tavOk);
    const float want[5] = {0, 0, 0, 0, 1};
    for (int i = 0; i < 5; ++i) EXPECT_EQ(got[i], want[i]) << i;
    // 257 levels from 0 to 256: one value a bin.
    std::vector<float> full(257);
    full.front() = 0, full.back() = 256;
    Spec c = make_spec<Tav8u>(1, {full}, true);
    ASSERT_EQ(taviHistogramGetLevels(c.get(), out), tavOk);
    for (int i = 0; i < 257; ++i) ASSERT_EQ(got[i], float(i));
    Image<Tav8u> img(300, 4);
    img.fill(0, 255);
    std::vector<Tav32u> hist(256);
    Tav8u buf[1024];
    ASSERT_EQ(taviHistogram_8u_C1R(img.ptr(), img.step(), {300, 4}, hist.data(), c.get(), buf), tavOk);
    std::vector<Tav32u> byValue(256, 0);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 300; ++x) ++byValue[img.at(x, y)];
    EXPECT_EQ(hist, byValue);
    // 32f uniform levels are fma(i, step, lower) rounded to float.
    Spec f = make_spec<float>(1, {{-1.0f, 0, 0, 0, 0, 0, 0, 0.1f}}, true);
    ASSERT_EQ(taviHistogramGetLevels(f.get(), out), tavOk);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(got[i], float(f.levels[0][i])) << i;
}

// Pixels on and next to every uniform level, where the product x * (1/step)
// can land in the neighbouring bin: the level table decides.
TEST(Histogram, UniformBinsFollowTheLevelTable) {
    const float bounds[][2] = {{-1.0f, 0.1f}, {0.3f, 7.7f}, {-1000.5f, 33.3f}, {1e-3f, 2e-3f}, {1000, 1100}, {1e6f, 1e6f + 300}};
    for (const auto& b : bounds) {
        for (int nl : {7, 37, 256}) {
            std::vector<float> lv(nl, b[0]);
            lv.back() = b[1];
            Spec s = make_spec<float>(1, {lv}, true);
            std::vector<float> px;
            // On each level and 1 to 4096 units of the last place either side.
            for (double L : s.levels[0]) {
                px.push_back(float(L));
                for (int ulps = 1; ulps <= 4096; ulps *= 2) {
                    float down = float(L), up = float(L);
                    for (int i = 0; i < ulps; ++i) down = std::nextafter(down, -HUGE_VALF), up = std::nextafter(up, HUGE_VALF);
                    px.push_back(down);
                    px.push_back(up);
                }
            }
            Image<float> img(int(px.size()), 1);
            img.fill_with([&](int x, int) { return px[x]; });
            std::vector<Tav32u> h(nl - 1);
            ASSERT_EQ(taviHistogram_32f_C1R(img.ptr(), img.step(), {img.width(), 1}, h.data(), s.get()), tavOk);
            EXPECT_EQ(h, tavref::histogram(img.ptr(), img.step(), img.width(), 1, 0, 1, s.levels[0]))
                << b[0] << ".." << b[1] << " levels " << nl;
        }
    }
}

TEST(Histogram, TopLevelAndNaNAreNotCounted) {
    Spec s = make_spec<float>(1, {{0.0f, 1.0f, 2.0f}}, false);
    Image<float> img(40, 1);
    img.fill_with([](int x, int) {
        return x < 10 ? 2.0f : x < 20 ? std::numeric_limits<float>::quiet_NaN() : x < 30 ? 1.0f : 0.0f;
    });
    Tav32u h[2];
    ASSERT_EQ(taviHistogram_32f_C1R(img.ptr(), img.step(), {40, 1}, h, s.get()), tavOk);
    EXPECT_EQ(h[0], 10u);
    EXPECT_EQ(h[1], 10u);
    Spec u = make_spec<Tav16s>(1, {{-3.0f, 5.0f}}, true);
    Image<Tav16s> v(20, 1);
    v.fill_with([](int x, int) { return Tav16s(x - 5); });
    Tav8u buf[262144];
    ASSERT_EQ(taviHistogram_16s_C1R(v.ptr(), v.step(), {20, 1}, h, u.get(), buf), tavOk);
    EXPECT_EQ(h[0], 8u);  // -3 .. 4; 5 is the open top
}

// Byte counts of one value well past what a narrow counter holds, in
// contiguous rows (walked as one) and in padded ones.
TEST(Histogram, LongRunsOfOneByte) {
    std::vector<float> full(257);
    for (int i = 0; i < 257; ++i) full[i] = float(i);
    Spec s = make_spec<Tav8u>(1, {full}, false);
    Tav8u buf[1024];
    for (int pad : {0, 3}) {
        Image<Tav8u> img(401, 400, 401 + pad);
        img.fill_with([](int x, int y) { return Tav8u((x + y) % 50 == 0 ? 200 : 7); });
        std::vector<Tav32u> h(256);
        ASSERT_EQ(taviHistogram_8u_C1R(img.ptr(), img.step(), {401, 400}, h.data(), s.get(), buf), tavOk);
        EXPECT_EQ(h, tavref::histogram(img.ptr(), img.step(), 401, 400, 0, 1, s.levels[0])) << "pad " << pad;
    }
}

TEST(Histogram, Statuses) {
    int n[4] = {3, 3, 1, 3}, spec = -1, buf = -1;
    struct SizeCase {
        int type, channels;
        TaviSize roi;
        int* n;
        TavStatus expect;
        int specSize, bufSize;
    };
    const SizeCase sizes[] = {
        {tav8u, 1, {1, 1}, n, tavOk, 92, 1024},       {tav16s, 3, {1, 1}, n, tavErrHistogramLevels, -1, -1},
        {tav16u, 4, {0, 1}, n, tavErrSize, -1, -1},    {tav16u, 2, {1, 1}, n, tavErrChannelCount, -1, -1},
        {99, 1, {1, 1}, n, tavErrDataType, 92, -1},    {tav32f, 1, {1, 1}, n, tavOk, 92, 0},
        {tav16s, 1, {1, 1}, n, tavOk, 92, 262144},     {tav8u, 1, {1, 1}, nullptr, tavErrNullPtr, -1, -1},
    };
    for (const SizeCase& c : sizes) {
        spec = buf = -1;
        EXPECT_EQ(taviHistogramGetBufferSize(c.type, c.roi, c.n, c.channels, 0, &spec, &buf), c.expect);
        EXPECT_EQ(spec, c.specSize);
        EXPECT_EQ(buf, c.bufSize);
    }
    std::vector<uint8_t> block(200, 0);
    auto* s = reinterpret_cast<TaviHistogramSpec*>(block.data());
    const float up[3] = {0, 1, 2}, down[3] = {0, 2, 2}, lo[1] = {1}, hi[1] = {1};
    const float* good[1] = {up};
    const float* flat[1] = {down};
    const float* none[1] = {nullptr};
    const int n3[1] = {3}, n1[1] = {1};
    EXPECT_EQ(taviHistogramInit(0, good, n3, 1, s), tavErrDataType);
    EXPECT_EQ(taviHistogramInit(tav8u, good, n3, 1, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviHistogramInit(tav8u, good, n3, 2, s), tavErrChannelCount);
    EXPECT_EQ(taviHistogramInit(tav8u, none, n3, 1, s), tavErrNullPtr);
    EXPECT_EQ(taviHistogramInit(tav8u, good, n1, 1, s), tavErrHistogramLevels);
    EXPECT_EQ(taviHistogramInit(tav8u, flat, n3, 1, s), tavErrRange);
    EXPECT_EQ(taviHistogramUniformInit(tav32f, lo, hi, n3, 1, s), tavErrRange);
    EXPECT_EQ(taviHistogramUniformInit(tav32f, lo, hi, n1, 1, s), tavErrHistogramLevels);
    // Nothing was written: the spec is still refused.
    Tav32u h[2];
    Tav8u px[4] = {}, b[1024];
    float* out[1] = {nullptr};
    EXPECT_EQ(taviHistogram_8u_C1R(px, 4, {4, 1}, h, s, b), tavErrBadArg);
    EXPECT_EQ(taviHistogramGetLevels(s, out), tavErrBadArg);
    ASSERT_EQ(taviHistogramInit(tav8u, good, n3, 1, s), tavOk);
    EXPECT_EQ(taviHistogramGetLevels(s, out), tavErrNullPtr);
    EXPECT_EQ(taviHistogram_8u_C1R(px, 4, {4, 1}, h, s, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviHistogram_8u_C1R(px, 4, {0, 1}, h, s, b), tavErrSize);
    EXPECT_EQ(taviHistogram_8u_C1R(px, 3, {4, 1}, h, s, b), tavErrStep);
    const Tav16u w16[4] = {};
    EXPECT_EQ(taviHistogram_16u_C1R(w16, 7, {4, 1}, h, s, b), tavErrStep);  // below the row's 8 bytes
    EXPECT_EQ(taviHistogram_8u_C1R(px, 4, {4, 1}, h, s, b), tavOk);
}

}  // namespace
