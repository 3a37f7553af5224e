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

# Compiles translations/de.po of this folder for a `target` that knows no Qt, and tells its `source`
# where gettext finds them from the folder that the library lies in.
find_program(ZQ_MSGFMT msgfmt)
function(zq_add_catalogue target source name)
  string(TOLOWER ${name}${zq_suffix} domain)
  file(RELATIVE_PATH lib_to_locales ${CMAKE_INSTALL_FULL_LIBDIR} ${CMAKE_INSTALL_FULL_LOCALEDIR})
  set_property(SOURCE ${source} PROPERTY COMPILE_DEFINITIONS
    ZQ_TEXT_DOMAIN="${domain}" ZQ_LIBRARY_TO_LOCALES="${lib_to_locales}")
  if(NOT ZQ_MSGFMT)
    message(STATUS "msgfmt (gettext) was not found: ${name} speaks English only.")
    return()
  endif()
  set(words ${CMAKE_CURRENT_SOURCE_DIR}/translations/de.po)
  set(folder ${PROJECT_BINARY_DIR}/share/locale/de/LC_MESSAGES)
  add_custom_command(OUTPUT ${folder}/${domain}.mo
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    COMMAND ${ZQ_MSGFMT} --check -o ${folder}/${domain}.mo ${words}
    DEPENDS ${words} VERBATIM)
  add_custom_target(${name}_catalogue DEPENDS ${folder}/${domain}.mo)
  add_dependencies(${target} ${name}_catalogue)
  if(ZQ_INSTALL)
    install(FILES ${folder}/${domain}.mo COMPONENT runtime
      DESTINATION ${CMAKE_INSTALL_LOCALEDIR}/de/LC_MESSAGES)
  endif()
endfunction()
