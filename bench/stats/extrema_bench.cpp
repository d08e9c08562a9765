// Sums, means, extrema and positions against OpenCV.
#include "stats/stats_bench.h"

namespace {

using namespace tavbench;

const bool registered = [] {
    // Sums and means.
    ours<Tav8u>("taviSum_8u_C1R", 1, 0, 255, [](auto& a, Size2 s) { Tav64f r; taviSum_8u_C1R(a.p(), a.step, {s.w, s.h}, &r); keep(r); });
    ours<Tav8u>("taviSum_8u_C3R", 3, 0, 255, [](auto& a, Size2 s) { Tav64f r[3]; taviSum_8u_C3R(a.p(), a.step, {s.w, s.h}, r); keep(r[0]); });
    ours<Tav8u>("taviSum_8u_C4R", 4, 0, 255, [](auto& a, Size2 s) { Tav64f r[4]; taviSum_8u_C4R(a.p(), a.step, {s.w, s.h}, r); keep(r[0]); });
    ours<Tav16u>("taviSum_16u_C1R", 1, 0, 65535, [](auto& a, Size2 s) { Tav64f r; taviSum_16u_C1R(a.p(), a.step, {s.w, s.h}, &r); keep(r); });
    ours<Tav16s>("taviSum_16s_C3R", 3, -32768, 32767, [](auto& a, Size2 s) { Tav64f r[3]; taviSum_16s_C3R(a.p(), a.step, {s.w, s.h}, r); keep(r[0]); });
    ours<Tav32f>("taviSum_32f_C1R", 1, -1, 1, [](auto& a, Size2 s) { Tav64f r; taviSum_32f_C1R(a.p(), a.step, {s.w, s.h}, &r, tavAlgHintNone); keep(r); });
    ours<Tav32f>("taviSum_32f_C1R_accurate", 1, -1, 1, [](auto& a, Size2 s) { Tav64f r; taviSum_32f_C1R(a.p(), a.step, {s.w, s.h}, &r, tavAlgHintAccurate); keep(r); });
    ours<Tav32f>("taviSum_32f_C3R", 3, -1, 1, [](auto& a, Size2 s) { Tav64f r[3]; taviSum_32f_C3R(a.p(), a.step, {s.w, s.h}, r, tavAlgHintNone); keep(r[0]); });
    ours<Tav32f>("taviSum_32f_C4R", 4, -1, 1, [](auto& a, Size2 s) { Tav64f r[4]; taviSum_32f_C4R(a.p(), a.step, {s.w, s.h}, r, tavAlgHintNone); keep(r[0]); });
    ours<Tav8u>("taviMean_8u_C1R", 1, 0, 255, [](auto& a, Size2 s) { Tav64f r; taviMean_8u_C1R(a.p(), a.step, {s.w, s.h}, &r); keep(r); });
    ours<Tav32f>("taviMean_32f_C3R", 3, -1, 1, [](auto& a, Size2 s) { Tav64f r[3]; taviMean_32f_C3R(a.p(), a.step, {s.w, s.h}, r, tavAlgHintNone); keep(r[0]); });

    // Extrema without positions.
    ours<Tav8u>("taviMinMax_8u_C1R", 1, 0, 255, [](auto& a, Size2 s) { Tav8u x, y; taviMinMax_8u_C1R(a.p(), a.step, {s.w, s.h}, &x, &y); keep(x + y); });
    ours<Tav16s>("taviMinMax_16s_C1R", 1, -32768, 32767, [](auto& a, Size2 s) { Tav16s x, y; taviMinMax_16s_C1R(a.p(), a.step, {s.w, s.h}, &x, &y); keep(x + y); });
    ours<Tav32f>("taviMinMax_32f_C1R", 1, -1, 1, [](auto& a, Size2 s) { Tav32f x, y; taviMinMax_32f_C1R(a.p(), a.step, {s.w, s.h}, &x, &y); keep(x + y); });
    ours<Tav8u>("taviMin_8u_C1R", 1, 1, 255, [](auto& a, Size2 s) { Tav8u x; taviMin_8u_C1R(a.p(), a.step, {s.w, s.h}, &x); keep(x); });
    ours<Tav32f>("taviMax_32f_C1R", 1, -1, 1, [](auto& a, Size2 s) { Tav32f x; taviMax_32f_C1R(a.p(), a.step, {s.w, s.h}, &x); keep(x); });

    // Positions.
    ours<Tav8u>("taviMinIndx_8u_C1R", 1, 1, 255, [](auto& a, Size2 s) { Tav8u v; int x, y; taviMinIndx_8u_C1R(a.p(), a.step, {s.w, s.h}, &v, &x, &y); keep(x + y); });
    ours<Tav8u>("taviMaxIndx_8u_C1R", 1, 0, 254, [](auto& a, Size2 s) { Tav8u v; int x, y; taviMaxIndx_8u_C1R(a.p(), a.step, {s.w, s.h}, &v, &x, &y); keep(x + y); });
    ours<Tav16u>("taviMinIndx_16u_C1R", 1, 1, 65535, [](auto& a, Size2 s) { Tav16u v; int x, y; taviMinIndx_16u_C1R(a.p(), a.step, {s.w, s.h}, &v, &x, &y); keep(x + y); });
    ours<Tav32f>("taviMinIndx_32f_C1R", 1, -1, 1, [](auto& a, Size2 s) { Tav32f v; int x, y; taviMinIndx_32f_C1R(a.p(), a.step, {s.w, s.h}, &v, &x, &y); keep(x + y); });
    ours<Tav32f>("taviMaxIndx_32f_C1R", 1, -1, 1, [](auto& a, Size2 s) { Tav32f v; int x, y; taviMaxIndx_32f_C1R(a.p(), a.step, {s.w, s.h}, &v, &x, &y); keep(x + y); });

    // Per-element extrema of two images.
    // The out-of-place forms write a third image, as the peer does.
    ours3<Tav8u>("taviMaxEvery_8u_C1R", 0, 255, [](auto& a, auto& b, auto& d, Size2 s) {
        taviMaxEvery_8u_C1R(a.p(), a.step, b.p(), b.step, d.p(), d.step, {s.w, s.h});
    });
    ours3<Tav32f>("taviMinEvery_32f_C1R", -1, 1, [](auto& a, auto& b, auto& d, Size2 s) {
        taviMinEvery_32f_C1R(a.p(), a.step, b.p(), b.step, d.p(), d.step, {s.w, s.h});
    });
    ours2<Tav16u>("taviMaxEvery_16u_C1IR", 1, 0, 65535, [](auto& a, auto& b, Size2 s) {
        taviMaxEvery_16u_C1IR(a.p(), a.step, b.p(), b.step, {s.w, s.h});
    });

#ifdef TAV_HAVE_OPENCV
    auto sum = [](const cv::Mat& m) { keep(cv::sum(m)[0]); };
    auto mean = [](const cv::Mat& m) { keep(cv::mean(m)[0]); };
    peer("taviSum_8u_C1R", "sum", CV_8UC1, 0, 256, sum);
    peer("taviSum_8u_C3R", "sum", CV_8UC3, 0, 256, sum);
    peer("taviSum_8u_C4R", "sum", CV_8UC4, 0, 256, sum);
    peer("taviSum_16u_C1R", "sum", CV_16UC1, 0, 65536, sum);
    peer("taviSum_16s_C3R", "sum", CV_16SC3, -32768, 32768, sum);
    peer("taviSum_32f_C1R", "sum", CV_32FC1, -1, 1, sum);
    peer("taviSum_32f_C1R_accurate", "sum", CV_32FC1, -1, 1, sum);
    peer("taviSum_32f_C3R", "sum", CV_32FC3, -1, 1, sum);
    peer("taviSum_32f_C4R", "sum", CV_32FC4, -1, 1, sum);
    peer("taviMean_8u_C1R", "mean", CV_8UC1, 0, 256, mean);
    peer("taviMean_32f_C3R", "mean", CV_32FC3, -1, 1, mean);

    auto minmax = [](const cv::Mat& m) { double a, b; cv::minMaxIdx(m, &a, &b); keep(a + b); };
    auto minonly = [](const cv::Mat& m) { double a; cv::minMaxIdx(m, &a, nullptr); keep(a); };
    auto maxonly = [](const cv::Mat& m) { double b; cv::minMaxIdx(m, nullptr, &b); keep(b); };
    peer("taviMinMax_8u_C1R", "minMaxIdx", CV_8UC1, 0, 256, minmax);
    peer("taviMinMax_16s_C1R", "minMaxIdx", CV_16SC1, -32768, 32768, minmax);
    peer("taviMinMax_32f_C1R", "minMaxIdx", CV_32FC1, -1, 1, minmax);
    peer("taviMin_8u_C1R", "minMaxIdx", CV_8UC1, 1, 256, minonly);
    peer("taviMax_32f_C1R", "minMaxIdx", CV_32FC1, -1, 1, maxonly);

    auto minloc = [](const cv::Mat& m) { double a; cv::Point p; cv::minMaxLoc(m, &a, nullptr, &p, nullptr); keep(p.x); };
    auto maxloc = [](const cv::Mat& m) { double b; cv::Point p; cv::minMaxLoc(m, nullptr, &b, nullptr, &p); keep(p.x); };
    peer("taviMinIndx_8u_C1R", "minMaxLoc", CV_8UC1, 1, 256, minloc);
    peer("taviMaxIndx_8u_C1R", "minMaxLoc", CV_8UC1, 0, 255, maxloc);
    peer("taviMinIndx_16u_C1R", "minMaxLoc", CV_16UC1, 1, 65536, minloc);
    peer("taviMinIndx_32f_C1R", "minMaxLoc", CV_32FC1, -1, 1, minloc);
    peer("taviMaxIndx_32f_C1R", "minMaxLoc", CV_32FC1, -1, 1, maxloc);

    peer3("taviMaxEvery_8u_C1R", "max", CV_8UC1, 0, 256, [](const cv::Mat& a, const cv::Mat& b, cv::Mat& d) { cv::max(a, b, d); });
    peer3("taviMinEvery_32f_C1R", "min", CV_32FC1, -1, 1, [](const cv::Mat& a, const cv::Mat& b, cv::Mat& d) { cv::min(a, b, d); });
    peer2("taviMaxEvery_16u_C1IR", "max", CV_16UC1, 0, 65536, [](const cv::Mat& a, cv::Mat& b) { cv::max(a, b, b); });
#endif
    return true;
}();

}  // namespace
