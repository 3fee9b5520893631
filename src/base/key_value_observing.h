// SPDX-License-Identifier: MIT
#pragma once

#include "base/observers.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace wallgrid {

/// An object whose setters tell observers which property has changed, after the new value is stored and before the
/// setter returns. A handler may observe, stop observing or change the object again while it is being told.
class KeyValueObservable {
public:
    using Handler = Observers<std::string_view>::Handler;

    Registration observe(Handler handler) { return m_observers.add(std::move(handler)); }
    /// How many handlers are registered.
    std::size_t observers() const { return m_observers.count(); }

protected:
    KeyValueObservable() = default;
    ~KeyValueObservable() = default;
    KeyValueObservable(const KeyValueObservable&) = delete;
    KeyValueObservable& operator=(const KeyValueObservable&) = delete;

    void didChangeValue(std::string_view key) { m_observers.tell(key); }

private:
    Observers<std::string_view> m_observers;
};

} // namespace wallgrid
