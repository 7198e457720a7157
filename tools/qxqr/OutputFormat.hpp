// SPDX-License-Identifier: MIT
#ifndef QXQR_OUTPUTFORMAT_HPP
#define QXQR_OUTPUTFORMAT_HPP

#include "CommandLine.hpp"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace qxqr {

// How a command writes its answer: as text for people (the default), or,
// with --format json, as one JSON document for programs; `deps` knows two
// more forms, which it names itself.
class OutputFormat {
public:
    // `names` are the forms the command knows, text first.
    void addOption(Subcommand& command, const std::vector<std::string>& names = {"text", "json"});
    bool isJson() const { return name == "json"; }
    const std::string& chosen() const { return name; }

private:
    std::string name = "text";
};

// A value as the tool writes JSON: indented by two spaces, keys in
// alphabetical order, control characters escaped. Strings are bytes that
// need not be UTF-8 (file names, rule texts), and JSON must be: each
// invalid sequence is replaced by U+FFFD, as the Unicode standard
// recommends, so that any byte still gives a valid document.
std::string jsonText(const nlohmann::json& value);

// A whole document: jsonText ended by a line end.
std::string jsonDocument(const nlohmann::json& document);

} // namespace qxqr

#endif
