# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# Packaged libraries lie where the loader looks: a search path of their own would only be in the way.
file(GLOB_RECURSE files ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/bin/*
  ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.so.*)
foreach(file ${files})
  if(NOT IS_SYMLINK ${file})
    file(RPATH_REMOVE FILE ${file})
  endif()
endforeach()
