// Image allocation: one block of step x height bytes, rows 64-byte aligned.
#include "frame/entry.h"
#include "tavcore.h"

namespace tav::frame {
namespace {

template <int PixelBytes>
void* malloc32(int width, int height, int* pStep) {
    if (!pStep) return nullptr;
    if (width < 1 || height < 1) {
        *pStep = 0;
        return nullptr;
    }
    const int64_t rowBytes = int64_t{width} * PixelBytes;
    const int64_t step64 = (rowBytes + 63) & ~int64_t{63};
    if (rowBytes > 0x7fffffff || step64 < width) {
        *pStep = 0;
        return nullptr;
    }
    // The step is stored before the total is checked, so a failure below
    // leaves it in place, negative when it landed at 0x80000000.
    const int step = static_cast<int>(static_cast<uint32_t>(step64));
    *pStep = step;
    const int64_t total = int64_t{step} * height;
    if (static_cast<uint64_t>(total) > 0x7fffffffu) return nullptr;
    return tavMalloc(static_cast<int>(total));
}

template <int PixelBytes>
void* malloc64(int64_t width, int64_t height, int64_t* pStep) {
    if (!pStep) return nullptr;
    if (width < 1 || height < 1) {
        *pStep = 0;
        return nullptr;
    }
    const uint64_t rowBytes = static_cast<uint64_t>(width) * PixelBytes;
    const uint64_t step = (rowBytes + 63) & ~uint64_t{63};
    if (step < rowBytes) {
        *pStep = 0;
        return nullptr;
    }
    *pStep = static_cast<int64_t>(step);
    // Refuse when step x height needs more than 64 bits: any cross product
    // of the 32-bit halves that reaches the upper word.
    const uint64_t sh = step >> 32, sl = step & 0xffffffffu;
    const uint64_t hh = static_cast<uint64_t>(height) >> 32, hl = static_cast<uint64_t>(height) & 0xffffffffu;
    if (((sh * hh) >> 32) > 0 || ((sh * hl) >> 32) > 0 || ((sl * hh) >> 32) > 0) return nullptr;
    return tavMalloc_L(static_cast<int64_t>(step * static_cast<uint64_t>(height)));
}

}  // namespace
}  // namespace tav::frame

using tav::frame::malloc32;
using tav::frame::malloc64;

Tav8u* own_taviMalloc_8u_C1(int w, int h, int* s) { return static_cast<Tav8u*>(malloc32<1>(w, h, s)); }
Tav8u* own_taviMalloc_8u_C2(int w, int h, int* s) { return static_cast<Tav8u*>(malloc32<2>(w, h, s)); }
Tav8u* own_taviMalloc_8u_C3(int w, int h, int* s) { return static_cast<Tav8u*>(malloc32<3>(w, h, s)); }
Tav8u* own_taviMalloc_8u_C4(int w, int h, int* s) { return static_cast<Tav8u*>(malloc32<4>(w, h, s)); }
Tav16u* own_taviMalloc_16u_C3(int w, int h, int* s) { return static_cast<Tav16u*>(malloc32<6>(w, h, s)); }
Tav16u* own_taviMalloc_16u_C4(int w, int h, int* s) { return static_cast<Tav16u*>(malloc32<8>(w, h, s)); }
Tav32s* own_taviMalloc_32s_C3(int w, int h, int* s) { return static_cast<Tav32s*>(malloc32<12>(w, h, s)); }
Tav32s* own_taviMalloc_32s_C4(int w, int h, int* s) { return static_cast<Tav32s*>(malloc32<16>(w, h, s)); }
Tav32sc* own_taviMalloc_32sc_C3(int w, int h, int* s) { return static_cast<Tav32sc*>(malloc32<24>(w, h, s)); }
Tav32sc* own_taviMalloc_32sc_C4(int w, int h, int* s) { return static_cast<Tav32sc*>(malloc32<32>(w, h, s)); }

Tav8u* own_taviMalloc_8u_C1_L(int64_t w, int64_t h, int64_t* s) { return static_cast<Tav8u*>(malloc64<1>(w, h, s)); }
Tav8u* own_taviMalloc_8u_C2_L(int64_t w, int64_t h, int64_t* s) { return static_cast<Tav8u*>(malloc64<2>(w, h, s)); }
Tav8u* own_taviMalloc_8u_C3_L(int64_t w, int64_t h, int64_t* s) { return static_cast<Tav8u*>(malloc64<3>(w, h, s)); }
Tav8u* own_taviMalloc_8u_C4_L(int64_t w, int64_t h, int64_t* s) { return static_cast<Tav8u*>(malloc64<4>(w, h, s)); }
Tav16u* own_taviMalloc_16u_C3_L(int64_t w, int64_t h, int64_t* s) { return static_cast<Tav16u*>(malloc64<6>(w, h, s)); }
Tav16u* own_taviMalloc_16u_C4_L(int64_t w, int64_t h, int64_t* s) { return static_cast<Tav16u*>(malloc64<8>(w, h, s)); }
Tav32s* own_taviMalloc_32s_C3_L(int64_t w, int64_t h, int64_t* s) { return static_cast<Tav32s*>(malloc64<12>(w, h, s)); }
Tav32s* own_taviMalloc_32s_C4_L(int64_t w, int64_t h, int64_t* s) { return static_cast<Tav32s*>(malloc64<16>(w, h, s)); }
Tav32sc* own_taviMalloc_32sc_C3_L(int64_t w, int64_t h, int64_t* s) { return static_cast<Tav32sc*>(malloc64<24>(w, h, s)); }
Tav32sc* own_taviMalloc_32sc_C4_L(int64_t w, int64_t h, int64_t* s) { return static_cast<Tav32sc*>(malloc64<32>(w, h, s)); }

void own_taviFree(void* ptr) { tavFree(ptr); }
