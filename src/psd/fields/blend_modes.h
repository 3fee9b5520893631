// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace wallgrid {

/// How a layer or an effect meets what is below it: the four-byte keys of the PSD format, blanks included (Adobe,
/// "Photoshop File Formats", layer records).
namespace blend_mode {

inline constexpr std::string_view kNormal = "norm";
inline constexpr std::string_view kDarken = "dark";
inline constexpr std::string_view kLighten = "lite";
inline constexpr std::string_view kHue = "hue ";
inline constexpr std::string_view kSaturation = "sat ";
inline constexpr std::string_view kColor = "colr";
inline constexpr std::string_view kLuminosity = "lum ";
inline constexpr std::string_view kMultiply = "mul ";
inline constexpr std::string_view kScreen = "scrn";
inline constexpr std::string_view kDissolve = "diss";
inline constexpr std::string_view kOverlay = "over";
inline constexpr std::string_view kHardLight = "hLit";
inline constexpr std::string_view kSoftLight = "sLit";
inline constexpr std::string_view kDifference = "diff";
inline constexpr std::string_view kExclusion = "smud";
inline constexpr std::string_view kColorDodge = "div ";
inline constexpr std::string_view kColorBurn = "idiv";
inline constexpr std::string_view kLinearBurn = "lbrn";
inline constexpr std::string_view kLinearDodge = "lddg";
inline constexpr std::string_view kVividLight = "vLit";
inline constexpr std::string_view kLinearLight = "lLit";
inline constexpr std::string_view kPinLight = "pLit";
inline constexpr std::string_view kHardMix = "hMix";
inline constexpr std::string_view kPassThrough = "pass"; ///< groups
inline constexpr std::string_view kDarkerColor = "dkCl";
inline constexpr std::string_view kLighterColor = "lgCl";

inline constexpr std::array kAll = {
    kNormal,    kDarken,     kLighten,     kHue,         kSaturation,   kColor,      kLuminosity,
    kMultiply,  kScreen,     kDissolve,    kOverlay,     kHardLight,    kSoftLight,  kDifference,
    kExclusion, kColorDodge, kColorBurn,   kLinearBurn,  kLinearDodge,  kVividLight, kLinearLight,
    kPinLight,  kHardMix,    kPassThrough, kDarkerColor, kLighterColor,
};

} // namespace blend_mode

} // namespace wallgrid
