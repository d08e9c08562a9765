// The members of the unary math families as the tests see them: every name
// spelled from the family's membership and resolved in the loaded module, a
// uniform way to call it, and the whole-image expectation built from the
// scalar references (statuses included).
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "support/image.h"
#include "support/ref_unary.h"
#include "tavi.h"

namespace tavtest::unary {

enum class Fam { Abs, Sqr, Sqrt, Ln, Exp };
enum class Ty { U8, U16, S16, F32 };

struct Member {
    std::string name;
    Fam fam;
    Ty ty;
    int channels;  // elements a pixel
    bool ac4, inPlace, scaled;
    void* fn;

    int elem_bytes() const { return ty == Ty::U8 ? 1 : ty == Ty::F32 ? 4 : 2; }
    // Low step bits cleared before rows are walked.
    int step_low_bits() const {
        if (fam == Fam::Abs) return elem_bytes() - 1;
        if (fam == Fam::Sqr && (ty == Ty::U16 || ty == Ty::S16)) return 1;
        if (fam == Fam::Sqrt && ty == Ty::F32) return 3;
        return 0;
    }
};

inline std::vector<Member> build_members() {
    struct Spec {
        Fam fam;
        const char* family;
        std::vector<const char*> types, layouts;
    };
    const Spec specs[] = {
        {Fam::Abs, "Abs", {"16s", "32f"}, {"C1", "C3", "C4", "AC4"}},
        {Fam::Sqr, "Sqr", {"8u", "16u", "16s", "32f"}, {"C1", "C3", "C4", "AC4"}},
        {Fam::Sqrt, "Sqrt", {"8u", "16u", "16s", "32f"}, {"C1", "C3", "AC4"}},
        {Fam::Ln, "Ln", {"8u", "16u", "16s", "32f"}, {"C1", "C3"}},
        {Fam::Exp, "Exp", {"8u", "16u", "16s", "32f"}, {"C1", "C3"}},
    };
    std::vector<Member> out;
    // Looked up in the module the build made (the test links nothing from it
    // by name, so it may not be loaded yet).
    void* lib = dlopen(TAV_LIB_PATH, RTLD_NOW);
    auto add = [&out, lib](Fam fam, const std::string& family, const std::string& type, const std::string& layout, bool inPlace) {
        const bool scaled = type != "32f" && fam != Fam::Abs;
        const std::string name = "tavi" + family + "_" + type + "_" + layout + (inPlace ? "I" : "") + "R" + (scaled ? "Sfs" : "");
        Member m{name,
                 fam,
                 type == "8u" ? Ty::U8 : type == "16u" ? Ty::U16 : type == "16s" ? Ty::S16 : Ty::F32,
                 layout == "C1" ? 1 : layout == "C3" ? 3 : 4,
                 layout == "AC4",
                 inPlace,
                 scaled,
                 lib ? dlsym(lib, name.c_str()) : nullptr};
        out.push_back(m);
    };
    for (const Spec& s : specs)
        for (const char* t : s.types)
            for (const char* l : s.layouts)
                for (bool ip : {false, true}) add(s.fam, s.family, t, l, ip);
    add(Fam::Sqrt, "Sqrt", "32f", "C4", true);  // the only C4 square root
    return out;
}

inline const std::vector<Member>& members() {
    static const std::vector<Member> all = build_members();
    return all;
}

template <class T>
TavStatus invoke(const Member& m, const T* src, int srcStep, T* dst, int dstStep, TaviSize roi, int sf) {
    if (m.inPlace) {
        if (m.scaled) return reinterpret_cast<TavStatus (*)(T*, int, TaviSize, int)>(m.fn)(dst, dstStep, roi, sf);
        return reinterpret_cast<TavStatus (*)(T*, int, TaviSize)>(m.fn)(dst, dstStep, roi);
    }
    if (m.scaled) return reinterpret_cast<TavStatus (*)(const T*, int, T*, int, TaviSize, int)>(m.fn)(src, srcStep, dst, dstStep, roi, sf);
    return reinterpret_cast<TavStatus (*)(const T*, int, T*, int, TaviSize)>(m.fn)(src, srcStep, dst, dstStep, roi);
}

template <class T>
T ref_elem(Fam fam, T x, int sf) {
    switch (fam) {
        case Fam::Abs: return ref::abs(x);
        case Fam::Sqr: return ref::sqr(x, sf);
        case Fam::Sqrt: return ref::sqrt(x, sf);
        case Fam::Ln:
            if constexpr (std::is_floating_point_v<T>) return ref::ln32f(x);
            else return ref::ln(x, sf);
        case Fam::Exp:
            if constexpr (std::is_floating_point_v<T>) return ref::exp32f(x);
            else if constexpr (std::is_same_v<T, Tav8u>) return ref::exp8u(x, sf);
            else return ref::exp(x, sf);
    }
    return x;
}

// The warning one element raises by itself.
template <class T>
TavStatus elem_status(Fam fam, T x) {
    if constexpr (std::is_floating_point_v<T>) {
        if (fam == Fam::Sqrt && x < 0) return tavWarnSqrtNegArg;
        if (fam == Fam::Ln && x == 0) return tavWarnLnZeroArg;
        if (fam == Fam::Ln && x < 0) return tavWarnLnNegArg;
        if (fam == Fam::Exp) return ref::exp32f_status(x);
    } else {
        if (fam == Fam::Ln && x == 0) return tavWarnLnZeroArg;
    }
    return tavOk;
}

// Row statuses into the call's status, the way each family combines them.
inline TavStatus combine(const Member& m, const std::vector<TavStatus>& rows) {
    TavStatus r = tavOk;
    for (TavStatus s : rows) {
        if (m.fam == Fam::Exp && m.ty == Ty::F32) r = s;  // the last row only
        else if (s == tavWarnLnZeroArg) r = s;            // a zero wins over a negative
        else if (r == tavOk) r = s;
    }
    return r;
}

struct Expected {
    std::vector<std::uint8_t> bytes;
    TavStatus status = tavOk;
    std::vector<std::size_t> elems;  // byte offsets of the elements written
};

// What a call should leave in the destination span `before` (and return),
// reading the source span `src` (for in-place members, the same `before`).
template <class T>
Expected expect(const Member& m, const std::uint8_t* src, int srcStep, const std::vector<std::uint8_t>& before, int dstStep,
                TaviSize roi, int sf) {
    Expected e{before, tavOk, {}};
    const std::ptrdiff_t keep = ~static_cast<std::ptrdiff_t>(m.step_low_bits());
    const std::ptrdiff_t ss = srcStep & keep, ds = dstStep & keep;
    std::vector<TavStatus> rows;
    for (int y = 0; y < roi.height; ++y) {
        TavStatus row = tavOk;
        for (int i = 0; i < roi.width * m.channels; ++i) {
            if (m.ac4 && i % 4 == 3) continue;
            T x, r;
            std::memcpy(&x, src + y * ss + i * std::ptrdiff_t(sizeof(T)), sizeof(T));
            r = ref_elem(m.fam, x, sf);
            const std::size_t at = y * ds + i * sizeof(T);
            std::memcpy(e.bytes.data() + at, &r, sizeof(T));
            e.elems.push_back(at);
            const TavStatus st = elem_status(m.fam, x);
            if (st == tavWarnLnZeroArg || row == tavOk) row = st != tavOk ? st : row;
        }
        rows.push_back(row);
    }
    e.status = combine(m, rows);
    return e;
}

// For the float log and exp, whose last bit is free: an element within 1 ulp
// of the reference is taken as it came, so that the byte comparison that
// follows checks everything else exactly.
inline void accept_within_one_ulp(const Member& m, const std::uint8_t* actual, Expected& e) {
    if (m.ty != Ty::F32 || (m.fam != Fam::Ln && m.fam != Fam::Exp)) return;
    for (std::size_t at : e.elems) {
        float a, x;
        std::memcpy(&a, actual + at, 4);
        std::memcpy(&x, e.bytes.data() + at, 4);
        if (within_ulps(&a, &x, 1, 1)) std::memcpy(e.bytes.data() + at, &a, 4);
    }
}

// Random source elements in a range that reaches the family's special values.
template <class T>
T random_input(Fam fam) {
    if constexpr (std::is_floating_point_v<T>) {
        switch (fam) {
            case Fam::Abs: return random_value<float>(-1e6, 1e6);
            case Fam::Sqr: return random_value<float>(-3e3, 3e3);
            case Fam::Sqrt: return random_value<float>(-20, 1e4);
            case Fam::Ln: return random_value<float>(-1, 1e4);
            case Fam::Exp: return random_value<float>(-110, 95);
        }
        return 0;
    } else {
        return random_value<T>(std::numeric_limits<T>::min(), std::numeric_limits<T>::max());
    }
}

// Runs one member on a fresh image (or pair) and compares every byte of the
// destination span and the status with the references.
template <class T>
void run_case(const Member& m, int widthPx, int height, int srcStep, int dstStep, int sf) {
    const int elems = widthPx * m.channels;
    const TaviSize roi{widthPx, height};
    SCOPED_TRACE(m.name + " width " + std::to_string(widthPx) + " height " + std::to_string(height) + " steps " +
                 std::to_string(srcStep) + "/" + std::to_string(dstStep) + " scaleFactor " + std::to_string(sf));
    auto fill = [&](Image<T>& img) {
        const std::ptrdiff_t ss = img.step() & ~static_cast<std::ptrdiff_t>(m.step_low_bits());
        for (int y = 0; y < height; ++y)
            for (int i = 0; i < elems; ++i) {
                const T v = random_input<T>(m.fam);
                std::memcpy(img.bytes() + y * ss + i * std::ptrdiff_t(sizeof(T)), &v, sizeof(T));
            }
    };
    if (m.inPlace) {
        Image<T> img(elems, height, dstStep);
        fill(img);
        const auto before = img.snapshot();
        Expected e = expect<T>(m, before.data(), dstStep, before, dstStep, roi, sf);
        EXPECT_EQ(invoke<T>(m, nullptr, 0, img.ptr(), dstStep, roi, sf), e.status);
        accept_within_one_ulp(m, img.bytes(), e);
        EXPECT_TRUE(same_bytes(img, e.bytes));
    } else {
        Image<T> src(elems, height, srcStep), dst(elems, height, dstStep);
        fill(src);
        const auto srcBefore = src.snapshot();
        Expected e = expect<T>(m, srcBefore.data(), srcStep, dst.snapshot(), dstStep, roi, sf);
        EXPECT_EQ(invoke<T>(m, src.ptr(), srcStep, dst.ptr(), dstStep, roi, sf), e.status);
        accept_within_one_ulp(m, dst.bytes(), e);
        EXPECT_TRUE(same_bytes(dst, e.bytes));
        EXPECT_TRUE(same_bytes(src, srcBefore)) << "the source was written";
    }
}

// Dispatch on the member's element type.
template <class F>
void with_type(const Member& m, F&& f) {
    switch (m.ty) {
        case Ty::U8: f(Tav8u{}); break;
        case Ty::U16: f(Tav16u{}); break;
        case Ty::S16: f(Tav16s{}); break;
        case Ty::F32: f(Tav32f{}); break;
    }
}

}  // namespace tavtest::unary
