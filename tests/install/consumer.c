#include <tavi.h>
#include <tavcore.h>

int main(void) {
    int step = 0;
    Tav32f* p = taviMalloc_32f_C3(5, 2, &step);
    int ok = p != 0 && step == 64 && taviGetLibVersion()->build == 55856;
    taviFree(p);
    return ok ? 0 : 1;
}
