// taviNorm, taviNormDiff, taviNormRel of 32f images.
#include "stats/norm.h"

using tav::Layout;
using tav::stats::Form;
using tav::stats::Norm;
using tav::stats::norm;

TavStatus own_taviNorm_Inf_32f_C1R(const Tav32f* p, int s, TaviSize r, Tav64f* o) { return norm<Tav32f, Norm::Inf, Form::Plain, Layout::C1>(p, s, nullptr, 0, r, o); }
TavStatus own_taviNorm_Inf_32f_C3R(const Tav32f* p, int s, TaviSize r, Tav64f* o) { return norm<Tav32f, Norm::Inf, Form::Plain, Layout::C3>(p, s, nullptr, 0, r, o); }
TavStatus own_taviNorm_Inf_32f_C4R(const Tav32f* p, int s, TaviSize r, Tav64f* o) { return norm<Tav32f, Norm::Inf, Form::Plain, Layout::C4>(p, s, nullptr, 0, r, o); }
TavStatus own_taviNorm_L1_32f_C1R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L1, Form::Plain, Layout::C1>(p, s, nullptr, 0, r, o, h); }
TavStatus own_taviNorm_L1_32f_C3R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L1, Form::Plain, Layout::C3>(p, s, nullptr, 0, r, o, h); }
TavStatus own_taviNorm_L1_32f_C4R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L1, Form::Plain, Layout::C4>(p, s, nullptr, 0, r, o, h); }
TavStatus own_taviNorm_L2_32f_C1R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L2, Form::Plain, Layout::C1>(p, s, nullptr, 0, r, o, h); }
TavStatus own_taviNorm_L2_32f_C3R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L2, Form::Plain, Layout::C3>(p, s, nullptr, 0, r, o, h); }
TavStatus own_taviNorm_L2_32f_C4R(const Tav32f* p, int s, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L2, Form::Plain, Layout::C4>(p, s, nullptr, 0, r, o, h); }

TavStatus own_taviNormDiff_Inf_32f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o) { return norm<Tav32f, Norm::Inf, Form::Diff, Layout::C1>(a, as, b, bs, r, o); }
TavStatus own_taviNormDiff_Inf_32f_C3R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o) { return norm<Tav32f, Norm::Inf, Form::Diff, Layout::C3>(a, as, b, bs, r, o); }
TavStatus own_taviNormDiff_Inf_32f_C4R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o) { return norm<Tav32f, Norm::Inf, Form::Diff, Layout::C4>(a, as, b, bs, r, o); }
TavStatus own_taviNormDiff_L1_32f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L1, Form::Diff, Layout::C1>(a, as, b, bs, r, o, h); }
TavStatus own_taviNormDiff_L1_32f_C3R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L1, Form::Diff, Layout::C3>(a, as, b, bs, r, o, h); }
TavStatus own_taviNormDiff_L1_32f_C4R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L1, Form::Diff, Layout::C4>(a, as, b, bs, r, o, h); }
TavStatus own_taviNormDiff_L2_32f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L2, Form::Diff, Layout::C1>(a, as, b, bs, r, o, h); }
TavStatus own_taviNormDiff_L2_32f_C3R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L2, Form::Diff, Layout::C3>(a, as, b, bs, r, o, h); }
TavStatus own_taviNormDiff_L2_32f_C4R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L2, Form::Diff, Layout::C4>(a, as, b, bs, r, o, h); }

TavStatus own_taviNormRel_Inf_32f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o) { return norm<Tav32f, Norm::Inf, Form::Rel, Layout::C1>(a, as, b, bs, r, o); }
TavStatus own_taviNormRel_Inf_32f_C3R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o) { return norm<Tav32f, Norm::Inf, Form::Rel, Layout::C3>(a, as, b, bs, r, o); }
TavStatus own_taviNormRel_Inf_32f_C4R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o) { return norm<Tav32f, Norm::Inf, Form::Rel, Layout::C4>(a, as, b, bs, r, o); }
TavStatus own_taviNormRel_L1_32f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L1, Form::Rel, Layout::C1>(a, as, b, bs, r, o, h); }
TavStatus own_taviNormRel_L1_32f_C3R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L1, Form::Rel, Layout::C3>(a, as, b, bs, r, o, h); }
TavStatus own_taviNormRel_L1_32f_C4R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L1, Form::Rel, Layout::C4>(a, as, b, bs, r, o, h); }
TavStatus own_taviNormRel_L2_32f_C1R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L2, Form::Rel, Layout::C1>(a, as, b, bs, r, o, h); }
TavStatus own_taviNormRel_L2_32f_C3R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L2, Form::Rel, Layout::C3>(a, as, b, bs, r, o, h); }
TavStatus own_taviNormRel_L2_32f_C4R(const Tav32f* a, int as, const Tav32f* b, int bs, TaviSize r, Tav64f* o, TavHintAlgorithm h) { return norm<Tav32f, Norm::L2, Form::Rel, Layout::C4>(a, as, b, bs, r, o, h); }
