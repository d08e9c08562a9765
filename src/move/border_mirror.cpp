// Border copies with the mirrored frame: out of place, in place, and the _L twins.
#include "move/border.h"

using tav::move::border::Kind;
using tav::move::border::border_in_place;
using tav::move::border::copy_with_border;
using tav::move::border::frame_of;
using tav::move::border::mirror_copy;

// clang-format off
TavStatus own_taviCopyMirrorBorder_8u_C1R(const Tav8u* s, int ss, TaviSize sr, Tav8u* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav8u, 1>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_8u_C1R_L(const Tav8u* s, int64_t ss, TaviSizeL sr, Tav8u* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav8u, 1>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_8u_C1IR(Tav8u* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav8u, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_8u_C1IR_L(Tav8u* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav8u, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_8u_C3R(const Tav8u* s, int ss, TaviSize sr, Tav8u* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav8u, 3>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_8u_C3R_L(const Tav8u* s, int64_t ss, TaviSizeL sr, Tav8u* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav8u, 3>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_8u_C3IR(Tav8u* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav8u, 3, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_8u_C3IR_L(Tav8u* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav8u, 3, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_8u_C4R(const Tav8u* s, int ss, TaviSize sr, Tav8u* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav8u, 4>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_8u_C4R_L(const Tav8u* s, int64_t ss, TaviSizeL sr, Tav8u* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav8u, 4>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_8u_C4IR(Tav8u* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav8u, 4, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_8u_C4IR_L(Tav8u* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav8u, 4, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16u_C1R(const Tav16u* s, int ss, TaviSize sr, Tav16u* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav16u, 1>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16u_C1R_L(const Tav16u* s, int64_t ss, TaviSizeL sr, Tav16u* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav16u, 1>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16u_C1IR(Tav16u* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav16u, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16u_C1IR_L(Tav16u* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav16u, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16u_C3R(const Tav16u* s, int ss, TaviSize sr, Tav16u* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav16u, 3>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16u_C3R_L(const Tav16u* s, int64_t ss, TaviSizeL sr, Tav16u* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav16u, 3>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16u_C3IR(Tav16u* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav16u, 3, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16u_C3IR_L(Tav16u* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav16u, 3, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16u_C4R(const Tav16u* s, int ss, TaviSize sr, Tav16u* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav16u, 4>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16u_C4R_L(const Tav16u* s, int64_t ss, TaviSizeL sr, Tav16u* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav16u, 4>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16u_C4IR(Tav16u* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav16u, 4, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16u_C4IR_L(Tav16u* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav16u, 4, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16s_C1R(const Tav16s* s, int ss, TaviSize sr, Tav16s* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav16s, 1>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16s_C1R_L(const Tav16s* s, int64_t ss, TaviSizeL sr, Tav16s* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav16s, 1>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16s_C1IR(Tav16s* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav16s, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16s_C1IR_L(Tav16s* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav16s, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16s_C3R(const Tav16s* s, int ss, TaviSize sr, Tav16s* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav16s, 3>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16s_C3R_L(const Tav16s* s, int64_t ss, TaviSizeL sr, Tav16s* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav16s, 3>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16s_C3IR(Tav16s* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav16s, 3, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16s_C3IR_L(Tav16s* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav16s, 3, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16s_C4R(const Tav16s* s, int ss, TaviSize sr, Tav16s* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav16s, 4>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16s_C4R_L(const Tav16s* s, int64_t ss, TaviSizeL sr, Tav16s* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav16s, 4>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_16s_C4IR(Tav16s* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav16s, 4, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_16s_C4IR_L(Tav16s* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav16s, 4, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32s_C1R(const Tav32s* s, int ss, TaviSize sr, Tav32s* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav32s, 1>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32s_C1R_L(const Tav32s* s, int64_t ss, TaviSizeL sr, Tav32s* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav32s, 1>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32s_C1IR(Tav32s* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav32s, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32s_C1IR_L(Tav32s* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav32s, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32s_C3R(const Tav32s* s, int ss, TaviSize sr, Tav32s* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav32s, 3>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32s_C3R_L(const Tav32s* s, int64_t ss, TaviSizeL sr, Tav32s* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav32s, 3>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32s_C3IR(Tav32s* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav32s, 3, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32s_C3IR_L(Tav32s* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav32s, 3, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32s_C4R(const Tav32s* s, int ss, TaviSize sr, Tav32s* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav32s, 4>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32s_C4R_L(const Tav32s* s, int64_t ss, TaviSizeL sr, Tav32s* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav32s, 4>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32s_C4IR(Tav32s* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav32s, 4, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32s_C4IR_L(Tav32s* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav32s, 4, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32f_C1R(const Tav32f* s, int ss, TaviSize sr, Tav32f* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav32f, 1>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32f_C1R_L(const Tav32f* s, int64_t ss, TaviSizeL sr, Tav32f* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav32f, 1>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32f_C1IR(Tav32f* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav32f, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32f_C1IR_L(Tav32f* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav32f, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32f_C3R(const Tav32f* s, int ss, TaviSize sr, Tav32f* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav32f, 3>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32f_C3R_L(const Tav32f* s, int64_t ss, TaviSizeL sr, Tav32f* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav32f, 3>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32f_C3IR(Tav32f* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav32f, 3, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32f_C3IR_L(Tav32f* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav32f, 3, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32f_C4R(const Tav32f* s, int ss, TaviSize sr, Tav32f* d, int ds, TaviSize dr, int top, int left) { return mirror_copy<Tav32f, 4>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32f_C4R_L(const Tav32f* s, int64_t ss, TaviSizeL sr, Tav32f* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return mirror_copy<Tav32f, 4>(s, ss, d, ds, frame_of(sr, dr, top, left)); }
TavStatus own_taviCopyMirrorBorder_32f_C4IR(Tav32f* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Mirror, Tav32f, 4, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyMirrorBorder_32f_C4IR_L(Tav32f* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Mirror, Tav32f, 4, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
// clang-format on
