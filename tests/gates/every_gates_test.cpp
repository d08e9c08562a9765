// Every-pixel extrema out of place past the fixed streaming size: the same
// results whatever the core module answers, which is never asked.
#include <gtest/gtest.h>

#include "support/core_double.h"
#include "support/image.h"
#include "tavi.h"

namespace {

using tavtest::Image;

// Sources of w x h elements with padded rows; the destination `shift` bytes
// past a 64-byte boundary, its rows a few elements longer so that each row
// starts at another phase. Compares every element with op(a, b).
template <class T, class Fn, class Op>
void check_streamed(int w, int h, int shift, Fn fn, Op op) {
    Image<T> a(w, h, std::ptrdiff_t(w + 5) * sizeof(T)), b(w, h, std::ptrdiff_t(w + 5) * sizeof(T));
    a.fill(0, 65535);
    b.fill(0, 65535);
    const std::ptrdiff_t dStep = std::ptrdiff_t(w + 3) * sizeof(T);
    Image<Tav8u> d(int(dStep) + shift, h, dStep + shift);
    T* dst = reinterpret_cast<T*>(d.ptr() + shift);
    ASSERT_EQ(fn(a.ptr(), a.step(), b.ptr(), b.step(), dst, int(d.step()), TaviSize{w, h}), tavOk);
    for (int y = 0; y < h; ++y) {
        const Tav8u* row = d.row(y) + shift;
        for (int x = 0; x < w; ++x) {
            T got;
            std::memcpy(&got, row + std::size_t(x) * sizeof(T), sizeof(T));
            ASSERT_EQ(got, op(a.at(x, y), b.at(x, y))) << "x=" << x << " y=" << y << " shift " << shift;
        }
    }
}

TEST(EveryGates, StreamedResultsMatch) {
    const long long before = tavtest::core_cache_queries();
    // Unordered or equal operands give the second, as the vector minimum does.
    auto min32f = [](float x, float y) { return x < y ? x : y; };
    auto max16u = [](Tav16u x, Tav16u y) { return std::max(x, y); };
    for (int shift : {0, 12}) check_streamed<Tav32f>(2048, 1000, shift, taviMinEvery_32f_C1R, min32f);
    // 16-bit rows off the element grid take the cached path.
    for (int shift : {2, 1}) check_streamed<Tav16u>(4000, 1000, shift, taviMaxEvery_16u_C1R, max16u);
    EXPECT_EQ(tavtest::core_cache_queries(), before);
}

}  // namespace
