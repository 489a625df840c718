// Runs a fuzz target once on each file of the given folders, or on the given files, without
// libFuzzer: so that every compiler and every sanitizer can.

#include "Check.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesOf(const fs::path& place) {
    if (!fs::is_directory(place)) {
        return {place};
    }
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(place)) {
        files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

void replay(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    quor::fuzz::check(file.is_open(), path.c_str());
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    // Said before, and not kept in a buffer: the last one named is the one that failed.
    std::fprintf(stderr, "%s\n", path.c_str());
    // A block of exactly that size, so that a sanitizer sees who reads beyond it.
    const std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        std::size_t count = 0;
        for (int i = 1; i < argc; ++i) {
            for (const fs::path& path : filesOf(argv[i])) {
                replay(path);
                ++count;
            }
        }
        std::printf("%zu inputs\n", count);
        return count == 0 ? 1 : 0;
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 1;
    }
}
