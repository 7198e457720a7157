# SPDX-License-Identifier: MIT
# cmake -DHELP2MAN=... -DQXQR=... -DSECTIONS=... -DCOMMANDS=... -DOUTPUT=... -P WriteManual.cmake
# Writes the manual page OUTPUT for the tool QXQR: help2man's page of
# `qxqr --help`, the sections of the file SECTIONS, and a COMMANDS section
# with the help of each command that `qxqr --help` lists, written to the
# file COMMANDS first.

# The help of one command, as a block that roff shows as it is.
function(command_help command result)
    execute_process(COMMAND ${QXQR} ${command} --help OUTPUT_VARIABLE help RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "qxqr ${command} --help failed")
    endif()
    # roff reads a backslash as an escape and a leading dot as a request.
    string(REPLACE "\\" "\\e" help "${help}")
    string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" help "${help}")
    set(${result} ".SS \"qxqr ${command}\"\n.nf\n${help}.fi\n" PARENT_SCOPE)
endfunction()

execute_process(COMMAND ${QXQR} --help OUTPUT_VARIABLE help RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "qxqr --help failed")
endif()
# The commands are the words that start the lines after "Subcommands:".
string(REGEX REPLACE ".*\nSubcommands:\n" "" listed "${help}")
string(REGEX MATCHALL "(^|\n)  [a-z]+" commands "${listed}")

set(text "[COMMANDS]\nEach command's own help (qxqr COMMAND --help):\n")
foreach(command ${commands})
    string(STRIP "${command}" command)
    command_help(${command} block)
    string(APPEND text "${block}")
endforeach()
file(WRITE ${COMMANDS} "${text}")

# The tool's version is the last word of the first line of `qxqr --version`;
# the lines after it (the library's) belong to no section of the page.
execute_process(COMMAND ${QXQR} --version OUTPUT_VARIABLE version RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "qxqr --version failed")
endif()
string(REGEX REPLACE "^qxqr ([^\n]*)\n.*" "\\1" version "${version}")

execute_process(COMMAND ${HELP2MAN} --no-info --no-discard-stderr --version-string ${version}
                        --name "check, query, walk, explain and lint rules scripts, and find what programs need"
                        --include ${SECTIONS} --include ${COMMANDS} --output ${OUTPUT} ${QXQR}
    RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "help2man failed")
endif()
