// Border copies: every member out of place and in place against the
// reference over many source sizes and border widths (borders wider than the
// source included), the named cases, and the check order.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "support/image.h"
#include "support/ref_border.h"
#include "tavi.h"

namespace {

using tavref::Border;
using tavref::BorderFrame;
using tavtest::Image;

template <class T>
struct Member {
    std::string name;
    int channels;
    bool ac4;
    std::function<TavStatus(const T*, int64_t, T*, int64_t, const BorderFrame&, const T*)> copy;
    std::function<TavStatus(T*, int64_t, const BorderFrame&, const T*)> inPlace;  // may be empty
};

// Source sizes around the vector widths and borders of every width class:
// none, one pixel, a few, wider than a vector, wider than the source.
std::vector<BorderFrame> frames() {
    std::vector<BorderFrame> f;
    const int64_t widths[] = {1, 2, 3, 5, 16, 17, 33, 64, 70};
    const int64_t heights[] = {1, 2, 3, 5};
    const int64_t sides[][4] = {{0, 0, 0, 0}, {1, 1, 1, 1}, {0, 3, 0, 2}, {2, 0, 5, 0}, {5, 7, 4, 6},
                                {1, 17, 1, 30}, {3, 65, 2, 1}, {9, 150, 11, 70}};
    int k = 0;
    for (int64_t w : widths)
        for (int64_t h : heights) {
            const auto& s = sides[k++ % 8];
            f.push_back({w, h, w + s[1] + s[2], h + s[0] + s[3], s[0], s[1]});
        }
    // Borders several times the source.
    f.push_back({1, 1, 9, 7, 3, 4});
    f.push_back({2, 3, 41, 30, 13, 20});
    f.push_back({3, 2, 50, 9, 4, 23});
    return f;
}

template <class T>
void fill_value(T (&v)[4]) {
    for (T& x : v) x = tavtest::random_value<T>(0, 100);
}

template <class T>
::testing::AssertionResult check_copy(Border kind, const Member<T>& m, const BorderFrame& f, int pad, int offset) {
    const int ch = m.channels;
    const int64_t srcStep = (f.srcW * ch + offset) * int64_t(sizeof(T)) + pad;
    const int64_t dstStep = (f.dstW * ch + offset) * int64_t(sizeof(T)) + 2 * pad;
    Image<T> src(int(f.srcW * ch + offset), int(f.srcH), srcStep);
    Image<T> dst(int(f.dstW * ch + offset), int(f.dstH), dstStep);
    T value[4];
    fill_value(value);
    std::vector<std::uint8_t> expected = dst.snapshot();
    tavref::border_expect(kind, f, ch, m.ac4 ? 3 : ch, src.ptr() + offset, srcStep,
                          expected.data() + offset * sizeof(T), dstStep, value);
    const TavStatus st = m.copy(src.ptr() + offset, srcStep, dst.ptr() + offset, dstStep, f, value);
    if (st != tavOk) return ::testing::AssertionFailure() << "status " << st;
    return tavtest::same_bytes(dst, expected);
}

template <class T>
::testing::AssertionResult check_in_place(Border kind, const Member<T>& m, const BorderFrame& f, int pad) {
    const int ch = m.channels;
    const int64_t step = f.dstW * ch * int64_t(sizeof(T)) + pad;
    Image<T> img(int(f.dstW * ch), int(f.dstH), step);
    T value[4];
    fill_value(value);
    // The source as it stands inside the image before the call.
    const std::vector<std::uint8_t> before = img.snapshot();
    const auto* source = reinterpret_cast<const T*>(before.data() + f.top * step) + f.left * ch;
    std::vector<std::uint8_t> expected = before;
    tavref::border_expect(kind, f, ch, m.ac4 ? 3 : ch, source, step, expected.data(), step, value);
    T* inside = img.row(int(f.top)) + f.left * ch;
    const TavStatus st = m.inPlace(inside, step, f, value);
    if (st != tavOk) return ::testing::AssertionFailure() << "status " << st;
    return tavtest::same_bytes(img, expected);
}

template <class T>
void check_all(Border kind, const std::vector<Member<T>>& members) {
    int k = 0;
    for (const Member<T>& m : members) {
        for (const BorderFrame& f : frames()) {
            ++k;
            const int pad = (k % 3) * int(sizeof(T)) * 3;
            SCOPED_TRACE(::testing::Message() << m.name << " source " << f.srcW << "x" << f.srcH << " destination "
                                              << f.dstW << "x" << f.dstH << " top " << f.top << " left " << f.left);
            ASSERT_TRUE(check_copy(kind, m, f, pad, k % 2));
            if (m.inPlace) {
                ASSERT_TRUE(check_in_place(kind, m, f, pad));
            }
        }
    }
}

// Every member as a row: the 32-bit and 64-bit forms of each type and
// layout, in place where the form exists. The constant is an element for C1.
template <class V, class T>
V pass(const T* v) {
    if constexpr (std::is_pointer_v<V>) return v;
    else return v[0];
}

template <class T, class... V>
Member<T> m32(const char* name, int ch, bool ac4, TavStatus (*r)(const T*, int, TaviSize, T*, int, TaviSize, int, int, V...),
              std::type_identity_t<TavStatus (*)(T*, int, TaviSize, TaviSize, int, int, V...)> ir) {
    Member<T> m{name, ch, ac4, [=](const T* s, int64_t ss, T* d, int64_t ds, const BorderFrame& f, [[maybe_unused]] const T* v) {
                    return r(s, int(ss), TaviSize{int(f.srcW), int(f.srcH)}, d, int(ds), TaviSize{int(f.dstW), int(f.dstH)},
                             int(f.top), int(f.left), pass<V>(v)...);
                }, nullptr};
    if (ir)
        m.inPlace = [=](T* p, int64_t st, const BorderFrame& f, [[maybe_unused]] const T* v) {
            return ir(p, int(st), TaviSize{int(f.srcW), int(f.srcH)}, TaviSize{int(f.dstW), int(f.dstH)}, int(f.top), int(f.left),
                      pass<V>(v)...);
        };
    return m;
}

template <class T, class... V>
Member<T> m64(const char* name, int ch, bool ac4, TavStatus (*r)(const T*, int64_t, TaviSizeL, T*, int64_t, TaviSizeL, int64_t, int64_t, V...),
              std::type_identity_t<TavStatus (*)(T*, int64_t, TaviSizeL, TaviSizeL, int64_t, int64_t, V...)> ir) {
    return {name, ch, ac4,
            [=](const T* s, int64_t ss, T* d, int64_t ds, const BorderFrame& f, [[maybe_unused]] const T* v) {
                return r(s, ss, TaviSizeL{f.srcW, f.srcH}, d, ds, TaviSizeL{f.dstW, f.dstH}, f.top, f.left, pass<V>(v)...);
            },
            [=](T* p, int64_t st, const BorderFrame& f, [[maybe_unused]] const T* v) {
                return ir(p, st, TaviSizeL{f.srcW, f.srcH}, TaviSizeL{f.dstW, f.dstH}, f.top, f.left, pass<V>(v)...);
            }};
}

#define NO_IR(fam, t, L) nullptr
#define WITH_IR(fam, t, L) taviCopy##fam##Border_##t##_##L##IR
#define BORDER_PAIR(fam, t, L, ch, ac4, IR)                                                                           \
    m32<Tav##t>(#fam "_" #t "_" #L "R", ch, ac4, taviCopy##fam##Border_##t##_##L##R, IR(fam, t, L)),                  \
        m64<Tav##t>(#fam "_" #t "_" #L "R_L", ch, ac4, taviCopy##fam##Border_##t##_##L##R_L, taviCopy##fam##Border_##t##_##L##IR_L)
#define BORDER_C134(fam, t, IR) BORDER_PAIR(fam, t, C1, 1, false, IR), BORDER_PAIR(fam, t, C3, 3, false, IR), BORDER_PAIR(fam, t, C4, 4, false, IR)
#define BORDER_ALL(fam, t, IR) {BORDER_C134(fam, t, IR), BORDER_PAIR(fam, t, AC4, 4, true, IR)}

TEST(BorderConst, EveryMemberAgainstTheReference) {
    check_all<Tav8u>(Border::Const, BORDER_ALL(Const, 8u, NO_IR));
    check_all<Tav16u>(Border::Const, BORDER_ALL(Const, 16u, NO_IR));
    check_all<Tav16s>(Border::Const, BORDER_ALL(Const, 16s, NO_IR));
    check_all<Tav32s>(Border::Const, BORDER_ALL(Const, 32s, NO_IR));
    check_all<Tav32f>(Border::Const, BORDER_ALL(Const, 32f, NO_IR));
}

TEST(BorderReplicate, EveryMemberAgainstTheReference) {
    check_all<Tav8u>(Border::Replicate, BORDER_ALL(Replicate, 8u, WITH_IR));
    check_all<Tav16u>(Border::Replicate, BORDER_ALL(Replicate, 16u, WITH_IR));
    check_all<Tav16s>(Border::Replicate, BORDER_ALL(Replicate, 16s, WITH_IR));
    check_all<Tav32s>(Border::Replicate, BORDER_ALL(Replicate, 32s, WITH_IR));
    check_all<Tav32f>(Border::Replicate, BORDER_ALL(Replicate, 32f, WITH_IR));
}

TEST(BorderMirror, EveryMemberAgainstTheReference) {
    check_all<Tav8u>(Border::Mirror, {BORDER_C134(Mirror, 8u, WITH_IR)});
    check_all<Tav16u>(Border::Mirror, {BORDER_C134(Mirror, 16u, WITH_IR)});
    check_all<Tav16s>(Border::Mirror, {BORDER_C134(Mirror, 16s, WITH_IR)});
    check_all<Tav32s>(Border::Mirror, {BORDER_C134(Mirror, 32s, WITH_IR)});
    check_all<Tav32f>(Border::Mirror, {BORDER_C134(Mirror, 32f, WITH_IR)});
}

TEST(BorderWrap, EveryMemberAgainstTheReference) {
    check_all<Tav32s>(Border::Wrap, {BORDER_PAIR(Wrap, 32s, C1, 1, false, WITH_IR)});
    check_all<Tav32f>(Border::Wrap, {BORDER_PAIR(Wrap, 32f, C1, 1, false, WITH_IR)});
}

TEST(BorderMirror, NamedCases) {
    // A single source pixel is every outside pixel.
    const Tav8u one = 42;
    Tav8u row[4] = {0, 0, 0, 0};
    ASSERT_EQ(taviCopyMirrorBorder_8u_C1R(&one, 1, {1, 1}, row, 4, {4, 1}, 0, 3), tavOk);
    EXPECT_EQ(std::vector<int>(row, row + 4), (std::vector<int>{42, 42, 42, 42}));
    // 1 2 3 with five on the left: period 4, starting at phase 5 mod 4.
    const Tav8u src[3] = {1, 2, 3};
    Tav8u dst[10] = {};
    ASSERT_EQ(taviCopyMirrorBorder_8u_C1R(src, 3, {3, 1}, dst, 10, {10, 1}, 0, 5), tavOk);
    EXPECT_EQ(std::vector<int>(dst, dst + 10), (std::vector<int>{2, 1, 2, 3, 2, 1, 2, 3, 2, 1}));
}

// pSrc == pDst runs the in-place form: the frame is made around pSrc.
TEST(BorderMirror, SamePointersWorkInPlace) {
    Image<Tav8u> img(12, 9);
    const auto before = img.snapshot();
    const BorderFrame f{6, 4, 12, 9, 2, 3};
    std::vector<std::uint8_t> expected = before;
    tavref::border_expect(Border::Mirror, f, 1, 1, reinterpret_cast<const Tav8u*>(before.data() + 2 * 12 + 3), 12,
                          expected.data(), 12, static_cast<const Tav8u*>(nullptr));
    Tav8u* inside = img.row(2) + 3;
    ASSERT_EQ(taviCopyMirrorBorder_8u_C1R(inside, 12, {6, 4}, inside, 12, {12, 9}, 2, 3), tavOk);
    EXPECT_TRUE(tavtest::same_bytes(img, expected));
}

// Zero borders are a plain copy; a source exactly as wide as the destination
// minus the left border has no right border.
TEST(BorderReplicate, ZeroBordersAndFullWidth) {
    Image<Tav16s> src(3 * 20, 5);
    Image<Tav16s> dst(3 * 20, 5);
    ASSERT_EQ(taviCopyReplicateBorder_16s_C3R(src.ptr(), src.step(), {20, 5}, dst.ptr(), dst.step(), {20, 5}, 0, 0), tavOk);
    EXPECT_TRUE(tavtest::same_bytes(dst.bytes(), src.bytes(), src.span(), src.step()));
    Image<Tav8u> wide(30, 3);
    ASSERT_EQ(taviCopyReplicateBorder_8u_C1R(src.bytes(), 30, {25, 3}, wide.ptr(), 30, {30, 3}, 0, 5), tavOk);
    for (int y = 0; y < 3; ++y) EXPECT_EQ(wide.row(y)[29], src.bytes()[y * 30 + 24]);
}

// Checks in order: pointers, steps, sizes; nothing written on failure.
TEST(BorderChecks, StatusesInCheckOrder) {
    Image<Tav32f> src(8, 4), dst(16, 8);
    const Tav32f v3[3] = {1, 2, 3};
    const auto before = dst.snapshot();
    struct Row {
        bool nullSrc, nullDst;
        int srcStep, dstStep;
        TaviSize s, d;
        int top, left;
        TavStatus expect;
    } rows[] = {
        {true, false, 32, 64, {8, 4}, {16, 8}, 1, 1, tavErrNullPtr},
        {false, true, 0, 64, {0, 4}, {16, 8}, 1, 1, tavErrNullPtr},
        {false, false, 0, 64, {0, 4}, {16, 8}, 1, 1, tavErrStep},
        {false, false, 32, -1, {8, 4}, {16, 8}, 1, 1, tavErrStep},
        {false, false, 32, 64, {0, 4}, {16, 8}, 1, 1, tavErrSize},
        {false, false, 32, 64, {8, 4}, {16, 0}, 0, 0, tavErrSize},
        {false, false, 32, 64, {8, 4}, {16, 8}, -1, 1, tavErrSize},
        {false, false, 32, 64, {8, 4}, {16, 8}, 1, -1, tavErrSize},
        {false, false, 32, 64, {8, 4}, {16, 8}, 1, 9, tavErrSize},
        {false, false, 32, 64, {8, 4}, {16, 8}, 5, 1, tavErrSize},
        {false, false, 32, 64, {8, 4}, {16, 8}, 4, 8, tavOk},
    };
    for (const Row& r : rows) {
        const Tav32f* s = r.nullSrc ? nullptr : src.ptr();
        Tav32f* d = r.nullDst ? nullptr : dst.ptr();
        const TavStatus a = taviCopyReplicateBorder_32f_C1R(s, r.srcStep, r.s, d, r.dstStep, r.d, r.top, r.left);
        const TavStatus b = taviCopyMirrorBorder_32f_C1R(s, r.srcStep, r.s, d, r.dstStep, r.d, r.top, r.left);
        const TavStatus c = taviCopyWrapBorder_32f_C1R_L(s, r.srcStep, {r.s.width, r.s.height}, d, r.dstStep,
                                                         {r.d.width, r.d.height}, r.top, r.left);
        const TavStatus e = taviCopyConstBorder_32f_C1R(s, r.srcStep, r.s, d, r.dstStep, r.d, r.top, r.left, 0.5f);
        EXPECT_EQ(a, r.expect);
        EXPECT_EQ(b, r.expect);
        EXPECT_EQ(c, r.expect);
        EXPECT_EQ(e, r.expect);
        if (r.expect != tavOk) {
            EXPECT_TRUE(tavtest::same_bytes(dst, before));
        }
    }
    EXPECT_EQ(taviCopyConstBorder_32f_C3R(src.ptr(), 96, {2, 2}, dst.ptr(), 192, {4, 4}, 1, 1, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviCopyConstBorder_32f_AC4IR_L(dst.ptr(), 64, {2, 2}, {4, 4}, 1, 1, nullptr), tavErrNullPtr);
    EXPECT_EQ(taviCopyConstBorder_32f_AC4IR_L(nullptr, 0, {0, 2}, {4, 4}, 1, 1, v3), tavErrNullPtr);
    EXPECT_EQ(taviCopyReplicateBorder_32f_C1IR(dst.ptr(), 0, {0, 2}, {4, 4}, 1, 1), tavErrStep);
    EXPECT_EQ(taviCopyMirrorBorder_32f_C1IR_L(dst.ptr(), 64, {2, 2}, {4, 4}, 3, 1), tavErrSize);
}

}  // namespace
