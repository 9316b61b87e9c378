# SPDX-License-Identifier: Apache-2.0
# Run when GTK 4's extension was installed to `folder`: makes GIO's list of the modules in there anew
# with the program `query`, unless the files are meant for another place.
if("$ENV{DESTDIR}" STREQUAL "")
  execute_process(COMMAND "${query}" "${folder}" RESULT_VARIABLE failure)
  if(failure)
    message(WARNING "Run as root: gio-querymodules ${folder}")
  endif()
endif()
