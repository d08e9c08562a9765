// Copies and fills against memcpy/memset (the bandwidth limit) and OpenCV.
#include <cstring>

#include "bench_util.h"

namespace {

using namespace tavbench;

const bool registered = [] {
    add("taviCopy_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h), b(std::size_t(s.w) * s.h);
        for (auto _ : st) taviCopy_8u_C1R(a.p, s.w, b.p, s.w, {s.w, s.h});
        set_bytes(st, 2 * a.bytes);
    });
    add("taviCopy_8u_C1R", "memcpy", [](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h), b(std::size_t(s.w) * s.h);
        for (auto _ : st) {
            std::memcpy(b.p, a.p, a.bytes);
            benchmark::DoNotOptimize(b.p);
        }
        set_bytes(st, 2 * a.bytes);
    });
    add("taviSet_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Buf b(std::size_t(s.w) * s.h);
        for (auto _ : st) taviSet_8u_C1R(0x5a, b.p, s.w, {s.w, s.h});
        set_bytes(st, b.bytes);
    });
    add("taviSet_8u_C1R", "memset", [](benchmark::State& st, Size2 s) {
        Buf b(std::size_t(s.w) * s.h);
        for (auto _ : st) {
            std::memset(b.p, 0x5a, b.bytes);
            benchmark::DoNotOptimize(b.p);
        }
        set_bytes(st, b.bytes);
    });
    add("taviSet_32f_C4R", "tav", [](benchmark::State& st, Size2 s) {
        Buf b(std::size_t(s.w) * s.h * 16);
        const Tav32f v[4] = {1.f, 2.f, 3.f, 4.f};
        for (auto _ : st) taviSet_32f_C4R(v, b.as<Tav32f>(), s.w * 16, {s.w, s.h});
        set_bytes(st, b.bytes);
    });
#ifdef TAV_HAVE_OPENCV
    add("taviCopy_8u_C1R", "opencv:copyTo", [](benchmark::State& st, Size2 s) {
        cv::Mat a(s.h, s.w, CV_8UC1), b(s.h, s.w, CV_8UC1);
        cv::randu(a, 0, 255);
        for (auto _ : st) a.copyTo(b);
        set_bytes(st, 2 * a.total());
    });
    add("taviSet_8u_C1R", "opencv:setTo", [](benchmark::State& st, Size2 s) {
        cv::Mat b(s.h, s.w, CV_8UC1);
        for (auto _ : st) b.setTo(cv::Scalar(0x5a));
        set_bytes(st, b.total());
    });
    add("taviSet_32f_C4R", "opencv:setTo", [](benchmark::State& st, Size2 s) {
        cv::Mat b(s.h, s.w, CV_32FC4);
        for (auto _ : st) b.setTo(cv::Scalar(1, 2, 3, 4));
        set_bytes(st, b.total() * 16);
    });
#endif
    return true;
}();

}  // namespace
