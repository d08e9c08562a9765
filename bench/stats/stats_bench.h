// Shared pieces of the statistics benchmarks: random images of a type, and
// OpenCV matrices of the same shape.
#pragma once

#include <random>
#include <string>

#include "bench_util.h"

namespace tavbench {

template <class T>
void keep(T v) {
    benchmark::DoNotOptimize(v);
}

// A tight image of w x h pixels of `ch` elements of T, uniform in [lo, hi].
template <class T>
struct Img {
    Buf buf;
    int step;
    Img(Size2 s, int ch, double lo, double hi, unsigned seed = 1)
        : buf(std::size_t(s.w) * s.h * ch * sizeof(T)), step(int(s.w * ch * sizeof(T))) {
        std::mt19937 r(seed);
        std::uniform_real_distribution<double> d(lo, hi);
        T* p = buf.as<T>();
        for (std::size_t i = 0; i < buf.bytes / sizeof(T); ++i) p[i] = static_cast<T>(d(r));
    }
    const T* p() const { return buf.as<T>(); }
    T* p() { return buf.as<T>(); }
};

// Registers ours under `row`; fn(img, size) is one call.
template <class T, class F>
void ours(const std::string& row, int ch, double lo, double hi, F fn) {
    add(row, "tav", [=](benchmark::State& st, Size2 s) {
        Img<T> a(s, ch, lo, hi);
        for (auto _ : st) fn(a, s);
        set_bytes(st, a.buf.bytes);
    });
}

// The same with two images.
template <class T, class F>
void ours2(const std::string& row, int ch, double lo, double hi, F fn) {
    add(row, "tav", [=](benchmark::State& st, Size2 s) {
        Img<T> a(s, ch, lo, hi, 1), b(s, ch, lo, hi, 2);
        for (auto _ : st) fn(a, b, s);
        set_bytes(st, 2 * a.buf.bytes);
    });
}

// Two sources and a destination of the same shape.
template <class T, class F>
void ours3(const std::string& row, double lo, double hi, F fn) {
    add(row, "tav", [=](benchmark::State& st, Size2 s) {
        Img<T> a(s, 1, lo, hi, 1), b(s, 1, lo, hi, 2), d(s, 1, lo, hi, 3);
        for (auto _ : st) fn(a, b, d, s);
        set_bytes(st, 3 * a.buf.bytes);
    });
}

#ifdef TAV_HAVE_OPENCV
inline cv::Mat cv_image(Size2 s, int type, double lo, double hi, unsigned seed = 1) {
    cv::Mat m(s.h, s.w, type);
    cv::RNG rng(seed);
    rng.fill(m, cv::RNG::UNIFORM, lo, hi);
    return m;
}

template <class F>
void peer(const std::string& row, const std::string& fn, int type, double lo, double hi, F f) {
    add(row, "opencv:" + fn, [=](benchmark::State& st, Size2 s) {
        cv::Mat a = cv_image(s, type, lo, hi);
        for (auto _ : st) f(a);
        set_bytes(st, a.total() * a.elemSize());
    });
}

template <class F>
void peer2(const std::string& row, const std::string& fn, int type, double lo, double hi, F f) {
    add(row, "opencv:" + fn, [=](benchmark::State& st, Size2 s) {
        cv::Mat a = cv_image(s, type, lo, hi, 1), b = cv_image(s, type, lo, hi, 2);
        for (auto _ : st) f(a, b);
        set_bytes(st, 2 * a.total() * a.elemSize());
    });
}

template <class F>
void peer3(const std::string& row, const std::string& fn, int type, double lo, double hi, F f) {
    add(row, "opencv:" + fn, [=](benchmark::State& st, Size2 s) {
        cv::Mat a = cv_image(s, type, lo, hi, 1), b = cv_image(s, type, lo, hi, 2), d = cv_image(s, type, lo, hi, 3);
        for (auto _ : st) f(a, b, d);
        set_bytes(st, 3 * a.total() * a.elemSize());
    });
}
#endif

}  // namespace tavbench
