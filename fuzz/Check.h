#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
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

/// The input as a text; bytes that are no UTF-8 become replacement characters.
inline QString textOf(const std::uint8_t* data, std::size_t size) {
    return QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

} // namespace quor::fuzz

/// Nobody else calls what a target defines, so it is declared here.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
