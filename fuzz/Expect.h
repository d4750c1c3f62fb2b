#pragma once

#include <cstdio>
#include <cstdlib>

namespace zorby::fuzz {

// Ends the program where an invariant does not hold; the fuzzer keeps the input.
inline void Expect(bool holds, const char* invariant) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", invariant);
    std::abort();
}

}  // namespace zorby::fuzz
