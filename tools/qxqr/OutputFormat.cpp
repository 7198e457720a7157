// SPDX-License-Identifier: MIT
#include "OutputFormat.hpp"

#include <CLI/CLI.hpp>

namespace qxqr {

namespace {

// "text (the default), json or dot".
std::string described(const std::vector<std::string>& names)
{
    std::string text = names.front() + " (the default)";
    for (std::size_t index = 1; index < names.size(); ++index)
        text += (index + 1 == names.size() ? " or " : ", ") + names[index];
    return text;
}

} // namespace

void OutputFormat::addOption(CLI::App& command, const std::vector<std::string>& names)
{
    command.add_option("--format", name, described(names))->type_name("FORMAT")->check(CLI::IsMember(names));
}

std::string jsonText(const nlohmann::json& value)
{
    return value.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string jsonDocument(const nlohmann::json& document)
{
    return jsonText(document) + "\n";
}

} // namespace qxqr
