# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# cmake --install: headers, libraries, CMake package ZQFeatureBrowser and a pkg-config file each, and
# with Qt 5 the viewer. The components (runtime, dev, viewer, doc) are what packages are made of.
include(CMakePackageConfigHelpers)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/featurebrowser COMPONENT dev
  DESTINATION ${zq_include_dir} FILES_MATCHING PATTERN "*.h")
get_property(libraries GLOBAL PROPERTY ZQ_LIBRARIES)
install(TARGETS ZQContract ${libraries} EXPORT ${zq_package}Targets
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT dev)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/${zq_package})
install(EXPORT ${zq_package}Targets NAMESPACE ZQ:: DESTINATION ${package_dir} COMPONENT dev)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ZQFeatureBrowserConfig.cmake.in
  ${PROJECT_BINARY_DIR}/${zq_package}Config.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/${zq_package}ConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/${zq_package}Config.cmake
  ${PROJECT_BINARY_DIR}/${zq_package}ConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT dev)

# The .pc files name their prefix by where they lie, so that the installed tree can be moved.
get_property(definitions TARGET ZQContract PROPERTY INTERFACE_COMPILE_DEFINITIONS)
string(REGEX REPLACE "(^|;)([^;]+)" " -D\\2" pc_definitions "${definitions}")
file(RELATIVE_PATH pc_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
function(zq_install_pc library description requires)
  set(name ${library}${zq_suffix})
  set(cflags ${ARGN})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT dev)
endfunction()
zq_install_pc(ZQDeviceManager "Camera side: GenICam features over Aravis" "")
zq_install_pc(ZQFeatureBrowserWidget "Qt widget that shows and edits camera features" "")
zq_install_pc(ZQImageView "Qt widget that shows a camera's images" "${zq_qt}Widgets"
  " -DZQ_QT_VERSION=${ZQ_QT_VERSION}")
zq_install_pc(ZQFeatureBrowser "Ready-made browser for the features of a camera"
  "ZQDeviceManager${zq_suffix} ZQFeatureBrowserWidget${zq_suffix}")
