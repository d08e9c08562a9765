// Bindings of the products of values standing for 0..1.
#include "arith/bind.h"
#include "arith/mul_scale.h"

namespace {
using tav::Layout;
template <class T, Layout L>
using MulScaleR = tav::arith::MulScaleBin::Rows<T, L>;
template <class T, Layout L>
using MulCScaleR = tav::arith::MulScaleConst::Rows<T, L>;
}  // namespace

TAV_BIN(own_taviMulScale_8u_C1R, Tav8u, C1, MulScaleR, StepsThenSize)
TAV_BIN_I(own_taviMulScale_8u_C1IR, Tav8u, C1, MulScaleR, StepsThenSize)
TAV_BIN(own_taviMulScale_8u_C3R, Tav8u, C3, MulScaleR, StepsThenSize)
TAV_BIN_I(own_taviMulScale_8u_C3IR, Tav8u, C3, MulScaleR, StepsThenSize)
TAV_BIN(own_taviMulScale_8u_C4R, Tav8u, C4, MulScaleR, StepsThenSize)
TAV_BIN_I(own_taviMulScale_8u_C4IR, Tav8u, C4, MulScaleR, StepsThenSize)
TAV_BIN(own_taviMulScale_8u_AC4R, Tav8u, AC4, MulScaleR, StepsThenSize)
TAV_BIN_I(own_taviMulScale_8u_AC4IR, Tav8u, AC4, MulScaleR, StepsThenSize)
TAV_BIN(own_taviMulScale_16u_C1R, Tav16u, C1, MulScaleR, StepsThenSize)
TAV_BIN_I(own_taviMulScale_16u_C1IR, Tav16u, C1, MulScaleR, StepsThenSize)
TAV_BIN(own_taviMulScale_16u_C3R, Tav16u, C3, MulScaleR, StepsThenSize)
TAV_BIN_I(own_taviMulScale_16u_C3IR, Tav16u, C3, MulScaleR, StepsThenSize)
TAV_BIN(own_taviMulScale_16u_C4R, Tav16u, C4, MulScaleR, StepsThenSize)
TAV_BIN_I(own_taviMulScale_16u_C4IR, Tav16u, C4, MulScaleR, StepsThenSize)
TAV_BIN(own_taviMulScale_16u_AC4R, Tav16u, AC4, MulScaleR, StepsThenSize)
TAV_BIN_I(own_taviMulScale_16u_AC4IR, Tav16u, AC4, MulScaleR, StepsThenSize)
TAV_K1(own_taviMulCScale_8u_C1R, Tav8u, MulCScaleR, StepsThenSize)
TAV_K1_I(own_taviMulCScale_8u_C1IR, Tav8u, MulCScaleR, StepsThenSize)
TAV_KN(own_taviMulCScale_8u_C3R, Tav8u, C3, MulCScaleR, StepsThenSize)
TAV_KN_I(own_taviMulCScale_8u_C3IR, Tav8u, C3, MulCScaleR, StepsThenSize)
TAV_KN(own_taviMulCScale_8u_C4R, Tav8u, C4, MulCScaleR, StepsThenSize)
TAV_KN_I(own_taviMulCScale_8u_C4IR, Tav8u, C4, MulCScaleR, StepsThenSize)
TAV_KN(own_taviMulCScale_8u_AC4R, Tav8u, AC4, MulCScaleR, StepsThenSize)
TAV_KN_I(own_taviMulCScale_8u_AC4IR, Tav8u, AC4, MulCScaleR, StepsThenSize)
TAV_K1(own_taviMulCScale_16u_C1R, Tav16u, MulCScaleR, StepsThenSize)
TAV_K1_I(own_taviMulCScale_16u_C1IR, Tav16u, MulCScaleR, StepsThenSize)
TAV_KN(own_taviMulCScale_16u_C3R, Tav16u, C3, MulCScaleR, StepsThenSize)
TAV_KN_I(own_taviMulCScale_16u_C3IR, Tav16u, C3, MulCScaleR, StepsThenSize)
TAV_KN(own_taviMulCScale_16u_C4R, Tav16u, C4, MulCScaleR, StepsThenSize)
TAV_KN_I(own_taviMulCScale_16u_C4IR, Tav16u, C4, MulCScaleR, StepsThenSize)
TAV_KN(own_taviMulCScale_16u_AC4R, Tav16u, AC4, MulCScaleR, StepsThenSize)
TAV_KN_I(own_taviMulCScale_16u_AC4IR, Tav16u, AC4, MulCScaleR, StepsThenSize)
