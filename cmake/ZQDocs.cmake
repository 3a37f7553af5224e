# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# `docs`: the API reference in docs/html of the build, where doxygen is there. Not part of `all`.
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
find_program(ZQ_DOXYGEN doxygen)
if(ZQ_DOXYGEN AND zq_is_top_level)
  add_custom_target(docs COMMAND ${ZQ_DOXYGEN} ${PROJECT_BINARY_DIR}/Doxyfile VERBATIM
    COMMENT "API reference: ${PROJECT_BINARY_DIR}/docs/html/index.html")
endif()
