# Language level, warnings and instrumentation, the same for every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
# The PPD interface of libcups is deprecated as a whole and has no successor in libcups 2.
add_compile_options(-Wno-deprecated-declarations)

if(PUBLISHING_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(PUBLISHING_COVERAGE)
  add_compile_options(--coverage -O0 -fprofile-update=atomic)
  add_link_options(--coverage)
endif()

if(PUBLISHING_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
