// Test regions for the data-movement tests: guarded byte spans holding rows
// at a chosen start alignment, and adapters that call typed exports through
// byte pointers so one table can hold every type.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "support/image.h"
#include "tavi.h"

namespace movetest {

using tavtest::GuardAt;

// height rows of rowBytes, `step` apart. With the end guard the last row
// touches the guard page (over-reads crash); with the start guard the first
// row starts `lead` bytes after the guard page (under-reads crash, and the
// start alignment is lead modulo 64).
class Region {
public:
    Region(long long rowBytes, int height, long long step, GuardAt where = GuardAt::End, int lead = 0)
        : mem_(span(rowBytes, height, step) + (where == GuardAt::Start ? lead : 0), where),
          step_(step),
          rows_(mem_.data() + (where == GuardAt::Start ? lead : 0)) {
        tavtest::fill_bytes_random(mem_.data(), mem_.size());
    }
    std::uint8_t* ptr() const { return rows_; }
    int step() const { return static_cast<int>(step_); }
    std::vector<std::uint8_t> snapshot() const { return {mem_.data(), mem_.data() + mem_.size()}; }
    // The same position in a snapshot.
    std::uint8_t* in(std::vector<std::uint8_t>& snap) const { return snap.data() + (rows_ - mem_.data()); }
    ::testing::AssertionResult same(const std::vector<std::uint8_t>& expected) const {
        return tavtest::same_bytes(mem_.data(), expected.data(), mem_.size(), 0);
    }

    static std::size_t span(long long rowBytes, int height, long long step) {
        return static_cast<std::size_t>((height - 1) * step + rowBytes);
    }

private:
    tavtest::GuardedBytes mem_;
    long long step_;
    std::uint8_t* rows_;
};

// Unary exports seen through bytes.
using UnaryFn = TavStatus (*)(const void*, int, void*, int, TaviSize);
template <class T, auto F>
TavStatus unary(const void* s, int ss, void* d, int ds, TaviSize r) {
    return F(static_cast<const T*>(s), ss, static_cast<T*>(d), ds, r);
}

// The layouts a sweep walks: source and destination alignments, guards and
// padded steps.
struct Placement {
    GuardAt srcGuard, dstGuard;
    int srcLead, dstLead;
};
inline std::vector<Placement> placements() {
    return {{GuardAt::End, GuardAt::End, 0, 0},
            {GuardAt::Start, GuardAt::Start, 0, 0},
            {GuardAt::Start, GuardAt::Start, 5, 32},
            {GuardAt::End, GuardAt::Start, 0, 1},
            {GuardAt::Start, GuardAt::End, 64 + 3, 0}};
}

}  // namespace movetest
