// Norms, dot products and range counts against OpenCV.
#include "stats/stats_bench.h"

namespace {

using namespace tavbench;

const bool registered = [] {
    // One image.
    ours<Tav8u>("taviNorm_Inf_8u_C1R", 1, 0, 255, [](auto& a, Size2 s) { Tav64f r; taviNorm_Inf_8u_C1R(a.p(), a.step, {s.w, s.h}, &r); keep(r); });
    ours<Tav8u>("taviNorm_L1_8u_C1R", 1, 0, 255, [](auto& a, Size2 s) { Tav64f r; taviNorm_L1_8u_C1R(a.p(), a.step, {s.w, s.h}, &r); keep(r); });
    ours<Tav8u>("taviNorm_L2_8u_C1R", 1, 0, 255, [](auto& a, Size2 s) { Tav64f r; taviNorm_L2_8u_C1R(a.p(), a.step, {s.w, s.h}, &r); keep(r); });
    ours<Tav8u>("taviNorm_L2_8u_C3R", 3, 0, 255, [](auto& a, Size2 s) { Tav64f r[3]; taviNorm_L2_8u_C3R(a.p(), a.step, {s.w, s.h}, r); keep(r[0]); });
    ours<Tav16u>("taviNorm_L2_16u_C1R", 1, 0, 65535, [](auto& a, Size2 s) { Tav64f r; taviNorm_L2_16u_C1R(a.p(), a.step, {s.w, s.h}, &r); keep(r); });
    ours<Tav16s>("taviNorm_L1_16s_C1R", 1, -32768, 32767, [](auto& a, Size2 s) { Tav64f r; taviNorm_L1_16s_C1R(a.p(), a.step, {s.w, s.h}, &r); keep(r); });
    ours<Tav16s>("taviNorm_Inf_16s_C1R", 1, -32768, 32767, [](auto& a, Size2 s) { Tav64f r; taviNorm_Inf_16s_C1R(a.p(), a.step, {s.w, s.h}, &r); keep(r); });
    ours<Tav32f>("taviNorm_Inf_32f_C1R", 1, -1, 1, [](auto& a, Size2 s) { Tav64f r; taviNorm_Inf_32f_C1R(a.p(), a.step, {s.w, s.h}, &r); keep(r); });
    ours<Tav32f>("taviNorm_L1_32f_C1R", 1, -1, 1, [](auto& a, Size2 s) { Tav64f r; taviNorm_L1_32f_C1R(a.p(), a.step, {s.w, s.h}, &r, tavAlgHintNone); keep(r); });
    ours<Tav32f>("taviNorm_L2_32f_C1R", 1, -1, 1, [](auto& a, Size2 s) { Tav64f r; taviNorm_L2_32f_C1R(a.p(), a.step, {s.w, s.h}, &r, tavAlgHintNone); keep(r); });
    ours<Tav32f>("taviNorm_L2_32f_C1R_accurate", 1, -1, 1, [](auto& a, Size2 s) { Tav64f r; taviNorm_L2_32f_C1R(a.p(), a.step, {s.w, s.h}, &r, tavAlgHintAccurate); keep(r); });
    ours<Tav32f>("taviNorm_L2_32f_C3R", 3, -1, 1, [](auto& a, Size2 s) { Tav64f r[3]; taviNorm_L2_32f_C3R(a.p(), a.step, {s.w, s.h}, r, tavAlgHintNone); keep(r[0]); });

    // Two images.
    ours2<Tav8u>("taviNormDiff_Inf_8u_C1R", 1, 0, 255, [](auto& a, auto& b, Size2 s) { Tav64f r; taviNormDiff_Inf_8u_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav8u>("taviNormDiff_L1_8u_C1R", 1, 0, 255, [](auto& a, auto& b, Size2 s) { Tav64f r; taviNormDiff_L1_8u_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav8u>("taviNormDiff_L2_8u_C1R", 1, 0, 255, [](auto& a, auto& b, Size2 s) { Tav64f r; taviNormDiff_L2_8u_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav16s>("taviNormDiff_L2_16s_C1R", 1, -32768, 32767, [](auto& a, auto& b, Size2 s) { Tav64f r; taviNormDiff_L2_16s_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav32f>("taviNormDiff_L1_32f_C1R", 1, -1, 1, [](auto& a, auto& b, Size2 s) { Tav64f r; taviNormDiff_L1_32f_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r, tavAlgHintNone); keep(r); });
    ours2<Tav32f>("taviNormDiff_L2_32f_C1R", 1, -1, 1, [](auto& a, auto& b, Size2 s) { Tav64f r; taviNormDiff_L2_32f_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r, tavAlgHintNone); keep(r); });
    ours2<Tav32f>("taviNormDiff_Inf_32f_C1R", 1, -1, 1, [](auto& a, auto& b, Size2 s) { Tav64f r; taviNormDiff_Inf_32f_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav8u>("taviNormRel_L2_8u_C1R", 1, 0, 255, [](auto& a, auto& b, Size2 s) { Tav64f r; taviNormRel_L2_8u_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav32f>("taviNormRel_L2_32f_C1R", 1, -1, 1, [](auto& a, auto& b, Size2 s) { Tav64f r; taviNormRel_L2_32f_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r, tavAlgHintNone); keep(r); });

    // Dot products.
    ours2<Tav8u>("taviDotProd_8u64f_C1R", 1, 0, 255, [](auto& a, auto& b, Size2 s) { Tav64f r; taviDotProd_8u64f_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav16s>("taviDotProd_16s64f_C1R", 1, -32768, 32767, [](auto& a, auto& b, Size2 s) { Tav64f r; taviDotProd_16s64f_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav16u>("taviDotProd_16u64f_C1R", 1, 0, 65535, [](auto& a, auto& b, Size2 s) { Tav64f r; taviDotProd_16u64f_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav32f>("taviDotProd_32f64f_C1R", 1, -1, 1, [](auto& a, auto& b, Size2 s) { Tav64f r; taviDotProd_32f64f_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav32s>("taviDotProd_32s64f_C1R", 1, -1e9, 1e9, [](auto& a, auto& b, Size2 s) { Tav64f r; taviDotProd_32s64f_C1R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, &r); keep(r); });
    ours2<Tav8u>("taviDotProd_8u64f_C3R", 3, 0, 255, [](auto& a, auto& b, Size2 s) { Tav64f r[3]; taviDotProd_8u64f_C3R(a.p(), a.step, b.p(), b.step, {s.w, s.h}, r); keep(r[0]); });

    // Range counts.
    ours<Tav8u>("taviCountInRange_8u_C1R", 1, 0, 255, [](auto& a, Size2 s) { int n; taviCountInRange_8u_C1R(a.p(), a.step, {s.w, s.h}, &n, 50, 150); keep(n); });
    ours<Tav32f>("taviCountInRange_32f_C1R", 1, 0, 1, [](auto& a, Size2 s) { int n; taviCountInRange_32f_C1R(a.p(), a.step, {s.w, s.h}, &n, 0.25f, 0.75f); keep(n); });
    ours<Tav8u>("taviCountInRange_8u_C3R", 3, 0, 255, [](auto& a, Size2 s) {
        int n[3];
        const Tav8u lo[3] = {50, 60, 70}, hi[3] = {150, 160, 170};
        taviCountInRange_8u_C3R(a.p(), a.step, {s.w, s.h}, n, lo, hi);
        keep(n[0]);
    });

#ifdef TAV_HAVE_OPENCV
    auto nrm = [](int kind) { return [kind](const cv::Mat& m) { keep(cv::norm(m, kind)); }; };
    peer("taviNorm_Inf_8u_C1R", "norm", CV_8UC1, 0, 256, nrm(cv::NORM_INF));
    peer("taviNorm_L1_8u_C1R", "norm", CV_8UC1, 0, 256, nrm(cv::NORM_L1));
    peer("taviNorm_L2_8u_C1R", "norm", CV_8UC1, 0, 256, nrm(cv::NORM_L2));
    peer("taviNorm_L2_8u_C3R", "norm", CV_8UC3, 0, 256, nrm(cv::NORM_L2));
    peer("taviNorm_L2_16u_C1R", "norm", CV_16UC1, 0, 65536, nrm(cv::NORM_L2));
    peer("taviNorm_L1_16s_C1R", "norm", CV_16SC1, -32768, 32768, nrm(cv::NORM_L1));
    peer("taviNorm_Inf_16s_C1R", "norm", CV_16SC1, -32768, 32768, nrm(cv::NORM_INF));
    peer("taviNorm_Inf_32f_C1R", "norm", CV_32FC1, -1, 1, nrm(cv::NORM_INF));
    peer("taviNorm_L1_32f_C1R", "norm", CV_32FC1, -1, 1, nrm(cv::NORM_L1));
    peer("taviNorm_L2_32f_C1R", "norm", CV_32FC1, -1, 1, nrm(cv::NORM_L2));
    peer("taviNorm_L2_32f_C1R_accurate", "norm", CV_32FC1, -1, 1, nrm(cv::NORM_L2));
    peer("taviNorm_L2_32f_C3R", "norm", CV_32FC3, -1, 1, nrm(cv::NORM_L2));

    auto nrm2 = [](int kind) { return [kind](const cv::Mat& a, const cv::Mat& b) { keep(cv::norm(a, b, kind)); }; };
    peer2("taviNormDiff_Inf_8u_C1R", "norm", CV_8UC1, 0, 256, nrm2(cv::NORM_INF));
    peer2("taviNormDiff_L1_8u_C1R", "norm", CV_8UC1, 0, 256, nrm2(cv::NORM_L1));
    peer2("taviNormDiff_L2_8u_C1R", "norm", CV_8UC1, 0, 256, nrm2(cv::NORM_L2));
    peer2("taviNormDiff_L2_16s_C1R", "norm", CV_16SC1, -32768, 32768, nrm2(cv::NORM_L2));
    peer2("taviNormDiff_L1_32f_C1R", "norm", CV_32FC1, -1, 1, nrm2(cv::NORM_L1));
    peer2("taviNormDiff_L2_32f_C1R", "norm", CV_32FC1, -1, 1, nrm2(cv::NORM_L2));
    peer2("taviNormDiff_Inf_32f_C1R", "norm", CV_32FC1, -1, 1, nrm2(cv::NORM_INF));
    peer2("taviNormRel_L2_8u_C1R", "norm", CV_8UC1, 0, 256, nrm2(cv::NORM_L2 | cv::NORM_RELATIVE));
    peer2("taviNormRel_L2_32f_C1R", "norm", CV_32FC1, -1, 1, nrm2(cv::NORM_L2 | cv::NORM_RELATIVE));

    // Mat::dot does less than ours on two rows: for 32f it adds the products
    // in single precision (in blocks, errors near 1e-6 relative where ours
    // widens every element to double), for 32s it converts to double before
    // multiplying (not exact past 2^53), and on three channels it returns one
    // sum where ours keeps each channel apart.
    auto dot = [](const cv::Mat& a, const cv::Mat& b) { keep(a.dot(b)); };
    peer2("taviDotProd_8u64f_C1R", "dot", CV_8UC1, 0, 256, dot);
    peer2("taviDotProd_16s64f_C1R", "dot", CV_16SC1, -32768, 32768, dot);
    peer2("taviDotProd_16u64f_C1R", "dot", CV_16UC1, 0, 65536, dot);
    peer2("taviDotProd_32f64f_C1R", "dot", CV_32FC1, -1, 1, dot);
    peer2("taviDotProd_32s64f_C1R", "dot", CV_32SC1, -1e9, 1e9, dot);
    peer2("taviDotProd_8u64f_C3R", "dot", CV_8UC3, 0, 256, dot);

    // A count in range as OpenCV writes it: a mask of the range, then its count.
    auto range = [](double lo, double hi) {
        return [lo, hi](const cv::Mat& m) {
            thread_local cv::Mat mask;
            cv::inRange(m, cv::Scalar(lo), cv::Scalar(hi), mask);
            keep(cv::countNonZero(mask));
        };
    };
    peer("taviCountInRange_8u_C1R", "inRange+countNonZero", CV_8UC1, 0, 256, range(50, 150));
    peer("taviCountInRange_32f_C1R", "inRange+countNonZero", CV_32FC1, 0, 1, range(0.25, 0.75));
    peer("taviCountInRange_8u_C3R", "inRange+countNonZero", CV_8UC3, 0, 256, [](const cv::Mat& m) {
        // Per channel, as ours.
        thread_local cv::Mat planes[3], mask;
        cv::split(m, planes);
        int n = 0;
        for (int c = 0; c < 3; ++c) {
            cv::inRange(planes[c], cv::Scalar(50 + 10 * c), cv::Scalar(150 + 10 * c), mask);
            n += cv::countNonZero(mask);
        }
        keep(n);
    });
#endif
    return true;
}();

}  // namespace
