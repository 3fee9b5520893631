// SPDX-License-Identifier: MIT
#pragma once

#include "base/registration.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace wallgrid {

/// Handlers that are told in the order in which they came. A handler may add others, end any and end what holds this
/// object while it is being told; one that was added meanwhile is told the next time. Telling takes no memory.
template <class... Values>
class Observers {
public:
    using Handler = std::function<void(Values...)>;

    Registration add(Handler handler)
    {
        auto added = std::make_shared<const Handler>(std::move(handler));
        auto handlers = std::make_shared<Handlers>();
        handlers->reserve(count() + 1);
        if (m_handlers)
            std::copy_if(m_handlers->begin(), m_handlers->end(), std::back_inserter(*handlers), isRegistered);
        handlers->push_back(added);
        m_handlers = std::move(handlers);
        return Registration(std::move(added));
    }

    void tell(Values... values) const
    {
        const auto handlers = m_handlers;
        if (!handlers)
            return;
        for (const auto& entry : *handlers) {
            if (const auto handler = entry.lock())
                (*handler)(values...);
        }
    }

    /// How many handlers are registered.
    std::size_t count() const
    {
        if (!m_handlers)
            return 0;
        return static_cast<std::size_t>(std::count_if(m_handlers->begin(), m_handlers->end(), isRegistered));
    }

private:
    using Handlers = std::vector<std::weak_ptr<const Handler>>;

    static bool isRegistered(const std::weak_ptr<const Handler>& entry) { return !entry.expired(); }

    std::shared_ptr<const Handlers> m_handlers; ///< null for none; add() puts another list in its place
};

} // namespace wallgrid
