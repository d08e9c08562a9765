// Border copies against OpenCV's copyMakeBorder: constant, replicate and
// mirror (reflect-101) frames of 1, 8 and 64 pixels around the image.
#include <functional>
#include <string>

#include "bench_util.h"

namespace {

using namespace tavbench;


using Call = std::function<void(const void*, int, TaviSize, void*, int, TaviSize, int)>;

void row(const std::string& name, int pixelBytes, int border, Call call, [[maybe_unused]] int cvType,
         [[maybe_unused]] int cvBorder) {
    const std::string r = name + "/border" + std::to_string(border);
    add(r, "tav", [=](benchmark::State& st, Size2 s) {
        const int dw = s.w + 2 * border, dh = s.h + 2 * border;
        Buf a(std::size_t(s.w) * s.h * pixelBytes), b(std::size_t(dw) * dh * pixelBytes);
        for (auto _ : st) call(a.p, s.w * pixelBytes, {s.w, s.h}, b.p, dw * pixelBytes, {dw, dh}, border);
        set_bytes(st, a.bytes + b.bytes);
    });
#ifdef TAV_HAVE_OPENCV
    add(r, "opencv:copyMakeBorder", [=](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h * pixelBytes);
        cv::Mat src(s.h, s.w, cvType, a.p), dst(s.h + 2 * border, s.w + 2 * border, cvType);
        for (auto _ : st) cv::copyMakeBorder(src, dst, border, border, border, border, cvBorder, cv::Scalar::all(7));
        set_bytes(st, src.total() * pixelBytes + dst.total() * pixelBytes);
    });
#endif
}

#ifndef TAV_HAVE_OPENCV
constexpr int CV_8UC1 = 0, CV_8UC3 = 0, CV_32FC1 = 0;
constexpr int BORDER_CONSTANT = 0, BORDER_REPLICATE = 0, BORDER_REFLECT_101 = 0;
#else
using cv::BORDER_CONSTANT;
using cv::BORDER_REFLECT_101;
using cv::BORDER_REPLICATE;
#endif

template <class T>
const T* as(const void* p) {
    return static_cast<const T*>(p);
}
template <class T>
T* as(void* p) {
    return static_cast<T*>(p);
}

const bool registered = [] {
    const Tav8u v3[3] = {7, 7, 7};
    for (int b : {1, 8, 64}) {
        row("taviCopyConstBorder_8u_C1R", 1, b, [](const void* s, int ss, TaviSize sr, void* d, int ds, TaviSize dr, int k) {
            taviCopyConstBorder_8u_C1R(as<Tav8u>(s), ss, sr, as<Tav8u>(d), ds, dr, k, k, 7);
        }, CV_8UC1, BORDER_CONSTANT);
        row("taviCopyConstBorder_8u_C3R", 3, b, [v3](const void* s, int ss, TaviSize sr, void* d, int ds, TaviSize dr, int k) {
            taviCopyConstBorder_8u_C3R(as<Tav8u>(s), ss, sr, as<Tav8u>(d), ds, dr, k, k, v3);
        }, CV_8UC3, BORDER_CONSTANT);
        row("taviCopyConstBorder_32f_C1R", 4, b, [](const void* s, int ss, TaviSize sr, void* d, int ds, TaviSize dr, int k) {
            taviCopyConstBorder_32f_C1R(as<Tav32f>(s), ss, sr, as<Tav32f>(d), ds, dr, k, k, 7.0f);
        }, CV_32FC1, BORDER_CONSTANT);
        row("taviCopyReplicateBorder_8u_C1R", 1, b, [](const void* s, int ss, TaviSize sr, void* d, int ds, TaviSize dr, int k) {
            taviCopyReplicateBorder_8u_C1R(as<Tav8u>(s), ss, sr, as<Tav8u>(d), ds, dr, k, k);
        }, CV_8UC1, BORDER_REPLICATE);
        row("taviCopyReplicateBorder_8u_C3R", 3, b, [](const void* s, int ss, TaviSize sr, void* d, int ds, TaviSize dr, int k) {
            taviCopyReplicateBorder_8u_C3R(as<Tav8u>(s), ss, sr, as<Tav8u>(d), ds, dr, k, k);
        }, CV_8UC3, BORDER_REPLICATE);
        row("taviCopyReplicateBorder_32f_C1R", 4, b, [](const void* s, int ss, TaviSize sr, void* d, int ds, TaviSize dr, int k) {
            taviCopyReplicateBorder_32f_C1R(as<Tav32f>(s), ss, sr, as<Tav32f>(d), ds, dr, k, k);
        }, CV_32FC1, BORDER_REPLICATE);
        row("taviCopyMirrorBorder_8u_C1R", 1, b, [](const void* s, int ss, TaviSize sr, void* d, int ds, TaviSize dr, int k) {
            taviCopyMirrorBorder_8u_C1R(as<Tav8u>(s), ss, sr, as<Tav8u>(d), ds, dr, k, k);
        }, CV_8UC1, BORDER_REFLECT_101);
        row("taviCopyMirrorBorder_8u_C3R", 3, b, [](const void* s, int ss, TaviSize sr, void* d, int ds, TaviSize dr, int k) {
            taviCopyMirrorBorder_8u_C3R(as<Tav8u>(s), ss, sr, as<Tav8u>(d), ds, dr, k, k);
        }, CV_8UC3, BORDER_REFLECT_101);
        row("taviCopyMirrorBorder_32f_C1R", 4, b, [](const void* s, int ss, TaviSize sr, void* d, int ds, TaviSize dr, int k) {
            taviCopyMirrorBorder_32f_C1R(as<Tav32f>(s), ss, sr, as<Tav32f>(d), ds, dr, k, k);
        }, CV_32FC1, BORDER_REFLECT_101);
    }
    return true;
}();

}  // namespace
