// SPDX-License-Identifier: MIT
#include "expr/Bindings.hpp"
#include "observe/RuleView.hpp"
#include "observe/traceCondition.hpp"
#include "rules/ParsedRules.hpp"
#include "rules/expandIncludeRule.hpp"

#include <qxqrscript/observe.hpp>

namespace QuorelScript::Observe {

namespace {

// Keeps the files an include rule's path gives.
class FileList : public QuorelRules::Includer {
public:
    explicit FileList(std::vector<std::string>& files) : files_(files) {}
    bool include(const char* path) override {
        files_.emplace_back(path);
        return true;
    }

private:
    std::vector<std::string>& files_;
};

Expansion expansionOf(PathExpansion expansion) {
    switch (expansion) {
    case PathExpansion::directory:
        return Expansion::Directory;
    case PathExpansion::pattern:
        return Expansion::Pattern;
    default:
        return Expansion::Plain;
    }
}

std::vector<Variable> variablesOf(const Bindings& bindings) {
    std::vector<Variable> variables;
    for (const auto& [name, value] : bindings)
        variables.push_back({name.text(), value.text()});
    return variables;
}

// The variables of a query about `file` and `caller`, as the query binds
// them; the trace shows them.
Bindings queryBindings(QueryTrace& trace, const ParsedRules& rules, const char* file, const char* caller) {
    Bindings bindings(rules.configuredRoot().c_str(), file, caller, rules.configuredCwd().c_str());
    trace.variables = variablesOf(bindings);
    return bindings;
}

// The rule traced, its condition evaluated against `bindings`.
template <class Recorded>
RuleTrace tracedRule(const Recorded& rule, std::size_t position, const Bindings& bindings) {
    std::vector<NodeSource> sources;
    RuleTrace trace{ruleView(rule, position, &sources), true, false, {}, {}};
    trace.fired = traceCondition(trace.rule.condition, sources, bindings, trace.values);
    return trace;
}

// The rule as the query left it, unasked.
template <class Recorded>
RuleTrace unaskedRule(const Recorded& rule, std::size_t position) {
    RuleTrace trace{ruleView(rule, position), false, false, {}, {}};
    trace.values.resize(trace.rule.condition.nodes.size());
    return trace;
}

// The first rule whose condition holds decides, and becomes the last match.
template <class Recorded>
void traceFirstMatch(QueryTrace& trace, ParsedRules& rules, const std::vector<Recorded*>* list, const char* file,
                     const char* caller) {
    if (list == nullptr)
        return;
    const Bindings bindings = queryBindings(trace, rules, file, caller);
    for (std::size_t position = 0; position < list->size(); ++position) {
        const Recorded& rule = *(*list)[position];
        if (trace.answer) {
            trace.rules.push_back(unaskedRule(rule, position));
            continue;
        }
        trace.rules.push_back(tracedRule(rule, position, bindings));
        if (trace.rules.back().fired) {
            trace.answer = true;
            trace.decidingRule = position;
            rules.recordMatch(rule);
        }
    }
}

// Every include rule whose condition holds adds the files of its paths.
void traceIncludes(QueryTrace& trace, const ParsedRules& rules, const char* file) {
    const IncludeRuleList* list = rules.includeRuleList();
    if (list == nullptr)
        return;
    const Bindings bindings = queryBindings(trace, rules, file, nullptr);
    for (std::size_t position = 0; position < list->size(); ++position) {
        const IncludeRule& rule = *(*list)[position];
        RuleTrace traced = tracedRule(rule, position, bindings);
        if (traced.fired) {
            trace.answer = true;
            for (const Expression<Path>* path : *rule.paths) {
                IncludedPath included;
                included.text = path->evaluate(bindings).text();
                FileList files(included.files);
                included.expansion = expansionOf(includeFilesOf(included.text.c_str(), files));
                traced.included.push_back(std::move(included));
            }
        }
        trace.rules.push_back(std::move(traced));
    }
}

} // namespace

QueryTrace traceQuery(Rules& rules, Question question, const char* file, const char* caller) {
    QueryTrace trace;
    trace.question = question;
    ParsedRules* parsed = dynamic_cast<ParsedRules*>(&rules);
    if (parsed == nullptr)
        return trace;
    switch (question) {
    case Question::Excluded:
        traceFirstMatch(trace, *parsed, parsed->excludeRuleList(), file, caller);
        break;
    case Question::Pruned:
        traceFirstMatch(trace, *parsed, parsed->pruneRuleList(), file, caller);
        break;
    case Question::Includes:
        traceIncludes(trace, *parsed, file);
        break;
    }
    return trace;
}

} // namespace QuorelScript::Observe
