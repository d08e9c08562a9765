/* The demo: makes a synthetic picture, runs the library's functions on it,
   and prints what each did and how fast. */
#define _POSIX_C_SOURCE 199309L
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
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
    printf("data movement:\n");
    {
        int stepCopy = 0, stepRgb = 0, stepT = 0;
        const int bgr[3] = {2, 1, 0};
        const Tav8u grey3[3] = {128, 128, 128};
        TaviSize troi = {h, w};
        Tav8u* copy = taviMalloc_8u_C1(w, h, &stepCopy);
        Tav8u* rgb = taviMalloc_8u_C3(w, h, &stepRgb);
        Tav8u* tr = taviMalloc_8u_C1(h, w, &stepT);
        if (copy && rgb && tr) {
            TIMED("taviSet_8u_C1R", (double)w * h, taviSet_8u_C1R(0, copy, stepCopy, roi));
            TIMED("taviCopy_8u_C1R", (double)w * h, taviCopy_8u_C1R(gray, step8, copy, stepCopy, roi));
            TIMED("taviSet_8u_C3R", (double)w * h, taviSet_8u_C3R(grey3, rgb, stepRgb, roi));
            TIMED("taviDup_8u_C1C3R", (double)w * h, taviDup_8u_C1C3R(gray, step8, rgb, stepRgb, roi));
            TIMED("taviSwapChannels_8u_C3IR", (double)w * h, taviSwapChannels_8u_C3IR(rgb, stepRgb, roi, bgr));
            TIMED("taviCopy_8u_C3C1R (green)", (double)w * h, taviCopy_8u_C3C1R(rgb + 1, stepRgb, copy, stepCopy, roi));
            TIMED("taviTranspose_8u_C1R", (double)w * h, taviTranspose_8u_C1R(gray, step8, tr, stepT, roi));
            TIMED("taviTranspose_8u_C1R back", (double)w * h, taviTranspose_8u_C1R(tr, stepT, copy, stepCopy, troi));
            {
                int same = 1;
                for (y = 0; y < h && same; ++y)
                    same = memcmp(copy + (size_t)y * stepCopy, gray + (size_t)y * step8, (size_t)w) == 0;
                printf("  transposed twice equals the original: %s\n", same ? "yes" : "no");
            }
            TIMED("taviMirror_8u_C1IR (both)", (double)w * h, taviMirror_8u_C1IR(copy, stepCopy, roi, tavAxsBoth));
            printf("  taviMirror_8u_C3R(flip 3) -> %d (diagonal flips are one-channel only)\n",
                   (int)taviMirror_8u_C3R(rgb, stepRgb, rgb, stepRgb, roi, tavAxs45));
        }
        taviFree(copy);
        taviFree(rgb);
        taviFree(tr);
    }
    printf("bad input is refused with a status and nothing written:\n");
    printf("  taviExp_32f_C1R(null src) -> %d\n", (int)taviExp_32f_C1R(NULL, step32, out, stepOut, roi));
    roi.width = 0;
    printf("  taviExp_32f_C1R(width 0)  -> %d\n", (int)taviExp_32f_C1R(img, step32, out, stepOut, roi));

    taviFree(gray);
    taviFree(img);
    taviFree(out);
    return 0;
}
