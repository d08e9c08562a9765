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

/* Whole-image byte comparison of two 8u images. */
static int same_image(const Tav8u* a, int aStep, const Tav8u* b, int bStep, int w, int h) {
    int y;
    for (y = 0; y < h; ++y)
        if (memcmp(a + (size_t)y * aStep, b + (size_t)y * bStep, (size_t)w) != 0) return 0;
    return 1;
}

int main(void) {
    const TavLibraryVersion* v = taviGetLibVersion();
    const int w = 1920, h = 1080;
    int step8 = 0, step32 = 0, stepOut = 0, stepWork = 0;
    Tav8u* gray = taviMalloc_8u_C1(w, h, &step8);
    Tav8u* work = taviMalloc_8u_C1(w, h, &stepWork);
    Tav32f* img = taviMalloc_32f_C1(w, h, &step32);
    Tav32f* out = taviMalloc_32f_C1(w, h, &stepOut);
    TaviSize roi = {w, h};
    int x, y;

    printf("%s, version %s\n", v->Name, v->Version);
    if (!gray || !work || !img || !out) {
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
    TIMED("taviSqrt_8u_C1RSfs (sf -4)", (double)w * h, taviSqrt_8u_C1RSfs(gray, step8, work, stepWork, roi, -4));
    printf("  centre pixel %d, 16 x its square root rounded and saturated: %d\n",
           gray[(size_t)(h / 2) * step8 + w / 2], work[(size_t)(h / 2) * stepWork + w / 2]);
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
    printf("scaled arithmetic and logic:\n");
    TIMED("taviAdd_8u_C1RSfs (sf 1)", (double)w * h,
          taviAdd_8u_C1RSfs(gray, step8, gray, step8, work, stepWork, roi, 1));
    printf("  (x + x) / 2 with ties to even gives x back: %s\n",
           same_image(work, stepWork, gray, step8, w, h) ? "yes" : "no");
    TIMED("taviDiv_8u_C1RSfs (sf -6)", (double)w * h,
          taviDiv_8u_C1RSfs(gray, step8, gray, step8, work, stepWork, roi, -6));
    TIMED("taviMul_32f_C1R", (double)w * h, taviMul_32f_C1R(img, step32, img, step32, out, stepOut, roi));
    TIMED("taviXorC_8u_C1R", (double)w * h, taviXorC_8u_C1R(gray, step8, 0x80, work, stepWork, roi));
    printf("depth conversion:\n");
    TIMED("taviConvert_8u32f_C1R", (double)w * h, taviConvert_8u32f_C1R(gray, step8, out, stepOut, roi));
    TIMED("taviConvert_32f8u_C1RSfs near", (double)w * h,
          taviConvert_32f8u_C1RSfs(out, stepOut, work, stepWork, roi, tavRndNear, 0));
    printf("  8u -> 32f -> 8u round trip is exact: %s\n", same_image(work, stepWork, gray, step8, w, h) ? "yes" : "no");
    printf("decisions:\n");
    {
        Tav8u otsu = 0;
        TIMED("taviComputeThreshold_Otsu_8u", (double)w * h,
              taviComputeThreshold_Otsu_8u_C1R(gray, step8, roi, &otsu));
        printf("  automatic threshold of the picture: %d\n", otsu);
        TIMED("taviCompareC_8u_C1R (>=)", (double)w * h,
              taviCompareC_8u_C1R(gray, step8, otsu, work, stepWork, roi, tavCmpGreaterEq));
        TIMED("taviThreshold_LTValGTVal_8u", (double)w * h,
              taviThreshold_LTValGTVal_8u_C1R(gray, step8, work, stepWork, roi, 64, 0, 192, 255));
    }
    printf("statistics:\n");
    {
        Tav64f sum = 0, mean = 0, l2 = 0;
        Tav8u lo = 0, hi = 0;
        Tav32f top = 0;
        int ix = 0, iy = 0;
        TIMED("taviSum_8u_C1R", (double)w * h, taviSum_8u_C1R(gray, step8, roi, &sum));
        TIMED("taviMinMax_8u_C1R", (double)w * h, taviMinMax_8u_C1R(gray, step8, roi, &lo, &hi));
        TIMED("taviMean_32f_C1R (accurate)", (double)w * h,
              taviMean_32f_C1R(img, step32, roi, &mean, tavAlgHintAccurate));
        TIMED("taviNorm_L2_32f_C1R (fast)", (double)w * h, taviNorm_L2_32f_C1R(img, step32, roi, &l2, tavAlgHintFast));
        TIMED("taviMaxIndx_32f_C1R", (double)w * h, taviMaxIndx_32f_C1R(img, step32, roi, &top, &ix, &iy));
        printf("  8u sum %.0f, range %d..%d; 32f mean %.6f, L2 norm %.3f, first maximum %.4f at (%d, %d)\n", sum,
               lo, hi, mean, l2, top, ix, iy);
    }
    printf("bad input is refused with a status and nothing written:\n");
    printf("  taviExp_32f_C1R(null src) -> %d\n", (int)taviExp_32f_C1R(NULL, step32, out, stepOut, roi));
    roi.width = 0;
    printf("  taviExp_32f_C1R(width 0)  -> %d\n", (int)taviExp_32f_C1R(img, step32, out, stepOut, roi));

    taviFree(gray);
    taviFree(work);
    taviFree(img);
    taviFree(out);
    return 0;
}
