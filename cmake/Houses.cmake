# SPDX-License-Identifier: MIT
#
# A "house" is one folder of src/ built as one static library. A house sees its own headers and those of the houses
# it links, and no others: each has an include root that holds nothing but a link to its folder, so an #include
# against the arrows does not build.
#
#   wallgrid_house(items SOURCES item.cpp ... LINKS platform)
#
# makes the target wallgrid_items from src/items/, includable as "items/...".

include(${CMAKE_CURRENT_LIST_DIR}/Hardening.cmake)

function(wallgrid_compile_options target)
  wallgrid_harden(${target})
  # -ffp-contract=off: a fused multiply-add rounds differently, and pixels must not depend on the machine.
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor
                         -Woverloaded-virtual -ffp-contract=off $<$<BOOL:${WALLGRID_WERROR}>:-Werror>)
  if(WALLGRID_SANITIZE)
    # With sanitizers GCC takes parts of every std::variant for uninitialised.
    target_compile_options(${target} PRIVATE -fsanitize=${WALLGRID_SANITIZE} -fno-sanitize-recover=all
                           -fno-omit-frame-pointer $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(${target} PRIVATE -fsanitize=${WALLGRID_SANITIZE})
  endif()
  if(WALLGRID_FUZZ)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()

function(wallgrid_house name)
  cmake_parse_arguments(HOUSE "" "" "SOURCES;LINKS;LIBRARIES" ${ARGN})
  set(target wallgrid_${name})
  add_library(${target} STATIC ${HOUSE_SOURCES})
  wallgrid_compile_options(${target})

  string(REPLACE "_" "/" folder ${name})
  string(REGEX MATCH "^[^/]+" top ${folder})
  set(root ${CMAKE_BINARY_DIR}/houses/${top})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${top} ${root}/${top} SYMBOLIC)
  target_include_directories(${target} PUBLIC ${root})

  list(TRANSFORM HOUSE_LINKS PREPEND wallgrid_)
  target_link_libraries(${target} PUBLIC ${HOUSE_LINKS} PRIVATE ${HOUSE_LIBRARIES})
endfunction()
