#include "OutputFormat.hpp"

#include <CLI/CLI.hpp>

namespace qxqr {

void OutputFormat::addOption(CLI::App& command)
{
    command.add_option("--format", name, "text (the default) or json")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"text", "json"}));
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
