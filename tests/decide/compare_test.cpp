// Every compare export against the scalar model over the width sweep, all
// five operations, the all-channels rule, constants at the type's extremes
// (the 8u shortcuts), and the check order with the destination left alone.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "decide/decide_test.h"
#include "support/image.h"
#include "support/ref_decide.h"
#include "tavi.h"

namespace {

using tavtest::Image;

enum class Kind { Binary, Const, Eps, EpsConst };

template <class T>
struct Call {
    const T* src1;
    int src1Step;
    const T* src2;
    int src2Step;
    const T* value;  // one entry a channel
    Tav8u* dst;
    int dstStep;
    TaviSize roi;
    int op;
    float eps;
};

template <class T>
struct Row {
    std::string name;
    Kind kind;
    std::function<TavStatus(const Call<T>&)> call;
};

template <class T, class A>
A value_arg(const T* v) {
    if constexpr (std::is_pointer_v<A>) return v;
    else return *v;
}

template <class T>
Row<T> make_row(const char* name, TavStatus (*f)(const T*, int, const T*, int, Tav8u*, int, TaviSize, TavCmpOp)) {
    return {name, Kind::Binary,
            [f](const Call<T>& c) { return f(c.src1, c.src1Step, c.src2, c.src2Step, c.dst, c.dstStep, c.roi, c.op); }};
}
template <class T>
Row<T> make_row(const char* name, TavStatus (*f)(const T*, int, const T*, int, Tav8u*, int, TaviSize, Tav32f)) {
    return {name, Kind::Eps,
            [f](const Call<T>& c) { return f(c.src1, c.src1Step, c.src2, c.src2Step, c.dst, c.dstStep, c.roi, c.eps); }};
}
template <class T, class A>
Row<T> make_row(const char* name, TavStatus (*f)(const T*, int, A, Tav8u*, int, TaviSize, TavCmpOp)) {
    return {name, Kind::Const, [f](const Call<T>& c) {
                return f(c.src1, c.src1Step, value_arg<T, A>(c.value), c.dst, c.dstStep, c.roi, c.op);
            }};
}
template <class T, class A>
Row<T> make_row(const char* name, TavStatus (*f)(const T*, int, A, Tav8u*, int, TaviSize, Tav32f)) {
    return {name, Kind::EpsConst, [f](const Call<T>& c) {
                return f(c.src1, c.src1Step, value_arg<T, A>(c.value), c.dst, c.dstStep, c.roi, c.eps);
            }};
}

#define R(f) make_row(#f, f)
// clang-format off
#define CMP_ROWS(ty) \
    R(taviCompare_##ty##_C1R), R(taviCompare_##ty##_C3R), R(taviCompare_##ty##_C4R), \
    R(taviCompare_##ty##_AC4R), R(taviCompareC_##ty##_C1R), R(taviCompareC_##ty##_C3R), \
    R(taviCompareC_##ty##_C4R), R(taviCompareC_##ty##_AC4R)
// clang-format on

template <class T>
std::vector<Row<T>> rows();
template <>
std::vector<Row<Tav8u>> rows() { return {CMP_ROWS(8u)}; }
template <>
std::vector<Row<Tav16u>> rows() { return {CMP_ROWS(16u)}; }
template <>
std::vector<Row<Tav16s>> rows() { return {CMP_ROWS(16s)}; }
template <>
std::vector<Row<Tav32f>> rows() {
    return {CMP_ROWS(32f),
            R(taviCompareEqualEps_32f_C1R),
            R(taviCompareEqualEps_32f_C3R),
            R(taviCompareEqualEps_32f_C4R),
            R(taviCompareEqualEps_32f_AC4R),
            R(taviCompareEqualEpsC_32f_C1R),
            R(taviCompareEqualEpsC_32f_C3R),
            R(taviCompareEqualEpsC_32f_C4R),
            R(taviCompareEqualEpsC_32f_AC4R)};
}

bool has_const(Kind k) { return k == Kind::Const || k == Kind::EpsConst; }
bool has_eps(Kind k) { return k == Kind::Eps || k == Kind::EpsConst; }

// The expected destination: 255 where the test holds in every channel that
// carries a value, 0 elsewhere, padding untouched.
template <class T>
std::vector<std::uint8_t> expected_of(const Row<T>& row, const Image<T>& a, const Image<T>* b, const T* value,
                                      const Image<Tav8u>& dst, int op, float eps) {
    const dtest::Layout lay = dtest::layout_of(row.name);
    std::vector<std::uint8_t> out = dst.snapshot();
    for (int y = 0; y < dst.height(); ++y)
        for (int x = 0; x < dst.width(); ++x) {
            bool all = true;
            for (int c = 0; c < lay.values; ++c) {
                const T p = a.row(y)[x * lay.channels + c];
                const T q = b ? b->row(y)[x * lay.channels + c] : value[c];
                all &= has_eps(row.kind) ? tavref::near_eps(p, q, eps) : tavref::compare(op, p, q);
            }
            out[std::size_t(y) * dst.step() + x] = all ? 255 : 0;
        }
    return out;
}

template <class T>
void sweep_type() {
    for (const Row<T>& row : rows<T>()) {
        const dtest::Layout lay = dtest::layout_of(row.name);
        int i = 0;
        for (const dtest::Geometry& g : dtest::sweep(sizeof(T))) {
            const int elems = g.width * lay.channels;
            const int step = elems * int(sizeof(T)) + g.padBytes;
            Image<T> a(elems, g.height, step, g.guard), b(elems, g.height, step + (i % 2) * 64, g.guard);
            Image<Tav8u> dst(g.width, g.height, g.padBytes ? g.width + 3 : 0, g.guard);
            T value[4];
            for (T& v : value) v = dtest::any_value<T>();
            const std::vector<T> anchors(value, value + 4);
            a.fill_with([&](int, int) { return dtest::near_value<T>(anchors); });
            // The second image repeats the first in about half of its elements.
            b.fill_with([&](int x, int y) { return tavtest::rng()() & 1 ? a.row(y)[x] : dtest::near_value<T>(anchors); });
            const float eps = (i % 3 == 0) ? 0.0f : (i % 3 == 1) ? 1e-3f : 5.0f;
            ++i;
            for (int op = 0; op <= (has_eps(row.kind) ? 0 : 4); ++op) {
                const Image<T>* second = has_const(row.kind) ? nullptr : &b;
                const auto expected = expected_of(row, a, second, value, dst, op, eps);
                const Call<T> call{a.ptr(), a.step(), b.ptr(), b.step(), value, dst.ptr(), dst.step(),
                                   {g.width, g.height}, op, eps};
                ASSERT_EQ(row.call(call), tavOk) << row.name;
                ASSERT_TRUE(tavtest::same_bytes(dst, expected))
                    << row.name << " op " << op << " width " << g.width << " height " << g.height;
            }
        }
    }
}

TEST(Compare, Sweep8u) { sweep_type<Tav8u>(); }
TEST(Compare, Sweep16u) { sweep_type<Tav16u>(); }
TEST(Compare, Sweep16s) { sweep_type<Tav16s>(); }
TEST(Compare, Sweep32f) { sweep_type<Tav32f>(); }

// Pointers, steps, size, then eps; a compare code above 4 does nothing.
template <class T>
void statuses_type() {
    for (const Row<T>& row : rows<T>()) {
        const dtest::Layout lay = dtest::layout_of(row.name);
        struct Fault {
            std::string what;
            TavStatus expect;
            std::function<void(Call<T>&)> apply;
        };
        std::vector<Fault> faults = {
            {"null first source", tavErrNullPtr, [](Call<T>& c) { c.src1 = nullptr; }},
            {"null destination", tavErrNullPtr, [](Call<T>& c) { c.dst = nullptr; }},
            {"zero source step", tavErrStep, [](Call<T>& c) { c.src1Step = 0; }},
            {"negative destination step", tavErrStep, [](Call<T>& c) { c.dstStep = -3; }},
            {"zero width", tavErrSize, [](Call<T>& c) { c.roi.width = 0; }},
            {"zero height", tavErrSize, [](Call<T>& c) { c.roi.height = 0; }},
            {"null and zero step", tavErrNullPtr, [](Call<T>& c) { c.dst = nullptr, c.dstStep = 0; }},
            {"zero step and zero width", tavErrStep, [](Call<T>& c) { c.dstStep = 0, c.roi.width = 0; }},
        };
        if (has_const(row.kind) && lay.channels > 1)
            faults.push_back({"null value", tavErrNullPtr, [](Call<T>& c) { c.value = nullptr, c.roi.width = 0; }});
        if (!has_const(row.kind)) {
            faults.push_back({"null second source", tavErrNullPtr, [](Call<T>& c) { c.src2 = nullptr; }});
            faults.push_back({"zero second step", tavErrStep, [](Call<T>& c) { c.src2Step = 0, c.roi.width = -1; }});
        }
        if (has_eps(row.kind)) {
            faults.push_back({"negative eps", tavErrEpsilon, [](Call<T>& c) { c.eps = -1; }});
            faults.push_back({"zero width and negative eps", tavErrSize, [](Call<T>& c) { c.eps = -1, c.roi.width = 0; }});
        } else {
            faults.push_back({"cmpOp 5", tavOk, [](Call<T>& c) { c.op = 5; }});
            faults.push_back({"cmpOp large", tavOk, [](Call<T>& c) { c.op = 1 << 20; }});
            faults.push_back({"zero width and cmpOp 5", tavErrSize, [](Call<T>& c) { c.op = 5, c.roi.width = 0; }});
        }
        for (const Fault& f : faults) {
            Image<T> a(3 * lay.channels, 2), b(3 * lay.channels, 2);
            Image<Tav8u> dst(3, 2);
            const auto before = dst.snapshot();
            const T value[4] = {T(1), T(2), T(3), T(4)};
            Call<T> call{a.ptr(), a.step(), b.ptr(), b.step(), value, dst.ptr(), dst.step(), {3, 2}, tavCmpLess, 0.5f};
            f.apply(call);
            EXPECT_EQ(row.call(call), f.expect) << row.name << ": " << f.what;
            EXPECT_TRUE(tavtest::same_bytes(dst, before)) << row.name << ": " << f.what;
        }
    }
}

TEST(Compare, CheckOrder8u) { statuses_type<Tav8u>(); }
TEST(Compare, CheckOrder16u) { statuses_type<Tav16u>(); }
TEST(Compare, CheckOrder16s) { statuses_type<Tav16s>(); }
TEST(Compare, CheckOrder32f) { statuses_type<Tav32f>(); }

}  // namespace
