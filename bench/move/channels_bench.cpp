// Layout conversions, channel swaps and masked copies against OpenCV.
#include "bench_util.h"

namespace {

using namespace tavbench;

const bool registered = [] {
    add("taviCopy_8u_C3P3R", "tav", [](benchmark::State& st, Size2 s) {
        const std::size_t n = std::size_t(s.w) * s.h;
        Buf a(3 * n), p0(n), p1(n), p2(n);
        Tav8u* const planes[3] = {p0.p, p1.p, p2.p};
        for (auto _ : st) taviCopy_8u_C3P3R(a.p, 3 * s.w, planes, s.w, {s.w, s.h});
        set_bytes(st, 6 * n);
    });
    add("taviCopy_8u_P3C3R", "tav", [](benchmark::State& st, Size2 s) {
        const std::size_t n = std::size_t(s.w) * s.h;
        Buf a(3 * n), p0(n), p1(n), p2(n);
        const Tav8u* const planes[3] = {p0.p, p1.p, p2.p};
        for (auto _ : st) taviCopy_8u_P3C3R(planes, s.w, a.p, 3 * s.w, {s.w, s.h});
        set_bytes(st, 6 * n);
    });
    add("taviCopy_8u_AC4C3R", "tav", [](benchmark::State& st, Size2 s) {
        const std::size_t n = std::size_t(s.w) * s.h;
        Buf a(4 * n), b(3 * n);
        for (auto _ : st) taviCopy_8u_AC4C3R(a.p, 4 * s.w, b.p, 3 * s.w, {s.w, s.h});
        set_bytes(st, 7 * n);
    });
    add("taviSwapChannels_8u_C3R", "tav", [](benchmark::State& st, Size2 s) {
        const std::size_t n = std::size_t(s.w) * s.h;
        Buf a(3 * n), b(3 * n);
        const int order[3] = {2, 1, 0};
        for (auto _ : st) taviSwapChannels_8u_C3R(a.p, 3 * s.w, b.p, 3 * s.w, {s.w, s.h}, order);
        set_bytes(st, 6 * n);
    });
    add("taviCopy_8u_C1MR", "tav", [](benchmark::State& st, Size2 s) {
        const std::size_t n = std::size_t(s.w) * s.h;
        Buf a(n), b(n), m(n);
        for (std::size_t i = 0; i < n; ++i) m.p[i] = m.p[i] & 1 ? 255 : 0;
        for (auto _ : st) taviCopy_8u_C1MR(a.p, s.w, b.p, s.w, {s.w, s.h}, m.p, s.w);
        set_bytes(st, 3 * n);
    });
#ifdef TAV_HAVE_OPENCV
    add("taviCopy_8u_C3P3R", "opencv:split", [](benchmark::State& st, Size2 s) {
        cv::Mat a(s.h, s.w, CV_8UC3);
        cv::randu(a, 0, 255);
        std::vector<cv::Mat> planes = {cv::Mat(s.h, s.w, CV_8UC1), cv::Mat(s.h, s.w, CV_8UC1),
                                       cv::Mat(s.h, s.w, CV_8UC1)};
        for (auto _ : st) cv::split(a, planes);
        set_bytes(st, 6 * a.total());
    });
    add("taviCopy_8u_P3C3R", "opencv:merge", [](benchmark::State& st, Size2 s) {
        std::vector<cv::Mat> planes = {cv::Mat(s.h, s.w, CV_8UC1), cv::Mat(s.h, s.w, CV_8UC1),
                                       cv::Mat(s.h, s.w, CV_8UC1)};
        for (auto& p : planes) cv::randu(p, 0, 255);
        cv::Mat a(s.h, s.w, CV_8UC3);
        for (auto _ : st) cv::merge(planes, a);
        set_bytes(st, 6 * a.total());
    });
    add("taviCopy_8u_AC4C3R", "opencv:cvtColor", [](benchmark::State& st, Size2 s) {
        cv::Mat a(s.h, s.w, CV_8UC4), b(s.h, s.w, CV_8UC3);
        cv::randu(a, 0, 255);
        for (auto _ : st) cv::cvtColor(a, b, cv::COLOR_RGBA2RGB);
        set_bytes(st, 7 * a.total());
    });
    add("taviSwapChannels_8u_C3R", "opencv:cvtColor", [](benchmark::State& st, Size2 s) {
        cv::Mat a(s.h, s.w, CV_8UC3), b(s.h, s.w, CV_8UC3);
        cv::randu(a, 0, 255);
        for (auto _ : st) cv::cvtColor(a, b, cv::COLOR_RGB2BGR);
        set_bytes(st, 6 * a.total());
    });
    add("taviCopy_8u_C1MR", "opencv:copyTo", [](benchmark::State& st, Size2 s) {
        cv::Mat a(s.h, s.w, CV_8UC1), b(s.h, s.w, CV_8UC1), m(s.h, s.w, CV_8UC1);
        cv::randu(a, 0, 255);
        cv::randu(m, 0, 2);
        m *= 255;
        for (auto _ : st) a.copyTo(b, m);
        set_bytes(st, 3 * a.total());
    });
#endif
    return true;
}();

}  // namespace
