// SPDX-License-Identifier: MIT
#include "OutputFormat.hpp"

namespace qxqr {

namespace {

// "text (the default), json or dot".
std::string described(const std::vector<std::string>& names) {
    std::string text = names.front() + " (the default)";
    for (std::size_t index = 1; index < names.size(); ++index)
        text += (index + 1 == names.size() ? " or " : ", ") + names[index];
    return text;
}

} // namespace

void OutputFormat::addOption(Subcommand& command, const std::vector<std::string>& names) {
    command.option("--format", name, described(names)).typeName("FORMAT").oneOf(names);
}

std::string jsonText(const nlohmann::json& value) {
    return value.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string jsonDocument(const nlohmann::json& document) {
    return jsonText(document) + "\n";
}

} // namespace qxqr
