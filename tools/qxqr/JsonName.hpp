// SPDX-License-Identifier: MIT
#ifndef QXQR_JSONNAME_HPP
#define QXQR_JSONNAME_HPP

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace qxqr {

// A file's name as a member of a JSON object. JSON text is UTF-8 and a name
// need not be: the tool writes every string with its invalid bytes replaced
// (see jsonText), and where that changes a name, the member "<key>_base64"
// gives the name's exact bytes in base64, so that a program can still
// reach the file.
void putName(nlohmann::json& object, const std::string& key, const std::string& name);

// The same for a list of names: when any of them is changed,
// "<key>_base64" lists every one of them in base64, in the same order.
void putNames(nlohmann::json& object, const std::string& key, const std::vector<std::string>& names);

} // namespace qxqr

#endif
