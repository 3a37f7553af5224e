# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# What depends on ZQ_QT_VERSION: the packages of Qt, and the names of what is made for it.
if(NOT ZQ_QT_VERSION MATCHES "^[56]$")
  message(FATAL_ERROR "ZQ_QT_VERSION is '${ZQ_QT_VERSION}': ZQFeatureBrowser is built with Qt 5 or "
    "with Qt 6.")
endif()
set(zq_qt Qt${ZQ_QT_VERSION})
# So that both can be installed side by side, nothing of the two has a path in common. The camera
# side knows no Qt, but is named like the rest: the two builds are then independent of each other.
if(ZQ_QT_VERSION EQUAL 5)
  set(zq_qt_minimum 5.15)
  set(zq_other_version 6)
  set(zq_suffix "")
  set(zq_other_suffix Qt6)
  set(zq_include_dir ${CMAKE_INSTALL_INCLUDEDIR})
else()
  set(zq_qt_minimum 6.4)
  set(zq_other_version 5)
  set(zq_suffix Qt6)
  set(zq_other_suffix "")
  set(zq_include_dir ${CMAKE_INSTALL_INCLUDEDIR}/ZQFeatureBrowserQt6)
endif()
set(zq_package ZQFeatureBrowser${zq_suffix})
set(zq_other_package ZQFeatureBrowser${zq_other_suffix})
if(TARGET Qt${zq_other_version}::Core AND NOT TARGET ${zq_qt}::Core)
  message(FATAL_ERROR "This project has found Qt ${zq_other_version}, and ZQFeatureBrowser would be "
    "built with Qt ${ZQ_QT_VERSION}: set ZQ_QT_VERSION to ${zq_other_version}.")
endif()
# For AUTOMOC where an embedding project has found both.
set(QT_DEFAULT_MAJOR_VERSION ${ZQ_QT_VERSION})

# Links Qt behind the library's interface. Users have to have the same one, which CMake sees as with
# Qt's own libraries, and which the library sees when it runs.
function(zq_link_qt target)
  target_link_libraries(${target} PRIVATE ${zq_qt}::Widgets ${CMAKE_DL_LIBS})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/qt)
  set_property(TARGET ${target} PROPERTY INTERFACE_QT_MAJOR_VERSION ${ZQ_QT_VERSION})
  set_property(TARGET ${target} APPEND PROPERTY COMPATIBLE_INTERFACE_STRING QT_MAJOR_VERSION)
endfunction()
