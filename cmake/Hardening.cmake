# SPDX-License-Identifier: MIT
#
# What makes a memory fault in the program as it is shipped hard to exploit. Sanitizers bring their own checks, and
# fortified functions need optimisation, so only release builds have these; tools/check-hardening looks for each in the
# built program. The standard library's assertions are not among them: they took a PNG 14 % longer and an undo step 18 %.

include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

function(wallgrid_harden target)
  if(WALLGRID_SANITIZE)
    return()
  endif()
  # Control-flow protection is for x86 only, and older compilers for other machines refuse the flag.
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-fstack-protector-strong -fstack-clash-protection
                         -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
                         $<$<STREQUAL:${CMAKE_SYSTEM_PROCESSOR},x86_64>:-fcf-protection=full>>)
  target_link_options(${target} PRIVATE $<$<CONFIG:Release>:-Wl,-z,relro,-z,now,-z,noexecstack>)
endfunction()
