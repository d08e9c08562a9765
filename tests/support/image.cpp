#include "support/image.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <functional>
#include <sstream>

namespace tavtest {

GuardedBytes::GuardedBytes(std::size_t size, GuardAt where) : size_(size) {
    const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t body = (size + page - 1) / page * page;
    map_size_ = body + 2 * page;
    void* m = mmap(nullptr, map_size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (m == MAP_FAILED) throw std::bad_alloc();
    map_ = static_cast<std::uint8_t*>(m);
    mprotect(map_, page, PROT_NONE);
    mprotect(map_ + page + body, page, PROT_NONE);
    data_ = where == GuardAt::End ? map_ + page + body - size : map_ + page;
}

GuardedBytes::~GuardedBytes() { munmap(map_, map_size_); }

Rng& rng() {
    static Rng r;
    static std::string seeded_for;
    const ::testing::TestInfo* info = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = info ? std::string(info->test_suite_name()) + "." + info->name() : "";
    if (name != seeded_for) {
        seeded_for = name;
        r.seed(std::hash<std::string>{}(name));
    }
    return r;
}

void fill_bytes_random(std::uint8_t* p, std::size_t n) {
    Rng& r = rng();
    std::size_t i = 0;
    for (; i + 8 <= n; i += 8) {
        std::uint64_t v = r();
        std::memcpy(p + i, &v, 8);
    }
    for (; i < n; ++i) p[i] = static_cast<std::uint8_t>(r());
}

::testing::AssertionResult same_bytes(const std::uint8_t* actual, const std::uint8_t* expected,
                                      std::size_t size, std::ptrdiff_t step) {
    for (std::size_t i = 0; i < size; ++i) {
        if (actual[i] != expected[i]) {
            std::ostringstream os;
            os << "first difference at byte " << i;
            if (step > 0) os << " (row " << i / step << ", byte " << i % step << " of the row)";
            os << ": got 0x" << std::hex << int(actual[i]) << ", expected 0x" << int(expected[i]);
            std::size_t diffs = 0;
            for (std::size_t j = i; j < size; ++j) diffs += actual[j] != expected[j];
            os << std::dec << "; " << diffs << " bytes differ of " << size;
            return ::testing::AssertionFailure() << os.str();
        }
    }
    return ::testing::AssertionSuccess();
}

static std::int64_t ordered(float f) {
    std::int32_t i;
    std::memcpy(&i, &f, 4);
    return i < 0 ? std::int64_t(INT32_MIN) - i : i;
}

::testing::AssertionResult within_ulps(const float* actual, const float* expected, std::size_t n, int ulps) {
    for (std::size_t i = 0; i < n; ++i) {
        float a = actual[i], e = expected[i];
        if (std::isnan(a) && std::isnan(e)) continue;
        if (std::isnan(a) != std::isnan(e) || std::llabs(ordered(a) - ordered(e)) > ulps) {
            return ::testing::AssertionFailure() << "element " << i << ": got " << a << ", expected " << e
                                                 << " (tolerance " << ulps << " ulp)";
        }
    }
    return ::testing::AssertionSuccess();
}

std::vector<int> sweep_widths(std::size_t elemBytes) {
    const int lanes = static_cast<int>(64 / elemBytes);
    std::vector<int> w;
    for (int i = 1; i <= 2 * lanes + 1; ++i) w.push_back(i);
    for (int extra : {3 * lanes - 1, 4 * lanes + 3, 8 * lanes + lanes / 2, 1000, 4099}) w.push_back(extra);
    return w;
}

std::vector<int> sweep_paddings(std::size_t align) {
    return {0, static_cast<int>(align), static_cast<int>(3 * align), 64 + static_cast<int>(align)};
}

}  // namespace tavtest
