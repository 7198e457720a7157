// SPDX-License-Identifier: MIT
#include "grammar/ParserImpl.hpp"

#include "rules/ParsedRules.hpp"

namespace QuorelScript {

const char* ParserImpl::InternalError::what() const noexcept {
    return "QuorelScript::Parser encountered an internal error.";
}

// The state comes first, so the grammar's actions are given a parser whose
// state exists.
ParserImpl::ParserImpl() : ParseState(nestingLimit), grammar_(*this) {}

void ParserImpl::matchScript(const char*& cursor, const char* end) {
    beginText();
    grammar_.matchScript(cursor, end);
}

ParsedRules* ParserImpl::releaseRules() {
    // The lists change hands only once the rule set exists to own them.
    ParsedRules* rules = new ParsedRules(this->rules<ExcludeRule>().list(), this->rules<PruneRule>().list(),
                                         this->rules<IncludeRule>().list());
    this->rules<ExcludeRule>().release();
    this->rules<PruneRule>().release();
    this->rules<IncludeRule>().release();
    return rules;
}

void ParserImpl::handOverRules(ParsedRules& rules) {
    this->rules<ExcludeRule>().handOver([&rules](ExcludeRule* rule) { rules.appendExcludeRule(rule); });
    this->rules<IncludeRule>().handOver([&rules](IncludeRule* rule) { rules.appendIncludeRule(rule); });
    this->rules<PruneRule>().handOver([&rules](PruneRule* rule) { rules.appendPruneRule(rule); });
}

} // namespace QuorelScript
