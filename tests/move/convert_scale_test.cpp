// taviScale (range maps) and taviScaleC (affine maps), with their hints,
// range check, rounding-control behaviour and in-place forms.
#include <gtest/gtest.h>

#include <dlfcn.h>
#include <immintrin.h>

#include <cmath>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include "move/convert_harness.h"
#include "support/ref_convert.h"
#include "tavi.h"

namespace {

using namespace convtest;

template <class S, class D>
using Fn = TavStatus (*)(const S*, int, D*, int, TaviSize);
template <class S>
using FnHint = TavStatus (*)(const S*, int, Tav8u*, int, TaviSize, TavHintAlgorithm);
template <class S, class D>
using FnRange = TavStatus (*)(const S*, int, D*, int, TaviSize, Tav32f, Tav32f);

struct Layouts {
    int ch;
    bool ac4;
};
constexpr Layouts kLayouts[] = {{1, false}, {3, false}, {4, false}, {4, true}};

template <class S, class D, class F, class R>
void check_layouts(const F (&fns)[4], R ref, std::function<S()> gen) {
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        Case<S, D> c{kLayouts[i].ch, kLayouts[i].ac4, fns[i], ref, gen};
        sweep(c);
        if constexpr (sizeof(S) <= 2) exhaustive(c);
    }
}

TEST(Scale, ByteToWideIntegers) {
    const Fn<Tav8u, Tav16u> u16[4] = {taviScale_8u16u_C1R, taviScale_8u16u_C3R, taviScale_8u16u_C4R, taviScale_8u16u_AC4R};
    const Fn<Tav8u, Tav16s> s16[4] = {taviScale_8u16s_C1R, taviScale_8u16s_C3R, taviScale_8u16s_C4R, taviScale_8u16s_AC4R};
    const Fn<Tav8u, Tav32s> s32[4] = {taviScale_8u32s_C1R, taviScale_8u32s_C3R, taviScale_8u32s_C4R, taviScale_8u32s_AC4R};
    check_layouts<Tav8u, Tav16u>(u16, [](Tav8u x) { return Tav16u(tavref::u8_to_16u(x)); }, full_range<Tav8u>());
    check_layouts<Tav8u, Tav16s>(s16, [](Tav8u x) { return Tav16s(tavref::u8_to_16s(x)); }, full_range<Tav8u>());
    check_layouts<Tav8u, Tav32s>(s32, [](Tav8u x) { return Tav32s(tavref::u8_to_32s(x)); }, full_range<Tav8u>());
    const Tav8u ends[2] = {0, 255};
    Tav16s out[2];
    ASSERT_EQ(taviScale_8u16s_C1R(ends, 2, out, 4, {2, 1}), tavOk);
    EXPECT_EQ(out[0], -32768);
    EXPECT_EQ(out[1], 32767);
}

template <class S>
void check_to_8u(const FnHint<S> (&fns)[4], std::function<Tav8u(S)> ref) {
    for (TavHintAlgorithm hint : {tavAlgHintNone, tavAlgHintFast, tavAlgHintAccurate}) {
        std::function<TavStatus(const S*, int, Tav8u*, int, TaviSize)> bound[4];
        for (int i = 0; i < 4; ++i) {
            auto fn = fns[i];
            bound[i] = [fn, hint](const S* s, int ss, Tav8u* d, int ds, TaviSize r) { return fn(s, ss, d, ds, r, hint); };
        }
        SCOPED_TRACE(hint);
        check_layouts<S, Tav8u>(bound, ref, full_range<S>());
        if constexpr (sizeof(S) == 4) {
            Case<S, Tav8u> c{1, false, bound[0], ref, nullptr};
            std::vector<S> v = {std::numeric_limits<S>::lowest(), std::numeric_limits<S>::max(), 0, -1, 1};
            // Quotients just below and above each half: u = 16843009 * k + 8421504 (+1).
            for (int64_t k = 0; k < 255; k += 7)
                for (int64_t e : {8421504, 8421505})
                    v.push_back(static_cast<S>(16843009 * k + e - 2147483648LL));
            values(c, v);
        }
    }
}

// The accurate and the approximate hints both give the rounded quotient here.
TEST(Scale, WideIntegersToByteEveryHint) {
    const FnHint<Tav16u> u16[4] = {taviScale_16u8u_C1R, taviScale_16u8u_C3R, taviScale_16u8u_C4R, taviScale_16u8u_AC4R};
    const FnHint<Tav16s> s16[4] = {taviScale_16s8u_C1R, taviScale_16s8u_C3R, taviScale_16s8u_C4R, taviScale_16s8u_AC4R};
    const FnHint<Tav32s> s32[4] = {taviScale_32s8u_C1R, taviScale_32s8u_C3R, taviScale_32s8u_C4R, taviScale_32s8u_AC4R};
    check_to_8u<Tav16u>(u16, [](Tav16u x) { return tavref::to_8u_by_257(x); });
    check_to_8u<Tav16s>(s16, [](Tav16s x) { return tavref::to_8u_by_257(int64_t{x} + 32768); });
    check_to_8u<Tav32s>(s32, [](Tav32s x) { return tavref::u32_range_to_8u(int64_t{x} + 2147483648LL); });
}

TEST(Scale, FloatRanges) {
    const FnRange<Tav8u, Tav32f> up[4] = {taviScale_8u32f_C1R, taviScale_8u32f_C3R, taviScale_8u32f_C4R, taviScale_8u32f_AC4R};
    const FnRange<Tav32f, Tav8u> down[4] = {taviScale_32f8u_C1R, taviScale_32f8u_C3R, taviScale_32f8u_C4R, taviScale_32f8u_AC4R};
    const float ranges[][2] = {{0.0f, 1.0f}, {-1.0f, 1.0f}, {-1000.5f, 3.25f}, {1e-3f, 2e-3f}, {0.0f, 255.0f}};
    for (const auto& rg : ranges) {
        const float lo = rg[0], hi = rg[1];
        SCOPED_TRACE(::testing::Message() << lo << ".." << hi);
        std::function<TavStatus(const Tav8u*, int, Tav32f*, int, TaviSize)> u[4];
        std::function<TavStatus(const Tav32f*, int, Tav8u*, int, TaviSize)> d[4];
        for (int i = 0; i < 4; ++i) {
            auto f = up[i];
            auto g = down[i];
            u[i] = [f, lo, hi](const Tav8u* s, int ss, Tav32f* o, int ds, TaviSize r) { return f(s, ss, o, ds, r, lo, hi); };
            d[i] = [g, lo, hi](const Tav32f* s, int ss, Tav8u* o, int ds, TaviSize r) { return g(s, ss, o, ds, r, lo, hi); };
        }
        check_layouts<Tav8u, Tav32f>(u, [lo, hi](Tav8u x) { return tavref::u8_to_range(x, lo, hi); }, full_range<Tav8u>());
        const float margin = (hi - lo) / 4;
        auto ref = [lo, hi](Tav32f x) { return tavref::range_to_8u(x, lo, hi); };
        check_layouts<Tav32f, Tav8u>(d, ref, uniform<Tav32f>(lo - margin, hi + margin));
        Case<Tav32f, Tav8u> c{1, false, d[0], ref, nullptr};
        std::vector<float> v = {lo, hi, std::nextafter(lo, -1e9f), std::nextafter(hi, 1e9f), std::numeric_limits<float>::quiet_NaN(),
                                std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity()};
        // Values whose scaled offset is a tie.
        for (int k = 0; k < 255; k += 5) v.push_back(lo + (k + 0.5f) * (hi - lo) / 255.0f);
        values(c, v);
    }
}

// The empty range is refused before the pointers are looked at; the
// difference is taken in single precision.
TEST(Scale, EmptyRangeFirst) {
    Tav8u b = 0;
    Tav32f f = 0;
    EXPECT_EQ(taviScale_32f8u_C1R(nullptr, 0, nullptr, 0, {0, 0}, 1.0f, 1.0f), tavErrScaleRange);
    EXPECT_EQ(taviScale_8u32f_C4R(nullptr, 0, nullptr, 0, {0, 0}, 2.0f, 1.0f), tavErrScaleRange);
    EXPECT_EQ(taviScale_8u32f_AC4R(&b, 4, &f, 16, {1, 1}, 1e8f, 1e8f + 1.0f), tavErrScaleRange);
    EXPECT_EQ(taviScale_32f8u_C3R(&f, 12, &b, 3, {1, 1}, 0.0f, std::numeric_limits<float>::quiet_NaN()), tavErrScaleRange);
    EXPECT_EQ(taviScale_32f8u_C1R(nullptr, 4, &b, 1, {1, 1}, 0.0f, 1.0f), tavErrNullPtr);
    EXPECT_EQ(taviScale_8u32f_C1R(&b, 1, &f, 4, {1, 0}, 0.0f, 1.0f), tavErrSize);
    EXPECT_EQ(taviScale_8u32f_C1R(&b, 0, &f, 4, {1, 1}, 0.0f, 1.0f), tavErrStep);
    EXPECT_EQ(taviScale_8u16u_C1R(&b, 1, nullptr, 0, {0, 1}), tavErrNullPtr);
}

// The accurate hint sets nearest rounding before its checks: a failed check
// returns with it still set, a finished call restores the caller's.
TEST(Scale, AccurateHintAndTheRoundingControl) {
    const unsigned saved = _mm_getcsr();
    const Tav16u src[2] = {128, 129};
    Tav8u dst[2];
    _mm_setcsr((saved & ~_MM_ROUND_MASK) | _MM_ROUND_TOWARD_ZERO);
    const TavStatus ok = taviScale_16u8u_C1R(src, 4, dst, 2, {2, 1}, tavAlgHintAccurate);
    const unsigned afterOk = _mm_getcsr() & _MM_ROUND_MASK;
    const TavStatus bad = taviScale_16u8u_C1R(src, 4, nullptr, 2, {2, 1}, tavAlgHintAccurate);
    const unsigned afterBad = _mm_getcsr() & _MM_ROUND_MASK;
    _mm_setcsr((saved & ~_MM_ROUND_MASK) | _MM_ROUND_TOWARD_ZERO);
    const TavStatus badFast = taviScale_16u8u_C1R(src, 4, nullptr, 2, {2, 1}, tavAlgHintFast);
    const unsigned afterBadFast = _mm_getcsr() & _MM_ROUND_MASK;
    _mm_setcsr(saved);
    EXPECT_EQ(ok, tavOk);
    EXPECT_EQ(afterOk, unsigned(_MM_ROUND_TOWARD_ZERO));
    EXPECT_EQ(bad, tavErrNullPtr);
    EXPECT_EQ(afterBad, unsigned(_MM_ROUND_NEAREST));
    EXPECT_EQ(badFast, tavErrNullPtr);
    EXPECT_EQ(afterBadFast, unsigned(_MM_ROUND_TOWARD_ZERO));
    EXPECT_EQ(dst[0], 0);
    EXPECT_EQ(dst[1], 1);
}

template <class T>
double span_of() {
    return std::is_floating_point_v<T> ? 1e5 : double(std::numeric_limits<T>::max()) - double(std::numeric_limits<T>::lowest());
}

template <class T>
std::vector<T> affine_specials() {
    std::vector<T> v = {T(0), T(1), T(3), T(5), T(7), std::numeric_limits<T>::max(), std::numeric_limits<T>::lowest()};
    if constexpr (std::is_signed_v<T>)
        for (double x : {-1.0, -3.0, -5.0}) v.push_back(T(x));
    if constexpr (std::is_floating_point_v<T>)
        for (double x : {0.5, -0.5, 1.5, 2.5, -2.5, HUGE_VAL, -HUGE_VAL, std::nan("")}) v.push_back(T(x));
    return v;
}

// What the single-precision kernel may give besides the exact result: one
// unit for an integer, for 32f an error of a few units of the larger of the
// product and the offset (the constants themselves are rounded to single).
template <class S, class D>
std::function<bool(double, double, double)> single_precision_close(double m, double a) {
    return [m, a](double actual, double expected, double x) {
        if (std::isnan(actual) && std::isnan(expected)) return true;
        if constexpr (std::is_floating_point_v<D>)
            return std::fabs(actual - expected) <= 0x1p-21 * (std::fabs(x * m) + std::fabs(a));
        else return std::fabs(actual - expected) <= 1;
    };
}

// Every pair: the accurate hint exactly, the others close where the
// single-precision kernel may run. Maps that land inside the
// destination, that saturate, and that halve odd values (ties to even).
template <class S, class D>
void check_scalec(TavStatus (*fn)(const S*, int, Tav64f, Tav64f, D*, int, TaviSize, TavHintAlgorithm)) {
    const double ds = span_of<D>(), ss = span_of<S>();
    const double maps[][2] = {{ds / ss, 0.0}, {-0.75 * ds / ss, 3.25}, {0.5, 0.0}, {1.0, 0.5}, {4.0 * ds / ss, -17.0}};
    for (const auto& mp : maps)
        for (TavHintAlgorithm hint : {tavAlgHintAccurate, tavAlgHintNone}) {
            const double m = mp[0], a = mp[1];
            SCOPED_TRACE(::testing::Message() << "m " << m << " a " << a << " hint " << hint);
            Case<S, D> c;
            c.fn = [fn, m, a, hint](const S* s, int sst, D* d, int dst, TaviSize r) { return fn(s, sst, m, a, d, dst, r, hint); };
            c.ref = [m, a](S x) { return tavref::affine<S, D>(x, m, a); };
            c.gen = full_range<S>();
            if (hint != tavAlgHintAccurate) c.close = single_precision_close<S, D>(m, a);
            if (&mp == &maps[0]) sweep(c);
            else ASSERT_TRUE(run_one(c, Geometry{71, 3, 1, 2, 0, 4}));
            values(c, affine_specials<S>());
        }
}

template <class T>
void check_scalec_inplace(TavStatus (*fn)(T*, int, Tav64f, Tav64f, TaviSize, TavHintAlgorithm)) {
    for (int w : {1, 15, 16, 17, 100}) {
        const int step = w * int(sizeof(T)) + 8;
        Image<T> img(w, 3, step);
        img.fill(double(std::numeric_limits<T>::lowest()) / 2, double(std::numeric_limits<T>::max()) / 2);
        const auto expected = tavtest::expected_from(img, [&](int x, int y, T& v) { return v = tavref::affine<T, T>(img.row(y)[x], 1.5, -2.0), true; });
        ASSERT_EQ(fn(img.ptr(), step, 1.5, -2.0, {w, 3}, tavAlgHintAccurate), tavOk);
        ASSERT_TRUE(tavtest::same_bytes(img, expected)) << w;
    }
}

template <class T>
constexpr const char* type_name() {
    if constexpr (std::is_same_v<T, Tav8u>) return "8u";
    else if constexpr (std::is_same_v<T, Tav8s>) return "8s";
    else if constexpr (std::is_same_v<T, Tav16u>) return "16u";
    else if constexpr (std::is_same_v<T, Tav16s>) return "16s";
    else if constexpr (std::is_same_v<T, Tav32s>) return "32s";
    else if constexpr (std::is_same_v<T, Tav32f>) return "32f";
    else return "64f";
}

// The pair's export by name (one type spelled once when both are the same).
template <class S, class D>
void check_pair() {
    const std::string name = std::string("taviScaleC_") + type_name<S>() + (std::is_same_v<S, D> ? "" : type_name<D>()) + "_C1R";
    using Fn = TavStatus (*)(const S*, int, Tav64f, Tav64f, D*, int, TaviSize, TavHintAlgorithm);
    const auto fn = reinterpret_cast<Fn>(dlsym(RTLD_DEFAULT, name.c_str()));
    ASSERT_NE(fn, nullptr) << name;
    SCOPED_TRACE(name);
    check_scalec<S, D>(fn);
}

using AllTypes = std::tuple<Tav8u, Tav8s, Tav16u, Tav16s, Tav32s, Tav32f, Tav64f>;
template <class S, class... D>
void check_from(std::tuple<D...>*) {
    (check_pair<S, D>(), ...);
}
template <class... S>
void check_all_pairs(std::tuple<S...>* all) {
    (check_from<S>(all), ...);
}

TEST(ScaleC, EveryPair) { check_all_pairs(static_cast<AllTypes*>(nullptr)); }

TEST(ScaleC, InPlace) {
    check_scalec_inplace<Tav8u>(taviScaleC_8u_C1IR);
    check_scalec_inplace<Tav8s>(taviScaleC_8s_C1IR);
    check_scalec_inplace<Tav16u>(taviScaleC_16u_C1IR);
    check_scalec_inplace<Tav16s>(taviScaleC_16s_C1IR);
    check_scalec_inplace<Tav32s>(taviScaleC_32s_C1IR);
    check_scalec_inplace<Tav32f>(taviScaleC_32f_C1IR);
    check_scalec_inplace<Tav64f>(taviScaleC_64f_C1IR);
}

TEST(ScaleC, StatusesInCheckOrder) {
    Tav8u b[4] = {};
    Tav16s s[4] = {};
    EXPECT_EQ(taviScaleC_8u16s_C1R(nullptr, 0, 1, 0, s, 0, {0, 0}, 0), tavErrNullPtr);
    EXPECT_EQ(taviScaleC_8u16s_C1R(b, 0, 1, 0, nullptr, 8, {4, 1}, 0), tavErrNullPtr);
    EXPECT_EQ(taviScaleC_8u16s_C1R(b, 0, 1, 0, s, 0, {0, 1}, 0), tavErrSize);
    EXPECT_EQ(taviScaleC_8u16s_C1R(b, 0, 1, 0, s, 8, {4, 1}, 0), tavErrStep);
    EXPECT_EQ(taviScaleC_8u16s_C1R(b, 4, 1, 0, s, -8, {4, 1}, 0), tavErrStep);
    EXPECT_EQ(taviScaleC_16s_C1IR(nullptr, 8, 1, 0, {4, 1}, 0), tavErrNullPtr);
    EXPECT_EQ(taviScaleC_16s_C1IR(s, 8, 1, 0, {4, -1}, 0), tavErrSize);
    EXPECT_EQ(taviScaleC_16s_C1IR(s, 0, 1, 0, {4, 1}, 0), tavErrStep);
    for (Tav16s v : s) EXPECT_EQ(v, 0);
}

}  // namespace
