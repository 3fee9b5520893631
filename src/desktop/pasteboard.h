// SPDX-License-Identifier: MIT
#pragma once

#include "base/file.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace wallgrid {

/// What a drag carries: bytes under named types.
class Pasteboard {
public:
    using Contents = std::map<std::string, Bytes, std::less<>>;

    /// Gives up what the pasteboard held and makes this its one type, without data for now.
    void declareType(std::string_view type)
    {
        m_contents.clear();
        m_contents.try_emplace(std::string(type));
    }
    /// Only a declared type takes data.
    void setData(Bytes data, std::string_view type)
    {
        if (const auto entry = m_contents.find(type); entry != m_contents.end())
            entry->second = std::move(data);
    }
    /// Null when the pasteboard has not got this type.
    const Bytes* dataForType(std::string_view type) const
    {
        const auto entry = m_contents.find(type);
        return entry == m_contents.end() ? nullptr : &entry->second;
    }
    const Contents& contents() const { return m_contents; }

private:
    Contents m_contents;
};

} // namespace wallgrid
