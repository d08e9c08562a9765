// Exports of the statistics families picked by element type and layout, so
// tests can sweep types and layouts from one template.
#pragma once

#include <tuple>

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

template <>
struct Fns<Tav8u> {
    static constexpr auto block = &taviBlockMinMax_8u_C1R;
    static constexpr auto hist = std::make_tuple(&taviHistogram_8u_C1R, &taviHistogram_8u_C3R, &taviHistogram_8u_C4R);
    static constexpr auto sum = std::make_tuple(&taviSum_8u_C1R, &taviSum_8u_C3R, &taviSum_8u_C4R);
    static constexpr auto mean = std::make_tuple(&taviMean_8u_C1R, &taviMean_8u_C3R, &taviMean_8u_C4R);
    static constexpr auto min = std::make_tuple(&taviMin_8u_C1R, &taviMin_8u_C3R, &taviMin_8u_C4R, &taviMin_8u_AC4R);
    static constexpr auto max = std::make_tuple(&taviMax_8u_C1R, &taviMax_8u_C3R, &taviMax_8u_C4R, &taviMax_8u_AC4R);
    static constexpr auto minmax = std::make_tuple(&taviMinMax_8u_C1R, &taviMinMax_8u_C3R, &taviMinMax_8u_C4R, &taviMinMax_8u_AC4R);
    static constexpr auto minindx = std::make_tuple(&taviMinIndx_8u_C1R, &taviMinIndx_8u_C3R, &taviMinIndx_8u_C4R, &taviMinIndx_8u_AC4R);
    static constexpr auto maxindx = std::make_tuple(&taviMaxIndx_8u_C1R, &taviMaxIndx_8u_C3R, &taviMaxIndx_8u_C4R, &taviMaxIndx_8u_AC4R);
    static constexpr auto minevery = std::make_tuple(&taviMinEvery_8u_C1IR, &taviMinEvery_8u_C3IR, &taviMinEvery_8u_C4IR, &taviMinEvery_8u_AC4IR);
    static constexpr auto maxevery = std::make_tuple(&taviMaxEvery_8u_C1IR, &taviMaxEvery_8u_C3IR, &taviMaxEvery_8u_C4IR, &taviMaxEvery_8u_AC4IR);
    static constexpr auto norm = std::make_tuple(&taviNorm_Inf_8u_C1R, &taviNorm_Inf_8u_C3R, &taviNorm_Inf_8u_C4R, &taviNorm_L1_8u_C1R, &taviNorm_L1_8u_C3R, &taviNorm_L1_8u_C4R, &taviNorm_L2_8u_C1R, &taviNorm_L2_8u_C3R, &taviNorm_L2_8u_C4R, &taviNormDiff_Inf_8u_C1R, &taviNormDiff_Inf_8u_C3R, &taviNormDiff_Inf_8u_C4R, &taviNormDiff_L1_8u_C1R, &taviNormDiff_L1_8u_C3R, &taviNormDiff_L1_8u_C4R, &taviNormDiff_L2_8u_C1R, &taviNormDiff_L2_8u_C3R, &taviNormDiff_L2_8u_C4R, &taviNormRel_Inf_8u_C1R, &taviNormRel_Inf_8u_C3R, &taviNormRel_Inf_8u_C4R, &taviNormRel_L1_8u_C1R, &taviNormRel_L1_8u_C3R, &taviNormRel_L1_8u_C4R, &taviNormRel_L2_8u_C1R, &taviNormRel_L2_8u_C3R, &taviNormRel_L2_8u_C4R);
    static constexpr auto dot = std::make_tuple(&taviDotProd_8u64f_C1R, &taviDotProd_8u64f_C3R, &taviDotProd_8u64f_C4R, &taviDotProd_8u64f_AC4R);
};
template <>
struct Fns<Tav16u> {
    static constexpr auto block = &taviBlockMinMax_16u_C1R;
    static constexpr auto hist = std::make_tuple(&taviHistogram_16u_C1R, &taviHistogram_16u_C3R, &taviHistogram_16u_C4R);
    static constexpr auto sum = std::make_tuple(&taviSum_16u_C1R, &taviSum_16u_C3R, &taviSum_16u_C4R);
    static constexpr auto mean = std::make_tuple(&taviMean_16u_C1R, &taviMean_16u_C3R, &taviMean_16u_C4R);
    static constexpr auto min = std::make_tuple(&taviMin_16u_C1R, &taviMin_16u_C3R, &taviMin_16u_C4R, &taviMin_16u_AC4R);
    static constexpr auto max = std::make_tuple(&taviMax_16u_C1R, &taviMax_16u_C3R, &taviMax_16u_C4R, &taviMax_16u_AC4R);
    static constexpr auto minmax = std::make_tuple(&taviMinMax_16u_C1R, &taviMinMax_16u_C3R, &taviMinMax_16u_C4R, &taviMinMax_16u_AC4R);
    static constexpr auto minindx = std::make_tuple(&taviMinIndx_16u_C1R, &taviMinIndx_16u_C3R, &taviMinIndx_16u_C4R, &taviMinIndx_16u_AC4R);
    static constexpr auto maxindx = std::make_tuple(&taviMaxIndx_16u_C1R, &taviMaxIndx_16u_C3R, &taviMaxIndx_16u_C4R, &taviMaxIndx_16u_AC4R);
    static constexpr auto minevery = std::make_tuple(&taviMinEvery_16u_C1IR, &taviMinEvery_16u_C3IR, &taviMinEvery_16u_C4IR, &taviMinEvery_16u_AC4IR);
    static constexpr auto maxevery = std::make_tuple(&taviMaxEvery_16u_C1IR, &taviMaxEvery_16u_C3IR, &taviMaxEvery_16u_C4IR, &taviMaxEvery_16u_AC4IR);
    static constexpr auto norm = std::make_tuple(&taviNorm_Inf_16u_C1R, &taviNorm_Inf_16u_C3R, &taviNorm_Inf_16u_C4R, &taviNorm_L1_16u_C1R, &taviNorm_L1_16u_C3R, &taviNorm_L1_16u_C4R, &taviNorm_L2_16u_C1R, &taviNorm_L2_16u_C3R, &taviNorm_L2_16u_C4R, &taviNormDiff_Inf_16u_C1R, &taviNormDiff_Inf_16u_C3R, &taviNormDiff_Inf_16u_C4R, &taviNormDiff_L1_16u_C1R, &taviNormDiff_L1_16u_C3R, &taviNormDiff_L1_16u_C4R, &taviNormDiff_L2_16u_C1R, &taviNormDiff_L2_16u_C3R, &taviNormDiff_L2_16u_C4R, &taviNormRel_Inf_16u_C1R, &taviNormRel_Inf_16u_C3R, &taviNormRel_Inf_16u_C4R, &taviNormRel_L1_16u_C1R, &taviNormRel_L1_16u_C3R, &taviNormRel_L1_16u_C4R, &taviNormRel_L2_16u_C1R, &taviNormRel_L2_16u_C3R, &taviNormRel_L2_16u_C4R);
    static constexpr auto dot = std::make_tuple(&taviDotProd_16u64f_C1R, &taviDotProd_16u64f_C3R, &taviDotProd_16u64f_C4R, &taviDotProd_16u64f_AC4R);
};
template <>
struct Fns<Tav16s> {
    static constexpr auto block = &taviBlockMinMax_16s_C1R;
    static constexpr auto hist = std::make_tuple(&taviHistogram_16s_C1R, &taviHistogram_16s_C3R, &taviHistogram_16s_C4R);
    static constexpr auto sum = std::make_tuple(&taviSum_16s_C1R, &taviSum_16s_C3R, &taviSum_16s_C4R);
    static constexpr auto mean = std::make_tuple(&taviMean_16s_C1R, &taviMean_16s_C3R, &taviMean_16s_C4R);
    static constexpr auto min = std::make_tuple(&taviMin_16s_C1R, &taviMin_16s_C3R, &taviMin_16s_C4R, &taviMin_16s_AC4R);
    static constexpr auto max = std::make_tuple(&taviMax_16s_C1R, &taviMax_16s_C3R, &taviMax_16s_C4R, &taviMax_16s_AC4R);
    static constexpr auto minmax = std::make_tuple(&taviMinMax_16s_C1R, &taviMinMax_16s_C3R, &taviMinMax_16s_C4R, &taviMinMax_16s_AC4R);
    static constexpr auto minindx = std::make_tuple(&taviMinIndx_16s_C1R, &taviMinIndx_16s_C3R, &taviMinIndx_16s_C4R, &taviMinIndx_16s_AC4R);
    static constexpr auto maxindx = std::make_tuple(&taviMaxIndx_16s_C1R, &taviMaxIndx_16s_C3R, &taviMaxIndx_16s_C4R, &taviMaxIndx_16s_AC4R);
    static constexpr auto minevery = std::make_tuple(&taviMinEvery_16s_C1IR, &taviMinEvery_16s_C3IR, &taviMinEvery_16s_C4IR, &taviMinEvery_16s_AC4IR);
    static constexpr auto maxevery = std::make_tuple(&taviMaxEvery_16s_C1IR, &taviMaxEvery_16s_C3IR, &taviMaxEvery_16s_C4IR, &taviMaxEvery_16s_AC4IR);
    static constexpr auto norm = std::make_tuple(&taviNorm_Inf_16s_C1R, &taviNorm_Inf_16s_C3R, &taviNorm_Inf_16s_C4R, &taviNorm_L1_16s_C1R, &taviNorm_L1_16s_C3R, &taviNorm_L1_16s_C4R, &taviNorm_L2_16s_C1R, &taviNorm_L2_16s_C3R, &taviNorm_L2_16s_C4R, &taviNormDiff_Inf_16s_C1R, &taviNormDiff_Inf_16s_C3R, &taviNormDiff_Inf_16s_C4R, &taviNormDiff_L1_16s_C1R, &taviNormDiff_L1_16s_C3R, &taviNormDiff_L1_16s_C4R, &taviNormDiff_L2_16s_C1R, &taviNormDiff_L2_16s_C3R, &taviNormDiff_L2_16s_C4R, &taviNormRel_Inf_16s_C1R, &taviNormRel_Inf_16s_C3R, &taviNormRel_Inf_16s_C4R, &taviNormRel_L1_16s_C1R, &taviNormRel_L1_16s_C3R, &taviNormRel_L1_16s_C4R, &taviNormRel_L2_16s_C1R, &taviNormRel_L2_16s_C3R, &taviNormRel_L2_16s_C4R);
    static constexpr auto dot = std::make_tuple(&taviDotProd_16s64f_C1R, &taviDotProd_16s64f_C3R, &taviDotProd_16s64f_C4R, &taviDotProd_16s64f_AC4R);
};
template <>
struct Fns<Tav32f> {
    static constexpr auto block = &taviBlockMinMax_32f_C1R;
    static constexpr auto hist = std::make_tuple(&taviHistogram_32f_C1R, &taviHistogram_32f_C3R, &taviHistogram_32f_C4R);
    static constexpr auto sum = std::make_tuple(&taviSum_32f_C1R, &taviSum_32f_C3R, &taviSum_32f_C4R);
    static constexpr auto mean = std::make_tuple(&taviMean_32f_C1R, &taviMean_32f_C3R, &taviMean_32f_C4R);
    static constexpr auto min = std::make_tuple(&taviMin_32f_C1R, &taviMin_32f_C3R, &taviMin_32f_C4R, &taviMin_32f_AC4R);
    static constexpr auto max = std::make_tuple(&taviMax_32f_C1R, &taviMax_32f_C3R, &taviMax_32f_C4R, &taviMax_32f_AC4R);
    static constexpr auto minmax = std::make_tuple(&taviMinMax_32f_C1R, &taviMinMax_32f_C3R, &taviMinMax_32f_C4R, &taviMinMax_32f_AC4R);
    static constexpr auto minindx = std::make_tuple(&taviMinIndx_32f_C1R, &taviMinIndx_32f_C3R, &taviMinIndx_32f_C4R, &taviMinIndx_32f_AC4R);
    static constexpr auto maxindx = std::make_tuple(&taviMaxIndx_32f_C1R, &taviMaxIndx_32f_C3R, &taviMaxIndx_32f_C4R, &taviMaxIndx_32f_AC4R);
    static constexpr auto minevery = std::make_tuple(&taviMinEvery_32f_C1IR, &taviMinEvery_32f_C3IR, &taviMinEvery_32f_C4IR, &taviMinEvery_32f_AC4IR);
    static constexpr auto maxevery = std::make_tuple(&taviMaxEvery_32f_C1IR, &taviMaxEvery_32f_C3IR, &taviMaxEvery_32f_C4IR, &taviMaxEvery_32f_AC4IR);
    static constexpr auto norm = std::make_tuple(&taviNorm_Inf_32f_C1R, &taviNorm_Inf_32f_C3R, &taviNorm_Inf_32f_C4R, &taviNorm_L1_32f_C1R, &taviNorm_L1_32f_C3R, &taviNorm_L1_32f_C4R, &taviNorm_L2_32f_C1R, &taviNorm_L2_32f_C3R, &taviNorm_L2_32f_C4R, &taviNormDiff_Inf_32f_C1R, &taviNormDiff_Inf_32f_C3R, &taviNormDiff_Inf_32f_C4R, &taviNormDiff_L1_32f_C1R, &taviNormDiff_L1_32f_C3R, &taviNormDiff_L1_32f_C4R, &taviNormDiff_L2_32f_C1R, &taviNormDiff_L2_32f_C3R, &taviNormDiff_L2_32f_C4R, &taviNormRel_Inf_32f_C1R, &taviNormRel_Inf_32f_C3R, &taviNormRel_Inf_32f_C4R, &taviNormRel_L1_32f_C1R, &taviNormRel_L1_32f_C3R, &taviNormRel_L1_32f_C4R, &taviNormRel_L2_32f_C1R, &taviNormRel_L2_32f_C3R, &taviNormRel_L2_32f_C4R);
    static constexpr auto dot = std::make_tuple(&taviDotProd_32f64f_C1R, &taviDotProd_32f64f_C3R, &taviDotProd_32f64f_C4R, &taviDotProd_32f64f_AC4R);
};
template <>
struct Fns<Tav32u> {
    static constexpr auto dot = std::make_tuple(&taviDotProd_32u64f_C1R, &taviDotProd_32u64f_C3R, &taviDotProd_32u64f_C4R, &taviDotProd_32u64f_AC4R);
};
template <>
struct Fns<Tav32s> {
    static constexpr auto dot = std::make_tuple(&taviDotProd_32s64f_C1R, &taviDotProd_32s64f_C3R, &taviDotProd_32s64f_C4R, &taviDotProd_32s64f_AC4R);
};

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
