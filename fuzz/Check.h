#pragma once

#include <cstdio>
#include <cstdlib>

namespace quor::fuzz {

/// Ends the process, which libFuzzer reports together with the input, when something that must
/// hold for every input does not.
inline void check(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

} // namespace quor::fuzz
