# SPDX-License-Identifier: Apache-2.0
# The panel in Qt's print dialogs of programs that know nothing of it: one of our own ...
foreach(major IN LISTS PUBLISHING_QT)
  add_executable(qt${major}-print extension/strangers/qt-print.cpp)
  set_target_properties(qt${major}-print PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests/strangers")
  target_link_libraries(qt${major}-print PRIVATE Qt${major}::PrintSupport)

  foreach(case whole-run print-to-file two-at-once destroyed
          # without the tab
          switched-off no-panel-library broken-panel-library broken-proxy no-folder)
    publishing_add_run(qt${major}-${case} extension/qt_run.py
      "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}" ${major} ${case})
  endforeach()
endforeach()

# ... and those of others, which have no sanitizer, which libraries with one need.
set(qt5_programs okular kwrite qpdfview)
set(qt6_programs focuswriter)
if(NOT PUBLISHING_SANITIZE)
  foreach(major IN LISTS PUBLISHING_QT)
    foreach(program IN LISTS qt${major}_programs)
      find_program(PROGRAM_${program} ${program} REQUIRED)
      publishing_add_run(extension-${program} extension/qt_programs_run.py
        "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}" ${program})
    endforeach()
  endforeach()
endif()
