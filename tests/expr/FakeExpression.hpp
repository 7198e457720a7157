// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_EXPR_FAKEEXPRESSION_HPP
#define QXQRSCRIPT_TESTS_EXPR_FAKEEXPRESSION_HPP

#include "expr/Expression.hpp"
#include "expr/Path.hpp"

#include <new>
#include <ostream>
#include <string>
#include <vector>

// What the fakes of one test did: every call on them, in order, and how many
// of them are alive.
struct Probe {
    std::vector<std::string> calls;
    int alive = 0;
};

// A node with a fixed value that records each call on it, and its deletion, in
// a probe, so that tests can see which operands a node evaluates, clones,
// substitutes and deletes, in which order.
template <class T>
class FakeExpression : public QuorelScript::Expression<T> {
public:
    FakeExpression(Probe& probe, const std::string& name, const T& value) : probe_(probe), name_(name), value_(value) {
        ++probe_.alive;
    }
    FakeExpression(const FakeExpression& other)
        : probe_(other.probe_), name_(other.name_), value_(other.value_), hasVariables_(other.hasVariables_),
          cloneFails_(other.cloneFails_), evaluationFails_(other.evaluationFails_) {
        ++probe_.alive;
    }
    FakeExpression& operator=(const FakeExpression&) = delete;
    ~FakeExpression() override {
        record("delete");
        --probe_.alive;
    }

    T evaluate(const QuorelScript::Bindings&) const override {
        record("evaluate");
        if (evaluationFails_)
            throw std::bad_alloc();
        return value_;
    }
    QuorelScript::Expression<T>* clone() const override {
        record("clone");
        if (cloneFails_)
            throw std::bad_alloc();
        return new FakeExpression(*this);
    }
    std::ostream& print(std::ostream& out) const override { return out << name_; }
    bool hasVariables() const override {
        record("hasVariables");
        return hasVariables_;
    }
    void substituteVariables(const QuorelScript::Bindings&) override { record("substitute"); }

    FakeExpression* withVariables() {
        hasVariables_ = true;
        return this;
    }
    FakeExpression* failingToClone() {
        cloneFails_ = true;
        return this;
    }
    FakeExpression* failingToEvaluate() {
        evaluationFails_ = true;
        return this;
    }

private:
    void record(const char* call) const { probe_.calls.push_back(std::string(call) + " " + name_); }

    Probe& probe_;
    std::string name_;
    T value_;
    bool hasVariables_ = false;
    bool cloneFails_ = false;
    bool evaluationFails_ = false;
};

inline FakeExpression<bool>* fakeCondition(Probe& probe, const std::string& name, bool value) {
    return new FakeExpression<bool>(probe, name, value);
}

// A path operand whose value is `text` exactly as given.
inline FakeExpression<QuorelScript::Path>* fakePath(Probe& probe, const std::string& name, const std::string& text) {
    return new FakeExpression<QuorelScript::Path>(
        probe, name, QuorelScript::Path::verbatim(text.data(), text.data() + text.length()));
}

#endif
