// SPDX-License-Identifier: MIT
//
// The main of a fuzz target where libFuzzer's is not linked: runs each file given, and each file in a folder given.
#include "fuzz/fuzz_target.h"

#include "base/file.h"

#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

int runs = 0;

void run(const fs::path& path)
{
    if (fs::is_directory(path)) {
        for (const auto& entry : fs::directory_iterator(path))
            run(entry.path());
        return;
    }
    const auto bytes = wallgrid::readFile(path.string());
    if (!bytes) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), bytes.error().message.c_str());
        std::exit(1);
    }
    std::fprintf(stderr, "%s\n", path.c_str()); // the last line tells which file a crash belongs to
    LLVMFuzzerTestOneInput(bytes->data(), bytes->size());
    ++runs;
}

} // namespace

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        run(argv[i]);
    std::printf("%d files\n", runs);
    return runs > 0 ? 0 : 1;
}
