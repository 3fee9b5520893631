// SPDX-License-Identifier: MIT
#pragma once

namespace wallgrid {

/// The record that a colour or a location was read from. What nobody edited is written again from it, with every key it
/// came with: an ICC profile, a catalogue name, a base that is not understood. Only the keyed archiver looks inside.
class ArchivedForm {
public:
    ArchivedForm() = default;
    ArchivedForm(const ArchivedForm&) = delete;
    ArchivedForm& operator=(const ArchivedForm&) = delete;
    virtual ~ArchivedForm() = default;
};

} // namespace wallgrid
