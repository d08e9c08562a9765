// Shared pieces of the benchmarks. Names read `<row>/<impl>/<size>`: the row
// is our export (or an operation), impl is `tav` or `<peer>:<function>`, so
// tools/bench_ratios.py can line peers up against us in one table.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "tavi.h"

#ifdef TAV_HAVE_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace tavbench {

struct Size2 {
    int w, h;
};
// In cache, and memory-bound.
inline constexpr Size2 kSizes[] = {{256, 256}, {3840, 2160}};

inline std::string size_name(Size2 s) { return std::to_string(s.w) + "x" + std::to_string(s.h); }

// A 64-byte aligned image of bytesPerRow x h with random bytes, steps tight.
struct Buf {
    std::uint8_t* p = nullptr;
    std::size_t bytes = 0;
    explicit Buf(std::size_t n) : bytes(n) {
        p = static_cast<std::uint8_t*>(std::aligned_alloc(64, (n + 63) & ~std::size_t{63}));
        std::mt19937 r(42);
        for (std::size_t i = 0; i < n; ++i) p[i] = static_cast<std::uint8_t>(r());
    }
    ~Buf() { std::free(p); }
    Buf(const Buf&) = delete;
    Buf& operator=(const Buf&) = delete;
    template <class T>
    T* as() const { return reinterpret_cast<T*>(p); }
};

template <class T, class F>
void fill(const Buf& b, F f) {
    T* p = b.as<T>();
    std::mt19937 r(7);
    for (std::size_t i = 0; i < b.bytes / sizeof(T); ++i) p[i] = f(r);
}

// Registers fn at both sizes under `<row>/<impl>/<WxH>`; fn(state, size) runs the loop.
template <class F>
void add(const std::string& row, const std::string& impl, F fn) {
    for (Size2 s : kSizes) {
        benchmark::RegisterBenchmark((row + "/" + impl + "/" + size_name(s)).c_str(),
                                     [fn, s](benchmark::State& st) { fn(st, s); })
            ->UseRealTime();
    }
}

inline void set_bytes(benchmark::State& st, std::size_t bytesPerIteration) {
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * bytesPerIteration));
}

}  // namespace tavbench
