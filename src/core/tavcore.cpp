// The core module: allocation, cache geometry and feature bits, learned from
// the processor on first use. Test doubles are this same file built with
// TAVCORE_DOUBLE set, answering with fixed values and counting queries.
#include "tavcore.h"

#include <cpuid.h>
#include <cstdlib>

#define TAVCORE_API extern "C" __attribute__((visibility("default")))

namespace {

struct CacheInfo {
    int largest = 0;
    int line = 64;
    bool known = false;
};

// Deterministic cache parameters (leaf 4 on one vendor, 0x8000001D on the
// other); the largest data or unified cache wins.
CacheInfo probe_caches() {
    CacheInfo info;
    unsigned a, b, c, d;
    unsigned leaf = 4;
    unsigned max_ext = __get_cpuid_max(0x80000000u, nullptr);
    if (__get_cpuid_max(0, nullptr) < 4) leaf = 0;
    if (max_ext >= 0x8000001Du) {
        __cpuid_count(0x8000001Du, 0, a, b, c, d);
        if ((a & 0x1f) != 0) leaf = 0x8000001Du;
    }
    if (leaf == 0) return info;
    for (unsigned sub = 0; sub < 16; ++sub) {
        __cpuid_count(leaf, sub, a, b, c, d);
        unsigned type = a & 0x1f;
        if (type == 0) break;
        if (type == 2) continue;  // instruction cache
        unsigned ways = ((b >> 22) & 0x3ff) + 1;
        unsigned parts = ((b >> 12) & 0x3ff) + 1;
        unsigned line = (b & 0xfff) + 1;
        unsigned sets = c + 1;
        unsigned long long size = 1ull * ways * parts * line * sets;
        if (size > 0x7fffffffull) size = 0x7fffffffull;
        if (static_cast<int>(size) > info.largest) info.largest = static_cast<int>(size);
        info.line = static_cast<int>(line);
        info.known = true;
    }
    return info;
}

const CacheInfo& caches() {
    static const CacheInfo info = probe_caches();
    return info;
}

#ifdef TAVCORE_DOUBLE
// Each double answers with TAVCORE_DOUBLE_CACHE bytes (or fails with
// TAVCORE_DOUBLE_STATUS) and counts the queries, so tests can prove both
// that results don't depend on the answer and that gates keep small calls away.
long long g_cache_queries = 0;
#endif

}  // namespace

TAVCORE_API void* tavMalloc(int length) {
    if (length < 1) return nullptr;
    return std::aligned_alloc(64, (static_cast<size_t>(length) + 63) & ~size_t{63});
}

TAVCORE_API void* tavMalloc_L(int64_t length) {
    if (length < 1) return nullptr;
    return std::aligned_alloc(64, (static_cast<size_t>(length) + 63) & ~size_t{63});
}

TAVCORE_API void tavFree(void* ptr) { std::free(ptr); }

TAVCORE_API TavStatus tavGetMaxCacheSizeB(int* pSizeByte) {
    if (!pSizeByte) return tavErrNullPtr;
#ifdef TAVCORE_DOUBLE
    ++g_cache_queries;
    *pSizeByte = TAVCORE_DOUBLE_CACHE;
    return TAVCORE_DOUBLE_STATUS;
#else
    const CacheInfo& info = caches();
    if (!info.known) return tavErrNotSupportedMode;
    *pSizeByte = info.largest;
    return tavOk;
#endif
}

TAVCORE_API TavStatus tav_get_cache_line_size(int* pSize) {
    if (!pSize) return tavErrNullPtr;
    *pSize = caches().line;
    return tavOk;
}

TAVCORE_API int ownGetFeature(int64_t featureMask) {
    unsigned a, b, c, d;
    int64_t have = 0;
    if (__get_cpuid_max(0, nullptr) >= 7) {
        __cpuid_count(7, 0, a, b, c, d);
        if (b & (1u << 16)) have |= 0x8000;                               // 512-bit foundation
        if ((b & (1u << 30)) && (b & (1u << 17))) have |= 0x10000000;     // byte/word, dq
        if (b & (1u << 31)) have |= 0x20000000;                           // vector length
    }
    return (featureMask & ~have) == 0 ? 1 : 0;
}

#ifdef TAVCORE_DOUBLE
TAVCORE_API long long tavcoreDoubleQueries() { return g_cache_queries; }
TAVCORE_API void tavcoreDoubleReset() { g_cache_queries = 0; }
#endif
