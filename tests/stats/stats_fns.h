// Exports of the statistics families picked by element type and layout, so
// tests can sweep types and layouts from one template.
#pragma once

#include <type_traits>

#include "tavi.h"

namespace tavtest {

enum class Lay { C1, C3, C4, AC4 };
template <Lay L>
inline constexpr int kPer = L == Lay::C1 ? 1 : L == Lay::C3 ? 3 : 4;  // elements a pixel
template <Lay L>
inline constexpr int kRes = L == Lay::C1 ? 1 : L == Lay::C3 ? 3 : L == Lay::C4 ? 4 : 3;  // results a call

template <class T, Lay L>
constexpr auto sum_fn() {
    if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C1) {
        return &taviSum_8u_C1R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C3) {
        return &taviSum_8u_C3R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C4) {
        return &taviSum_8u_C4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C1) {
        return &taviSum_16u_C1R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C3) {
        return &taviSum_16u_C3R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C4) {
        return &taviSum_16u_C4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C1) {
        return &taviSum_16s_C1R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C3) {
        return &taviSum_16s_C3R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C4) {
        return &taviSum_16s_C4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C1) {
        return &taviSum_32f_C1R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C3) {
        return &taviSum_32f_C3R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C4) {
        return &taviSum_32f_C4R;
    }
}

template <class T, Lay L>
constexpr auto mean_fn() {
    if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C1) {
        return &taviMean_8u_C1R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C3) {
        return &taviMean_8u_C3R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C4) {
        return &taviMean_8u_C4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C1) {
        return &taviMean_16u_C1R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C3) {
        return &taviMean_16u_C3R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C4) {
        return &taviMean_16u_C4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C1) {
        return &taviMean_16s_C1R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C3) {
        return &taviMean_16s_C3R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C4) {
        return &taviMean_16s_C4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C1) {
        return &taviMean_32f_C1R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C3) {
        return &taviMean_32f_C3R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C4) {
        return &taviMean_32f_C4R;
    }
}

template <class T, Lay L>
constexpr auto min_fn() {
    if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C1) {
        return &taviMin_8u_C1R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C3) {
        return &taviMin_8u_C3R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C4) {
        return &taviMin_8u_C4R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::AC4) {
        return &taviMin_8u_AC4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C1) {
        return &taviMin_16u_C1R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C3) {
        return &taviMin_16u_C3R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C4) {
        return &taviMin_16u_C4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::AC4) {
        return &taviMin_16u_AC4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C1) {
        return &taviMin_16s_C1R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C3) {
        return &taviMin_16s_C3R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C4) {
        return &taviMin_16s_C4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::AC4) {
        return &taviMin_16s_AC4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C1) {
        return &taviMin_32f_C1R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C3) {
        return &taviMin_32f_C3R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C4) {
        return &taviMin_32f_C4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::AC4) {
        return &taviMin_32f_AC4R;
    }
}

template <class T, Lay L>
constexpr auto max_fn() {
    if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C1) {
        return &taviMax_8u_C1R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C3) {
        return &taviMax_8u_C3R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C4) {
        return &taviMax_8u_C4R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::AC4) {
        return &taviMax_8u_AC4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C1) {
        return &taviMax_16u_C1R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C3) {
        return &taviMax_16u_C3R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C4) {
        return &taviMax_16u_C4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::AC4) {
        return &taviMax_16u_AC4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C1) {
        return &taviMax_16s_C1R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C3) {
        return &taviMax_16s_C3R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C4) {
        return &taviMax_16s_C4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::AC4) {
        return &taviMax_16s_AC4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C1) {
        return &taviMax_32f_C1R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C3) {
        return &taviMax_32f_C3R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C4) {
        return &taviMax_32f_C4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::AC4) {
        return &taviMax_32f_AC4R;
    }
}

template <class T, Lay L>
constexpr auto minmax_fn() {
    if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C1) {
        return &taviMinMax_8u_C1R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C3) {
        return &taviMinMax_8u_C3R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C4) {
        return &taviMinMax_8u_C4R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::AC4) {
        return &taviMinMax_8u_AC4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C1) {
        return &taviMinMax_16u_C1R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C3) {
        return &taviMinMax_16u_C3R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C4) {
        return &taviMinMax_16u_C4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::AC4) {
        return &taviMinMax_16u_AC4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C1) {
        return &taviMinMax_16s_C1R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C3) {
        return &taviMinMax_16s_C3R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C4) {
        return &taviMinMax_16s_C4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::AC4) {
        return &taviMinMax_16s_AC4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C1) {
        return &taviMinMax_32f_C1R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C3) {
        return &taviMinMax_32f_C3R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C4) {
        return &taviMinMax_32f_C4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::AC4) {
        return &taviMinMax_32f_AC4R;
    }
}

template <class T, Lay L>
constexpr auto minindx_fn() {
    if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C1) {
        return &taviMinIndx_8u_C1R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C3) {
        return &taviMinIndx_8u_C3R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C4) {
        return &taviMinIndx_8u_C4R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::AC4) {
        return &taviMinIndx_8u_AC4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C1) {
        return &taviMinIndx_16u_C1R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C3) {
        return &taviMinIndx_16u_C3R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C4) {
        return &taviMinIndx_16u_C4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::AC4) {
        return &taviMinIndx_16u_AC4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C1) {
        return &taviMinIndx_16s_C1R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C3) {
        return &taviMinIndx_16s_C3R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C4) {
        return &taviMinIndx_16s_C4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::AC4) {
        return &taviMinIndx_16s_AC4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C1) {
        return &taviMinIndx_32f_C1R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C3) {
        return &taviMinIndx_32f_C3R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C4) {
        return &taviMinIndx_32f_C4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::AC4) {
        return &taviMinIndx_32f_AC4R;
    }
}

template <class T, Lay L>
constexpr auto maxindx_fn() {
    if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C1) {
        return &taviMaxIndx_8u_C1R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C3) {
        return &taviMaxIndx_8u_C3R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C4) {
        return &taviMaxIndx_8u_C4R;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::AC4) {
        return &taviMaxIndx_8u_AC4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C1) {
        return &taviMaxIndx_16u_C1R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C3) {
        return &taviMaxIndx_16u_C3R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C4) {
        return &taviMaxIndx_16u_C4R;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::AC4) {
        return &taviMaxIndx_16u_AC4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C1) {
        return &taviMaxIndx_16s_C1R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C3) {
        return &taviMaxIndx_16s_C3R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C4) {
        return &taviMaxIndx_16s_C4R;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::AC4) {
        return &taviMaxIndx_16s_AC4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C1) {
        return &taviMaxIndx_32f_C1R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C3) {
        return &taviMaxIndx_32f_C3R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C4) {
        return &taviMaxIndx_32f_C4R;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::AC4) {
        return &taviMaxIndx_32f_AC4R;
    }
}

template <class T, Lay L>
constexpr auto minevery_fn() {
    if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C1) {
        return &taviMinEvery_8u_C1IR;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C3) {
        return &taviMinEvery_8u_C3IR;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C4) {
        return &taviMinEvery_8u_C4IR;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::AC4) {
        return &taviMinEvery_8u_AC4IR;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C1) {
        return &taviMinEvery_16u_C1IR;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C3) {
        return &taviMinEvery_16u_C3IR;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C4) {
        return &taviMinEvery_16u_C4IR;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::AC4) {
        return &taviMinEvery_16u_AC4IR;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C1) {
        return &taviMinEvery_16s_C1IR;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C3) {
        return &taviMinEvery_16s_C3IR;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C4) {
        return &taviMinEvery_16s_C4IR;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::AC4) {
        return &taviMinEvery_16s_AC4IR;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C1) {
        return &taviMinEvery_32f_C1IR;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C3) {
        return &taviMinEvery_32f_C3IR;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C4) {
        return &taviMinEvery_32f_C4IR;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::AC4) {
        return &taviMinEvery_32f_AC4IR;
    }
}

template <class T, Lay L>
constexpr auto maxevery_fn() {
    if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C1) {
        return &taviMaxEvery_8u_C1IR;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C3) {
        return &taviMaxEvery_8u_C3IR;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::C4) {
        return &taviMaxEvery_8u_C4IR;
    } else if constexpr (std::is_same_v<T, Tav8u> && L == Lay::AC4) {
        return &taviMaxEvery_8u_AC4IR;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C1) {
        return &taviMaxEvery_16u_C1IR;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C3) {
        return &taviMaxEvery_16u_C3IR;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::C4) {
        return &taviMaxEvery_16u_C4IR;
    } else if constexpr (std::is_same_v<T, Tav16u> && L == Lay::AC4) {
        return &taviMaxEvery_16u_AC4IR;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C1) {
        return &taviMaxEvery_16s_C1IR;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C3) {
        return &taviMaxEvery_16s_C3IR;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::C4) {
        return &taviMaxEvery_16s_C4IR;
    } else if constexpr (std::is_same_v<T, Tav16s> && L == Lay::AC4) {
        return &taviMaxEvery_16s_AC4IR;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C1) {
        return &taviMaxEvery_32f_C1IR;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C3) {
        return &taviMaxEvery_32f_C3IR;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::C4) {
        return &taviMaxEvery_32f_C4IR;
    } else if constexpr (std::is_same_v<T, Tav32f> && L == Lay::AC4) {
        return &taviMaxEvery_32f_AC4IR;
    }
}

}  // namespace tavtest
