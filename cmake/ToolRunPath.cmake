# SPDX-License-Identifier: MIT
# The installed qxqr finds the shared library without LD_LIBRARY_PATH: where
# the library does not go to a folder that the dynamic linker searches anyway,
# the tool's run path names that folder, relative to the tool ($ORIGIN) when
# both lie under the prefix, so that another prefix chosen at installation
# time (cmake --install --prefix) still works. For a library folder that is a
# system one under the prefix configured, no run path is set, as
# distributions want; such a build installed elsewhere needs the library's
# folder made known to the dynamic linker (ld.so.conf, LD_LIBRARY_PATH).
# QXQR_TOOL_RUNPATH is the run path set, empty for none.
set(QXQR_TOOL_RUNPATH "")
set(QXQR_SYSTEM_LIBDIRS ${CMAKE_PLATFORM_IMPLICIT_LINK_DIRECTORIES} ${CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES})
list(FIND QXQR_SYSTEM_LIBDIRS "${CMAKE_INSTALL_FULL_LIBDIR}" QXQR_LIBDIR_IS_SYSTEM)
get_target_property(QXQR_BUILT_LIBRARY_TYPE qxqrscript TYPE)
if(QXQR_BUILT_LIBRARY_TYPE STREQUAL SHARED_LIBRARY AND QXQR_LIBDIR_IS_SYSTEM EQUAL -1)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_BINDIR}")
        set(QXQR_TOOL_RUNPATH "${CMAKE_INSTALL_FULL_LIBDIR}")
    else()
        file(RELATIVE_PATH QXQR_BINDIR_TO_LIBDIR ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
        set(QXQR_TOOL_RUNPATH "$ORIGIN/${QXQR_BINDIR_TO_LIBDIR}")
    endif()
    set_target_properties(qxqr PROPERTIES INSTALL_RPATH "${QXQR_TOOL_RUNPATH}")
endif()
