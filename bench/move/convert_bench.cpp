// Depth conversions against OpenCV's Mat::convertTo, plain and with an
// affine scale (alpha, beta) against taviScaleC.
#include <cmath>
#include <functional>

#include "bench_util.h"

namespace {

using namespace tavbench;

template <class T>
T sample(std::mt19937& r) {
    if constexpr (std::is_floating_point_v<T>) return static_cast<T>(std::uniform_real_distribution<double>(-20, 280)(r));
    else return static_cast<T>(r());
}

#ifdef TAV_HAVE_OPENCV
template <class T>
constexpr int cv_depth() {
    if constexpr (std::is_same_v<T, Tav8u>) return CV_8U;
    else if constexpr (std::is_same_v<T, Tav16u>) return CV_16U;
    else if constexpr (std::is_same_v<T, Tav16s>) return CV_16S;
    else return CV_32F;
}
#endif

// One row: ours through `call(src, srcStep, dst, dstStep, size)`, the peer
// as convertTo(alpha, beta) between the same types.
template <class S, class D>
void pair(const std::string& row, std::function<void(const S*, int, D*, int, TaviSize)> call, double alpha = 1,
          double beta = 0) {
    add(row, "tav", [call](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h * sizeof(S)), b(std::size_t(s.w) * s.h * sizeof(D));
        fill<S>(a, sample<S>);
        for (auto _ : st) call(a.as<S>(), s.w * sizeof(S), b.as<D>(), s.w * sizeof(D), {s.w, s.h});
        set_bytes(st, a.bytes + b.bytes);
    });
#ifdef TAV_HAVE_OPENCV
    add(row, "opencv:convertTo", [alpha, beta](benchmark::State& st, Size2 s) {
        Buf a(std::size_t(s.w) * s.h * sizeof(S));
        fill<S>(a, sample<S>);
        cv::Mat src(s.h, s.w, CV_MAKETYPE(cv_depth<S>(), 1), a.p), dst(s.h, s.w, CV_MAKETYPE(cv_depth<D>(), 1));
        for (auto _ : st) src.convertTo(dst, cv_depth<D>(), alpha, beta);
        set_bytes(st, src.total() * sizeof(S) + dst.total() * sizeof(D));
    });
#endif
}

const bool registered = [] {
    pair<Tav8u, Tav32f>("taviConvert_8u32f_C1R", taviConvert_8u32f_C1R);
    pair<Tav32f, Tav8u>("taviConvert_32f8u_C1R", [](const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r) {
        taviConvert_32f8u_C1R(s, ss, d, ds, r, tavRndNear);
    });
    pair<Tav16s, Tav32f>("taviConvert_16s32f_C1R", taviConvert_16s32f_C1R);
    pair<Tav32f, Tav16s>("taviConvert_32f16s_C1R", [](const Tav32f* s, int ss, Tav16s* d, int ds, TaviSize r) {
        taviConvert_32f16s_C1R(s, ss, d, ds, r, tavRndNear);
    });
    pair<Tav8u, Tav16u>("taviConvert_8u16u_C1R", taviConvert_8u16u_C1R);

    const double m = 0.75, a = 12.5;
    pair<Tav8u, Tav8u>(
        "taviScaleC_8u_C1R", [m, a](const Tav8u* s, int ss, Tav8u* d, int ds, TaviSize r) {
            taviScaleC_8u_C1R(s, ss, m, a, d, ds, r, tavAlgHintNone);
        },
        m, a);
    pair<Tav8u, Tav32f>(
        "taviScaleC_8u32f_C1R", [m, a](const Tav8u* s, int ss, Tav32f* d, int ds, TaviSize r) {
            taviScaleC_8u32f_C1R(s, ss, m, a, d, ds, r, tavAlgHintNone);
        },
        m, a);
    pair<Tav32f, Tav8u>(
        "taviScaleC_32f8u_C1R", [m, a](const Tav32f* s, int ss, Tav8u* d, int ds, TaviSize r) {
            taviScaleC_32f8u_C1R(s, ss, m, a, d, ds, r, tavAlgHintNone);
        },
        m, a);
    pair<Tav16s, Tav8u>(
        "taviScaleC_16s8u_C1R", [m, a](const Tav16s* s, int ss, Tav8u* d, int ds, TaviSize r) {
            taviScaleC_16s8u_C1R(s, ss, m, a, d, ds, r, tavAlgHintNone);
        },
        m, a);
    return true;
}();

}  // namespace
