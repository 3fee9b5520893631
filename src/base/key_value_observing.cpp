// SPDX-License-Identifier: MIT
#include "base/key_value_observing.h"

#include <algorithm>
#include <utility>

namespace wallgrid {

KeyValueObservable::Observation KeyValueObservable::observe(Handler handler)
{
    auto shared = std::make_shared<const Handler>(std::move(handler));
    std::erase_if(m_handlers, [](const auto& entry) { return entry.expired(); });
    m_handlers.push_back(shared);
    return Observation(std::move(shared));
}

std::size_t KeyValueObservable::observers() const
{
    return static_cast<std::size_t>(
        std::count_if(m_handlers.begin(), m_handlers.end(), [](const auto& entry) { return !entry.expired(); }));
}

void KeyValueObservable::didChangeValue(std::string_view key)
{
    // A handler may change the list of handlers, so walk a copy; those that end meanwhile are not called.
    const auto handlers = m_handlers;
    for (const auto& entry : handlers) {
        if (const auto handler = entry.lock())
            (*handler)(key);
    }
}

} // namespace wallgrid
