// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace wallgrid {

/// An object whose setters tell observers which property has changed, after the new value is stored and before the
/// setter returns. A handler may observe, stop observing or change the object again while it is being told.
class KeyValueObservable {
public:
    using Handler = std::function<void(std::string_view key)>;

    /// Keeps the handler registered for as long as it lives. May outlive the object.
    class Observation {
    public:
        Observation() = default;

    private:
        friend class KeyValueObservable;
        explicit Observation(std::shared_ptr<const Handler> handler)
            : m_handler(std::move(handler))
        {
        }
        std::shared_ptr<const Handler> m_handler;
    };

    [[nodiscard]] Observation observe(Handler handler);
    /// How many handlers are registered.
    std::size_t observers() const;

protected:
    KeyValueObservable() = default;
    ~KeyValueObservable() = default;
    KeyValueObservable(const KeyValueObservable&) = delete;
    KeyValueObservable& operator=(const KeyValueObservable&) = delete;

    void didChangeValue(std::string_view key);

private:
    std::vector<std::weak_ptr<const Handler>> m_handlers;
};

} // namespace wallgrid
