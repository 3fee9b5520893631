// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

namespace wallgrid {

/// Keeps a handler registered with whoever calls it: an observed object, a timer, a run loop. When the registration
/// goes, the handler is not called any more. It may go during a call of its handler, and after the end of who calls it.
class [[nodiscard]] Registration {
public:
    Registration() = default;
    /// Whoever calls keeps a weak pointer, and locks it for each call.
    explicit Registration(std::shared_ptr<const void> handler)
        : m_handler(std::move(handler))
    {
    }
    Registration(Registration&&) noexcept = default;
    Registration& operator=(Registration&&) noexcept = default;

    explicit operator bool() const { return m_handler != nullptr; }

private:
    std::shared_ptr<const void> m_handler;
};

} // namespace wallgrid
