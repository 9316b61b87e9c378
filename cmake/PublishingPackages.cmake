# SPDX-License-Identifier: Apache-2.0
# Debian packages (preset packages). What goes where is said by the components of the install rules:
#
#   program        publishing                the command line, completion, translations
#   printer        publishing-printer        the filter for print servers
#   dialog         publishing-print-dialog   the extension, publishing-dialog, help, desktop files
#   gtk4           publishing-gtk4           the extension for GTK 4's print dialogs
#   qt5, qt6       publishing-qt5, -qt6      the extension for Qt's print dialogs, where there is that Qt
#   documentation  publishing-doc            the documents of docs/
set(PUBLISHING_MAINTAINER "The Publishing authors <publishing@zephrel.com>"
    CACHE STRING "Maintainer of the packages")
set(debian "${PROJECT_SOURCE_DIR}/packaging/debian")

# The newest entry of Debian's changelog is made here, from the version and the day of its release.
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
execute_process(COMMAND date --utc --rfc-email "--date=${PUBLISHING_RELEASE_DAY} 12:00"
                OUTPUT_VARIABLE release_date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file("${debian}/changelog.in" changelog @ONLY)

# What Debian's policy asks of each package.
foreach(file IN ITEMS "${CMAKE_CURRENT_BINARY_DIR}/changelog=changelog.Debian" "${PROJECT_SOURCE_DIR}/CHANGELOG.md=changelog")
  string(REPLACE "=" ";" file "${file}")
  list(GET file 0 source)
  list(GET file 1 name)
  add_custom_command(OUTPUT "${name}.gz"
    COMMAND sh -c "gzip -9n <\"$1\" >\"$2\"" sh "${source}" "${name}.gz"
    DEPENDS "${source}" VERBATIM)
endforeach()
add_custom_target(package-changelogs ALL DEPENDS changelog.Debian.gz changelog.gz)
set(toolkits ${PUBLISHING_QT})  # those with a package each, beside the dialog's
list(TRANSFORM toolkits PREPEND qt)
if(PUBLISHING_GTK4)
  list(PREPEND toolkits gtk4)
endif()
set(toolkit_packages ${toolkits})
list(TRANSFORM toolkit_packages REPLACE "(.+)" "\\1=publishing-\\1")
foreach(component program=publishing printer=publishing-printer dialog=publishing-print-dialog
        ${toolkit_packages} documentation=publishing-doc)
  string(REPLACE "=" ";" component "${component}")
  list(GET component 1 package)
  list(GET component 0 component)
  install(FILES "${debian}/copyright" "${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz"
                "${CMAKE_CURRENT_BINARY_DIR}/changelog.gz"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
  string(TOUPPER ${component} component)
  set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${component}_PACKAGE_SECTION utils)
endforeach()

set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/packages")
set(CPACK_COMPONENTS_ALL program printer dialog ${toolkits} documentation)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${PUBLISHING_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/CompressManualPages.cmake")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CMAKE_INSTALL_SO_NO_EXE ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each component has its own

set(same "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "cups, cups-filters")
set(suggested ${toolkits})
list(TRANSFORM suggested REPLACE "(.+)" "publishing-\\1 ${same}")
list(JOIN suggested ", " CPACK_DEBIAN_DIALOG_PACKAGE_SUGGESTS)
list(PREPEND suggested "publishing-print-dialog ${same}" publishing-doc)
list(JOIN suggested ", " CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS)
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION
"covers and inserted sheets on Zephrel printers: command line
Prints documents with a front cover, or a front and a back cover, on paper of
their own, and with sheets of another paper inserted between their pages, on
PostScript printers of the Zephrel family.

This package has the command line, which needs no display.")

set(CPACK_DEBIAN_PRINTER_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PRINTER_PACKAGE_DEPENDS "publishing ${same}, cups-daemon, cups-filters, init-system-helpers")
set(CPACK_DEBIAN_PRINTER_PACKAGE_CONTROL_EXTRA
    "${debian}/printer/postinst;${debian}/printer/prerm;${debian}/printer/postrm")
set(CPACK_DEBIAN_PRINTER_DESCRIPTION
"covers and inserted sheets on any PostScript printer: print server
Prints documents with a front cover, or a front and a back cover, on paper of
their own, and with sheets of another paper inserted between their pages.

This package has the filter with which a CUPS server makes the covers and
inserts itself, for printers that know nothing of them but have trays. A queue
uses it once it is told to by \"publishing printer enable\". No desktop is
needed.")

set(CPACK_DEBIAN_DIALOG_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DIALOG_PACKAGE_DEPENDS "publishing ${same}")
set(CPACK_DEBIAN_DIALOG_PACKAGE_RECOMMENDS "cups")
set(CPACK_DEBIAN_DIALOG_PACKAGE_CONTROL_EXTRA "${debian}/postinst;${debian}/prerm")
set(CPACK_DEBIAN_DIALOG_DESCRIPTION
"covers and inserted sheets on Zephrel printers: print dialog
Prints documents with a front cover, or a front and a back cover, on paper of
their own, and with sheets of another paper inserted between their pages, on
PostScript printers of the Zephrel family.

This package gives the print dialogs of all GTK 3 programs a tab for that, once
it is switched on by \"publishing extension enable --system\". It also has a
program that opens such a dialog for a document.")

# The help book is in publishing-print-dialog.
if(PUBLISHING_GTK4)
  set(CPACK_DEBIAN_GTK4_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_GTK4_PACKAGE_DEPENDS "publishing ${same}")
  set(CPACK_DEBIAN_GTK4_PACKAGE_RECOMMENDS "cups, publishing-print-dialog ${same}")
  set(modules "${CMAKE_INSTALL_PREFIX}/${PUBLISHING_GTK4_PRINTBACKENDS_DIR}")
  pkg_get_variable(gio_querymodules gio-2.0 gio_querymodules)
  foreach(script postinst prerm postrm)
    configure_file("${debian}/gtk4/${script}.in" gtk4/${script} @ONLY
                   FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                    WORLD_READ WORLD_EXECUTE)
    list(APPEND CPACK_DEBIAN_GTK4_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_BINARY_DIR}/gtk4/${script}")
  endforeach()
  set(CPACK_DEBIAN_GTK4_DESCRIPTION
"covers and inserted sheets on Zephrel printers: GTK 4 print dialogs
Prints documents with a front cover, or a front and a back cover, on paper of
their own, and with sheets of another paper inserted between their pages, on
PostScript printers of the Zephrel family.

This package gives the print dialogs of all GTK 4 programs a tab for that, once
it is switched on by \"publishing extension enable --system\".")
endif()
foreach(major IN LISTS PUBLISHING_QT)
  set(CPACK_DEBIAN_QT${major}_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_QT${major}_PACKAGE_DEPENDS "publishing ${same}")
  set(CPACK_DEBIAN_QT${major}_PACKAGE_RECOMMENDS "cups, publishing-print-dialog ${same}")
  set(CPACK_DEBIAN_QT${major}_PACKAGE_CONTROL_EXTRA "${debian}/postinst;${debian}/qt/prerm")
  set(CPACK_DEBIAN_QT${major}_DESCRIPTION
"covers and inserted sheets on Zephrel printers: Qt ${major} print dialogs
Prints documents with a front cover, or a front and a back cover, on paper of
their own, and with sheets of another paper inserted between their pages, on
PostScript printers of the Zephrel family.

This package gives the print dialogs of all Qt ${major} programs a tab for that,
once it is switched on by \"publishing extension enable --system\" and the user
has logged in again.")
endforeach()

set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOCUMENTATION_DESCRIPTION
"covers and inserted sheets on Zephrel printers: documentation
Documents for administrators and developers: how the print dialog's extension
gets into programs, what is trusted and what is not, how bad input is met, and
how it is made.")
include(CPack)
