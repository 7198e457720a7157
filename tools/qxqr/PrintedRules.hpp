// SPDX-License-Identifier: MIT
#ifndef QXQR_PRINTEDRULES_HPP
#define QXQR_PRINTEDRULES_HPP

#include <nlohmann/json.hpp>

#include <string>

namespace qxqr {

// The printed form of a rule set, read back into its rules:
// {"exclude": [condition...], "prune": [condition...],
//  "include": [{"paths": [path...], "condition": condition}...]},
// each condition in its printed form. A rule set prints one rule a line,
// opened by a tab, and no printed condition holds a line break, so the
// lines can be taken apart again without knowing the rule set's classes.
nlohmann::json readPrintedRules(const std::string& printed);

} // namespace qxqr

#endif
