// Access to the core-module test doubles: when a double is preloaded, tests
// can count its cache-size queries to prove that small calls stay below the gates.
#pragma once

#include <dlfcn.h>

namespace tavtest {

// Queries answered by the preloaded double so far, or -1 with the real core.
inline long long core_cache_queries() {
    using Fn = long long (*)();
    static Fn fn = reinterpret_cast<Fn>(dlsym(RTLD_DEFAULT, "tavcoreDoubleQueries"));
    return fn ? fn() : -1;
}

}  // namespace tavtest
