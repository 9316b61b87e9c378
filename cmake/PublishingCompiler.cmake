# SPDX-License-Identifier: Apache-2.0
# Language level, warnings and instrumentation, the same for every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
# The PPD interface of libcups is deprecated as a whole and has no successor in libcups 2.
add_compile_options(-Wno-deprecated-declarations)

# Lines are enough to read a backtrace of the optimised build, and are made faster than the rest.
add_compile_options($<$<CONFIG:RelWithDebInfo>:-g1>)

# Hardening, on for every build that it does not get in the way of; tests/checks/check-hardening looks
# for it in what was built.
include(CheckPIESupported)
check_pie_supported(LANGUAGES C CXX)
add_compile_options(-fstack-protector-strong)
add_compile_definitions($<$<COMPILE_LANGUAGE:CXX>:_GLIBCXX_ASSERTIONS>)
add_link_options(-Wl,-z,relro,-z,now)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|i.86|AMD64")
  add_compile_options(-fcf-protection)
endif()
if(NOT PUBLISHING_SANITIZE AND NOT PUBLISHING_COVERAGE)
  # Needs optimisation, and would hide the C library's calls from the sanitizers.
  add_compile_options($<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
                      $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=3>)
endif()

if(PUBLISHING_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  # Into every program: what the leak checker is not to report.
  add_library(known-leaks OBJECT "${CMAKE_CURRENT_LIST_DIR}/known-leaks.c")
  link_libraries($<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:known-leaks>)
endif()

if(PUBLISHING_COVERAGE)
  add_compile_options(--coverage -O0 -fprofile-update=atomic)
  add_link_options(--coverage)
endif()

if(PUBLISHING_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
