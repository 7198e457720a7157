// SPDX-License-Identifier: MIT
#ifndef QXQR_COMMANDLINE_HPP
#define QXQR_COMMANDLINE_HPP

#include "Command.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// The argument parser's header is large, and costs every source file that
// includes it many seconds to compile: the commands declare their options
// through the classes below, and CommandLine.cpp alone speaks to it.
namespace CLI {
class App;
class Option;
} // namespace CLI

namespace qxqr {

// The problem with an option's value, or "" when the value is good.
using ValueCheck = std::function<std::string(const std::string& text)>;

// One option or operand of a command, refined where it is declared.
class OptionDeclaration {
public:
    // One not declared (yet) is never given.
    OptionDeclaration() = default;
    explicit OptionDeclaration(CLI::Option* option) : option(option) {}
    // The placeholder of the value in the help ("DIR"); "" for none.
    OptionDeclaration& typeName(const std::string& name);
    OptionDeclaration& check(ValueCheck check);
    // The value must be one of `names`.
    OptionDeclaration& oneOf(const std::vector<std::string>& names);
    OptionDeclaration& required(bool required = true);
    // One value for each time the option is given: "--set a=1 script" leaves
    // "script" to the operands.
    OptionDeclaration& oneValueEach();
    // Whether the command line gave it: given empty is still given.
    bool given() const;

private:
    CLI::Option* option = nullptr;
};

class CommandLine;

// One command of the tool, with its options and operands.
class Subcommand {
public:
    Subcommand(CommandLine& tool, const std::string& name, const std::string& description);

    OptionDeclaration option(const std::string& names, std::string& value, const std::string& help);
    OptionDeclaration option(const std::string& names, std::vector<std::string>& values, const std::string& help);
    OptionDeclaration option(const std::string& names, std::size_t& value, const std::string& help);
    void flag(const std::string& names, bool& value, const std::string& help);
    // Text shown at the end of the command's help.
    void footer(const std::string& text);

    const std::string& name() const;
    // Whether the command line chose this command.
    bool selected() const;

private:
    CLI::App* app;
};

// The tool's command line: the commands, then the parse of the words.
class CommandLine {
public:
    // `version` is what --version prints.
    CommandLine(const std::string& description, const std::string& version);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    // Parses `words` (the program's name first). A request for help or the
    // version, or a command line the parser refuses, gives what is to be
    // written instead of running a command.
    std::optional<Result> parse(const std::vector<const char*>& words);
    // A usage problem and where to find help: "qxqr: PROBLEM\nRun 'qxqr
    // query --help' ...", naming the command the line chose, if any.
    std::string usageMessage(const std::string& problem) const;

private:
    friend class Subcommand;
    std::unique_ptr<CLI::App> app;
};

// The status of bad usage.
inline constexpr int usageStatus = 2;

} // namespace qxqr

#endif
