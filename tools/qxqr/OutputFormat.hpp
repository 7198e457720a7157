#ifndef QXQR_OUTPUTFORMAT_HPP
#define QXQR_OUTPUTFORMAT_HPP

#include <nlohmann/json.hpp>

#include <string>

namespace CLI {
class App;
}

namespace qxqr {

// How `check`, `query` and `walk` write their answer: as text for people
// (the default), or, with --format json, as one JSON document for programs.
class OutputFormat {
public:
    void addOption(CLI::App& command);
    bool isJson() const { return name == "json"; }

private:
    std::string name = "text";
};

// The document as the tool writes it: indented by two spaces, keys in
// alphabetical order, ended by a line end.
std::string jsonDocument(const nlohmann::json& document);

} // namespace qxqr

#endif
