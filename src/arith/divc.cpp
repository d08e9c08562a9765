// Bindings of the division families: an image by a constant.
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

// DivC
TAV_K1_SFS(own_taviDivC_8u_C1RSfs, Tav8u, DivCR, SizeThenSteps)
TAV_K1_I_SFS(own_taviDivC_8u_C1IRSfs, Tav8u, DivCR, SizeThenSteps)
TAV_K1_SFS_L(own_taviDivC_8u_C1RSfs_L, Tav8u, DivCR, SizeThenSteps)
TAV_K1_I_SFS_L(own_taviDivC_8u_C1IRSfs_L, Tav8u, DivCR, SizeThenSteps)
TAV_KN_SFS(own_taviDivC_8u_C3RSfs, Tav8u, C3, DivCR, SizeThenSteps)
TAV_KN_I_SFS(own_taviDivC_8u_C3IRSfs, Tav8u, C3, DivCR, SizeThenSteps)
TAV_KN_SFS_L(own_taviDivC_8u_C3RSfs_L, Tav8u, C3, DivCR, SizeThenSteps)
TAV_KN_I_SFS_L(own_taviDivC_8u_C3IRSfs_L, Tav8u, C3, DivCR, SizeThenSteps)
TAV_KN_SFS(own_taviDivC_8u_C4RSfs, Tav8u, C4, DivCR, SizeThenSteps)
TAV_KN_I_SFS(own_taviDivC_8u_C4IRSfs, Tav8u, C4, DivCR, SizeThenSteps)
TAV_KN_SFS_L(own_taviDivC_8u_C4RSfs_L, Tav8u, C4, DivCR, SizeThenSteps)
TAV_KN_I_SFS_L(own_taviDivC_8u_C4IRSfs_L, Tav8u, C4, DivCR, SizeThenSteps)
TAV_KN_SFS(own_taviDivC_8u_AC4RSfs, Tav8u, AC4, DivCR, SizeThenSteps)
TAV_KN_I_SFS(own_taviDivC_8u_AC4IRSfs, Tav8u, AC4, DivCR, SizeThenSteps)
TAV_KN_SFS_L(own_taviDivC_8u_AC4RSfs_L, Tav8u, AC4, DivCR, SizeThenSteps)
TAV_KN_I_SFS_L(own_taviDivC_8u_AC4IRSfs_L, Tav8u, AC4, DivCR, SizeThenSteps)
TAV_K1_SFS(own_taviDivC_16u_C1RSfs, Tav16u, DivCR, SizeThenSteps)
TAV_K1_I_SFS(own_taviDivC_16u_C1IRSfs, Tav16u, DivCR, SizeThenSteps)
TAV_K1_SFS_L(own_taviDivC_16u_C1RSfs_L, Tav16u, DivCR, SizeThenSteps)
TAV_K1_I_SFS_L(own_taviDivC_16u_C1IRSfs_L, Tav16u, DivCR, SizeThenSteps)
TAV_KN_SFS(own_taviDivC_16u_C3RSfs, Tav16u, C3, DivCR, SizeThenSteps)
TAV_KN_I_SFS(own_taviDivC_16u_C3IRSfs, Tav16u, C3, DivCR, SizeThenSteps)
TAV_KN_SFS_L(own_taviDivC_16u_C3RSfs_L, Tav16u, C3, DivCR, SizeThenSteps)
TAV_KN_I_SFS_L(own_taviDivC_16u_C3IRSfs_L, Tav16u, C3, DivCR, SizeThenSteps)
TAV_KN_SFS(own_taviDivC_16u_C4RSfs, Tav16u, C4, DivCR, SizeThenSteps)
TAV_KN_I_SFS(own_taviDivC_16u_C4IRSfs, Tav16u, C4, DivCR, SizeThenSteps)
TAV_KN_SFS_L(own_taviDivC_16u_C4RSfs_L, Tav16u, C4, DivCR, SizeThenSteps)
TAV_KN_I_SFS_L(own_taviDivC_16u_C4IRSfs_L, Tav16u, C4, DivCR, SizeThenSteps)
TAV_KN_SFS(own_taviDivC_16u_AC4RSfs, Tav16u, AC4, DivCR, SizeThenSteps)
TAV_KN_I_SFS(own_taviDivC_16u_AC4IRSfs, Tav16u, AC4, DivCR, SizeThenSteps)
TAV_KN_SFS_L(own_taviDivC_16u_AC4RSfs_L, Tav16u, AC4, DivCR, SizeThenSteps)
TAV_KN_I_SFS_L(own_taviDivC_16u_AC4IRSfs_L, Tav16u, AC4, DivCR, SizeThenSteps)
TAV_K1_SFS(own_taviDivC_16s_C1RSfs, Tav16s, DivCR, SizeThenSteps)
TAV_K1_I_SFS(own_taviDivC_16s_C1IRSfs, Tav16s, DivCR, SizeThenSteps)
TAV_K1_SFS_L(own_taviDivC_16s_C1RSfs_L, Tav16s, DivCR, SizeThenSteps)
TAV_K1_I_SFS_L(own_taviDivC_16s_C1IRSfs_L, Tav16s, DivCR, SizeThenSteps)
TAV_KN_SFS(own_taviDivC_16s_C3RSfs, Tav16s, C3, DivCR, SizeThenSteps)
TAV_KN_I_SFS(own_taviDivC_16s_C3IRSfs, Tav16s, C3, DivCR, SizeThenSteps)
TAV_KN_SFS_L(own_taviDivC_16s_C3RSfs_L, Tav16s, C3, DivCR, SizeThenSteps)
TAV_KN_I_SFS_L(own_taviDivC_16s_C3IRSfs_L, Tav16s, C3, DivCR, SizeThenSteps)
TAV_KN_SFS(own_taviDivC_16s_C4RSfs, Tav16s, C4, DivCR, SizeThenSteps)
TAV_KN_I_SFS(own_taviDivC_16s_C4IRSfs, Tav16s, C4, DivCR, SizeThenSteps)
TAV_KN_SFS_L(own_taviDivC_16s_C4RSfs_L, Tav16s, C4, DivCR, SizeThenSteps)
TAV_KN_I_SFS_L(own_taviDivC_16s_C4IRSfs_L, Tav16s, C4, DivCR, SizeThenSteps)
TAV_KN_SFS(own_taviDivC_16s_AC4RSfs, Tav16s, AC4, DivCR, SizeThenSteps)
TAV_KN_I_SFS(own_taviDivC_16s_AC4IRSfs, Tav16s, AC4, DivCR, SizeThenSteps)
TAV_KN_SFS_L(own_taviDivC_16s_AC4RSfs_L, Tav16s, AC4, DivCR, SizeThenSteps)
TAV_KN_I_SFS_L(own_taviDivC_16s_AC4IRSfs_L, Tav16s, AC4, DivCR, SizeThenSteps)
TAV_K1(own_taviDivC_32f_C1R, Tav32f, DivCF, SizeThenSteps)
TAV_K1_I(own_taviDivC_32f_C1IR, Tav32f, DivCF, SizeThenSteps)
TAV_K1_L(own_taviDivC_32f_C1R_L, Tav32f, DivCF, SizeThenSteps)
TAV_K1_I_L(own_taviDivC_32f_C1IR_L, Tav32f, DivCF, SizeThenSteps)
TAV_KN(own_taviDivC_32f_C3R, Tav32f, C3, DivCF, SizeThenSteps)
TAV_KN_I(own_taviDivC_32f_C3IR, Tav32f, C3, DivCF, SizeThenSteps)
TAV_KN_L(own_taviDivC_32f_C3R_L, Tav32f, C3, DivCF, SizeThenSteps)
TAV_KN_I_L(own_taviDivC_32f_C3IR_L, Tav32f, C3, DivCF, SizeThenSteps)
TAV_KN(own_taviDivC_32f_C4R, Tav32f, C4, DivCF, SizeThenSteps)
TAV_KN_I(own_taviDivC_32f_C4IR, Tav32f, C4, DivCF, SizeThenSteps)
TAV_KN_L(own_taviDivC_32f_C4R_L, Tav32f, C4, DivCF, SizeThenSteps)
TAV_KN_I_L(own_taviDivC_32f_C4IR_L, Tav32f, C4, DivCF, SizeThenSteps)
TAV_KN(own_taviDivC_32f_AC4R, Tav32f, AC4, DivCF, SizeThenSteps)
TAV_KN_I(own_taviDivC_32f_AC4IR, Tav32f, AC4, DivCF, SizeThenSteps)
TAV_KN_L(own_taviDivC_32f_AC4R_L, Tav32f, AC4, DivCF, SizeThenSteps)
TAV_KN_I_L(own_taviDivC_32f_AC4IR_L, Tav32f, AC4, DivCF, SizeThenSteps)
