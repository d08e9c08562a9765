// Histograms against cv::calcHist: 256 bins over the type's range (uniform),
// and 256 uneven bins for 32f.
#include <vector>

#include "stats/stats_bench.h"

namespace {

using namespace tavbench;

constexpr int kBins = 256;

// Levels lo + (hi - lo) * (i / bins)^1.5: uneven, ascending.
std::vector<float> uneven_levels(float lo, float hi) {
    std::vector<float> v(kBins + 1);
    for (int i = 0; i <= kBins; ++i) v[i] = lo + (hi - lo) * std::pow(float(i) / kBins, 1.5f);
    return v;
}

struct HistSetup {
    std::vector<Tav8u> spec, buffer;
    std::vector<Tav32u> hist = std::vector<Tav32u>(kBins);
    HistSetup(TavDataType type, float lo, float hi, bool uniform) {
        int n = kBins + 1, specSize = 0, bufSize = 0;
        taviHistogramGetBufferSize(type, {1, 1}, &n, 1, uniform, &specSize, &bufSize);
        spec.resize(specSize);
        buffer.resize(bufSize + 1);
        auto* s = reinterpret_cast<TaviHistogramSpec*>(spec.data());
        if (uniform) {
            taviHistogramUniformInit(type, &lo, &hi, &n, 1, s);
        } else {
            const std::vector<float> lv = uneven_levels(lo, hi);
            const float* p = lv.data();
            taviHistogramInit(type, &p, &n, 1, s);
        }
    }
    const TaviHistogramSpec* get() const { return reinterpret_cast<const TaviHistogramSpec*>(spec.data()); }
};

const bool registered = [] {
    add("taviHistogram_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Img<Tav8u> a(s, 1, 0, 255);
        HistSetup h(tav8u, 0, 256, true);
        for (auto _ : st) taviHistogram_8u_C1R(a.p(), a.step, {s.w, s.h}, h.hist.data(), h.get(), h.buffer.data());
        set_bytes(st, a.buf.bytes);
    });
    add("taviHistogram_16u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Img<Tav16u> a(s, 1, 0, 65535);
        HistSetup h(tav16u, 0, 65536, true);
        for (auto _ : st) taviHistogram_16u_C1R(a.p(), a.step, {s.w, s.h}, h.hist.data(), h.get(), h.buffer.data());
        set_bytes(st, a.buf.bytes);
    });
    add("taviHistogram_32f_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Img<Tav32f> a(s, 1, 0, 1);
        HistSetup h(tav32f, 0, 1, true);
        for (auto _ : st) taviHistogram_32f_C1R(a.p(), a.step, {s.w, s.h}, h.hist.data(), h.get());
        set_bytes(st, a.buf.bytes);
    });
    add("taviHistogram_32f_C1R_uneven", "tav", [](benchmark::State& st, Size2 s) {
        Img<Tav32f> a(s, 1, 0, 1);
        HistSetup h(tav32f, 0, 1, false);
        for (auto _ : st) taviHistogram_32f_C1R(a.p(), a.step, {s.w, s.h}, h.hist.data(), h.get());
        set_bytes(st, a.buf.bytes);
    });
#ifdef TAV_HAVE_OPENCV
    auto calc = [](float lo, float hi, bool uniform) {
        return [=](const cv::Mat& m) {
            thread_local cv::Mat hist;
            const int channels[] = {0}, size[] = {kBins};
            if (uniform) {
                const float range[] = {lo, hi};
                const float* ranges[] = {range};
                cv::calcHist(&m, 1, channels, cv::Mat(), hist, 1, size, ranges, true, false);
            } else {
                static const std::vector<float> lv = uneven_levels(lo, hi);
                const float* ranges[] = {lv.data()};
                cv::calcHist(&m, 1, channels, cv::Mat(), hist, 1, size, ranges, false, false);
            }
            keep(hist.data);
        };
    };
    peer("taviHistogram_8u_C1R", "calcHist", CV_8UC1, 0, 256, calc(0, 256, true));
    peer("taviHistogram_16u_C1R", "calcHist", CV_16UC1, 0, 65536, calc(0, 65536, true));
    peer("taviHistogram_32f_C1R", "calcHist", CV_32FC1, 0, 1, calc(0, 1, true));
    peer("taviHistogram_32f_C1R_uneven", "calcHist", CV_32FC1, 0, 1, calc(0, 1, false));
#endif
    return true;
}();

}  // namespace
