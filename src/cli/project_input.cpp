// SPDX-License-Identifier: MIT
#include "cli/project_input.h"

#include <iostream>

namespace wallgrid {

namespace {

constexpr std::size_t kLargestInput = std::size_t{1} << 30;

Expected<Bytes> readStandardInput()
{
    constexpr std::size_t kPiece = std::size_t{1} << 16;
    Bytes bytes;
    while (std::cin && bytes.size() <= kLargestInput) {
        const std::size_t size = bytes.size();
        bytes.resize(size + kPiece);
        std::cin.read(reinterpret_cast<char*>(bytes.data() + size), kPiece);
        bytes.resize(size + static_cast<std::size_t>(std::cin.gcount()));
    }
    if (bytes.size() > kLargestInput)
        return failure("larger than 1 GiB");
    return bytes;
}

} // namespace

Expected<Project> readProjectInput(const std::string& file)
{
    auto bytes = file == "-" ? readStandardInput() : readFile(file);
    if (!bytes)
        return tl::unexpected(bytes.error());
    return readProject(std::move(*bytes));
}

} // namespace wallgrid
