# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# `cpack -G DEB` in the build directory: one package for each component. What only packages hold is
# left out of an ordinary installation. With Qt 6 there are packages of the libraries alone, beside
# which those with Qt 5 can be installed.
set(ZQ_MAINTAINER "The ZQFeatureBrowser maintainers <maintainers@zqfeaturebrowser.invalid>"
  CACHE STRING "Name and address of who makes the packages")
set(runtime_package libzqfeaturebrowser${PROJECT_VERSION_MAJOR})
set(dev_package libzqfeaturebrowser-dev)
set(rules 60-zqfeaturebrowser.rules)
set(for_qt "")
set(qt_dev_package qtbase5-dev)
set(qt_words_package qttranslations5-l10n)
set(components runtime dev doc)
if(ZQ_BUILD_VIEWER)
  list(APPEND components viewer)
endif()
if(ZQ_QT_VERSION EQUAL 6)
  set(runtime_package libzqfeaturebrowserqt6-${PROJECT_VERSION_MAJOR})
  set(dev_package libzqfeaturebrowserqt6-dev)
  set(rules 60-zqfeaturebrowserqt6.rules)
  set(for_qt " for Qt 6")
  set(qt_dev_package qt6-base-dev)
  set(qt_words_package qt6-translations-l10n)
  set(components runtime dev)
endif()
set(viewer_package zqviewer)
set(doc_package libzqfeaturebrowser-doc)
set(this_version "(= ${PROJECT_VERSION}-1)")

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(made ${PROJECT_BINARY_DIR}/packaging)
function(zq_compress from to)
  execute_process(COMMAND gzip -9nc ${from} OUTPUT_FILE ${to} RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "gzip ${from}: ${failed}")
  endif()
endfunction()

# Debian's form of the licence and of the changelog.
file(READ ${PROJECT_SOURCE_DIR}/LICENSE license)
string(REGEX REPLACE "^.*authors\n\n" "" license "${license}")
configure_file(${packaging}/copyright.in ${made}/copyright @ONLY)
string(TIMESTAMP ZQ_RELEASE_DATE "%Y-%m-%d" UTC)
string(TIMESTAMP date "%a, %d %b %Y 00:00:00 +0000" UTC)
file(WRITE ${made}/changelog "zqfeaturebrowser (${PROJECT_VERSION}-1) unstable; urgency=medium

  * Release ${PROJECT_VERSION}; see CHANGELOG.md in ${doc_package}.

 -- ${ZQ_MAINTAINER}  ${date}
")
zq_compress(${made}/changelog ${made}/changelog.Debian.gz)
foreach(component ${components})
  install(FILES ${made}/copyright ${made}/changelog.Debian.gz
    ${PROJECT_SOURCE_DIR}/NOTICE COMPONENT ${component}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${${component}_package} EXCLUDE_FROM_ALL)
endforeach()
install(FILES ${packaging}/60-zqfeaturebrowser.rules COMPONENT runtime EXCLUDE_FROM_ALL
  DESTINATION lib/udev/rules.d RENAME ${rules})

# The API reference is in it when the target `docs` was built before.
set(doc_dir ${CMAKE_INSTALL_DATADIR}/doc/${doc_package})
install(DIRECTORY ${PROJECT_BINARY_DIR}/docs/html COMPONENT doc EXCLUDE_FROM_ALL OPTIONAL
  DESTINATION ${doc_dir} PATTERN "*.md5" EXCLUDE PATTERN "*.map" EXCLUDE)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ ${PROJECT_SOURCE_DIR}/examples COMPONENT doc EXCLUDE_FROM_ALL
  DESTINATION ${doc_dir} PATTERN "*.in" EXCLUDE PATTERN screenshots.cpp EXCLUDE)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md COMPONENT doc
  EXCLUDE_FROM_ALL DESTINATION ${doc_dir})

set(CPACK_PACKAGE_NAME zqfeaturebrowser)
set(CPACK_PACKAGE_CONTACT ${ZQ_MAINTAINER})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/ZQRemoveRpath.cmake)
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

# New libraries are found from the next start of a program on.
file(WRITE ${made}/triggers "activate-noawait ldconfig\n")
set(about "The browser is a Qt widget with the tree of everything that a\ncamera can do, over GigE Vision "
  "and USB3 Vision cameras and\nover simulated ones.")
string(CONCAT about ${about})
function(zq_package component section summary description)
  string(TOUPPER ${component} upper)
  foreach(pair PACKAGE_NAME=${${component}_package} PACKAGE_SECTION=${section} ${ARGN})
    string(REGEX MATCH "^([A-Z_]+)=(.*)$" pair "${pair}")
    set(CPACK_DEBIAN_${upper}_${CMAKE_MATCH_1} "${CMAKE_MATCH_2}" PARENT_SCOPE)
  endforeach()
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
endfunction()
zq_package(runtime libs "Feature browser for GenICam cameras (libraries${for_qt})"
  "These are the libraries.\n.\n${about}" PACKAGE_SHLIBDEPS=ON
  PACKAGE_CONTROL_EXTRA=${made}/triggers
  "PACKAGE_RECOMMENDS=locales" "PACKAGE_SUGGESTS=${qt_words_package}")
zq_package(dev libdevel "Feature browser for GenICam cameras (development files${for_qt})"
  "These are headers, CMake package and pkg-config files.\n.\n${about}"
  "PACKAGE_DEPENDS=${runtime_package} ${this_version}, ${qt_dev_package}"
  "PACKAGE_SUGGESTS=${doc_package}")
zq_package(viewer science "Viewer for GenICam cameras: features, images, settings"
  "Shows and changes the features of industrial cameras, shows their\nimages, and reads and writes settings from scripts."
  PACKAGE_SHLIBDEPS=ON
  "PACKAGE_DEPENDS=${runtime_package} ${this_version}"
  "PACKAGE_RECOMMENDS=qt5-image-formats-plugins")
zq_package(doc doc "Feature browser for GenICam cameras (documentation)"
  "These are the API reference, pages on how to use it, and examples.\n.\n${about}"
  PACKAGE_ARCHITECTURE=all)
include(CPack)
