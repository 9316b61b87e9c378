# SPDX-License-Identifier: Apache-2.0
# The stage of panel scripts on real widgets, with the toolkit's warnings as test failures.
foreach(major IN LISTS PUBLISHING_GTK)
  add_library(gtk${major}-stage STATIC AlertWatch.cpp GtkStage.cpp gtk${major}/GtkGestures.cpp)
  target_link_libraries(gtk${major}-stage PUBLIC publishing-gtk${major})
  add_library(gtk${major}-environment OBJECT GtkEnvironment.cpp)
  target_link_libraries(gtk${major}-environment PUBLIC gtk${major}-stage GTest::gtest)

  # A user at a print dialog that has the panel.
  add_library(gtk${major}-dialog-user STATIC PrintDialogUser.cpp)
  target_link_libraries(gtk${major}-dialog-user PUBLIC gtk${major}-stage publishing-gtk${major}-host)

  add_executable(gtk${major}-dialog-screenshots EXCLUDE_FROM_ALL
    dialog-screenshots.cpp gtk${major}/Picture.cpp)
  target_link_libraries(gtk${major}-dialog-screenshots PRIVATE gtk${major}-dialog-user)
  set_target_properties(gtk${major}-dialog-screenshots PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
endforeach()
if(NOT PUBLISHING_GTK3)
  return()
endif()

# Pictures in the build folder: cmake --build --preset release --target screenshots
add_executable(panel-screenshots EXCLUDE_FROM_ALL panel-screenshots.cpp gtk3/Picture.cpp)
target_link_libraries(panel-screenshots PRIVATE gtk3-stage panel-script-runner)
set_target_properties(panel-screenshots PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
add_custom_target(screenshots
  COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/screenshots"
    "${CMAKE_BINARY_DIR}" "${CMAKE_BINARY_DIR}/screenshots"
  DEPENDS panel-screenshots gtk3-dialog-screenshots publishing translations
  VERBATIM)

# The help book's pictures, in the sources.
file(STRINGS "${PROJECT_SOURCE_DIR}/po/LINGUAS" help_languages)
separate_arguments(help_languages)
add_custom_target(update-help-pictures
  COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/help-pictures" "${CMAKE_BINARY_DIR}/tests"
    "${PUBLISHING_BUILD_LOCALE_DIR}" "${PROJECT_SOURCE_DIR}/Publishing/resources/help"
    ${help_languages}
  DEPENDS panel-screenshots translations
  VERBATIM)
