// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <tl/expected.hpp>
#include <utility>

namespace wallgrid {

/// Why something failed, as one sentence for the person at the screen: no capital, no full stop, no file name
/// (whoever knows the file puts its name in front).
struct Error {
    std::string message;
    bool isCancelled = false; ///< the person themselves stopped it, and need not be told
};

/// What every fallible function of the project returns: the value, or the reason there is none.
template <class T>
using Expected = tl::expected<T, Error>;

inline tl::unexpected<Error> failure(std::string message)
{
    return tl::unexpected<Error>(Error{std::move(message), false});
}

} // namespace wallgrid
