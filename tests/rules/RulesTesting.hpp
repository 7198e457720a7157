// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_RULES_RULESTESTING_HPP
#define QXQRSCRIPT_TESTS_RULES_RULESTESTING_HPP

// Builders for the condition trees and rules that the rule-set tests make by
// hand, and a host includer that records what it is given.

#include "expr/AndExpression.hpp"
#include "expr/Bindings.hpp"
#include "expr/BooleanLiteral.hpp"
#include "expr/EqualsExpression.hpp"
#include "expr/ExistsExpression.hpp"
#include "expr/InExpression.hpp"
#include "expr/MultiAndExpression.hpp"
#include "expr/MultiOrExpression.hpp"
#include "expr/NotExpression.hpp"
#include "expr/OrExpression.hpp"
#include "expr/PathList.hpp"
#include "expr/PathLiteral.hpp"
#include "rules/Rule.hpp"

#include "RecordingIncluder.hpp"

#include <qxqrscript/QuorelRules.hpp>
#include <qxqrscript/Rules.hpp>

#include <initializer_list>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace testing_rules {

using namespace QuorelScript;

inline Expression<Path>* pathLiteral(const std::string& text) {
    return new PathLiteral(text.data(), text.data() + text.size());
}

inline PathList* pathList(std::initializer_list<std::string> texts) {
    PathList* list = new PathList;
    for (const std::string& text : texts)
        list->push_back(pathLiteral(text));
    return list;
}

inline Expression<bool>* truth(bool value) {
    return new BooleanLiteral(value);
}

inline Expression<bool>* exists(const std::string& path) {
    return new ExistsExpression(pathLiteral(path));
}

inline Expression<bool>* equals(const std::string& left, const std::string& right) {
    return new EqualsExpression<Path>(pathLiteral(left), pathLiteral(right));
}

inline Expression<bool>* in(const std::string& subject, std::initializer_list<std::string> list) {
    return new InExpression(pathLiteral(subject), pathList(list));
}

inline Expression<bool>* negation(Expression<bool>* operand) {
    return new NotExpression<bool>(operand);
}

inline Expression<bool>* both(Expression<bool>* left, Expression<bool>* right) {
    return new AndExpression(left, right);
}

inline Expression<bool>* either(Expression<bool>* left, Expression<bool>* right) {
    return new OrExpression(left, right);
}

template <class Multi>
Expression<bool>* multi(std::initializer_list<Expression<bool>*> operands) {
    Multi* node = new Multi;
    for (Expression<bool>* operand : operands)
        node->append(operand);
    return node;
}

inline Expression<bool>* all(std::initializer_list<Expression<bool>*> operands) {
    return multi<MultiAndExpression>(operands);
}

inline Expression<bool>* any(std::initializer_list<Expression<bool>*> operands) {
    return multi<MultiOrExpression>(operands);
}

template <class Rule>
Rule* rule(const std::string& debugInfo, Expression<bool>* condition) {
    Rule* made = new Rule(condition);
    made->debugInfo = debugInfo;
    return made;
}

inline IncludeRule* includeRule(std::initializer_list<std::string> paths, Expression<bool>* condition) {
    return new IncludeRule(pathList(paths), condition);
}

inline std::string printed(const Expression<bool>& condition) {
    std::ostringstream out;
    condition.print(out);
    return out.str();
}

inline std::string printed(const Rules& rules) {
    std::ostringstream out;
    rules.print(out);
    return out.str();
}

// What the tracked nodes of one test did, and how many of them are alive.
struct Tracker {
    int alive = 0;
    std::vector<std::string> log;
};

// A condition of a fixed value that logs its evaluations and substitutions
// and counts itself alive, so that tests see which conditions a rule set
// touches, in which order, and that it frees them.
class TrackedCondition : public Expression<bool> {
public:
    TrackedCondition(Tracker& tracker, const std::string& name, bool value, bool hasVariables = true)
        : tracker_(tracker), name_(name), value_(value), hasVariables_(hasVariables) {
        ++tracker_.alive;
    }
    TrackedCondition(const TrackedCondition&) = delete;
    TrackedCondition& operator=(const TrackedCondition&) = delete;
    ~TrackedCondition() override { --tracker_.alive; }

    bool evaluate(const Bindings&) const override {
        tracker_.log.push_back("evaluate " + name_);
        return value_;
    }
    Expression<bool>* clone() const override { return new TrackedCondition(tracker_, name_, value_, hasVariables_); }
    std::ostream& print(std::ostream& out) const override { return out << name_; }
    bool hasVariables() const override { return hasVariables_; }
    void substituteVariables(const Bindings&) override { tracker_.log.push_back("substitute " + name_); }

private:
    Tracker& tracker_;
    std::string name_;
    bool value_;
    bool hasVariables_;
};

// A path expression of a fixed text that counts itself alive.
class TrackedPath : public Expression<Path> {
public:
    TrackedPath(Tracker& tracker, const std::string& text) : tracker_(tracker), text_(text) { ++tracker_.alive; }
    TrackedPath(const TrackedPath&) = delete;
    TrackedPath& operator=(const TrackedPath&) = delete;
    ~TrackedPath() override { --tracker_.alive; }

    Path evaluate(const Bindings&) const override { return Path(text_); }
    Expression<Path>* clone() const override { return new TrackedPath(tracker_, text_); }
    std::ostream& print(std::ostream& out) const override { return out << text_; }
    bool hasVariables() const override { return false; }
    void substituteVariables(const Bindings&) override { tracker_.log.push_back("substitute " + text_); }

private:
    Tracker& tracker_;
    std::string text_;
};

// Fails at the first path it is given.
class ThrowingIncluder : public QuorelRules::Includer {
public:
    bool include(const char* path) override { throw std::runtime_error(path); }
};

} // namespace testing_rules

#endif
