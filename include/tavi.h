/* tavin0: the image functions. Include this one header. */
#ifndef TAVI_H
#define TAVI_H

#include "tavtypes.h"
#include "tavi_frame.h"
#include "tavi_arith.h"
#include "tavi_move.h"
#include "tavi_decide.h"
#include "tavi_stats.h"
#include "tavi_filter.h"
#include "tavi_geometry.h"
#include "tavi_transform.h"
#include "tavi_correlate.h"
#include "tavi_feature.h"

#endif /* TAVI_H */
