// Benchmark driver: peers run single-threaded, side by side with us.
#include <benchmark/benchmark.h>

#ifdef TAV_HAVE_OPENCV
#include <opencv2/core.hpp>
#endif

int main(int argc, char** argv) {
#ifdef TAV_HAVE_OPENCV
    cv::setNumThreads(1);
#endif
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
