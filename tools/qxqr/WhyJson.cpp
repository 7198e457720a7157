// SPDX-License-Identifier: MIT
#include "WhyJson.hpp"

#include "ConditionDisplay.hpp"
#include "JsonName.hpp"

#include <vector>

namespace qxqr {

namespace {

namespace Observe = QuorelScript::Observe;

nlohmann::json nullOr(bool present, nlohmann::json value) {
    return present ? std::move(value) : nlohmann::json(nullptr);
}

nlohmann::json nodeJson(const Observe::Node& node, const Observe::NodeValue& value) {
    nlohmann::json item = {{"kind", nodeName(node)}, {"evaluated", value.evaluated}};
    if (node.kind == Observe::NodeKind::Path) {
        item["written"] = node.text;
        item["variables"] = node.variables;
        item["text"] = nullOr(value.evaluated, value.text);
        return item;
    }
    item["value"] = nullOr(value.evaluated, value.value);
    item["operands"] = nlohmann::json::array();
    if (node.kind == Observe::NodeKind::In)
        item["matched"] = nullOr(value.matchedElement != Observe::none, value.matchedElement);
    return item;
}

// The condition as nested objects, built from a work list: each node's
// object is made, then filled in by its operands, which the list holds as
// the place where their object goes.
nlohmann::json conditionJson(const Observe::Condition& condition, const std::vector<Observe::NodeValue>& values) {
    nlohmann::json root;
    std::vector<std::pair<std::size_t, nlohmann::json*>> pending{{0, &root}};
    while (!pending.empty()) {
        const auto [index, place] = pending.back();
        pending.pop_back();
        *place = nodeJson(condition.nodes[index], values[index]);
        if (!place->contains("operands"))
            continue;
        nlohmann::json& operands = (*place)["operands"];
        const std::vector<std::size_t> shown = shownOperands(condition, index);
        for (std::size_t i = 0; i < shown.size(); ++i)
            operands.push_back(nullptr);
        for (std::size_t i = 0; i < shown.size(); ++i)
            pending.emplace_back(shown[i], &operands[i]);
    }
    return root;
}

nlohmann::json ruleJson(const Observe::RuleTrace& rule, bool decides) {
    nlohmann::json item = {{"script", rule.rule.script.empty() && rule.rule.line == 0
                                          ? nlohmann::json(nullptr)
                                          : nlohmann::json(rule.rule.script)},
                           {"line", rule.rule.line == 0 ? nlohmann::json(nullptr) : nlohmann::json(rule.rule.line)},
                           {"text", rule.rule.text},
                           {"evaluated", rule.evaluated},
                           {"fired", rule.fired},
                           {"decides", decides},
                           {"condition", conditionJson(rule.rule.condition, rule.values)}};
    if (rule.rule.kind != Observe::RuleKind::Include)
        return item;
    nlohmann::json paths = nlohmann::json::array();
    for (std::size_t i = 0; i < rule.included.size(); ++i) {
        nlohmann::json path = {{"written", rule.rule.paths[i].text},
                               {"text", rule.included[i].text},
                               {"expansion", expansionName(rule.included[i].expansion)}};
        putNames(path, "files", rule.included[i].files);
        paths.push_back(std::move(path));
    }
    item["included"] = std::move(paths);
    return item;
}

// The variables as the text output names them, --set values included.
nlohmann::json referredJson(const std::vector<ShownVariable>& shown) {
    nlohmann::json referred = nlohmann::json::array();
    for (const ShownVariable& variable : shown)
        referred.push_back({{"name", variable.name},
                            {"value", nullOr(variable.value.has_value(), variable.value.value_or(std::string()))}});
    return referred;
}

nlohmann::json questionJson(const Observe::QueryTrace& trace, const WhyVariables& shown) {
    nlohmann::json variables = nlohmann::json::object();
    for (const auto& variable : trace.variables)
        variables[variable.name] = variable.value;
    nlohmann::json rules = nlohmann::json::array();
    for (std::size_t i = 0; i < trace.rules.size(); ++i)
        rules.push_back(ruleJson(trace.rules[i], i == trace.decidingRule));
    return {{"answer", trace.answer},
            {"variables", variables},
            {"referred", referredJson(shown.shown(trace))},
            {"rules", rules}};
}

} // namespace

nlohmann::json whyJson(const FileTraces& traces, const WhyVariables& variables) {
    nlohmann::json item = {{"excluded", questionJson(traces.excluded, variables)},
                           {"pruned", questionJson(traces.pruned, variables)},
                           {"includes", questionJson(traces.includes, variables)}};
    putName(item, "file", traces.file);
    return item;
}

} // namespace qxqr
