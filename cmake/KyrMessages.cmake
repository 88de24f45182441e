# The translated texts: messages/NAME_LANGUAGE.ts becomes NAME_LANGUAGE.qm in the folder "messages"
# beside "bin", of the build and of an installation, where the translator looks for it.
get_target_property(qmake Qt${KYR_QT}::qmake IMPORTED_LOCATION)
cmake_path(GET qmake PARENT_PATH qt_tools)
# Qt's own place first: what stands in PATH may only be a switch to a Qt that is not there. A build
# for a foreign system takes the tool of this one.
find_program(KYR_LRELEASE lrelease PATHS "${qt_tools}" /usr/lib/qt${KYR_QT}/bin
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
find_program(KYR_LRELEASE NAMES lrelease-qt${KYR_QT} lrelease NO_CMAKE_FIND_ROOT_PATH)
if(NOT KYR_LRELEASE)
  message(FATAL_ERROR "lrelease of Qt Linguist is missing; Debian has it in qttools5-dev-tools and, "
    "for Qt 6, in qt6-l10n-tools")
endif()
mark_as_advanced(KYR_LRELEASE)

# Qt's own texts, as those of its dialogues and of wrong arguments, out of the Qt of this machine.
# Debian has them in qttranslations5-l10n and qt6-translations-l10n; without them they stay English.
find_path(KYR_QT_MESSAGES qtbase_de.qm PATHS "${qt_tools}/../translations" /usr/share/qt${KYR_QT}/translations
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
mark_as_advanced(KYR_QT_MESSAGES)
if(NOT KYR_QT_MESSAGES)
  message(STATUS "Qt's own texts stay English: the catalogues of Qt ${KYR_QT} are missing")
endif()

# kyr_qt_messages(variable): copies the catalogues of Qt's own texts beside the others, under the
# names that the translator looks for, and appends their files to the variable.
function(kyr_qt_messages variable)
  set(catalogues ${${variable}})
  foreach(pair IN ITEMS de:de fr:fr jp:ja cn:zh_CN pt:pt_BR)
    string(REGEX MATCH "^(.*):(.*)$" whole "${pair}")
    set(source "${KYR_QT_MESSAGES}/qtbase_${CMAKE_MATCH_2}.qm")
    if(EXISTS "${source}")
      set(catalogue "${PROJECT_BINARY_DIR}/messages/qt_${CMAKE_MATCH_1}.qm")
      configure_file("${source}" "${catalogue}" COPYONLY)
      list(APPEND catalogues "${catalogue}")
    endif()
  endforeach()
  set(${variable} "${catalogues}" PARENT_SCOPE)
endfunction()

# kyr_messages(target name...): builds the catalogues of these names in all languages, together
# with the library or program that they belong to, and sets KYR_CATALOGUES to their files.
function(kyr_messages target)
  set(catalogues "")
  foreach(name IN LISTS ARGN)
    foreach(language en de fr jp cn pt)
      set(source "${PROJECT_SOURCE_DIR}/messages/${name}_${language}.ts")
      set(catalogue "${PROJECT_BINARY_DIR}/messages/${name}_${language}.qm")
      add_custom_command(OUTPUT "${catalogue}"
        COMMAND "${CMAKE_COMMAND}" -E make_directory "${PROJECT_BINARY_DIR}/messages"
        COMMAND "${KYR_LRELEASE}" -silent -nounfinished "${source}" -qm "${catalogue}"
        DEPENDS "${source}" COMMENT "Compiling the texts ${name}_${language}" VERBATIM)
      list(APPEND catalogues "${catalogue}")
    endforeach()
  endforeach()
  add_custom_target(${target}_messages DEPENDS ${catalogues})
  add_dependencies(${target} ${target}_messages)
  set(KYR_CATALOGUES "${catalogues}" PARENT_SCOPE)
endfunction()
