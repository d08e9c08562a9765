// Test images in guarded memory, random fill, and whole-buffer comparison.
//
// An Image owns a span of rows (height - 1 steps plus one row) placed so that
// the byte after its last row is an inaccessible page (or, with GuardAt::Start,
// the byte before its first row): a kernel that reads or writes past its rows
// crashes the test. Padding bytes are filled with noise, and comparisons cover
// the whole span, so a write into padding or alpha is caught too.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace tavtest {

enum class GuardAt { End, Start };

// Page-guarded bytes: [data(), data() + size()) touches the guard page.
class GuardedBytes {
public:
    GuardedBytes(std::size_t size, GuardAt where = GuardAt::End);
    ~GuardedBytes();
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;
    std::uint8_t* data() const { return data_; }
    std::size_t size() const { return size_; }

private:
    std::uint8_t* map_ = nullptr;
    std::size_t map_size_ = 0;
    std::uint8_t* data_ = nullptr;
    std::size_t size_ = 0;
};

using Rng = std::mt19937_64;
Rng& rng();  // seeded per test from the test's name, so failures replay
void fill_bytes_random(std::uint8_t* p, std::size_t n);
template <class T>
T random_value(double lo, double hi);

template <class T>
class Image {
public:
    // width in elements (channels counted), step in bytes (0: tight rows).
    Image(int widthElems, int height, std::ptrdiff_t stepBytes = 0, GuardAt where = GuardAt::End)
        : width_(widthElems), height_(height),
          step_(stepBytes ? stepBytes : std::ptrdiff_t(widthElems) * sizeof(T)),
          mem_(span_of(widthElems, height, step_), where) {
        fill_bytes_random(mem_.data(), mem_.size());
    }
    T* ptr() const { return reinterpret_cast<T*>(mem_.data()); }
    T* row(int y) const { return reinterpret_cast<T*>(mem_.data() + std::ptrdiff_t(y) * step_); }
    T& at(int x, int y) const { return row(y)[x]; }
    int step() const { return static_cast<int>(step_); }
    int width() const { return width_; }
    int height() const { return height_; }
    std::uint8_t* bytes() const { return mem_.data(); }
    std::size_t span() const { return mem_.size(); }

    // Random elements in [lo, hi] (floats uniform, integers inclusive).
    void fill(double lo, double hi) {
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) row(y)[x] = random_value<T>(lo, hi);
    }
    template <class F>
    void fill_with(F f) {
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) row(y)[x] = f(x, y);
    }
    std::vector<std::uint8_t> snapshot() const { return {bytes(), bytes() + span()}; }

    static std::size_t span_of(int w, int h, std::ptrdiff_t step) {
        return h <= 0 ? std::size_t(w) * sizeof(T) : std::size_t(h - 1) * step + std::size_t(w) * sizeof(T);
    }

private:
    int width_, height_;
    std::ptrdiff_t step_;
    GuardedBytes mem_;
};

template <class T>
T random_value(double lo, double hi) {
    if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(std::uniform_real_distribution<double>(lo, hi)(rng()));
    } else {
        return static_cast<T>(std::uniform_int_distribution<long long>(
            static_cast<long long>(lo), static_cast<long long>(hi))(rng()));
    }
}

// The bytes img should hold after a call: its span as it stands, with each
// element (x, y) for which f(x, y, v) returns true replaced by v.
template <class T, class F>
std::vector<std::uint8_t> expected_from(const Image<T>& img, F f) {
    std::vector<std::uint8_t> out = img.snapshot();
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) {
            T v;
            if (f(x, y, v)) std::memcpy(out.data() + std::size_t(y) * img.step() + std::size_t(x) * sizeof(T), &v, sizeof(T));
        }
    return out;
}

// Byte-for-byte comparison of two spans laid out as rows of `step` bytes;
// the failure names the first differing row and byte.
::testing::AssertionResult same_bytes(const std::uint8_t* actual, const std::uint8_t* expected,
                                      std::size_t size, std::ptrdiff_t step);

template <class T>
::testing::AssertionResult same_bytes(const Image<T>& actual, const std::vector<std::uint8_t>& expected) {
    return same_bytes(actual.bytes(), expected.data(), actual.span(), actual.step());
}

// Element-wise comparison with a tolerance in units in the last place, for
// results where the contract leaves the last bit or two free.
::testing::AssertionResult within_ulps(const float* actual, const float* expected, std::size_t n, int ulps);

// Widths that reach every peel and tail of 64-byte vector loops: 1 to 2 vectors
// plus one for each element size, and a few long ones.
std::vector<int> sweep_widths(std::size_t elemBytes);

// Step paddings in bytes to try beyond a tight row (multiples of `align`).
std::vector<int> sweep_paddings(std::size_t align);

}  // namespace tavtest
