# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# Compiles translations/NAME_de.ts and translations/NAME_en.ts (plural forms) of this folder into
# `target`, as resources in /NAME, from where zqtranslations::load(NAME, ":/NAME") takes them.
function(zq_add_translations target name)
  set(directory ${CMAKE_CURRENT_BINARY_DIR}/translations)
  set(sources)
  set(entries)
  foreach(language de en)
    set(source ${CMAKE_CURRENT_SOURCE_DIR}/translations/${name}_${language}.ts)
    set_source_files_properties(${source} PROPERTIES OUTPUT_LOCATION ${directory})
    list(APPEND sources ${source})
    string(APPEND entries
      "<file alias=\"${name}_${language}.qm\">${directory}/${name}_${language}.qm</file>")
  endforeach()
  configure_file(${PROJECT_SOURCE_DIR}/cmake/translations.qrc.in
    ${CMAKE_CURRENT_BINARY_DIR}/${name}.qrc @ONLY)
  # An embedding project may have switched off the commands that name no version.
  if(ZQ_QT_VERSION EQUAL 5)
    qt5_add_translation(qm_files ${sources})
    qt5_add_resources(resources ${CMAKE_CURRENT_BINARY_DIR}/${name}.qrc)
  else()
    qt6_add_translation(qm_files ${sources})
    qt6_add_resources(resources ${CMAKE_CURRENT_BINARY_DIR}/${name}.qrc)
  endif()
  set_source_files_properties(${resources} PROPERTIES COMPILE_OPTIONS -w)
  target_sources(${target} PRIVATE ${resources})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/translations)
endfunction()
