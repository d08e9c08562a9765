// Unary math against OpenCV (and memcpy as the bandwidth limit of Abs).
// Inputs: ln and sqrt positive, exp within [-10, 10].
#include <cmath>
#include <cstring>

#include "bench_util.h"

namespace {

using namespace tavbench;

using Fn32f = TavStatus (*)(const Tav32f*, int, Tav32f*, int, TaviSize);
using Fn8u = TavStatus (*)(const Tav8u*, int, Tav8u*, int, TaviSize, int);

struct Range {
    float lo, hi;
};

void fill_range(const Buf& b, Range r) {
    fill<float>(b, [r](std::mt19937& g) { return r.lo + (r.hi - r.lo) * float(g() >> 8) * (1.0f / 16777216.0f); });
}

void add_32f(const char* row, Fn32f fn, Range r) {
    add(row, "tav", [fn, r](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h * 4), b(std::size_t(s.w) * s.h * 4);
        fill_range(a, r);
        for (auto _ : st) fn(a.as<Tav32f>(), s.w * 4, b.as<Tav32f>(), s.w * 4, {s.w, s.h});
        set_bytes(st, 2 * a.bytes);
    });
}

#ifdef TAV_HAVE_OPENCV
template <class Op>
void add_cv32f(const char* row, const char* impl, Range r, Op op) {
    add(row, impl, [r, op](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h * 4);
        fill_range(a, r);
        cv::Mat src(s.h, s.w, CV_32FC1, a.p), dst(s.h, s.w, CV_32FC1);
        for (auto _ : st) op(src, dst);
        set_bytes(st, 2 * a.bytes);
    });
}

// The nearest equivalent of an 8u function: a 256-entry table made by it.
void add_cv_lut(const char* row, Fn8u fn, int sf) {
    add(row, "opencv:LUT", [fn, sf](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h);
        cv::Mat lut(1, 256, CV_8UC1);
        for (int x = 0; x < 256; ++x) {
            const Tav8u in = Tav8u(x);
            fn(&in, 1, lut.ptr<Tav8u>() + x, 1, {1, 1}, sf);
        }
        cv::Mat src(s.h, s.w, CV_8UC1, a.p), dst(s.h, s.w, CV_8UC1);
        for (auto _ : st) cv::LUT(src, lut, dst);
        set_bytes(st, 2 * a.bytes);
    });
}
#endif

void add_8u(const char* row, Fn8u fn, int sf) {
    add(row, "tav", [fn, sf](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h), b(std::size_t(s.w) * s.h);
        for (auto _ : st) fn(a.p, s.w, b.p, s.w, {s.w, s.h}, sf);
        set_bytes(st, 2 * a.bytes);
    });
#ifdef TAV_HAVE_OPENCV
    add_cv_lut(row, fn, sf);
#endif
}

const bool registered = [] {
    const Range wide{-100.0f, 100.0f}, positive{0.01f, 1000.0f}, sane{-10.0f, 10.0f};
    add_32f("taviAbs_32f_C1R", taviAbs_32f_C1R, wide);
    add("taviAbs_32f_C1R", "memcpy", [](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h * 4), b(std::size_t(s.w) * s.h * 4);
        for (auto _ : st) {
            std::memcpy(b.p, a.p, a.bytes);
            benchmark::DoNotOptimize(b.p);
        }
        set_bytes(st, 2 * a.bytes);
    });
    add_32f("taviSqr_32f_C1R", taviSqr_32f_C1R, wide);
    add_32f("taviSqrt_32f_C1R", taviSqrt_32f_C1R, positive);
    add_32f("taviLn_32f_C1R", taviLn_32f_C1R, positive);
    add_32f("taviExp_32f_C1R", taviExp_32f_C1R, sane);
    add_8u("taviSqrt_8u_C1RSfs", taviSqrt_8u_C1RSfs, -4);
    add_8u("taviExp_8u_C1RSfs", taviExp_8u_C1RSfs, 3);
#ifdef TAV_HAVE_OPENCV
    add_cv32f("taviAbs_32f_C1R", "opencv:abs", wide, [](const cv::Mat& a, cv::Mat& b) { b = cv::abs(a); });
    add_cv32f("taviSqr_32f_C1R", "opencv:multiply", wide, [](const cv::Mat& a, cv::Mat& b) { cv::multiply(a, a, b); });
    add_cv32f("taviSqrt_32f_C1R", "opencv:sqrt", positive, [](const cv::Mat& a, cv::Mat& b) { cv::sqrt(a, b); });
    add_cv32f("taviLn_32f_C1R", "opencv:log", positive, [](const cv::Mat& a, cv::Mat& b) { cv::log(a, b); });
    add_cv32f("taviExp_32f_C1R", "opencv:exp", sane, [](const cv::Mat& a, cv::Mat& b) { cv::exp(a, b); });
#endif
    return true;
}();

}  // namespace
