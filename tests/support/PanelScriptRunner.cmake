# SPDX-License-Identifier: Apache-2.0
# The driver of panel scripts, for the tests of every shell and for the fuzzers.
set(support "${PROJECT_SOURCE_DIR}/tests/support")
add_library(panel-script-runner STATIC
  "${support}/HeadlessPrintSettings.cpp"
  "${support}/PanelScript.cpp"
  "${support}/ScriptHost.cpp")
target_link_libraries(panel-script-runner PUBLIC publishing-headless publishing-panel-dump)
