# SPDX-License-Identifier: Apache-2.0
# cmake -DCLANG_FORMAT=... -DMODE=fix|check -P FormatSources.cmake: lays out every source of the tree,
# or fails when one is not laid out as .clang-format says. Sources are looked up at each run.
get_filename_component(root "${CMAKE_CURRENT_LIST_DIR}" DIRECTORY)
set(patterns)
foreach(folder base Publishing sheets printing shells programs tests bench fuzz)
  list(APPEND patterns "${root}/${folder}/*.cpp" "${root}/${folder}/*.h" "${root}/${folder}/*.c")
endforeach()
file(GLOB_RECURSE sources RELATIVE "${root}" ${patterns})

if(MODE STREQUAL "fix")
  set(arguments -i)
else()
  set(arguments --dry-run --Werror)
endif()
execute_process(COMMAND "${CLANG_FORMAT}" ${arguments} ${sources}
                WORKING_DIRECTORY "${root}" RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The sources above are not formatted; fix them with: cmake --build --preset release --target format")
endif()
