# SPDX-License-Identifier: MIT
# Debian packages of the two install components (make deb, or cpack -G DEB
# in a build folder): qxqrscript (the library and the tool) and
# libqxqrscript-dev. Their dependencies on the C and C++ libraries come from
# dpkg-shlibdeps.
set(CPACK_PACKAGE_NAME qxqrscript)
set(CPACK_PACKAGE_VENDOR "libqxqrscript developers")
set(CPACK_PACKAGE_CONTACT "libqxqrscript developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Parser and evaluator of quorel rules scripts")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME qxqrscript)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libqxqrscript-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
include(CPack)
