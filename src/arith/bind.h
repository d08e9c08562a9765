// One line binds an export to its family template: each macro spells the
// parameter list of one shape of the catalogue, so the compiler checks the
// definition against the generated declaration. R is the family's Rows
// template (R<T, Layout>), C its check order after the pointers.
#pragma once

#include "arith/entry_shapes.h"

#define TAV_L(L) ::tav::Layout::L
#define TAV_ENTRY ::tav::arith
#define TAV_CHK(C) ::tav::arith::Checks::C

// Two sources.
#define TAV_BIN(name, T, L, R, C)                                                                  \
    TavStatus name(const T* s1, int t1, const T* s2, int t2, T* d, int td, TaviSize r) {          \
        return TAV_ENTRY::binary_entry<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(s1, t1, s2, t2, d, td, r); \
    }
#define TAV_BIN_I(name, T, L, R, C)                                                       \
    TavStatus name(const T* s, int t, T* sd, int tsd, TaviSize r) {                       \
        return TAV_ENTRY::binary_entry<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(s, t, sd, tsd, sd, tsd, r); \
    }
#define TAV_BIN_L(name, T, L, R, C)                                                                         \
    TavStatus name(const T* s1, int64_t t1, const T* s2, int64_t t2, T* d, int64_t td, TaviSizeL r) {       \
        return TAV_ENTRY::binary_L<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(s1, t1, s2, t2, d, td, r);      \
    }
#define TAV_BIN_I_L(name, T, L, R, C)                                                     \
    TavStatus name(const T* s, int64_t t, T* sd, int64_t tsd, TaviSizeL r) {              \
        return TAV_ENTRY::binary_L<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(s, t, sd, tsd, sd, tsd, r); \
    }

// Two sources with a scale factor.
#define TAV_BIN_SFS(name, T, L, R, C)                                                                      \
    TavStatus name(const T* s1, int t1, const T* s2, int t2, T* d, int td, TaviSize r, int f) {           \
        return TAV_ENTRY::binary_entry<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(s1, t1, s2, t2, d, td, r, f); \
    }
#define TAV_BIN_I_SFS(name, T, L, R, C)                                                          \
    TavStatus name(const T* s, int t, T* sd, int tsd, TaviSize r, int f) {                       \
        return TAV_ENTRY::binary_entry<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(s, t, sd, tsd, sd, tsd, r, f); \
    }
#define TAV_BIN_SFS_L(name, T, L, R, C)                                                                      \
    TavStatus name(const T* s1, int64_t t1, const T* s2, int64_t t2, T* d, int64_t td, TaviSizeL r, int f) { \
        return TAV_ENTRY::binary_L<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(s1, t1, s2, t2, d, td, r, f);    \
    }
#define TAV_BIN_I_SFS_L(name, T, L, R, C)                                                        \
    TavStatus name(const T* s, int64_t t, T* sd, int64_t tsd, TaviSizeL r, int f) {              \
        return TAV_ENTRY::binary_L<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(s, t, sd, tsd, sd, tsd, r, f); \
    }

// With a constant: C1 takes the element, other layouts an array.
#define TAV_K1(name, T, R, C)                                                                  \
    TavStatus name(const T* s, int t, T v, T* d, int td, TaviSize r) {                         \
        return TAV_ENTRY::const_entry<T, TAV_L(C1), R<T, TAV_L(C1)>, TAV_CHK(C)>(s, t, &v, d, td, r); \
    }
#define TAV_KN(name, T, L, R, C)                                                               \
    TavStatus name(const T* s, int t, const T* v, T* d, int td, TaviSize r) {                  \
        return TAV_ENTRY::const_entry<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(s, t, v, d, td, r); \
    }
#define TAV_K1_I(name, T, R, C)                                                                   \
    TavStatus name(T v, T* sd, int t, TaviSize r) {                                               \
        return TAV_ENTRY::const_entry<T, TAV_L(C1), R<T, TAV_L(C1)>, TAV_CHK(C)>(sd, t, &v, sd, t, r); \
    }
#define TAV_KN_I(name, T, L, R, C)                                                                \
    TavStatus name(const T* v, T* sd, int t, TaviSize r) {                                        \
        return TAV_ENTRY::const_entry<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(sd, t, v, sd, t, r); \
    }
#define TAV_K1_L(name, T, R, C, ...)                                                                          \
    TavStatus name(const T* s, int64_t t, T v, T* d, int64_t td, TaviSizeL r) {                               \
        return TAV_ENTRY::const_L<T, TAV_L(C1), R<T, TAV_L(C1)>, TAV_CHK(C) __VA_OPT__(, ) __VA_ARGS__>(s, t, &v, d, td, r); \
    }
#define TAV_KN_L(name, T, L, R, C, ...)                                                                      \
    TavStatus name(const T* s, int64_t t, const T* v, T* d, int64_t td, TaviSizeL r) {                       \
        return TAV_ENTRY::const_L<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C) __VA_OPT__(, ) __VA_ARGS__>(s, t, v, d, td, r); \
    }
#define TAV_K1_I_L(name, T, R, C, ...)                                                                        \
    TavStatus name(T v, T* sd, int64_t t, TaviSizeL r) {                                                      \
        return TAV_ENTRY::const_L<T, TAV_L(C1), R<T, TAV_L(C1)>, TAV_CHK(C) __VA_OPT__(, ) __VA_ARGS__>(sd, t, &v, sd, t, r); \
    }
#define TAV_KN_I_L(name, T, L, R, C, ...)                                                                    \
    TavStatus name(const T* v, T* sd, int64_t t, TaviSizeL r) {                                              \
        return TAV_ENTRY::const_L<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C) __VA_OPT__(, ) __VA_ARGS__>(sd, t, v, sd, t, r); \
    }

// With a constant and a scale factor.
#define TAV_K1_SFS(name, T, R, C)                                                                 \
    TavStatus name(const T* s, int t, T v, T* d, int td, TaviSize r, int f) {                     \
        return TAV_ENTRY::const_entry<T, TAV_L(C1), R<T, TAV_L(C1)>, TAV_CHK(C)>(s, t, &v, d, td, r, f); \
    }
#define TAV_KN_SFS(name, T, L, R, C)                                                              \
    TavStatus name(const T* s, int t, const T* v, T* d, int td, TaviSize r, int f) {              \
        return TAV_ENTRY::const_entry<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(s, t, v, d, td, r, f); \
    }
#define TAV_K1_I_SFS(name, T, R, C)                                                                  \
    TavStatus name(T v, T* sd, int t, TaviSize r, int f) {                                           \
        return TAV_ENTRY::const_entry<T, TAV_L(C1), R<T, TAV_L(C1)>, TAV_CHK(C)>(sd, t, &v, sd, t, r, f); \
    }
#define TAV_KN_I_SFS(name, T, L, R, C)                                                               \
    TavStatus name(const T* v, T* sd, int t, TaviSize r, int f) {                                    \
        return TAV_ENTRY::const_entry<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C)>(sd, t, v, sd, t, r, f); \
    }
#define TAV_K1_SFS_L(name, T, R, C, ...)                                                                         \
    TavStatus name(const T* s, int64_t t, T v, T* d, int64_t td, TaviSizeL r, int f) {                           \
        return TAV_ENTRY::const_L<T, TAV_L(C1), R<T, TAV_L(C1)>, TAV_CHK(C) __VA_OPT__(, ) __VA_ARGS__>(s, t, &v, d, td, r, f); \
    }
#define TAV_KN_SFS_L(name, T, L, R, C, ...)                                                                     \
    TavStatus name(const T* s, int64_t t, const T* v, T* d, int64_t td, TaviSizeL r, int f) {                   \
        return TAV_ENTRY::const_L<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C) __VA_OPT__(, ) __VA_ARGS__>(s, t, v, d, td, r, f); \
    }
#define TAV_K1_I_SFS_L(name, T, R, C, ...)                                                                       \
    TavStatus name(T v, T* sd, int64_t t, TaviSizeL r, int f) {                                                  \
        return TAV_ENTRY::const_L<T, TAV_L(C1), R<T, TAV_L(C1)>, TAV_CHK(C) __VA_OPT__(, ) __VA_ARGS__>(sd, t, &v, sd, t, r, f); \
    }
#define TAV_KN_I_SFS_L(name, T, L, R, C, ...)                                                                   \
    TavStatus name(const T* v, T* sd, int64_t t, TaviSizeL r, int f) {                                          \
        return TAV_ENTRY::const_L<T, TAV_L(L), R<T, TAV_L(L)>, TAV_CHK(C) __VA_OPT__(, ) __VA_ARGS__>(sd, t, v, sd, t, r, f); \
    }
