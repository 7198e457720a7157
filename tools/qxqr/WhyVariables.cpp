// SPDX-License-Identifier: MIT
#include "WhyVariables.hpp"

#include <qxqrscript/Rules.hpp>

#include <algorithm>
#include <utility>

namespace qxqr {

namespace {

using QuorelScript::Observe::QueryTrace;

std::optional<std::string> boundByQuery(const QueryTrace& trace, const std::string& name) {
    for (const auto& variable : trace.variables)
        if (variable.name == name)
            return variable.value;
    return std::nullopt;
}

} // namespace

WhyVariables::WhyVariables(const QuorelScript::Rules& rules, std::map<std::string, std::string> setValues)
    : setValues(std::move(setValues)) {
    const auto note = [](std::vector<Written>& written, const QuorelScript::Observe::Node& node, bool inCondition) {
        for (const std::string& name : node.variables) {
            auto known = std::find_if(written.begin(), written.end(),
                                      [&](const Written& variable) { return variable.name == name; });
            if (known == written.end())
                written.push_back({name, inCondition});
            else
                known->inCondition = known->inCondition || inCondition;
        }
    };
    for (const QuorelScript::Observe::Rule& rule : QuorelScript::Observe::rulesOf(rules)) {
        std::vector<Written>& ofKind = written[rule.kind];
        for (const auto& path : rule.paths)
            note(ofKind, path, false);
        for (const auto& node : rule.condition.nodes)
            note(ofKind, node, true);
    }
}

std::vector<ShownVariable> WhyVariables::shown(const QueryTrace& trace) const {
    std::vector<ShownVariable> shown;
    // The question's rules are of the kind it asks about; without any, no
    // rule refers to anything.
    if (trace.rules.empty())
        return shown;
    const auto ofKind = written.find(trace.rules.front().rule.kind);
    if (ofKind == written.end())
        return shown;
    for (const Written& variable : ofKind->second) {
        const auto set = setValues.find(variable.name);
        if (variable.inCondition && set != setValues.end())
            shown.push_back({variable.name, set->second});
        else
            shown.push_back({variable.name, boundByQuery(trace, variable.name)});
    }
    return shown;
}

} // namespace qxqr
