/* The demo: makes a synthetic picture, runs the library's functions on it,
   and prints what each did and how fast. */
#define _POSIX_C_SOURCE 199309L
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <time.h>

#include "tavi.h"

static double now_ms(void) {
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return t.tv_sec * 1e3 + t.tv_nsec * 1e-6;
}

/* Runs `body` enough times to time it and prints a line. */
#define TIMED(label, pixels, body)                                                       \
    do {                                                                                  \
        int reps_ = 0;                                                                    \
        double t0_ = now_ms(), t_;                                                        \
        TavStatus st_ = tavOk;                                                            \
        do {                                                                              \
            st_ = (body);                                                                 \
            ++reps_;                                                                      \
        } while ((t_ = now_ms() - t0_) < 50.0);                                           \
        printf("  %-28s status %3d  %8.3f ms  %7.2f Gpixel/s\n", label, (int)st_,         \
               t_ / reps_, (double)(pixels) * reps_ / (t_ * 1e6));                        \
    } while (0)

int main(void) {
    const TavLibraryVersion* v = taviGetLibVersion();
    const int w = 1920, h = 1080;
    int step8 = 0, step32 = 0, stepOut = 0;
    Tav8u* gray = taviMalloc_8u_C1(w, h, &step8);
    Tav32f* img = taviMalloc_32f_C1(w, h, &step32);
    Tav32f* out = taviMalloc_32f_C1(w, h, &stepOut);
    TaviSize roi = {w, h};
    int x, y;

    printf("%s, version %s\n", v->Name, v->Version);
    if (!gray || !img || !out) {
        fprintf(stderr, "allocation failed\n");
        return 1;
    }
    printf("picture: %dx%d, a smooth ramp with rings; 8u step %d, 32f step %d bytes\n", w, h, step8, step32);
    for (y = 0; y < h; ++y) {
        Tav8u* g = gray + (size_t)y * step8;
        Tav32f* f = (Tav32f*)((char*)img + (size_t)y * step32);
        for (x = 0; x < w; ++x) {
            double r = hypot(x - w / 2.0, y - h / 2.0);
            double val = 0.5 + 0.25 * sin(r / 9.0) + 0.25 * x / w;
            g[x] = (Tav8u)(val * 255.0);
            f[x] = (Tav32f)(val * 8.0 - 4.0);
        }
    }

    printf("unary math:\n");
    TIMED("taviAbs_32f_C1R", (double)w * h, taviAbs_32f_C1R(img, step32, out, stepOut, roi));
    TIMED("taviSqr_32f_C1R", (double)w * h, taviSqr_32f_C1R(img, step32, out, stepOut, roi));
    TIMED("taviSqrt_32f_C1R", (double)w * h, taviSqrt_32f_C1R(img, step32, out, stepOut, roi));
    TIMED("taviLn_32f_C1R", (double)w * h, taviLn_32f_C1R(img, step32, out, stepOut, roi));
    TIMED("taviExp_32f_C1R", (double)w * h, taviExp_32f_C1R(img, step32, out, stepOut, roi));
    TIMED("taviSqrt_8u_C1IRSfs (sf -4)", (double)w * h, taviSqrt_8u_C1IRSfs(gray, step8, roi, -4));
    printf("  centre pixel after sqrt x16: %d\n", gray[(size_t)(h / 2) * step8 + w / 2]);
    printf("bad input is refused with a status and nothing written:\n");
    printf("  taviExp_32f_C1R(null src) -> %d\n", (int)taviExp_32f_C1R(NULL, step32, out, stepOut, roi));
    roi.width = 0;
    printf("  taviExp_32f_C1R(width 0)  -> %d\n", (int)taviExp_32f_C1R(img, step32, out, stepOut, roi));

    taviFree(gray);
    taviFree(img);
    taviFree(out);
    return 0;
}
