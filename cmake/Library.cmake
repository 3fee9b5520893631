# SPDX-License-Identifier: MIT
#
# A folder of src/ is built as one static library. A library sees its own headers and those of the libraries it links, and
# no others: each has an include root that holds nothing but a link to its folder, so an #include against the arrows
# does not build.
#
#   wallgrid_library(ui_fields SOURCES color_field.cpp ... LINKS ui_base LIBRARIES Qt6::DBus)
#
# makes the target wallgrid_ui_fields from src/ui/fields/, includable as "ui/fields/...". LINKS are libraries of ours, which
# are passed on; LIBRARIES are others, which are not. A library without sources holds headers alone.

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

function(wallgrid_library name)
  cmake_parse_arguments(LIBRARY "" "" "SOURCES;LINKS;LIBRARIES" ${ARGN})
  set(target wallgrid_${name})
  string(REPLACE "_" "/" folder ${name})
  set(root ${CMAKE_BINARY_DIR}/roots/${name})
  get_filename_component(parent ${root}/${folder} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${folder} ${root}/${folder} SYMBOLIC)

  list(TRANSFORM LIBRARY_LINKS PREPEND wallgrid_)
  if(NOT LIBRARY_SOURCES)
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${root})
    target_link_libraries(${target} INTERFACE ${LIBRARY_LINKS})
    return()
  endif()
  add_library(${target} STATIC ${LIBRARY_SOURCES})
  wallgrid_compile_options(${target})
  target_include_directories(${target} PUBLIC ${root})
  target_link_libraries(${target} PUBLIC ${LIBRARY_LINKS} PRIVATE ${LIBRARY_LIBRARIES})
endfunction()
