// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace wallgrid {

/// UTF-8 for people and other programs: a lone surrogate, which UTF-8 cannot hold, becomes U+FFFD.
std::string toUtf8(std::u16string_view text);

} // namespace wallgrid
