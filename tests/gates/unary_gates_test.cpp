// Unary math on images large enough to take the streaming stores: results
// and statuses as on small images, with row starts off the 64-byte boundary
// (so every row peels), and the cases that must not stream (in place, AC4).
#include <gtest/gtest.h>

#include "arith/unary_members.h"

namespace tavtest::unary {
namespace {

TEST(UnaryGates, LargeImagesMatchTheReferences) {
    const char* names[] = {"taviAbs_32f_C1R", "taviExp_32f_C3R", "taviSqr_16s_C1RSfs", "taviAbs_32f_AC4R",
                           "taviSqrt_32f_C1IR"};
    for (const char* name : names) {
        for (const Member& m : members()) {
            if (m.name != name) continue;
            with_type(m, [&](auto t) {
                using T = decltype(t);
                // Above 32 MiB of source and destination together.
                const int w = 4099 / m.channels, h = (34 << 20) / (2 * 4099 * int(sizeof(T))) + 1;
                const int step = w * m.channels * int(sizeof(T));
                run_case<T>(m, w, h, step + 4 * int(sizeof(T)), step + int(sizeof(T)), 1);
            });
        }
    }
}

}  // namespace
}  // namespace tavtest::unary
