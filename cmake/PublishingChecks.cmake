# SPDX-License-Identifier: Apache-2.0
# Targets for people who change the sources: format, check-format (also the test "format") and tidy.

find_program(CLANG_FORMAT clang-format)
if(CLANG_FORMAT)
  set(format_sources "${CMAKE_COMMAND}" "-DCLANG_FORMAT=${CLANG_FORMAT}")
  set(format_script -P "${CMAKE_CURRENT_LIST_DIR}/FormatSources.cmake")
  add_custom_target(format COMMAND ${format_sources} -DMODE=fix ${format_script} VERBATIM)
  add_custom_target(check-format COMMAND ${format_sources} -DMODE=check ${format_script} VERBATIM)
  if(NOT PUBLISHING_FUZZ)
    add_test(NAME format COMMAND ${format_sources} -DMODE=check ${format_script})
  endif()
endif()

find_program(CLANG_TIDY clang-tidy)
find_program(RUN_CLANG_TIDY run-clang-tidy)
if(CLANG_TIDY AND RUN_CLANG_TIDY)
  # Generated files lie below the build folder and are left out.
  set(tidy_sources "^${PROJECT_SOURCE_DIR}/(base|Publishing|sheets|printing|shells|programs|tests|bench|fuzz)/")
  add_custom_target(tidy
    COMMAND "${RUN_CLANG_TIDY}" -quiet -clang-tidy-binary "${CLANG_TIDY}" -p "${CMAKE_BINARY_DIR}"
            "-header-filter=${tidy_sources}" "${tidy_sources}"
    USES_TERMINAL VERBATIM)
endif()
