// The constant version record; a call does no work.
#include "frame/entry.h"

namespace {
constexpr TavLibraryVersion kVersion = {
    2018, 0, 0, 55856, {'n', '0', 0, 0}, "tavIP x86-64-v4 (n0)", "2018.0.0 (r55856)", "May 27 2017",
};
}  // namespace

const TavLibraryVersion* own_taviGetLibVersion(void) { return &kVersion; }
