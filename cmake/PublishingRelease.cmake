# SPDX-License-Identifier: Apache-2.0
# The version is the project's; the day of its release is in the heading of its section in CHANGELOG.md.
# The files that need both get them from here.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/CHANGELOG.md")
string(REPLACE "." "\\." version "${PROJECT_VERSION}")
file(STRINGS "${PROJECT_SOURCE_DIR}/CHANGELOG.md" heading REGEX "^## \\[${version}\\] - ")
if(NOT heading MATCHES " - ([0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9])$")
  message(FATAL_ERROR "CHANGELOG.md has no section \"## [${PROJECT_VERSION}] - YYYY-MM-DD\"")
endif()
set(PUBLISHING_RELEASE_DAY "${CMAKE_MATCH_1}")
