// SPDX-License-Identifier: MIT
#ifndef QXQR_WHYJSON_HPP
#define QXQR_WHYJSON_HPP

#include "FileTraces.hpp"
#include "WhyVariables.hpp"

#include <nlohmann/json.hpp>

namespace qxqr {

// What `why --format json` gives for one file: the text output's tree as
// JSON (see docs/qxqr.md), with the variables that the text output names.
nlohmann::json whyJson(const FileTraces& traces, const WhyVariables& variables);

} // namespace qxqr

#endif
