// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_RULES_RECORDINGHOSTSERVICES_HPP
#define QXQRSCRIPT_TESTS_RULES_RECORDINGHOSTSERVICES_HPP

#include <string>
#include <vector>

// A test executable built with RecordingHostServices.cpp replaces the
// library's file-system tests and directory enumeration by ones that touch
// no disk: each answers from the text it is asked about alone, and every
// call, with its arguments, is written to one log.
namespace RecordingHostServices {

std::vector<std::string>& log();

} // namespace RecordingHostServices

#endif
