# Installation: the shared library, the public headers, a CMake package
# (qxqrscript::qxqrscript) with its version file, and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS qxqrscript EXPORT qxqrscriptTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT qxqrscriptTargets NAMESPACE qxqrscript::
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qxqrscript)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/qxqrscriptConfig.cmake.in
    ${PROJECT_BINARY_DIR}/qxqrscriptConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qxqrscript)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/qxqrscriptConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/qxqrscriptConfig.cmake
              ${PROJECT_BINARY_DIR}/qxqrscriptConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/qxqrscript)

# The .pc file finds the prefix relative to itself, so that an installed
# tree may be moved.
file(RELATIVE_PATH QXQR_PC_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${PROJECT_SOURCE_DIR}/cmake/qxqrscript.pc.in ${PROJECT_BINARY_DIR}/qxqrscript.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qxqrscript.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
