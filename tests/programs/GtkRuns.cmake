# SPDX-License-Identifier: Apache-2.0
publishing_add_run(publishing-dialog-run dialog/publishing-dialog_run.py
  $<TARGET_FILE:publishing-dialog> "${PROJECT_SOURCE_DIR}")

# The extension in the print dialogs of programs that know nothing of it.
add_subdirectory(extension/strangers)
find_program(EVINCE evince REQUIRED)
find_program(MOUSEPAD mousepad REQUIRED)
if(NOT PUBLISHING_SANITIZE)
  set(foreign evince mousepad)  # they have no sanitizer, which libraries with one need
endif()
foreach(case
    # whole runs: the tab, a veto, a job, the stored state
    operation operation-async own-dialog header-bar gtkmm ${foreign} hidden-functions
    # without the tab
    switched-off switched-off-by-rule another-gtk no-panel-library other-panel-library
    setting-cleared
    # more than one dialog, other printers, faults
    twice-in-own-dialog twice-in-operation replaced-meanwhile two-at-once destroyed
    other-printers broken-ppd process-untouched)
  publishing_add_run(extension-${case} extension/extension_run.py
    "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}" ${case})
endforeach()
if(PUBLISHING_GTK4)
  # What may hurt memory; the others differ from those of GTK 3 in nothing that a sanitizer sees.
  set(cases operation-async own-dialog setting-cleared two-at-once destroyed other-printers)
  if(NOT PUBLISHING_SANITIZE)
    find_program(GNOME_TEXT_EDITOR gnome-text-editor REQUIRED)
    find_program(GTK4_PRINT_EDITOR gtk4-print-editor REQUIRED)
    list(APPEND cases operation header-bar text-editor print-editor stale-cache
      switched-off switched-off-by-rule not-listed another-gtk no-panel-library other-panel-library
      twice-in-own-dialog twice-in-operation replaced-meanwhile broken-ppd process-untouched)
  endif()
  foreach(case IN LISTS cases)
    publishing_add_run(gtk4-${case} extension/gtk4_run.py
      "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}" ${case})
  endforeach()
endif()
if(PUBLISHING_GTK4 AND NOT PUBLISHING_SANITIZE)
  publishing_add_run(extension-portal extension/portal_run.py "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}")
endif()
add_custom_target(extension-table
  COMMAND ${CMAKE_COMMAND} -E env ${run_environment} "${with_display}"
    /usr/bin/python3 "${CMAKE_CURRENT_SOURCE_DIR}/extension/extension_table.py"
    "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}"
  USES_TERMINAL VERBATIM)
add_dependencies(extension-table publishing-extension print-dialog print-operation gtkmm-print)
foreach(major IN LISTS PUBLISHING_QT)
  add_dependencies(extension-table publishing-qt${major}-proxy)
endforeach()
if(PUBLISHING_GTK4)
  add_dependencies(extension-table publishing-gtk4-extension gtk4-print-dialog gtk4-print-operation)
endif()

# Errors and losses of memory in three dialogs; a sanitizer and valgrind do not go together.
set(memcheck ${CMAKE_COMMAND} -E env PYTHONDONTWRITEBYTECODE=1
  "PYTHONPATH=${PROJECT_SOURCE_DIR}/tests/support" "${with_display}"
  /usr/bin/python3 "${CMAKE_CURRENT_SOURCE_DIR}/extension/memcheck_run.py"
  "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}")
if(NOT PUBLISHING_SANITIZE AND NOT PUBLISHING_COVERAGE)
  add_test(NAME memcheck COMMAND ${memcheck} 3)
  set_tests_properties(memcheck PROPERTIES TIMEOUT 900)
endif()
# The same and the growth of memory in ten dialogs; takes some minutes.
add_custom_target(memcheck COMMAND ${memcheck} USES_TERMINAL VERBATIM)
add_dependencies(memcheck publishing publishing-extension many-dialogs)

# Pictures in the build folder, with those of the target screenshots.
add_custom_target(program-screenshots
  COMMAND ${CMAKE_COMMAND} -E env ${run_environment} "${with_display}"
    /usr/bin/python3 "${CMAKE_CURRENT_SOURCE_DIR}/extension/program_screenshots.py"
    "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}" "${CMAKE_BINARY_DIR}/screenshots"
  VERBATIM)
add_dependencies(program-screenshots publishing publishing-extension)
if(5 IN_LIST PUBLISHING_QT)
  add_dependencies(program-screenshots publishing-qt5-proxy)
endif()
if(PUBLISHING_GTK4)
  add_dependencies(program-screenshots publishing-gtk4-extension)
endif()
add_dependencies(screenshots program-screenshots)

# The same from where everything was installed to.
add_test(NAME install
  COMMAND ${CMAKE_COMMAND} --install "${CMAKE_BINARY_DIR}" --prefix "${CMAKE_BINARY_DIR}/installed")
publishing_add_run(installed-dialog-run dialog/publishing-dialog_run.py
  "${CMAKE_BINARY_DIR}/installed/bin/publishing-dialog" "${PROJECT_SOURCE_DIR}")
set_tests_properties(install PROPERTIES FIXTURES_SETUP installed)
set_tests_properties(installed-dialog-run PROPERTIES FIXTURES_REQUIRED installed)
if(PUBLISHING_GTK4 AND NOT PUBLISHING_SANITIZE)
  # What gio-querymodules finds is what the build writes by hand.
  set(module_list "${PUBLISHING_GTK4_PRINTBACKENDS_DIR}/giomodule.cache")
  add_test(NAME installed-module-list
    COMMAND ${CMAKE_COMMAND} -E compare_files
      "${CMAKE_BINARY_DIR}/installed/${module_list}" "${CMAKE_BINARY_DIR}/${module_list}")
  set_tests_properties(installed-module-list PROPERTIES FIXTURES_REQUIRED installed)
endif()

# The dialog program's own units.
publishing_add_tests(dialog-program-tests DISPLAY
  SOURCES
    dialog/DialogExtension_test.cpp
    "${PROJECT_SOURCE_DIR}/programs/dialog/DialogExtension.cpp"
  LIBRARIES publishing-gtk-settings PkgConfig::GTK3)
target_compile_definitions(dialog-program-tests PRIVATE PUBLISHING_PRINTBACKENDS_DIR="")
