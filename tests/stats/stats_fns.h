// Exports of the statistics families picked by element type and layout, so
// tests can sweep types and layouts from one template.
#pragma once

#include <tuple>
#include <type_traits>

#include "tavi.h"

namespace tavtest {

enum class Lay { C1, C3, C4, AC4 };
template <Lay L>
inline constexpr int kPer = L == Lay::C1 ? 1 : L == Lay::C3 ? 3 : 4;  // elements a pixel
template <Lay L>
inline constexpr int kRes = L == Lay::C1 ? 1 : L == Lay::C3 ? 3 : L == Lay::C4 ? 4 : 3;  // results a call
enum class Nk { Inf, L1, L2 };
enum class Nf { Plain, Diff, Rel };

// One tuple a family and type, in the order of the enums above.
template <class T>
struct Fns;

#define TAV_STATS_LAYS3(f, t) &tavi##f##_##t##_C1R, &tavi##f##_##t##_C3R, &tavi##f##_##t##_C4R
#define TAV_STATS_LAYS4(f, t, R) &tavi##f##_##t##_C1##R, &tavi##f##_##t##_C3##R, &tavi##f##_##t##_C4##R, &tavi##f##_##t##_AC4##R
#define TAV_STATS_NORMS(f, t) TAV_STATS_LAYS3(f##_Inf, t), TAV_STATS_LAYS3(f##_L1, t), TAV_STATS_LAYS3(f##_L2, t)
#define TAV_STATS_FNS(t)                                                                                                 \
    template <>                                                                                                          \
    struct Fns<Tav##t> {                                                                                                 \
        static constexpr auto block = &taviBlockMinMax_##t##_C1R;                                                        \
        static constexpr auto hist = std::make_tuple(TAV_STATS_LAYS3(Histogram, t));                                     \
        static constexpr auto sum = std::make_tuple(TAV_STATS_LAYS3(Sum, t));                                            \
        static constexpr auto mean = std::make_tuple(TAV_STATS_LAYS3(Mean, t));                                          \
        static constexpr auto min = std::make_tuple(TAV_STATS_LAYS4(Min, t, R));                                         \
        static constexpr auto max = std::make_tuple(TAV_STATS_LAYS4(Max, t, R));                                         \
        static constexpr auto minmax = std::make_tuple(TAV_STATS_LAYS4(MinMax, t, R));                                   \
        static constexpr auto minindx = std::make_tuple(TAV_STATS_LAYS4(MinIndx, t, R));                                 \
        static constexpr auto maxindx = std::make_tuple(TAV_STATS_LAYS4(MaxIndx, t, R));                                 \
        static constexpr auto minevery = std::make_tuple(TAV_STATS_LAYS4(MinEvery, t, IR));                              \
        static constexpr auto maxevery = std::make_tuple(TAV_STATS_LAYS4(MaxEvery, t, IR));                              \
        static constexpr auto norm = std::make_tuple(TAV_STATS_NORMS(Norm, t), TAV_STATS_NORMS(NormDiff, t), TAV_STATS_NORMS(NormRel, t)); \
        static constexpr auto dot = std::make_tuple(TAV_STATS_LAYS4(DotProd, t##64f, R));                                \
    };
TAV_STATS_FNS(8u)
TAV_STATS_FNS(16u)
TAV_STATS_FNS(16s)
TAV_STATS_FNS(32f)
template <>
struct Fns<Tav32u> {
    static constexpr auto dot = std::make_tuple(TAV_STATS_LAYS4(DotProd, 32u64f, R));
};
template <>
struct Fns<Tav32s> {
    static constexpr auto dot = std::make_tuple(TAV_STATS_LAYS4(DotProd, 32s64f, R));
};

// Calls f(std::integral_constant<Lay, L>) for each layout L given.
template <Lay... Ls, class F>
void for_layouts(F&& f) {
    (f(std::integral_constant<Lay, Ls>{}), ...);
}

template <class T, Lay L>
constexpr auto sum_fn() { return std::get<int(L)>(Fns<T>::sum); }
template <class T, Lay L>
constexpr auto mean_fn() { return std::get<int(L)>(Fns<T>::mean); }
template <class T, Lay L>
constexpr auto min_fn() { return std::get<int(L)>(Fns<T>::min); }
template <class T, Lay L>
constexpr auto max_fn() { return std::get<int(L)>(Fns<T>::max); }
template <class T, Lay L>
constexpr auto minmax_fn() { return std::get<int(L)>(Fns<T>::minmax); }
template <class T, Lay L>
constexpr auto minindx_fn() { return std::get<int(L)>(Fns<T>::minindx); }
template <class T, Lay L>
constexpr auto maxindx_fn() { return std::get<int(L)>(Fns<T>::maxindx); }
template <class T, Lay L>
constexpr auto minevery_fn() { return std::get<int(L)>(Fns<T>::minevery); }
template <class T, Lay L>
constexpr auto maxevery_fn() { return std::get<int(L)>(Fns<T>::maxevery); }
template <class T, Nk K, Nf F, Lay L>
constexpr auto norm_fn() { return std::get<(int(F) * 3 + int(K)) * 3 + int(L)>(Fns<T>::norm); }
template <class T, Lay L>
constexpr auto dot_fn() { return std::get<int(L)>(Fns<T>::dot); }

}  // namespace tavtest
