# What "cmake --install" leaves behind: the library with its public headers, the tool kyr, the
# translated texts, the documents with the examples, and two descriptions of the library: a CMake
# package and one for pkg-config. All of it can be moved to another folder as a whole.
include(CMakePackageConfigHelpers)

set(KYR_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/${KYR_PACKAGE}")
set(KYR_INSTALL_PKGCONFIGDIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
# Of the places in which the translator looks, that which the system wants.
if(WIN32)
  set(KYR_INSTALL_MESSAGESDIR messages)
else()
  set(KYR_INSTALL_MESSAGESDIR "share/${KYR_FOLDER}/messages")
endif()

install(TARGETS Kyr EXPORT KyrTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
if(WIN32)
  kyr_split_symbols(Kyr "${CMAKE_INSTALL_BINDIR}")
else()
  kyr_split_symbols(Kyr "${CMAKE_INSTALL_LIBDIR}")
endif()
include(KyrDebuggers)
install(EXPORT KyrTargets NAMESPACE Kyr:: DESTINATION "${KYR_INSTALL_CMAKEDIR}")

configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/KyrConfig.cmake.in" "${PROJECT_BINARY_DIR}/${KYR_PACKAGE}Config.cmake"
  INSTALL_DESTINATION "${KYR_INSTALL_CMAKEDIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KyrConfigVersionOfCode.cmake"
  COMPATIBILITY SameMajorVersion)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KyrConfigVersionOfPackage.cmake"
  VERSION "${PROJECT_VERSION}.${KYR_PACKAGE_RELEASE}" COMPATIBILITY SameMajorVersion)
configure_file("${CMAKE_CURRENT_LIST_DIR}/KyrConfigVersion.cmake.in"
  "${PROJECT_BINARY_DIR}/${KYR_PACKAGE}ConfigVersion.cmake" COPYONLY)
install(FILES
  "${PROJECT_BINARY_DIR}/${KYR_PACKAGE}Config.cmake"
  "${PROJECT_BINARY_DIR}/${KYR_PACKAGE}ConfigVersion.cmake"
  "${PROJECT_BINARY_DIR}/KyrConfigVersionOfCode.cmake"
  "${PROJECT_BINARY_DIR}/KyrConfigVersionOfPackage.cmake"
  DESTINATION "${KYR_INSTALL_CMAKEDIR}")

# Applications for a foreign system are built as the library was.
if(CMAKE_TOOLCHAIN_FILE)
  cmake_path(GET CMAKE_TOOLCHAIN_FILE FILENAME KYR_TOOLCHAIN)
  cmake_path(GET CMAKE_TOOLCHAIN_FILE PARENT_PATH toolchains)
  file(RELATIVE_PATH KYR_CMAKEDIR_TO_PREFIX "/${KYR_INSTALL_CMAKEDIR}" "/")
  configure_file("${CMAKE_CURRENT_LIST_DIR}/toolchain-of-package.cmake.in"
    "${PROJECT_BINARY_DIR}/toolchain.cmake" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/toolchain.cmake" DESTINATION "${KYR_INSTALL_CMAKEDIR}")
  install(DIRECTORY "${toolchains}/" DESTINATION "${KYR_INSTALL_CMAKEDIR}/toolchains"
    FILES_MATCHING PATTERN "*.cmake")
endif()

# The way from the .pc file back to the root of the installation.
file(RELATIVE_PATH KYR_PC_TO_PREFIX "/${KYR_INSTALL_PKGCONFIGDIR}" "/")
set(KYR_PC_DEFINITION "")
if(KYR_QT_DEFINITION)
  set(KYR_PC_DEFINITION " -D${KYR_QT_DEFINITION}")
endif()
configure_file("${CMAKE_CURRENT_LIST_DIR}/kyr.pc.in"
  "${PROJECT_BINARY_DIR}/${KYR_PKGCONFIG}.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/${KYR_PKGCONFIG}.pc"
  DESTINATION "${KYR_INSTALL_PKGCONFIGDIR}")

if(TARGET kyr_tool)
  file(RELATIVE_PATH KYR_BIN_TO_LIB "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
  set_target_properties(kyr_tool PROPERTIES INSTALL_RPATH "$ORIGIN/${KYR_BIN_TO_LIB}")
  install(TARGETS kyr_tool RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
  kyr_split_symbols(kyr_tool "${CMAKE_INSTALL_BINDIR}")
endif()

install(FILES ${KYR_CATALOGUES} DESTINATION "${KYR_INSTALL_MESSAGESDIR}")

# In the folders of the sources: headers and texts name each other by these.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
  FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "ARCHITECTURE.md" EXCLUDE
  PATTERN "reference" EXCLUDE)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
# Its links to headers lead to those that are installed.
file(RELATIVE_PATH KYR_DOCS_TO_INCLUDE
  "/${CMAKE_INSTALL_DOCDIR}/docs" "/${CMAKE_INSTALL_INCLUDEDIR}")
file(READ "${PROJECT_SOURCE_DIR}/docs/ARCHITECTURE.md" KYR_ARCHITECTURE)
string(REPLACE "](../src/base/" "](${KYR_DOCS_TO_INCLUDE}/" KYR_ARCHITECTURE "${KYR_ARCHITECTURE}")
file(WRITE "${PROJECT_BINARY_DIR}/docs/ARCHITECTURE.md" "${KYR_ARCHITECTURE}")
set_property(DIRECTORY APPEND PROPERTY
  CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/ARCHITECTURE.md")
install(FILES "${PROJECT_BINARY_DIR}/docs/ARCHITECTURE.md"
  DESTINATION "${CMAKE_INSTALL_DOCDIR}/docs")
install(FILES "${PROJECT_SOURCE_DIR}/README.md" "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
  "${PROJECT_SOURCE_DIR}/CONTRIBUTING.md" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

# The reference to browse, once "./dev docs" has made it.
set(KYR_REFERENCE "${PROJECT_SOURCE_DIR}/build/docs/html" CACHE PATH "Folder of the reference to browse")
install(DIRECTORY "${KYR_REFERENCE}" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT doc OPTIONAL)
