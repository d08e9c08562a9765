// Thresholds, compares, Otsu and lookup tables against OpenCV, each row an
// export with the peer call that computes the same bytes.
#include <cfloat>
#include <vector>

#include "bench_util.h"

namespace {

using namespace tavbench;

template <class T>
std::size_t bytes_of(Size2 s, int channels = 1) {
    return std::size_t(s.w) * s.h * channels * sizeof(T);
}

// One source and one destination image of T, tight rows.
template <class T>
struct Pair {
    Buf src, dst;
    int step;
    Pair(Size2 s, int channels = 1)
        : src(bytes_of<T>(s, channels)), dst(bytes_of<T>(s, channels)), step(s.w * channels * int(sizeof(T))) {
        if constexpr (std::is_floating_point_v<T>) fill<T>(src, [](auto& r) { return T(int(r() % 2001) - 1000) / 8; });
    }
    const T* s() const { return src.as<T>(); }
    T* d() const { return dst.as<T>(); }
};

#ifdef TAV_HAVE_OPENCV
template <class T>
cv::Mat mat(const Buf& b, Size2 s, int type) {
    return cv::Mat(s.h, s.w, type, b.p);
}
void peer_threshold(const std::string& row, int type, double t, int mode) {
    const char* names[] = {"BINARY", "BINARY_INV", "TRUNC", "TOZERO", "TOZERO_INV"};
    add(row, std::string("opencv:threshold_") + names[mode], [=](benchmark::State& st, Size2 s) {
        const std::size_t n = std::size_t(s.w) * s.h * CV_ELEM_SIZE(type);
        Buf a(n), b(n);
        cv::Mat src(s.h, s.w, type, a.p), dst(s.h, s.w, type, b.p);
        if (CV_MAT_DEPTH(type) == CV_32F) fill<float>(a, [](auto& r) { return float(int(r() % 2001) - 1000) / 8; });
        for (auto _ : st) cv::threshold(src, dst, t, 255, mode);
        set_bytes(st, 2 * n);
    });
}
#endif

const bool registered = [] {
    // ---- thresholds ----
    add("taviThreshold_GT_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s);
        for (auto _ : st) taviThreshold_GT_8u_C1R(p.s(), p.step, p.d(), p.step, {s.w, s.h}, 100);
        set_bytes(st, 2 * bytes_of<Tav8u>(s));
    });
    add("taviThreshold_GT_8u_C3R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s, 3);
        const Tav8u t[3] = {100, 100, 100};
        for (auto _ : st) taviThreshold_GT_8u_C3R(p.s(), p.step, p.d(), p.step, {s.w, s.h}, t);
        set_bytes(st, 2 * bytes_of<Tav8u>(s, 3));
    });
    add("taviThreshold_GT_16s_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav16s> p(s);
        for (auto _ : st) taviThreshold_GT_16s_C1R(p.s(), p.step, p.d(), p.step, {s.w, s.h}, 100);
        set_bytes(st, 2 * bytes_of<Tav16s>(s));
    });
    add("taviThreshold_GT_16u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav16u> p(s);
        for (auto _ : st) taviThreshold_GT_16u_C1R(p.s(), p.step, p.d(), p.step, {s.w, s.h}, 30000);
        set_bytes(st, 2 * bytes_of<Tav16u>(s));
    });
    add("taviThreshold_GT_32f_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav32f> p(s);
        for (auto _ : st) taviThreshold_GT_32f_C1R(p.s(), p.step, p.d(), p.step, {s.w, s.h}, 10.f);
        set_bytes(st, 2 * bytes_of<Tav32f>(s));
    });
    add("taviThreshold_LTVal_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s);  // x < 101 ? 0 : x, the same as x > 100 ? x : 0
        for (auto _ : st) taviThreshold_LTVal_8u_C1R(p.s(), p.step, p.d(), p.step, {s.w, s.h}, 101, 0);
        set_bytes(st, 2 * bytes_of<Tav8u>(s));
    });
    add("taviThreshold_GTVal_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s);
        for (auto _ : st) taviThreshold_GTVal_8u_C1R(p.s(), p.step, p.d(), p.step, {s.w, s.h}, 100, 0);
        set_bytes(st, 2 * bytes_of<Tav8u>(s));
    });
    add("taviThreshold_GTVal_32f_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav32f> p(s);
        for (auto _ : st) taviThreshold_GTVal_32f_C1R(p.s(), p.step, p.d(), p.step, {s.w, s.h}, 10.f, 0.f);
        set_bytes(st, 2 * bytes_of<Tav32f>(s));
    });
    add("taviComputeThreshold_Otsu_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s);
        Tav8u t = 0;
        for (auto _ : st) {
            taviComputeThreshold_Otsu_8u_C1R(p.s(), p.step, {s.w, s.h}, &t);
            benchmark::DoNotOptimize(t);
        }
        set_bytes(st, bytes_of<Tav8u>(s));
    });

    // ---- compares ----
    add("taviCompare_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s);
        Buf m(bytes_of<Tav8u>(s));
        for (auto _ : st) taviCompare_8u_C1R(p.s(), p.step, p.d(), p.step, m.p, s.w, {s.w, s.h}, tavCmpLess);
        set_bytes(st, 3 * bytes_of<Tav8u>(s));
    });
    add("taviCompare_16s_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav16s> p(s);
        Buf m(bytes_of<Tav8u>(s));
        for (auto _ : st) taviCompare_16s_C1R(p.s(), p.step, p.d(), p.step, m.p, s.w, {s.w, s.h}, tavCmpLess);
        set_bytes(st, 2 * bytes_of<Tav16s>(s) + bytes_of<Tav8u>(s));
    });
    add("taviCompare_32f_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav32f> p(s);
        Buf m(bytes_of<Tav8u>(s));
        // Both operands finite, like the peer's.
        fill<Tav32f>(p.dst, [](auto& r) { return Tav32f(int(r() % 2001) - 1000) / 8; });
        for (auto _ : st) taviCompare_32f_C1R(p.s(), p.step, p.d(), p.step, m.p, s.w, {s.w, s.h}, tavCmpLess);
        set_bytes(st, 2 * bytes_of<Tav32f>(s) + bytes_of<Tav8u>(s));
    });
    add("taviCompareC_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s);
        for (auto _ : st) taviCompareC_8u_C1R(p.s(), p.step, 128, p.d(), p.step, {s.w, s.h}, tavCmpGreater);
        set_bytes(st, 2 * bytes_of<Tav8u>(s));
    });
    add("taviCompareC_8u_C3R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s, 3);
        Buf m(bytes_of<Tav8u>(s));
        const Tav8u v[3] = {60, 90, 30};
        for (auto _ : st) taviCompareC_8u_C3R(p.s(), p.step, v, m.p, s.w, {s.w, s.h}, tavCmpGreaterEq);
        set_bytes(st, bytes_of<Tav8u>(s, 4));
    });
    add("taviCompareC_32f_C3R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav32f> p(s, 3);
        Buf m(bytes_of<Tav8u>(s));
        const Tav32f v[3] = {-10.f, 0.f, 10.f};
        for (auto _ : st) taviCompareC_32f_C3R(p.s(), p.step, v, m.p, s.w, {s.w, s.h}, tavCmpGreaterEq);
        set_bytes(st, bytes_of<Tav32f>(s, 3) + bytes_of<Tav8u>(s));
    });

    // ---- lookup tables ----
    add("taviLUT_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s);
        std::vector<Tav32s> lv(256), vv(256);
        for (int i = 0; i < 256; ++i) lv[i] = i, vv[i] = (i * 37 + 11) & 255;
        const Tav32s* levels[1] = {lv.data()};
        const Tav32s* values[1] = {vv.data()};
        const int n[1] = {256};
        int size = 0;
        taviLUT_GetSize(tavNearest, tav8u, 1, {s.w, s.h}, n, &size);
        std::vector<Tav8u> spec(size);
        taviLUT_Init_8u(tavNearest, 1, {s.w, s.h}, values, levels, n, spec.data());
        for (auto _ : st) taviLUT_8u_C1R(p.s(), p.step, p.d(), p.step, {s.w, s.h}, spec.data());
        set_bytes(st, 2 * bytes_of<Tav8u>(s));
    });
    add("taviLUTPalette_8u_C1R", "tav", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s);
        Tav8u table[256];
        for (int i = 0; i < 256; ++i) table[i] = Tav8u(i * 37 + 11);
        for (auto _ : st) taviLUTPalette_8u_C1R(p.s(), p.step, p.d(), p.step, {s.w, s.h}, table, 8);
        set_bytes(st, 2 * bytes_of<Tav8u>(s));
    });

#ifdef TAV_HAVE_OPENCV
    peer_threshold("taviThreshold_GT_8u_C1R", CV_8UC1, 100, cv::THRESH_TRUNC);
    peer_threshold("taviThreshold_GT_8u_C3R", CV_8UC3, 100, cv::THRESH_TRUNC);
    peer_threshold("taviThreshold_GT_16s_C1R", CV_16SC1, 100, cv::THRESH_TRUNC);
    peer_threshold("taviThreshold_GT_16u_C1R", CV_16UC1, 30000, cv::THRESH_TRUNC);
    peer_threshold("taviThreshold_GT_32f_C1R", CV_32FC1, 10, cv::THRESH_TRUNC);
    peer_threshold("taviThreshold_LTVal_8u_C1R", CV_8UC1, 100, cv::THRESH_TOZERO);
    peer_threshold("taviThreshold_GTVal_8u_C1R", CV_8UC1, 100, cv::THRESH_TOZERO_INV);
    peer_threshold("taviThreshold_GTVal_32f_C1R", CV_32FC1, 10, cv::THRESH_TOZERO_INV);
    peer_threshold("taviCompareC_8u_C1R", CV_8UC1, 128, cv::THRESH_BINARY);
    add("taviComputeThreshold_Otsu_8u_C1R", "opencv:threshold_OTSU", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s);
        cv::Mat src = mat<Tav8u>(p.src, s, CV_8UC1), dst = mat<Tav8u>(p.dst, s, CV_8UC1);
        for (auto _ : st) {
            double t = cv::threshold(src, dst, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
            benchmark::DoNotOptimize(t);
        }
        set_bytes(st, bytes_of<Tav8u>(s));
    });
    auto peer_compare = [](const std::string& row, int type) {
        add(row, "opencv:compare", [type](benchmark::State& st, Size2 s) {
            const std::size_t n = std::size_t(s.w) * s.h * CV_ELEM_SIZE(type);
            Buf a(n), b(n), m(std::size_t(s.w) * s.h);
            if (CV_MAT_DEPTH(type) == CV_32F) {
                fill<float>(a, [](auto& r) { return float(int(r() % 2001) - 1000) / 8; });
                fill<float>(b, [](auto& r) { return float(int(r() % 2001) - 1000) / 8; });
            }
            cv::Mat x(s.h, s.w, type, a.p), y(s.h, s.w, type, b.p), d(s.h, s.w, CV_8UC1, m.p);
            for (auto _ : st) cv::compare(x, y, d, cv::CMP_LT);
            set_bytes(st, 2 * n + m.bytes);
        });
    };
    peer_compare("taviCompare_8u_C1R", CV_8UC1);
    peer_compare("taviCompare_16s_C1R", CV_16SC1);
    peer_compare("taviCompare_32f_C1R", CV_32FC1);
    add("taviCompareC_8u_C1R", "opencv:compare", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s);
        cv::Mat src = mat<Tav8u>(p.src, s, CV_8UC1), dst = mat<Tav8u>(p.dst, s, CV_8UC1);
        for (auto _ : st) cv::compare(src, 128, dst, cv::CMP_GT);
        set_bytes(st, 2 * bytes_of<Tav8u>(s));
    });
    add("taviCompareC_8u_C3R", "opencv:inRange", [](benchmark::State& st, Size2 s) {
        Pair<Tav8u> p(s, 3);
        Buf m(bytes_of<Tav8u>(s));
        cv::Mat src = mat<Tav8u>(p.src, s, CV_8UC3), dst = mat<Tav8u>(m, s, CV_8UC1);
        for (auto _ : st) cv::inRange(src, cv::Scalar(60, 90, 30), cv::Scalar(255, 255, 255), dst);
        set_bytes(st, bytes_of<Tav8u>(s, 4));
    });
    add("taviCompareC_32f_C3R", "opencv:inRange", [](benchmark::State& st, Size2 s) {
        Pair<Tav32f> p(s, 3);
        Buf m(bytes_of<Tav8u>(s));
        cv::Mat src = mat<Tav32f>(p.src, s, CV_32FC3), dst = mat<Tav8u>(m, s, CV_8UC1);
        for (auto _ : st) cv::inRange(src, cv::Scalar(-10, 0, 10), cv::Scalar(FLT_MAX, FLT_MAX, FLT_MAX), dst);
        set_bytes(st, bytes_of<Tav32f>(s, 3) + bytes_of<Tav8u>(s));
    });
    auto peer_lut = [](const std::string& row) {
        add(row, "opencv:LUT", [](benchmark::State& st, Size2 s) {
            Pair<Tav8u> p(s);
            cv::Mat lut(1, 256, CV_8UC1);
            for (int i = 0; i < 256; ++i) lut.at<Tav8u>(i) = Tav8u(i * 37 + 11);
            cv::Mat src = mat<Tav8u>(p.src, s, CV_8UC1), dst = mat<Tav8u>(p.dst, s, CV_8UC1);
            for (auto _ : st) cv::LUT(src, lut, dst);
            set_bytes(st, 2 * bytes_of<Tav8u>(s));
        });
    };
    peer_lut("taviLUT_8u_C1R");
    peer_lut("taviLUTPalette_8u_C1R");
#endif
    return true;
}();

}  // namespace
