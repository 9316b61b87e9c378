# SPDX-License-Identifier: Apache-2.0
# Target coverage, in the preset coverage only: runs every test and reports the line and branch
# coverage of Publishing/. Branches that only an exception takes, such as the clean-up after a failed
# allocation, are left out: the compiler makes several for almost every call, and no test can reach
# them.
set(PUBLISHING_LINE_COVERAGE 98 CACHE STRING "Per cent of the lines of Publishing/ that tests must run")
set(PUBLISHING_BRANCH_COVERAGE 90 CACHE STRING
    "Per cent of the branches of Publishing/ that tests must take")

if(PUBLISHING_COVERAGE)
  find_program(GCOVR gcovr REQUIRED)
  add_custom_target(coverage
    COMMAND find "${CMAKE_BINARY_DIR}" -name "*.gcda" -delete
    COMMAND "${CMAKE_COMMAND}" --build "${CMAKE_BINARY_DIR}"
    COMMAND "${CMAKE_CTEST_COMMAND}" --test-dir "${CMAKE_BINARY_DIR}" --output-on-failure -j2
    COMMAND "${GCOVR}" --root "${PROJECT_SOURCE_DIR}" --filter "${PROJECT_SOURCE_DIR}/Publishing/"
            --exclude-throw-branches --exclude-unreachable-branches --print-summary
            --html-details "${CMAKE_BINARY_DIR}/coverage.html" --txt "${CMAKE_BINARY_DIR}/coverage.txt"
            --fail-under-line "${PUBLISHING_LINE_COVERAGE}"
            --fail-under-branch "${PUBLISHING_BRANCH_COVERAGE}" "${CMAKE_BINARY_DIR}"
    WORKING_DIRECTORY "${CMAKE_BINARY_DIR}"
    USES_TERMINAL VERBATIM)
endif()
