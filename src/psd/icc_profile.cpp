// SPDX-License-Identifier: MIT
#include "psd/icc_profile.h"

// The assembler copies each file into the constants of this object file. WALLGRID_ICC_FOLDER comes from the build,
// which compiles anew when a profile has changed.
#define WALLGRID_PROFILE(name)                                                                                         \
    asm(".section .rodata\n"                                                                                           \
        ".global wallgridProfile" #name ", wallgridProfileEnd" #name "\n"                                              \
        "wallgridProfile" #name ": .incbin \"" WALLGRID_ICC_FOLDER "/" #name "\"\n"                                    \
        "wallgridProfileEnd" #name ":\n"                                                                               \
        ".previous");                                                                                                  \
    extern "C" const std::uint8_t wallgridProfile##name[], wallgridProfileEnd##name[]

WALLGRID_PROFILE(GenericRGB);
WALLGRID_PROFILE(sRGB);
WALLGRID_PROFILE(AdobeRGB1998);

namespace wallgrid {

std::span<const std::uint8_t> iccProfile(std::string_view name)
{
    if (name == "GenericRGB")
        return {wallgridProfileGenericRGB, wallgridProfileEndGenericRGB};
    if (name == "sRGB")
        return {wallgridProfilesRGB, wallgridProfileEndsRGB};
    if (name == "AdobeRGB1998")
        return {wallgridProfileAdobeRGB1998, wallgridProfileEndAdobeRGB1998};
    return {};
}

} // namespace wallgrid
