// SPDX-License-Identifier: MIT
#ifndef QXQR_ARGUMENTS_HPP
#define QXQR_ARGUMENTS_HPP

#include <string>
#include <vector>

namespace qxqr {

// The command line cut at its first "--". The argument parser sees only the
// words before it; the words after it are the files of `query` and the start
// files of `walk`. (Given "--", the parser would hand both lists to the first
// list of positionals, so the two lists are told apart here.)
struct Arguments {
    std::vector<const char*> parsed;   // argv[0] and every word before "--"
    std::vector<std::string> operands; // every word after "--"
    bool separated = false;            // whether "--" was given
};

Arguments splitAtSeparator(int argc, const char* const* argv);

} // namespace qxqr

#endif
