// SPDX-License-Identifier: MIT
#pragma once

#include "platform/raw_archive.h"

namespace wallgrid::test {

struct ArchiveSample {
    std::string name;
    Bytes bytes;
};

/// Project files with one fault each, somewhere between the first byte and a value of an item. Every one must be
/// refused by whoever reads a project whole: root, items and all their keys.
std::vector<ArchiveSample> malformedArchives();

/// Project files of forms that no longer or not yet occur, or with hostile parts that nothing reads. Every one reads
/// the same as RawProject().file().
std::vector<ArchiveSample> unusualArchives();

} // namespace wallgrid::test
