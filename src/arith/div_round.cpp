// Bindings of the division with an explicit rounding mode.
#include "arith/div.h"

namespace {
using tav::Layout;
using tav::arith::binary_entry;
using tav::arith::Checks;
template <class T, Layout L>
using DivRoundR = tav::arith::DivRoundBin::Rows<T, L>;
}  // namespace

TavStatus own_taviDiv_Round_8u_C1RSfs(const Tav8u* s1, int t1, const Tav8u* s2, int t2, Tav8u* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav8u, Layout::C1, DivRoundR<Tav8u, Layout::C1>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_8u_C1IRSfs(const Tav8u* s, int t, Tav8u* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav8u, Layout::C1, DivRoundR<Tav8u, Layout::C1>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_8u_C3RSfs(const Tav8u* s1, int t1, const Tav8u* s2, int t2, Tav8u* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav8u, Layout::C3, DivRoundR<Tav8u, Layout::C3>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_8u_C3IRSfs(const Tav8u* s, int t, Tav8u* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav8u, Layout::C3, DivRoundR<Tav8u, Layout::C3>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_8u_C4RSfs(const Tav8u* s1, int t1, const Tav8u* s2, int t2, Tav8u* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav8u, Layout::C4, DivRoundR<Tav8u, Layout::C4>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_8u_C4IRSfs(const Tav8u* s, int t, Tav8u* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav8u, Layout::C4, DivRoundR<Tav8u, Layout::C4>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_8u_AC4RSfs(const Tav8u* s1, int t1, const Tav8u* s2, int t2, Tav8u* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav8u, Layout::AC4, DivRoundR<Tav8u, Layout::AC4>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_8u_AC4IRSfs(const Tav8u* s, int t, Tav8u* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav8u, Layout::AC4, DivRoundR<Tav8u, Layout::AC4>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_16u_C1RSfs(const Tav16u* s1, int t1, const Tav16u* s2, int t2, Tav16u* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16u, Layout::C1, DivRoundR<Tav16u, Layout::C1>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_16u_C1IRSfs(const Tav16u* s, int t, Tav16u* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16u, Layout::C1, DivRoundR<Tav16u, Layout::C1>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_16u_C3RSfs(const Tav16u* s1, int t1, const Tav16u* s2, int t2, Tav16u* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16u, Layout::C3, DivRoundR<Tav16u, Layout::C3>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_16u_C3IRSfs(const Tav16u* s, int t, Tav16u* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16u, Layout::C3, DivRoundR<Tav16u, Layout::C3>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_16u_C4RSfs(const Tav16u* s1, int t1, const Tav16u* s2, int t2, Tav16u* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16u, Layout::C4, DivRoundR<Tav16u, Layout::C4>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_16u_C4IRSfs(const Tav16u* s, int t, Tav16u* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16u, Layout::C4, DivRoundR<Tav16u, Layout::C4>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_16u_AC4RSfs(const Tav16u* s1, int t1, const Tav16u* s2, int t2, Tav16u* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16u, Layout::AC4, DivRoundR<Tav16u, Layout::AC4>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_16u_AC4IRSfs(const Tav16u* s, int t, Tav16u* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16u, Layout::AC4, DivRoundR<Tav16u, Layout::AC4>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_16s_C1RSfs(const Tav16s* s1, int t1, const Tav16s* s2, int t2, Tav16s* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16s, Layout::C1, DivRoundR<Tav16s, Layout::C1>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_16s_C1IRSfs(const Tav16s* s, int t, Tav16s* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16s, Layout::C1, DivRoundR<Tav16s, Layout::C1>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_16s_C3RSfs(const Tav16s* s1, int t1, const Tav16s* s2, int t2, Tav16s* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16s, Layout::C3, DivRoundR<Tav16s, Layout::C3>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_16s_C3IRSfs(const Tav16s* s, int t, Tav16s* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16s, Layout::C3, DivRoundR<Tav16s, Layout::C3>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_16s_C4RSfs(const Tav16s* s1, int t1, const Tav16s* s2, int t2, Tav16s* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16s, Layout::C4, DivRoundR<Tav16s, Layout::C4>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_16s_C4IRSfs(const Tav16s* s, int t, Tav16s* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16s, Layout::C4, DivRoundR<Tav16s, Layout::C4>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
TavStatus own_taviDiv_Round_16s_AC4RSfs(const Tav16s* s1, int t1, const Tav16s* s2, int t2, Tav16s* d, int td, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16s, Layout::AC4, DivRoundR<Tav16s, Layout::AC4>, Checks::SizeThenSteps>(s1, t1, s2, t2, d, td, r, m, f);
}
TavStatus own_taviDiv_Round_16s_AC4IRSfs(const Tav16s* s, int t, Tav16s* sd, int tsd, TaviSize r, TavRoundMode m, int f) {
    return binary_entry<Tav16s, Layout::AC4, DivRoundR<Tav16s, Layout::AC4>, Checks::SizeThenSteps>(s, t, sd, tsd, sd, tsd, r, m, f);
}
