/* tavin0: element types, geometry records, status values and code tables.
   Plain C99; every value here is part of the binary contract. */
#ifndef TAVTYPES_H
#define TAVTYPES_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- element types ---------------------------------------------------- */
typedef uint8_t  Tav8u;
typedef int8_t   Tav8s;
typedef uint16_t Tav16u;
typedef int16_t  Tav16s;
typedef uint32_t Tav32u;
typedef int32_t  Tav32s;
typedef float    Tav32f;
typedef double   Tav64f;
typedef struct { Tav32s re; Tav32s im; } Tav32sc;
typedef struct { Tav32f re; Tav32f im; } Tav32fc;

/* ---- geometry records (passed by value) -------------------------------- */
typedef struct { int width; int height; } TaviSize;
typedef struct { int64_t width; int64_t height; } TaviSizeL;
typedef struct { int x; int y; } TaviPoint;
typedef struct { int64_t x; int64_t y; } TaviPointL;
typedef struct { int x; int y; int width; int height; } TaviRect;
typedef struct { int64_t x; int64_t y; int64_t width; int64_t height; } TaviRectL;
/* Source pixels a resize reads beyond a slice. */
typedef struct { Tav32u borderLeft; Tav32u borderTop; Tav32u borderRight; Tav32u borderBottom; } TaviBorderSize;

/* ---- plan records: opaque, caller-allocated, sized by GetSize ---------- */
typedef struct TaviResizeSpec TaviResizeSpec;
typedef struct TaviWarpSpec TaviWarpSpec;
typedef struct TaviFFT1DSpec TaviFFT1DSpec;
typedef struct TaviHistogramSpec TaviHistogramSpec;

/* ---- version record ----------------------------------------------------- */
typedef struct {
    int major;
    int minor;
    int majorBuild;
    int build;
    char targetCpu[4];
    const char* Name;
    const char* Version;
    const char* BuildDate;
} TavLibraryVersion;

/* ---- status values: 0 success, negative error, positive warning -------- */
typedef int32_t TavStatus;
enum {
    tavOk = 0,
    tavWarnNoOperation = 1,
    tavWarnDivByZero = 2,
    tavWarnSqrtNegArg = 3,
    tavWarnLnZeroArg = 7,
    tavWarnLnNegArg = 8,
    tavWarnOverflow = 12,
    tavWarnUnderflow = 17,
    tavWarnQuadNotParallelogram = 28,
    tavWarnNoRoiIntersection = 29,
    tavWarnNoQuadIntersection = 30,
    tavWarnNoVoiIntersection = 40,
    tavWarnNoAntialiasing = 46,
    tavWarnSize = 48,
    tavWarnAccurateModeNotSupported = 52,

    tavErrBadArg = -5,
    tavErrSize = -6,
    tavErrRange = -7,
    tavErrNullPtr = -8,
    tavErrMemAlloc = -9,
    tavErrDivByZero = -10,
    tavErrOutOfRange = -11,
    tavErrScaleRange = -12,
    tavErrContextMismatch = -13,
    tavErrNotSupportedMode = -14,
    tavErrStep = -16,
    tavErrFftOrder = -17,
    tavErrFftFlag = -18,
    tavErrThresholdOrder = -19,
    tavErrMomentZero = -21,
    tavErrMirrorFlip = -22,
    tavErrInterpolation = -23,
    tavErrResizeFactor = -24,
    tavErrMaskSize = -33,
    tavErrAnchor = -34,
    tavErrEpsilon = -36,
    tavErrStepTooSmall = -37,
    tavErrChannelNumber = -47,
    tavErrAlphaType = -50,
    tavErrDivisor = -51,
    tavErrChannelCount = -53,
    tavErrCoefficient = -56,
    tavErrRect = -57,
    tavErrQuad = -58,
    tavErrDataType = -59,
    tavErrChannelOrder = -60,
    tavErrLutLevels = -106,
    tavErrHistogramLevels = -107,
    tavErrStepNotAligned = -108,
    tavErrNoiseValue = -125,
    tavErrQualityIndex = -210,
    tavErrWeight = -211,
    tavErrDecimateFraction = -212,
    tavErrRoundMode = -213,
    tavErrBorder = -225,
    tavErrSizeNotEven = -227,
    tavErrAlgType = -228,
    tavErrDirection = -231,
    tavErrSizeOverflow = -232,
    tavErrQuadTransform = -233
};

/* ---- code tables: each a plain 32-bit integer --------------------------- */

/* Border: low nibble is the kind, bits 4..7 say which neighbours exist in memory. */
typedef int32_t TavBorderType;
enum {
    tavBorderRepl = 1,
    tavBorderWrap = 2,
    tavBorderMirror = 3,
    tavBorderMirrorR = 4,
    tavBorderConst = 6,
    tavBorderTransp = 7,
    tavBorderInMemTop = 0x10,
    tavBorderInMemBottom = 0x20,
    tavBorderInMemLeft = 0x40,
    tavBorderInMemRight = 0x80,
    tavBorderInMem = 0xF0
};

typedef int32_t TavInterpolationType;
enum {
    tavInterDefault = 0,
    tavNearest = 1,
    tavLinear = 2,
    tavCubic = 4,
    tavCubic2pBSpline = 5,
    tavCubic2p = 6,
    tavCubic2pB05C03 = 7,
    tavSuper = 8,
    tavLanczos = 16
};

typedef int32_t TavRoundMode;
enum {
    tavRndZero = 0,
    tavRndNear = 1,
    tavRndFinancial = 2,
    tavRndHintAccurate = 0x10
};

typedef int32_t TavHintAlgorithm;
enum { tavAlgHintNone = 0, tavAlgHintFast = 1, tavAlgHintAccurate = 2 };

typedef int32_t TavDataType;
enum { tav8u = 1, tav16u = 5, tav16s = 7, tav32f = 13, tav64f = 19 };

typedef int32_t TavCmpOp;
enum { tavCmpLess = 0, tavCmpLessEq = 1, tavCmpEq = 2, tavCmpGreaterEq = 3, tavCmpGreater = 4 };

typedef int32_t TavAxis;
enum { tavAxsHorizontal = 0, tavAxsVertical = 1, tavAxsBoth = 2, tavAxs45 = 3, tavAxs135 = 4 };

typedef int32_t TavMaskSize;
enum { tavMskSize3x3 = 33, tavMskSize5x5 = 55 };

typedef int32_t TavNorm;
enum { tavNormL1 = 2, tavNormL2 = 4 };

/* Alpha composition codes run from 0 to 11. */
typedef int32_t TavAlphaType;

/* FFT normalisation flags. */
enum { tavFftScaleFwd = 1, tavFftScaleInv = 2, tavFftScaleSqrt = 4, tavFftScaleNone = 8 };

/* Packed algorithm word of convolution and correlation:
   low byte the method, bits 8..15 the normalisation, bits 16.. the region. */
enum {
    tavAlgAuto = 0,
    tavAlgDirect = 1,
    tavAlgFFT = 2,
    tavNormCoefficient = 0x100,
    tavNormMean = 0x200,
    tavCorrNormScaled = 0x100,
    tavCorrNormCoefficient = 0x200,
    tavAlgShapeFull = 0,
    tavAlgShapeValid = 0x10000,
    tavAlgShapeSame = 0x20000
};

#ifdef __cplusplus
}
#endif
#endif /* TAVTYPES_H */
