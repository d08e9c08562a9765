// Bindings of the division families: two images, an image by a constant.
#include "arith/bind.h"
#include "arith/div.h"

namespace {
using tav::Layout;
using tav::arith::Rnd;
template <class T, Layout L>
using DivR = tav::arith::DivBin<Rnd::Current>::Rows<T, L>;
template <class T, Layout L>
using DivF = tav::arith::DivBinF::Rows<T, L>;
template <class T, Layout L>
using DivCR = tav::arith::DivConst::Rows<T, L>;
template <class T, Layout L>
using DivCF = tav::arith::DivConstF::Rows<T, L>;
}  // namespace

// Div
TAV_BIN_SFS(own_taviDiv_8u_C1RSfs, Tav8u, C1, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_8u_C1IRSfs, Tav8u, C1, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_8u_C1RSfs_L, Tav8u, C1, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_8u_C1IRSfs_L, Tav8u, C1, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_8u_C3RSfs, Tav8u, C3, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_8u_C3IRSfs, Tav8u, C3, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_8u_C3RSfs_L, Tav8u, C3, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_8u_C3IRSfs_L, Tav8u, C3, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_8u_C4RSfs, Tav8u, C4, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_8u_C4IRSfs, Tav8u, C4, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_8u_C4RSfs_L, Tav8u, C4, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_8u_C4IRSfs_L, Tav8u, C4, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_8u_AC4RSfs, Tav8u, AC4, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_8u_AC4IRSfs, Tav8u, AC4, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_8u_AC4RSfs_L, Tav8u, AC4, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_8u_AC4IRSfs_L, Tav8u, AC4, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_16u_C1RSfs, Tav16u, C1, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_16u_C1IRSfs, Tav16u, C1, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_16u_C1RSfs_L, Tav16u, C1, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_16u_C1IRSfs_L, Tav16u, C1, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_16u_C3RSfs, Tav16u, C3, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_16u_C3IRSfs, Tav16u, C3, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_16u_C3RSfs_L, Tav16u, C3, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_16u_C3IRSfs_L, Tav16u, C3, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_16u_C4RSfs, Tav16u, C4, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_16u_C4IRSfs, Tav16u, C4, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_16u_C4RSfs_L, Tav16u, C4, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_16u_C4IRSfs_L, Tav16u, C4, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_16u_AC4RSfs, Tav16u, AC4, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_16u_AC4IRSfs, Tav16u, AC4, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_16u_AC4RSfs_L, Tav16u, AC4, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_16u_AC4IRSfs_L, Tav16u, AC4, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_16s_C1RSfs, Tav16s, C1, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_16s_C1IRSfs, Tav16s, C1, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_16s_C1RSfs_L, Tav16s, C1, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_16s_C1IRSfs_L, Tav16s, C1, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_16s_C3RSfs, Tav16s, C3, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_16s_C3IRSfs, Tav16s, C3, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_16s_C3RSfs_L, Tav16s, C3, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_16s_C3IRSfs_L, Tav16s, C3, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_16s_C4RSfs, Tav16s, C4, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_16s_C4IRSfs, Tav16s, C4, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_16s_C4RSfs_L, Tav16s, C4, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_16s_C4IRSfs_L, Tav16s, C4, DivR, SizeThenSteps)
TAV_BIN_SFS(own_taviDiv_16s_AC4RSfs, Tav16s, AC4, DivR, SizeThenSteps)
TAV_BIN_I_SFS(own_taviDiv_16s_AC4IRSfs, Tav16s, AC4, DivR, SizeThenSteps)
TAV_BIN_SFS_L(own_taviDiv_16s_AC4RSfs_L, Tav16s, AC4, DivR, SizeThenSteps)
TAV_BIN_I_SFS_L(own_taviDiv_16s_AC4IRSfs_L, Tav16s, AC4, DivR, SizeThenSteps)
TAV_BIN(own_taviDiv_32f_C1R, Tav32f, C1, DivF, SizeThenSteps)
TAV_BIN_I(own_taviDiv_32f_C1IR, Tav32f, C1, DivF, SizeThenSteps)
TAV_BIN_L(own_taviDiv_32f_C1R_L, Tav32f, C1, DivF, SizeThenSteps)
TAV_BIN_I_L(own_taviDiv_32f_C1IR_L, Tav32f, C1, DivF, SizeThenSteps)
TAV_BIN(own_taviDiv_32f_C3R, Tav32f, C3, DivF, SizeThenSteps)
TAV_BIN_I(own_taviDiv_32f_C3IR, Tav32f, C3, DivF, SizeThenSteps)
TAV_BIN_L(own_taviDiv_32f_C3R_L, Tav32f, C3, DivF, SizeThenSteps)
TAV_BIN_I_L(own_taviDiv_32f_C3IR_L, Tav32f, C3, DivF, SizeThenSteps)
TAV_BIN(own_taviDiv_32f_C4R, Tav32f, C4, DivF, SizeThenSteps)
TAV_BIN_I(own_taviDiv_32f_C4IR, Tav32f, C4, DivF, SizeThenSteps)
TAV_BIN_L(own_taviDiv_32f_C4R_L, Tav32f, C4, DivF, SizeThenSteps)
TAV_BIN_I_L(own_taviDiv_32f_C4IR_L, Tav32f, C4, DivF, SizeThenSteps)
TAV_BIN(own_taviDiv_32f_AC4R, Tav32f, AC4, DivF, SizeThenSteps)
TAV_BIN_I(own_taviDiv_32f_AC4IR, Tav32f, AC4, DivF, SizeThenSteps)
TAV_BIN_L(own_taviDiv_32f_AC4R_L, Tav32f, AC4, DivF, SizeThenSteps)
TAV_BIN_I_L(own_taviDiv_32f_AC4IR_L, Tav32f, AC4, DivF, SizeThenSteps)
