// SPDX-License-Identifier: MIT
#include "CommandLine.hpp"

#include <CLI/CLI.hpp>

#include <sstream>

namespace qxqr {

OptionDeclaration& OptionDeclaration::typeName(const std::string& name) {
    option->type_name(name);
    return *this;
}

OptionDeclaration& OptionDeclaration::check(ValueCheck check) {
    option->check(std::move(check));
    return *this;
}

OptionDeclaration& OptionDeclaration::oneOf(const std::vector<std::string>& names) {
    option->check(CLI::IsMember(names));
    return *this;
}

OptionDeclaration& OptionDeclaration::required(bool required) {
    option->required(required);
    return *this;
}

OptionDeclaration& OptionDeclaration::oneValueEach() {
    option->allow_extra_args(false);
    return *this;
}

bool OptionDeclaration::given() const {
    return option && option->count() > 0;
}

Subcommand::Subcommand(CommandLine& tool, const std::string& name, const std::string& description)
    : app(tool.app->add_subcommand(name, description)) {}

OptionDeclaration Subcommand::option(const std::string& names, std::string& value, const std::string& help) {
    return OptionDeclaration(app->add_option(names, value, help));
}

OptionDeclaration Subcommand::option(const std::string& names, std::vector<std::string>& values,
                                     const std::string& help) {
    return OptionDeclaration(app->add_option(names, values, help));
}

OptionDeclaration Subcommand::option(const std::string& names, std::size_t& value, const std::string& help) {
    return OptionDeclaration(app->add_option(names, value, help));
}

void Subcommand::flag(const std::string& names, bool& value, const std::string& help) {
    app->add_flag(names, value, help);
}

void Subcommand::footer(const std::string& text) {
    app->footer(text);
}

const std::string& Subcommand::name() const {
    return app->get_name();
}

bool Subcommand::selected() const {
    return app->parsed();
}

namespace {

// "qxqr query" for a command line that chose query, "qxqr" otherwise.
std::string commandPath(const CLI::App& qxqr) {
    std::vector<CLI::App*> chosen = qxqr.get_subcommands();
    return chosen.empty() ? qxqr.get_name() : qxqr.get_name() + " " + chosen.front()->get_name();
}

std::string usageMessageOf(const CLI::App& qxqr, const std::string& problem) {
    return "qxqr: " + problem + "\nRun '" + commandPath(qxqr) + " --help' for more information.\n";
}

} // namespace

CommandLine::CommandLine(const std::string& description, const std::string& version)
    : app(std::make_unique<CLI::App>(description, "qxqr")) {
    app->require_subcommand(1);
    // "--version" stands alone: "qxqr --version extra" is bad usage.
    app->set_version_flag(
        "--version",
        [this, version] {
            if (!app->remaining().empty())
                throw CLI::ExtrasError(app->remaining());
            return version;
        },
        "Print the tool's version, the library's and its build date, and exit");
    app->failure_message(
        [](const CLI::App* qxqr, const CLI::Error& error) { return usageMessageOf(*qxqr, error.what()); });
}

CommandLine::~CommandLine() = default;

std::optional<Result> CommandLine::parse(const std::vector<const char*>& words) {
    try {
        app->parse(static_cast<int>(words.size()), words.data());
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        std::ostringstream out, err;
        const int status = app->exit(error, out, err);
        return Result{out.str(), err.str(), status == 0 ? 0 : usageStatus};
    }
}

std::string CommandLine::usageMessage(const std::string& problem) const {
    return usageMessageOf(*app, problem);
}

} // namespace qxqr
