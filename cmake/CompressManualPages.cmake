# SPDX-License-Identifier: Apache-2.0
# Manual pages in Debian packages are compressed. CPack runs this on what it is to pack.
file(GLOB_RECURSE pages "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.1" "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.8")
if(pages)
  execute_process(COMMAND gzip -9nf ${pages} COMMAND_ERROR_IS_FATAL ANY)
endif()
