// SPDX-License-Identifier: MIT
#include "psd/icc_profile.h"

// The assembler copies each file into the constants of this object file. WALLGRID_ICC_FOLDER comes from the build,
// which compiles anew when a profile has changed.
#ifdef __wasm__ // where each symbol has a size
#define WALLGRID_DATA(name) ".section .rodata." #name ",\"\",@\n"
#define WALLGRID_END(name)                                                                                             \
    ".byte 0\n.size wallgridProfile" #name ", .-wallgridProfile" #name "\n"                                            \
    ".size wallgridProfileEnd" #name ", 1\n.text"
#else
#define WALLGRID_DATA(name) ".section .rodata\n"
#define WALLGRID_END(name) ".previous"
#endif
#define WALLGRID_PROFILE(name)                                                                                         \
    asm(WALLGRID_DATA(name) ".global wallgridProfile" #name ", wallgridProfileEnd" #name "\n"                          \
                            "wallgridProfile" #name ": .incbin \"" WALLGRID_ICC_FOLDER "/" #name "\"\n"                \
                            "wallgridProfileEnd" #name ":\n" WALLGRID_END(name));                                      \
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
