/* tavcore: the six operations the image library asks of its core module:
   memory, cache geometry and processor features. */
#ifndef TAVCORE_H
#define TAVCORE_H

#include "tavtypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* A block of `length` bytes aligned to 64, or null. */
void* tavMalloc(int length);
void* tavMalloc_L(int64_t length);
/* Releases a block of either allocator; null is accepted. */
void tavFree(void* ptr);
/* Size in bytes of the largest data cache; tavOk when it could be learned. */
TavStatus tavGetMaxCacheSizeB(int* pSizeByte);
/* Cache line size in bytes. */
TavStatus tav_get_cache_line_size(int* pSize);
/* Non-zero if every feature named by the mask is available.
   Bits: 0x8000 512-bit foundation, 0x10000000 byte/word and doubleword/quadword
   extensions, 0x20000000 vector-length extension. */
int ownGetFeature(int64_t featureMask);

#ifdef __cplusplus
}
#endif
#endif /* TAVCORE_H */
