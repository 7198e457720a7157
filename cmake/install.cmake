# SPDX-License-Identifier: MIT
# Installation, in two components:
#   runtime      the shared library (libqxqrscript.so.1*), the qxqr tool with
#                its manual page and shell completion, the licence and the
#                documents
#   development  the public headers, the library's link name (or the static
#                library), a CMake package (qxqrscript::qxqrscript) with its
#                version file, and a pkg-config file
# `cmake --install BUILD --component runtime` installs one of them.
include(CMakePackageConfigHelpers)

install(TARGETS qxqrscript EXPORT qxqrscriptTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    COMPONENT development)
install(EXPORT qxqrscriptTargets NAMESPACE qxqrscript::
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qxqrscript COMPONENT development)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/qxqrscriptConfig.cmake.in
    ${PROJECT_BINARY_DIR}/qxqrscriptConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qxqrscript)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/qxqrscriptConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/qxqrscriptConfig.cmake
              ${PROJECT_BINARY_DIR}/qxqrscriptConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qxqrscript COMPONENT development)

include(${CMAKE_CURRENT_LIST_DIR}/PkgConfigFile.cmake)

if(TARGET qxqr)
    include(${CMAKE_CURRENT_LIST_DIR}/ToolRunPath.cmake)
    install(TARGETS qxqr RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
    if(TARGET qxqr_manual)
        install(FILES ${PROJECT_BINARY_DIR}/qxqr.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT runtime)
    endif()
    install(FILES ${PROJECT_SOURCE_DIR}/tools/completion/qxqr.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME qxqr COMPONENT runtime)
endif()

# Inside another project, CMAKE_INSTALL_DOCDIR is that project's folder,
# where these files would replace its own.
set(QXQR_DOCDIR ${CMAKE_INSTALL_DOCDIR})
if(NOT QXQR_TOP_LEVEL)
    set(QXQR_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/qxqrscript)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/README.md
              ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md
    DESTINATION ${QXQR_DOCDIR} COMPONENT runtime)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${QXQR_DOCDIR}
    COMPONENT runtime FILES_MATCHING PATTERN "*.md")
# For host authors, whose document points to it.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/host DESTINATION ${QXQR_DOCDIR}/examples COMPONENT development)

# What the rules above install, and nothing else (make install builds it).
add_custom_target(installed_files)
add_dependencies(installed_files qxqrscript)
if(TARGET qxqr)
    add_dependencies(installed_files qxqr)
endif()
if(TARGET qxqr_manual)
    add_dependencies(installed_files qxqr_manual)
endif()
