// Transposes and mirrors against OpenCV.
#include "bench_util.h"

namespace {

using namespace tavbench;

template <class T, class F>
void mirror_row(const char* row, int channels, int flip, F fn) {
    add(row, "tav", [=](benchmark::State& st, Size2 s) {
        const int rowBytes = s.w * channels * int(sizeof(T));
        Buf a(std::size_t(rowBytes) * s.h), b(std::size_t(rowBytes) * s.h);
        for (auto _ : st) fn(a.as<T>(), rowBytes, b.as<T>(), rowBytes, TaviSize{s.w, s.h}, flip);
        set_bytes(st, 2 * a.bytes);
    });
#ifdef TAV_HAVE_OPENCV
    // cv::flip codes: 0 about the x axis (rows exchanged), 1 about y, -1 both.
    const int cvFlip = flip == 0 ? 0 : flip == 1 ? 1 : -1;
    add(row, "opencv:flip", [=](benchmark::State& st, Size2 s) {
        cv::Mat a(s.h, s.w, CV_MAKETYPE(cv::DataType<T>::depth, channels)), b = a.clone();
        cv::randu(a, 0, 255);
        for (auto _ : st) cv::flip(a, b, cvFlip);
        set_bytes(st, 2 * a.total() * a.elemSize());
    });
#endif
}

template <class T, class F>
void transpose_row(const char* row, F fn) {
    add(row, "tav", [=](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h * sizeof(T)), b(std::size_t(s.w) * s.h * sizeof(T));
        for (auto _ : st) fn(a.as<T>(), s.w * int(sizeof(T)), b.as<T>(), s.h * int(sizeof(T)), TaviSize{s.w, s.h});
        set_bytes(st, 2 * a.bytes);
    });
#ifdef TAV_HAVE_OPENCV
    add(row, "opencv:transpose", [=](benchmark::State& st, Size2 s) {
        cv::Mat a(s.h, s.w, cv::DataType<T>::type), b(s.w, s.h, cv::DataType<T>::type);
        cv::randu(a, 0, 255);
        for (auto _ : st) cv::transpose(a, b);
        set_bytes(st, 2 * a.total() * a.elemSize());
    });
#endif
}

const bool registered = [] {
    transpose_row<Tav8u>("taviTranspose_8u_C1R", taviTranspose_8u_C1R);
    transpose_row<Tav32f>("taviTranspose_32f_C1R", taviTranspose_32f_C1R);
    mirror_row<Tav8u>("taviMirror_8u_C1R/flip0", 1, 0, taviMirror_8u_C1R);
    mirror_row<Tav8u>("taviMirror_8u_C1R/flip1", 1, 1, taviMirror_8u_C1R);
    mirror_row<Tav8u>("taviMirror_8u_C1R/flip2", 1, 2, taviMirror_8u_C1R);
    mirror_row<Tav8u>("taviMirror_8u_C3R/flip0", 3, 0, taviMirror_8u_C3R);
    mirror_row<Tav8u>("taviMirror_8u_C3R/flip1", 3, 1, taviMirror_8u_C3R);
    mirror_row<Tav8u>("taviMirror_8u_C3R/flip2", 3, 2, taviMirror_8u_C3R);
    return true;
}();

}  // namespace
