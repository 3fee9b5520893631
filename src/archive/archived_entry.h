// SPDX-License-Identifier: MIT
#pragma once

#include "archive/keyed_archive.h"
#include "base/archived_form.h"

#include <utility>

namespace wallgrid {

/// An archived form is an entry of an archive, which it keeps alive.
class ArchivedEntry final : public ArchivedForm {
public:
    ArchivedEntry(std::shared_ptr<const KeyedArchive> archive, std::uint32_t uid)
        : m_archive(std::move(archive))
        , m_uid(uid)
    {
    }

    const std::shared_ptr<const KeyedArchive>& archive() const { return m_archive; }
    std::uint32_t uid() const { return m_uid; }

private:
    std::shared_ptr<const KeyedArchive> m_archive;
    std::uint32_t m_uid;
};

} // namespace wallgrid
