// The 64-bit twins: forwarding when everything fits 32 bits (the 32-bit
// checks then apply), and the row walk in pieces otherwise (no checks of its
// own: zero heights and widths succeed, pointers are checked per piece, the
// last piece's status is the result).
#include "arith/forms.h"

using namespace arithtest;

namespace {

TEST(LongTwins, ForwardOrWalk) {
    Tav8u a[64] = {}, d[64] = {};
    const int64_t big = 0x7fffffff;
    struct Case {
        const char* what;
        TavStatus got, want;
    } cases[] = {
        {"zero height, small steps: forwarded, size error", taviAdd_8u_C1RSfs_L(a, 8, a, 8, d, 8, {4, 0}, 0), tavErrSize},
        {"zero height, huge step: nothing to do", taviAdd_8u_C1RSfs_L(a, big, a, 8, d, 8, {4, 0}, 0), tavOk},
        {"negative huge step", taviSub_8u_C1RSfs_L(a, 8, a, -big, d, 8, {4, 0}, 0), tavOk},
        {"step just below the limit forwards", taviAdd_8u_C1RSfs_L(a, big - 1, a, 8, d, 8, {4, 0}, 0), tavErrSize},
        {"zero width, huge step: every row skipped", taviMul_16s_C1RSfs_L(reinterpret_cast<Tav16s*>(a), big, reinterpret_cast<Tav16s*>(a), 8,
                                                                         reinterpret_cast<Tav16s*>(d), 8, {0, 3}, 0),
         tavOk},
        {"null in a piece", taviAdd_8u_C1RSfs_L(nullptr, big, a, 8, d, 8, {4, 1}, 0), tavErrNullPtr},
        {"null forwarded", taviAdd_8u_C1RSfs_L(nullptr, 8, a, 8, d, 8, {4, 1}, 0), tavErrNullPtr},
        {"division step check when forwarded", taviDiv_8u_C1RSfs_L(a, 0, a, 8, d, 8, {4, 1}, 0), tavErrStep},
        {"a zero product forwards the narrowed sizes", taviAddC_8u_C1RSfs_L(a, 8, 1, d, 8, {int64_t{1} << 31, 0}, 0), tavErrSize},
        {"division by a zero constant in a piece", taviDivC_16u_C1RSfs_L(reinterpret_cast<Tav16u*>(a), -big, 0, reinterpret_cast<Tav16u*>(d), 8, {3, 1}, 0), tavErrDivByZero},
        {"product one piece: the 32-bit entry checks the piece", taviMulC_8u_C1RSfs_L(nullptr, big, 3, d, big, {4, 1}, 0), tavErrNullPtr},
    };
    for (const Case& c : cases) EXPECT_EQ(c.got, c.want) << c.what;
}

// The pieces' status: the warning of a zero divisor stands when the last
// piece meets one, and a piece without one resets it.
TEST(LongTwins, LastPieceStatus) {
    const int64_t big = int64_t{1} << 32;
    Tav8u divisor[4] = {1, 0, 1, 1}, dividend[4] = {6, 6, 6, 6}, d[4] = {};
    // One row: one piece, which meets the zero divisor.
    EXPECT_EQ(taviDiv_8u_C1RSfs_L(divisor, big, dividend, big, d, big, {4, 1}, 1), tavWarnDivByZero);
    EXPECT_EQ(d[0], 3);
    EXPECT_EQ(d[1], 255);
    // Sources at a step of 0 with a huge destination step: walked as well.
    EXPECT_EQ(taviDiv_8u_C1RSfs_L(divisor, 0, dividend, 0, d, big, {4, 1}, 1), tavWarnDivByZero);
    // Forwarded: the 32-bit call keeps the first warning of any row.
    EXPECT_EQ(taviDiv_8u_C1RSfs_L(divisor, 4, dividend, 4, d, 4, {4, 1}, 0), tavWarnDivByZero);
}

}  // namespace
