// Border copies with the wrapped frame: out of place, in place, and the _L twins.
#include "move/border.h"

using tav::move::border::Kind;
using tav::move::border::border_in_place;
using tav::move::border::copy_with_border;
using tav::move::border::frame_of;
using tav::move::border::mirror_copy;

// clang-format off
TavStatus own_taviCopyWrapBorder_32s_C1R(const Tav32s* s, int ss, TaviSize sr, Tav32s* d, int ds, TaviSize dr, int top, int left) { return copy_with_border<Kind::Wrap, Tav32s, 1, false>(s, ss, d, ds, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyWrapBorder_32s_C1R_L(const Tav32s* s, int64_t ss, TaviSizeL sr, Tav32s* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return copy_with_border<Kind::Wrap, Tav32s, 1, false>(s, ss, d, ds, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyWrapBorder_32s_C1IR(Tav32s* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Wrap, Tav32s, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyWrapBorder_32s_C1IR_L(Tav32s* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Wrap, Tav32s, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyWrapBorder_32f_C1R(const Tav32f* s, int ss, TaviSize sr, Tav32f* d, int ds, TaviSize dr, int top, int left) { return copy_with_border<Kind::Wrap, Tav32f, 1, false>(s, ss, d, ds, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyWrapBorder_32f_C1R_L(const Tav32f* s, int64_t ss, TaviSizeL sr, Tav32f* d, int64_t ds, TaviSizeL dr, int64_t top, int64_t left) { return copy_with_border<Kind::Wrap, Tav32f, 1, false>(s, ss, d, ds, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyWrapBorder_32f_C1IR(Tav32f* p, int step, TaviSize sr, TaviSize dr, int top, int left) { return border_in_place<Kind::Wrap, Tav32f, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
TavStatus own_taviCopyWrapBorder_32f_C1IR_L(Tav32f* p, int64_t step, TaviSizeL sr, TaviSizeL dr, int64_t top, int64_t left) { return border_in_place<Kind::Wrap, Tav32f, 1, false>(p, step, frame_of(sr, dr, top, left), nullptr); }
// clang-format on
