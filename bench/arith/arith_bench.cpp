// Scaled arithmetic, logic and shifts against OpenCV (shifts against a plain loop).
#include <cstdint>

#include "bench_util.h"

namespace {

using namespace tavbench;

// Ours on two sources and a destination of w x h elements of T, tight steps.
template <class T, class F>
void ours_binary(const std::string& row, F call, int divisorMin = 0) {
    add(row, "tav", [=](benchmark::State& st, Size2 s) {
        const std::size_t n = std::size_t(s.w) * s.h;
        Buf a(n * sizeof(T)), b(n * sizeof(T)), d(n * sizeof(T));
        // Values as the peer gets them: no denormals or NaNs from random bytes.
        fill<T>(a, [&](std::mt19937& r) { return T(divisorMin + r() % (divisorMin > 0 ? 100 : 256)); });
        fill<T>(b, [&](std::mt19937& r) { return T(r() % 256); });
        const int step = s.w * int(sizeof(T));
        for (auto _ : st) call(a.as<T>(), b.as<T>(), d.as<T>(), step, TaviSize{s.w, s.h});
        set_bytes(st, 3 * n * sizeof(T));
    });
}

template <class T, class F>
void ours_unary(const std::string& row, F call) {
    add(row, "tav", [=](benchmark::State& st, Size2 s) {
        const std::size_t n = std::size_t(s.w) * s.h;
        Buf a(n * sizeof(T)), d(n * sizeof(T));
        const int step = s.w * int(sizeof(T));
        for (auto _ : st) call(a.as<T>(), d.as<T>(), step, TaviSize{s.w, s.h});
        set_bytes(st, 2 * n * sizeof(T));
    });
}

#ifdef TAV_HAVE_OPENCV
template <class F>
void peer_binary(const std::string& row, const std::string& fn, int type, F call, int divisorMin = 0) {
    add(row, "opencv:" + fn, [=](benchmark::State& st, Size2 s) {
        cv::Mat a(s.h, s.w, type), b(s.h, s.w, type), d(s.h, s.w, type);
        cv::randu(a, divisorMin, divisorMin > 0 ? divisorMin + 100 : 255);
        cv::randu(b, 0, 255);
        for (auto _ : st) call(a, b, d);
        set_bytes(st, 3 * a.total() * a.elemSize());
    });
}
template <class F>
void peer_unary(const std::string& row, const std::string& fn, int type, F call) {
    add(row, "opencv:" + fn, [=](benchmark::State& st, Size2 s) {
        cv::Mat a(s.h, s.w, type), d(s.h, s.w, type);
        cv::randu(a, 0, 255);
        for (auto _ : st) call(a, d);
        set_bytes(st, 2 * a.total() * a.elemSize());
    });
}
#endif

template <class T, int Shift, bool Left>
void plain_shift(const std::string& row) {
    add(row, "loop", [](benchmark::State& st, Size2 s) {
        const std::size_t n = std::size_t(s.w) * s.h;
        Buf a(n * sizeof(T)), d(n * sizeof(T));
        for (auto _ : st) {
            for (int y = 0; y < s.h; ++y) {
                const T* p = a.as<T>() + std::size_t(y) * s.w;
                T* q = d.as<T>() + std::size_t(y) * s.w;
                for (int x = 0; x < s.w; ++x) q[x] = T(Left ? p[x] << Shift : p[x] >> Shift);
            }
            benchmark::DoNotOptimize(d.p);
        }
        set_bytes(st, 2 * n * sizeof(T));
    });
}

const bool registered = [] {
    // Sums, differences, products (scale 2^-2 for the integer types), quotients.
    ours_binary<Tav8u>("taviAdd_8u_C1RSfs", [](auto a, auto b, auto d, int s, TaviSize r) { taviAdd_8u_C1RSfs(a, s, b, s, d, s, r, 0); });
    ours_binary<Tav16s>("taviAdd_16s_C1RSfs", [](auto a, auto b, auto d, int s, TaviSize r) { taviAdd_16s_C1RSfs(a, s, b, s, d, s, r, 0); });
    ours_binary<Tav32f>("taviAdd_32f_C1R", [](auto a, auto b, auto d, int s, TaviSize r) { taviAdd_32f_C1R(a, s, b, s, d, s, r); });
    ours_binary<Tav8u>("taviSub_8u_C1RSfs", [](auto a, auto b, auto d, int s, TaviSize r) { taviSub_8u_C1RSfs(a, s, b, s, d, s, r, 0); });
    ours_binary<Tav16s>("taviSub_16s_C1RSfs", [](auto a, auto b, auto d, int s, TaviSize r) { taviSub_16s_C1RSfs(a, s, b, s, d, s, r, 0); });
    ours_binary<Tav32f>("taviSub_32f_C1R", [](auto a, auto b, auto d, int s, TaviSize r) { taviSub_32f_C1R(a, s, b, s, d, s, r); });
    ours_binary<Tav8u>("taviMul_8u_C1RSfs", [](auto a, auto b, auto d, int s, TaviSize r) { taviMul_8u_C1RSfs(a, s, b, s, d, s, r, 2); });
    ours_binary<Tav16s>("taviMul_16s_C1RSfs", [](auto a, auto b, auto d, int s, TaviSize r) { taviMul_16s_C1RSfs(a, s, b, s, d, s, r, 2); });
    ours_binary<Tav32f>("taviMul_32f_C1R", [](auto a, auto b, auto d, int s, TaviSize r) { taviMul_32f_C1R(a, s, b, s, d, s, r); });
    ours_binary<Tav8u>("taviDiv_8u_C1RSfs", [](auto a, auto b, auto d, int s, TaviSize r) { taviDiv_8u_C1RSfs(a, s, b, s, d, s, r, 0); }, 1);
    ours_binary<Tav16s>("taviDiv_16s_C1RSfs", [](auto a, auto b, auto d, int s, TaviSize r) { taviDiv_16s_C1RSfs(a, s, b, s, d, s, r, 0); }, 1);
    ours_binary<Tav32f>("taviDiv_32f_C1R", [](auto a, auto b, auto d, int s, TaviSize r) { taviDiv_32f_C1R(a, s, b, s, d, s, r); }, 1);
    // Bitwise.
    ours_binary<Tav8u>("taviAnd_8u_C1R", [](auto a, auto b, auto d, int s, TaviSize r) { taviAnd_8u_C1R(a, s, b, s, d, s, r); });
    ours_binary<Tav8u>("taviXor_8u_C1R", [](auto a, auto b, auto d, int s, TaviSize r) { taviXor_8u_C1R(a, s, b, s, d, s, r); });
    ours_unary<Tav8u>("taviNot_8u_C1R", [](auto a, auto d, int s, TaviSize r) { taviNot_8u_C1R(a, s, d, s, r); });
    ours_unary<Tav8u>("taviAndC_8u_C1R", [](auto a, auto d, int s, TaviSize r) { taviAndC_8u_C1R(a, s, 0x5a, d, s, r); });
    // Shifts, against a plain loop.
    ours_unary<Tav8u>("taviLShiftC_8u_C1R", [](auto a, auto d, int s, TaviSize r) { taviLShiftC_8u_C1R(a, s, 3, d, s, r); });
    ours_unary<Tav16s>("taviRShiftC_16s_C1R", [](auto a, auto d, int s, TaviSize r) { taviRShiftC_16s_C1R(a, s, 3, d, s, r); });
    plain_shift<Tav8u, 3, true>("taviLShiftC_8u_C1R");
    plain_shift<Tav16s, 3, false>("taviRShiftC_16s_C1R");
#ifdef TAV_HAVE_OPENCV
    const std::pair<const char*, int> types[] = {{"8u", CV_8UC1}, {"16s", CV_16SC1}, {"32f", CV_32FC1}};
    for (auto [t, type] : types) {
        const std::string tt = t, sfs = tt == "32f" ? "_C1R" : "_C1RSfs";
        const double scale = tt == "32f" ? 1.0 : 0.25;
        peer_binary("taviAdd_" + tt + sfs, "add", type, [](cv::Mat& a, cv::Mat& b, cv::Mat& d) { cv::add(a, b, d); });
        peer_binary("taviSub_" + tt + sfs, "subtract", type, [](cv::Mat& a, cv::Mat& b, cv::Mat& d) { cv::subtract(b, a, d); });
        peer_binary("taviMul_" + tt + sfs, "multiply", type, [scale](cv::Mat& a, cv::Mat& b, cv::Mat& d) { cv::multiply(a, b, d, scale); });
        peer_binary("taviDiv_" + tt + sfs, "divide", type, [](cv::Mat& a, cv::Mat& b, cv::Mat& d) { cv::divide(b, a, d); }, 1);
    }
    peer_binary("taviAnd_8u_C1R", "bitwise_and", CV_8UC1, [](cv::Mat& a, cv::Mat& b, cv::Mat& d) { cv::bitwise_and(a, b, d); });
    peer_binary("taviXor_8u_C1R", "bitwise_xor", CV_8UC1, [](cv::Mat& a, cv::Mat& b, cv::Mat& d) { cv::bitwise_xor(a, b, d); });
    peer_unary("taviNot_8u_C1R", "bitwise_not", CV_8UC1, [](cv::Mat& a, cv::Mat& d) { cv::bitwise_not(a, d); });
    peer_unary("taviAndC_8u_C1R", "bitwise_and", CV_8UC1, [](cv::Mat& a, cv::Mat& d) { cv::bitwise_and(a, cv::Scalar(0x5a), d); });
#endif
    return true;
}();

}  // namespace
