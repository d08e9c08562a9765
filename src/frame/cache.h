// Cache-size gates. A call asks the core module for the cache size only when
// its traffic is above the family's gate, so small calls never pay for the
// query; the answer changes how memory is written, never a result.
#pragma once

#include "tavcore.h"

namespace tav {

// The largest data cache in bytes, or nullopt-like -1 when the core module
// could not tell; callers treat -1 as "don't stream".
inline long long cache_bytes() {
    int c = 0;
    return tavGetMaxCacheSizeB(&c) == tavOk ? c : -1;
}

inline int cache_line_bytes() {
    int b = 0;
    tav_get_cache_line_size(&b);
    return b;
}

}  // namespace tav
