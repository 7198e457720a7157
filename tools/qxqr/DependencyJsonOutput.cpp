// SPDX-License-Identifier: MIT
#include "DependencyOutput.hpp"
#include "JsonName.hpp"
#include "MatchText.hpp"
#include "StreamedJsonDocument.hpp"

#include <string>
#include <vector>

namespace qxqr {

namespace {

nlohmann::json asJson(const Dependency& dependency) {
    nlohmann::json item = {{"caller", nullptr},
                           {"fate", fateName(dependency)},
                           {"file", nullptr},
                           {"link", nameOf(dependency.link)},
                           {"rule", MatchText::toJson(dependency.visit.rule)},
                           {"soname", nullptr}};
    putName(item, "start", dependency.start);
    putName(item, "name", dependency.name);
    if (dependency.found)
        putName(item, "file", dependency.visit.file);
    if (dependency.visit.caller)
        putName(item, "caller", *dependency.visit.caller);
    if (dependency.soname)
        putName(item, "soname", *dependency.soname);
    putNames(item, "includes", dependency.visit.includes);
    std::vector<std::string> callers;
    for (const Caller& caller : dependency.callers)
        callers.push_back(caller.file);
    putNames(item, "callers", callers);
    return item;
}

class JsonOutput : public DependencyOutput {
public:
    void met(const Dependency& dependency) override { document.append(asJson(dependency)); }

    void finish(const DependencyCounts& counts) override {
        document.finish({{"summary",
                          {{"kept", counts.of(Fate::kept)},
                           {"excluded", counts.of(Fate::excluded)},
                           {"pruned", counts.of(Fate::pruned)},
                           {"not found", counts.notFound()}}}});
    }

private:
    StreamedJsonDocument document{"dependencies"};
};

} // namespace

std::unique_ptr<DependencyOutput> jsonOutput() {
    return std::make_unique<JsonOutput>();
}

} // namespace qxqr
