# SPDX-License-Identifier: MIT
# The pkg-config file names the prefix that the files are installed to, which
# `cmake --install --prefix` can choose after configuring: it is written at
# installation time. A relative libdir or includedir is given below
# ${prefix}, an absolute one as it is, so that pkg-config recognises the
# system folders (/usr/include) and leaves them out of the flags it prints.
foreach(dir LIBDIR INCLUDEDIR)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${dir}}")
        set(QXQR_PC_${dir} "${CMAKE_INSTALL_${dir}}")
    else()
        set(QXQR_PC_${dir} "\${prefix}/${CMAKE_INSTALL_${dir}}")
    endif()
endforeach()
# Left for the second step, at installation time.
set(QXQR_PC_PREFIX "@CMAKE_INSTALL_PREFIX@")
configure_file(${CMAKE_CURRENT_LIST_DIR}/qxqrscript.pc.in ${PROJECT_BINARY_DIR}/qxqrscript.pc.in @ONLY)

install(CODE "configure_file(\"${PROJECT_BINARY_DIR}/qxqrscript.pc.in\"
                             \"${PROJECT_BINARY_DIR}/pkgconfig/qxqrscript.pc\" @ONLY)"
    COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/pkgconfig/qxqrscript.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
