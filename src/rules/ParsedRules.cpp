#include "rules/ParsedRules.hpp"

#include "common/textOrEmpty.hpp"
#include "expr/Bindings.hpp"
#include "expr/Path.hpp"
#include "rules/expandIncludeRule.hpp"

#include <qxqrscript/host.hpp>

#include <memory>
#include <ostream>
#include <string>

namespace QuorelScript {

namespace {

template <class Rule>
void deleteRuleList(std::vector<Rule*>* rules) {
    if (rules == nullptr)
        return;
    for (Rule* rule : *rules)
        delete rule;
    delete rules;
}

// Takes ownership of `rule`, also when the list cannot grow. A rule set made
// from a script without rules of this kind has no list for them; appending a
// later script's rule creates it, so that several scripts can be combined in
// any order. A present list prints exactly as before, so only the crash that
// a missing list would cause is avoided.
template <class Rule>
void appendOwned(std::vector<Rule*>*& rules, Rule* rule) {
    std::unique_ptr<Rule> owned(rule);
    if (rules == nullptr)
        rules = new std::vector<Rule*>;
    rules->push_back(rule);
    owned.release();
}

template <class Rule>
void substituteInto(std::vector<Rule*>* rules, const Bindings& bindings) {
    if (rules == nullptr)
        return;
    for (Rule* rule : *rules)
        if (rule->condition != nullptr)
            rule->condition->substituteVariables(bindings);
}

void printRule(std::ostream& os, const ExcludeRule& rule) {
    os << "exclude if ";
    rule.condition->print(os);
}

void printRule(std::ostream& os, const PruneRule& rule) {
    os << "prune if ";
    rule.condition->print(os);
}

void printRule(std::ostream& os, const IncludeRule& rule) {
    os << "include ";
    printPathList(os, *rule.paths) << " if ";
    rule.condition->print(os);
}

// One tab-led line per rule, then an empty line; nothing for a null list.
template <class Rule>
void printBlock(std::ostream& os, const std::vector<Rule*>* rules) {
    if (rules == nullptr)
        return;
    for (const Rule* rule : *rules) {
        os << '\t';
        printRule(os, *rule);
        os << std::endl;
    }
    os << std::endl;
}

} // namespace

ParsedRules::ParsedRules(ExcludeRuleList* excludeRules, PruneRuleList* pruneRules, IncludeRuleList* includeRules)
    : excludeRules(excludeRules),
      includeRules(includeRules),
      pruneRules(pruneRules),
      hasVantorRoot(false),
      hasCwd(false) {}

ParsedRules::~ParsedRules() {
    deleteRuleList(excludeRules);
    deleteRuleList(includeRules);
    deleteRuleList(pruneRules);
}

template <class RuleList>
bool ParsedRules::firstMatch(const RuleList* rules, const char* file, const char* caller) {
    if (rules == nullptr)
        return false;
    const Bindings bindings(vantorRoot.c_str(), file, caller, cwd.c_str());
    for (const auto* rule : *rules) {
        if (rule->condition->evaluate(bindings)) {
            lastMatchText = rule->debugInfo;
            return true;
        }
    }
    return false;
}

bool ParsedRules::isExcluded(const char* file, const char* /*reserved*/, const char* caller) {
    return firstMatch(excludeRules, file, caller);
}

bool ParsedRules::isPruned(const char* file, const char* /*reserved*/, const char* caller) {
    return firstMatch(pruneRules, file, caller);
}

void ParsedRules::getIncludes(const char* file, const char* /*reserved*/, QuorelRules::Includer& includer) {
    if (includeRules == nullptr)
        return;
    // Include rules are asked about a file alone: $caller is empty for them.
    const Bindings bindings(vantorRoot.c_str(), file, nullptr, cwd.c_str());
    for (const IncludeRule* rule : *includeRules)
        expandIncludeRule(*rule, bindings, includer);
}

void ParsedRules::setVantorRoot(const char* root) {
    vantorRoot = textOrEmpty(root);
    hasVantorRoot = true;
}

void ParsedRules::setCwd(const char* dir) {
    cwd = textOrEmpty(dir);
    hasCwd = true;
}

int ParsedRules::setCwdFromProcess() {
    char buffer[8706] = {};
    hbGetcwd(buffer, sizeof buffer);
    const Path directory{std::string(buffer)};
    setCwd(directory.c_str());
    return 0;
}

void ParsedRules::bindVariable(const char* name, const char* value) {
    if (name == nullptr || value == nullptr)
        return;
    Bindings binding;
    binding.emplace(Path(std::string(name)), Path(std::string(value)));
    // Only the conditions: the paths of include rules take their variables
    // from each query.
    substituteInto(excludeRules, binding);
    substituteInto(pruneRules, binding);
    substituteInto(includeRules, binding);
}

std::ostream& ParsedRules::print(std::ostream& os) const {
    printBlock(os, excludeRules);
    printBlock(os, pruneRules);
    printBlock(os, includeRules);
    return os;
}

const std::string& ParsedRules::getLastMatchText() const {
    return lastMatchText;
}

void ParsedRules::appendExcludeRule(ExcludeRule* rule) {
    appendOwned(excludeRules, rule);
}

void ParsedRules::appendIncludeRule(IncludeRule* rule) {
    appendOwned(includeRules, rule);
}

void ParsedRules::appendPruneRule(PruneRule* rule) {
    appendOwned(pruneRules, rule);
}

} // namespace QuorelScript
