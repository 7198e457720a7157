// SPDX-License-Identifier: MIT
#include "JsonName.hpp"

#include "Base64.hpp"
#include "Utf8.hpp"

#include <algorithm>

namespace qxqr {

void putName(nlohmann::json& object, const std::string& key, const std::string& name) {
    object[key] = name;
    if (!isValidUtf8(name))
        object[key + "_base64"] = base64(name);
}

void putNames(nlohmann::json& object, const std::string& key, const std::vector<std::string>& names) {
    object[key] = names;
    if (std::all_of(names.begin(), names.end(), isValidUtf8))
        return;
    nlohmann::json exact = nlohmann::json::array();
    for (const std::string& name : names)
        exact.push_back(base64(name));
    object[key + "_base64"] = exact;
}

} // namespace qxqr
