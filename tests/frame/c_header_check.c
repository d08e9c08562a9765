/* The public headers as a C99 caller sees them; also a smallest program that
   links against the library through its exports. */
#include <stdio.h>
#include <string.h>

#include "tavi.h"
#include "tavr.h"
#include "tavcore.h"

int main(void) {
    const TavLibraryVersion* v = taviGetLibVersion();
    int step = -1;
    Tav8u* p;
    if (v == NULL || v->major != 2018 || strcmp(v->Version, "2018.0.0 (r55856)") != 0) {
        fprintf(stderr, "version record\n");
        return 1;
    }
    p = taviMalloc_8u_C1(10, 3, &step);
    if (p == NULL || step != 64) {
        fprintf(stderr, "allocation\n");
        return 1;
    }
    taviFree(p);
    return 0;
}
