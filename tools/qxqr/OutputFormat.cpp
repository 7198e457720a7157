#include "OutputFormat.hpp"

#include <CLI/CLI.hpp>

namespace qxqr {

void OutputFormat::addOption(CLI::App& command)
{
    command.add_option("--format", name, "text (the default) or json")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"text", "json"}));
}

std::string jsonDocument(const nlohmann::json& document)
{
    return document.dump(2) + "\n";
}

} // namespace qxqr
