// Every threshold export against the scalar model: all types, layouts and
// variants, in place and out of place, over the width sweep; then the order
// of the checks of each export, with the destination left alone on errors.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "decide/decide_test.h"
#include "support/image.h"
#include "support/ref_decide.h"
#include "tavi.h"

namespace {

using tavref::Thr;
using tavtest::Image;

// The arguments of one call, whatever the export's shape: value arrays in
// the order the export takes them, and the compare code.
template <class T>
struct Call {
    const T* src;
    int srcStep;
    T* dst;
    int dstStep;
    TaviSize roi;
    const T* slots[5] = {};
    int cmp = tavCmpGreater;
};

template <class T, class A>
A arg_of(const T* slot, int cmp) {
    if constexpr (std::is_same_v<A, TavCmpOp>) return cmp;
    else if constexpr (std::is_pointer_v<A>) return slot;
    else return *slot;
}

template <class T>
struct Row {
    std::string name;
    Thr kind;
    bool inPlace;
    std::function<TavStatus(const Call<T>&)> call;
};

template <class T, class... A, std::size_t... I>
Row<T> unary_row(const char* name, Thr kind, TavStatus (*f)(const T*, int, T*, int, TaviSize, A...),
                 std::index_sequence<I...>) {
    return {name, kind, false, [f](const Call<T>& c) {
                return f(c.src, c.srcStep, c.dst, c.dstStep, c.roi, arg_of<T, A>(c.slots[I], c.cmp)...);
            }};
}
template <class T, class... A, std::size_t... I>
Row<T> in_place_row(const char* name, Thr kind, TavStatus (*f)(T*, int, TaviSize, A...), std::index_sequence<I...>) {
    return {name, kind, true,
            [f](const Call<T>& c) { return f(c.dst, c.dstStep, c.roi, arg_of<T, A>(c.slots[I], c.cmp)...); }};
}
template <class T, class... A>
Row<T> make_row(const char* name, Thr kind, TavStatus (*f)(const T*, int, T*, int, TaviSize, A...)) {
    return unary_row(name, kind, f, std::index_sequence_for<A...>{});
}
template <class T, class... A>
Row<T> make_row(const char* name, Thr kind, TavStatus (*f)(T*, int, TaviSize, A...)) {
    return in_place_row(name, kind, f, std::index_sequence_for<A...>{});
}

#define R(kind, f) make_row(#f, Thr::kind, f)
// clang-format off
#define THR_ROWS(ty) \
    R(Limit, taviThreshold_##ty##_C1R), R(Limit, taviThreshold_##ty##_C1IR), \
    R(Limit, taviThreshold_##ty##_C3R), R(Limit, taviThreshold_##ty##_C3IR), \
    R(Limit, taviThreshold_##ty##_AC4R), R(Limit, taviThreshold_##ty##_AC4IR), \
    R(Cap, taviThreshold_GT_##ty##_C1R), R(Cap, taviThreshold_GT_##ty##_C1IR), \
    R(Cap, taviThreshold_GT_##ty##_C3R), R(Cap, taviThreshold_GT_##ty##_C3IR), \
    R(Cap, taviThreshold_GT_##ty##_AC4R), R(Cap, taviThreshold_GT_##ty##_AC4IR), \
    R(Floor, taviThreshold_LT_##ty##_C1R), R(Floor, taviThreshold_LT_##ty##_C1IR), \
    R(Floor, taviThreshold_LT_##ty##_C3R), R(Floor, taviThreshold_LT_##ty##_C3IR), \
    R(Floor, taviThreshold_LT_##ty##_AC4R), R(Floor, taviThreshold_LT_##ty##_AC4IR), \
    R(Replace, taviThreshold_Val_##ty##_C1R), R(Replace, taviThreshold_Val_##ty##_C1IR), \
    R(Replace, taviThreshold_Val_##ty##_C3R), R(Replace, taviThreshold_Val_##ty##_C3IR), \
    R(Replace, taviThreshold_Val_##ty##_AC4R), R(Replace, taviThreshold_Val_##ty##_AC4IR), \
    R(ReplaceOutside, taviThreshold_LTValGTVal_##ty##_C1R), \
    R(ReplaceOutside, taviThreshold_LTValGTVal_##ty##_C1IR), \
    R(ReplaceOutside, taviThreshold_LTValGTVal_##ty##_C3R), \
    R(ReplaceOutside, taviThreshold_LTValGTVal_##ty##_C3IR), \
    R(ReplaceOutside, taviThreshold_LTValGTVal_##ty##_AC4R), \
    R(ReplaceOutside, taviThreshold_LTValGTVal_##ty##_AC4IR), R(ReplaceAbove, taviThreshold_GTVal_##ty##_C1R), \
    R(ReplaceAbove, taviThreshold_GTVal_##ty##_C1IR), R(ReplaceAbove, taviThreshold_GTVal_##ty##_C3R), \
    R(ReplaceAbove, taviThreshold_GTVal_##ty##_C3IR), R(ReplaceAbove, taviThreshold_GTVal_##ty##_C4R), \
    R(ReplaceAbove, taviThreshold_GTVal_##ty##_C4IR), R(ReplaceAbove, taviThreshold_GTVal_##ty##_AC4R), \
    R(ReplaceAbove, taviThreshold_GTVal_##ty##_AC4IR), R(ReplaceBelow, taviThreshold_LTVal_##ty##_C1R), \
    R(ReplaceBelow, taviThreshold_LTVal_##ty##_C1IR), R(ReplaceBelow, taviThreshold_LTVal_##ty##_C3R), \
    R(ReplaceBelow, taviThreshold_LTVal_##ty##_C3IR), R(ReplaceBelow, taviThreshold_LTVal_##ty##_C4R), \
    R(ReplaceBelow, taviThreshold_LTVal_##ty##_C4IR), R(ReplaceBelow, taviThreshold_LTVal_##ty##_AC4R), \
    R(ReplaceBelow, taviThreshold_LTVal_##ty##_AC4IR)
// clang-format on

template <class T>
std::vector<Row<T>> rows();
template <>
std::vector<Row<Tav8u>> rows() { return {THR_ROWS(8u)}; }
template <>
std::vector<Row<Tav16u>> rows() { return {THR_ROWS(16u)}; }
template <>
std::vector<Row<Tav16s>> rows() { return {THR_ROWS(16s)}; }
template <>
std::vector<Row<Tav32f>> rows() { return {THR_ROWS(32f)}; }

// Random arguments a channel, lower thresholds never above upper ones, and
// the slots in the export's order.
template <class T>
struct Args {
    tavref::ThrArgs<T> a;
    void fill(Thr kind) {
        for (int c = 0; c < 4; ++c) {
            a.t[c] = dtest::any_value<T>();
            a.v[c] = dtest::any_value<T>();
            a.tl[c] = dtest::any_value<T>();
            a.tg[c] = dtest::any_value<T>();
            a.vl[c] = dtest::any_value<T>();
            a.vg[c] = dtest::any_value<T>();
            if (a.tl[c] > a.tg[c]) std::swap(a.tl[c], a.tg[c]);
        }
        a.cmp = (kind == Thr::Limit || kind == Thr::Replace) && (tavtest::rng()() & 1) ? tavCmpLess : tavCmpGreater;
    }
    void slots(Thr kind, Call<T>& c) const {
        switch (kind) {
            case Thr::Limit:
            case Thr::Cap:
            case Thr::Floor: c.slots[0] = a.t; break;
            case Thr::Replace:
            case Thr::ReplaceAbove:
            case Thr::ReplaceBelow: c.slots[0] = a.t, c.slots[1] = a.v; break;
            case Thr::ReplaceOutside: c.slots[0] = a.tl, c.slots[1] = a.vl, c.slots[2] = a.tg, c.slots[3] = a.vg; break;
        }
        c.cmp = a.cmp;
    }
    std::vector<T> anchors() const {
        return {a.t[0], a.t[1], a.t[2], a.t[3], a.tl[0], a.tl[1], a.tl[2], a.tl[3], a.tg[0], a.tg[1], a.tg[2], a.tg[3]};
    }
};

template <class T>
void sweep_type() {
    for (const Row<T>& row : rows<T>()) {
        const dtest::Layout lay = dtest::layout_of(row.name);
        int i = 0;
        for (const dtest::Geometry& g : dtest::sweep(sizeof(T))) {
            Args<T> args;
            args.fill(row.kind);
            const int elems = g.width * lay.channels;
            const int srcStep = elems * sizeof(T) + g.padBytes;
            const int dstStep = srcStep + (++i % 2 ? 0 : 64);
            Image<T> src(elems, g.height, srcStep, g.guard);
            Image<T> dst(elems, g.height, row.inPlace ? srcStep : dstStep, g.guard);
            Image<T>& in = row.inPlace ? dst : src;
            const auto anchors = args.anchors();
            in.fill_with([&](int, int) { return dtest::near_value<T>(anchors); });
            const auto expected = tavtest::expected_from(dst, [&](int x, int y, T& v) {
                const int c = x % lay.channels;
                return c < lay.values && (v = tavref::threshold(row.kind, in.row(y)[x], args.a, c), true);
            });
            Call<T> call{src.ptr(), src.step(), dst.ptr(), dst.step(), {g.width, g.height}};
            args.slots(row.kind, call);
            ASSERT_EQ(row.call(call), tavOk) << row.name;
            ASSERT_TRUE(tavtest::same_bytes(dst, expected))
                << row.name << " width " << g.width << " height " << g.height << " pad " << g.padBytes;
        }
    }
}

TEST(Threshold, Sweep8u) { sweep_type<Tav8u>(); }
TEST(Threshold, Sweep16u) { sweep_type<Tav16u>(); }
TEST(Threshold, Sweep16s) { sweep_type<Tav16s>(); }
TEST(Threshold, Sweep32f) { sweep_type<Tav32f>(); }

// Faults one at a time and in pairs: the status is the first in the order
// pointers, size, steps, value pointers, then cmpOp or the threshold order;
// the destination keeps its bytes.
template <class T>
void statuses_type() {
    for (const Row<T>& row : rows<T>()) {
        const dtest::Layout lay = dtest::layout_of(row.name);
        const bool multi = lay.channels > 1;
        const bool hasCmp = row.kind == Thr::Limit || row.kind == Thr::Replace;
        const int slots = row.kind == Thr::ReplaceOutside ? 4 : row.kind == Thr::Limit || row.kind == Thr::Cap ||
                                                                   row.kind == Thr::Floor ? 1 : 2;
        Args<T> args;
        args.fill(row.kind);
        struct Fault {
            std::string what;
            TavStatus expect;
            std::function<void(Call<T>&, Args<T>&)> apply;
        };
        std::vector<Fault> faults = {
            {"null destination", tavErrNullPtr, [](Call<T>& c, Args<T>&) { c.dst = nullptr; }},
            {"zero width", tavErrSize, [](Call<T>& c, Args<T>&) { c.roi.width = 0; }},
            {"negative height", tavErrSize, [](Call<T>& c, Args<T>&) { c.roi.height = -1; }},
            {"zero step", tavErrStep, [](Call<T>& c, Args<T>&) { c.dstStep = 0; }},
            {"null and zero width", tavErrNullPtr, [](Call<T>& c, Args<T>&) { c.dst = nullptr, c.roi.width = 0; }},
            {"zero width and negative step", tavErrSize, [](Call<T>& c, Args<T>&) { c.roi.width = 0, c.dstStep = -4; }},
        };
        if (!row.inPlace) {
            faults.push_back({"null source", tavErrNullPtr, [](Call<T>& c, Args<T>&) { c.src = nullptr; }});
            faults.push_back({"zero source step", tavErrStep, [](Call<T>& c, Args<T>&) { c.srcStep = 0; }});
        }
        if (multi) {
            for (int k = 0; k < slots; ++k) {
                faults.push_back({"null value " + std::to_string(k), tavErrNullPtr,
                                  [k](Call<T>& c, Args<T>&) { c.slots[k] = nullptr; }});
                faults.push_back({"zero step and null value", tavErrStep,
                                  [k](Call<T>& c, Args<T>&) { c.slots[k] = nullptr, c.dstStep = 0; }});
            }
        }
        if (hasCmp) {
            for (int op : {int(tavCmpLessEq), int(tavCmpEq), int(tavCmpGreaterEq), -1, 5})
                faults.push_back({"cmpOp " + std::to_string(op), tavErrNotSupportedMode,
                                  [op](Call<T>& c, Args<T>&) { c.cmp = op; }});
            faults.push_back({"zero step and cmpOp", tavErrStep, [](Call<T>& c, Args<T>&) { c.cmp = 2, c.dstStep = 0; }});
            if (multi)
                faults.push_back({"null value and cmpOp", tavErrNullPtr,
                                  [](Call<T>& c, Args<T>&) { c.cmp = 2, c.slots[0] = nullptr; }});
        }
        if (row.kind == Thr::ReplaceOutside) {
            const int last = lay.values - 1;
            auto order = [last](Call<T>&, Args<T>& a) { a.a.tl[last] = T(10), a.a.tg[last] = T(5); };
            faults.push_back({"lower threshold above upper", tavErrThresholdOrder, order});
            faults.push_back({"zero step and order", tavErrStep, [order](Call<T>& c, Args<T>& a) {
                                  order(c, a);
                                  c.dstStep = 0;
                              }});
            faults.push_back({"equal thresholds", tavOk,
                              [last](Call<T>&, Args<T>& a) { a.a.tl[last] = a.a.tg[last] = T(7); }});
        }
        for (const Fault& f : faults) {
            Image<T> src(3 * lay.channels, 2), dst(3 * lay.channels, 2);
            const auto before = dst.snapshot();
            Args<T> a = args;
            Call<T> call{src.ptr(), src.step(), dst.ptr(), dst.step(), {3, 2}};
            a.slots(row.kind, call);
            f.apply(call, a);  // value faults reach the call through its slots
            EXPECT_EQ(row.call(call), f.expect) << row.name << ": " << f.what;
            if (f.expect != tavOk) {
                EXPECT_TRUE(tavtest::same_bytes(dst, before)) << row.name << ": " << f.what;
            }
        }
    }
}

TEST(Threshold, CheckOrder8u) { statuses_type<Tav8u>(); }
TEST(Threshold, CheckOrder16u) { statuses_type<Tav16u>(); }
TEST(Threshold, CheckOrder16s) { statuses_type<Tav16s>(); }
TEST(Threshold, CheckOrder32f) { statuses_type<Tav32f>(); }

}  // namespace
