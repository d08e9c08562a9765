/* tavin0: the volume functions. */
#ifndef TAVR_H
#define TAVR_H

#include "tavtypes.h"
#include "tavr_volume.h"

#endif /* TAVR_H */
