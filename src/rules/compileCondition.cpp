// SPDX-License-Identifier: MIT
#include "rules/CompiledCondition.hpp"

#include "expr/AndExpression.hpp"
#include "expr/BooleanLiteral.hpp"
#include "expr/EqualsExpression.hpp"
#include "expr/ExistsExpression.hpp"
#include "expr/InExpression.hpp"
#include "expr/MultiAndExpression.hpp"
#include "expr/MultiOrExpression.hpp"
#include "expr/NotExpression.hpp"
#include "expr/OrExpression.hpp"
#include "expr/exactType.hpp"
#include "rules/CompiledPath.hpp"
#include "rules/ConditionSequence.hpp"

#include <qxqrscript/host.hpp>

#include <algorithm>
#include <typeinfo>

namespace QuorelScript {

namespace {

using Compiled = std::unique_ptr<CompiledCondition>;

bool startsWith(std::string_view text, std::string_view prefix) {
    return prefix.size() <= text.size() && text.compare(0, prefix.size(), prefix) == 0;
}

bool anyAsksTheHost(const CompiledConditions& conditions) {
    for (const Compiled& condition : conditions)
        if (condition->asksTheHost())
            return true;
    return false;
}

// How few files a test lets through, roughly: the whole file or its name
// equal to a text is rarer than a directory, a directory rarer than a
// prefix, and an extension is shared by the most.
int selectivity(const IndexableTest& test) {
    if (test.kind == IndexableTest::Kind::prefix)
        return 2;
    switch (test.variable) {
    case QueryVariable::file:
        return 5;
    case QueryVariable::name:
        return 4;
    case QueryVariable::ext:
        return 1;
    default:
        return 3;
    }
}

// The least selective of tests one of which must pass.
int selectivity(const Guards& guards) {
    int least = 5;
    for (const IndexableTest* guard : guards)
        least = std::min(least, selectivity(*guard));
    return least;
}

class FixedCondition : public CompiledCondition {
public:
    explicit FixedCondition(bool value) : value_(value) {}
    bool holds(QueryContext&) const override { return value_; }
    bool neverHolds() const override { return !value_; }

private:
    bool value_;
};

// Operands in order, the first false one deciding.
class AllCondition : public CompiledCondition {
public:
    explicit AllCondition(CompiledConditions operands) : operands_(std::move(operands)) {}

    bool holds(QueryContext& context) const override {
        for (const Compiled& operand : operands_)
            if (!operand->holds(context))
                return false;
        return true;
    }

    // Every operand must hold, so the guards of any of them guard the whole,
    // as long as the operands before it ask the host nothing. Of those, the
    // ones that let the fewest files through are taken.
    Guards guards() const override {
        Guards best;
        for (const Compiled& operand : operands_) {
            const Guards own = operand->guards();
            if (!own.empty() && (best.empty() || selectivity(own) > selectivity(best)))
                best = own;
            if (operand->asksTheHost())
                break;
        }
        return best;
    }

    bool asksTheHost() const override { return anyAsksTheHost(operands_); }

    CompiledConditions takeOperands() { return std::move(operands_); }

private:
    CompiledConditions operands_;
};

// Operands in order, the first true one deciding.
class AnyCondition : public CompiledCondition {
public:
    AnyCondition(CompiledConditions operands, ScratchLayout& layout) : operands_(std::move(operands), layout) {}

    bool holds(QueryContext& context) const override {
        return operands_.firstHolding(context) != ConditionSequence::none;
    }

    // Every operand's guards together, when every operand has some: when
    // all of them fail, each operand stops at its own.
    Guards guards() const override {
        Guards all;
        for (const Compiled& operand : operands_.conditions()) {
            const Guards own = operand->guards();
            if (own.empty())
                return {};
            all.insert(all.end(), own.begin(), own.end());
        }
        return all;
    }

    bool isItsGuard() const override {
        for (const Compiled& operand : operands_.conditions())
            if (!operand->isItsGuard())
                return false;
        return true;
    }

    bool asksTheHost() const override { return anyAsksTheHost(operands_.conditions()); }

    CompiledConditions takeOperands() { return operands_.takeConditions(); }

private:
    ConditionSequence operands_;
};

class NotCondition : public CompiledCondition {
public:
    explicit NotCondition(Compiled operand) : operand_(std::move(operand)) {}
    bool holds(QueryContext& context) const override { return !operand_->holds(context); }
    bool asksTheHost() const override { return operand_->asksTheHost(); }

private:
    Compiled operand_;
};

// A test of a per-query variable against fixed texts, when `subject` is a
// lone reference to such a variable and every one of `texts` is fixed.
std::optional<IndexableTest> indexableTest(IndexableTest::Kind kind, const CompiledPath& subject,
                                           const std::vector<const CompiledPath*>& texts) {
    const std::optional<QueryVariable> variable = subject.loneVariable();
    if (!variable)
        return std::nullopt;
    IndexableTest test{kind, *variable, {}};
    for (const CompiledPath* text : texts) {
        const std::optional<std::string_view> fixed = text->fixedText();
        if (!fixed)
            return std::nullopt;
        test.texts.push_back(*fixed);
    }
    return test;
}

class EqualsCondition : public CompiledCondition {
public:
    EqualsCondition(CompiledPath left, CompiledPath right) : left_(std::move(left)), right_(std::move(right)) {
        test_ = indexableTest(IndexableTest::Kind::equality, left_, {&right_});
        if (!test_)
            test_ = indexableTest(IndexableTest::Kind::equality, right_, {&left_});
    }

    // The right operand first, as the condition itself evaluates them.
    bool holds(QueryContext& context) const override {
        const std::string_view right = right_.text(context);
        return left_.text(context) == right;
    }

    Guards guards() const override { return test_ ? Guards{&*test_} : Guards(); }
    bool isItsGuard() const override { return true; }

private:
    CompiledPath left_;
    CompiledPath right_;
    std::optional<IndexableTest> test_;
};

class PrefixCondition : public CompiledCondition {
public:
    PrefixCondition(CompiledPath subject, std::vector<CompiledPath> list)
        : subject_(std::move(subject)), list_(std::move(list)) {
        std::vector<const CompiledPath*> elements;
        for (const CompiledPath& element : list_)
            elements.push_back(&element);
        test_ = indexableTest(IndexableTest::Kind::prefix, subject_, elements);
    }

    bool holds(QueryContext& context) const override {
        const std::string_view subject = subject_.text(context);
        for (const CompiledPath& element : list_)
            if (startsWith(subject, element.text(context)))
                return true;
        return false;
    }

    Guards guards() const override { return test_ ? Guards{&*test_} : Guards(); }
    bool isItsGuard() const override { return true; }

private:
    CompiledPath subject_;
    std::vector<CompiledPath> list_;
    std::optional<IndexableTest> test_;
};

class ExistsCondition : public CompiledCondition {
public:
    explicit ExistsCondition(CompiledPath path) : path_(std::move(path)) {}
    bool holds(QueryContext& context) const override { return kfFileOrDirExists(path_.terminatedText(context)); }
    bool asksTheHost() const override { return true; }

private:
    CompiledPath path_;
};

// A node of a class this compiler does not know evaluates itself against
// the query's bindings.
class OpaqueCondition : public CompiledCondition {
public:
    explicit OpaqueCondition(const Expression<bool>& condition) : condition_(&condition) {}
    bool holds(QueryContext& context) const override { return condition_->evaluate(context.variables().bindings()); }
    bool asksTheHost() const override { return true; }

private:
    const Expression<bool>* condition_;
};

class Compiler {
public:
    Compiler(const ConfiguredVariables& configured, ScratchLayout& layout) : configured_(configured), layout_(layout) {}

    Compiled compile(const Expression<bool>& condition) {
        const std::type_info& type = typeid(condition);
        if (type == typeid(BooleanLiteral))
            return std::make_unique<FixedCondition>(static_cast<const BooleanLiteral&>(condition).value());
        if (type == typeid(AndExpression) || type == typeid(MultiAndExpression))
            return std::make_unique<AllCondition>(
                junctionOperands<AndExpression, MultiAndExpression, AllCondition>(condition));
        if (type == typeid(OrExpression) || type == typeid(MultiOrExpression))
            return std::make_unique<AnyCondition>(
                junctionOperands<OrExpression, MultiOrExpression, AnyCondition>(condition), layout_);
        if (type == typeid(NotExpression<bool>))
            return std::make_unique<NotCondition>(
                compile(*static_cast<const NotExpression<bool>&>(condition).operand()));
        if (type == typeid(EqualsExpression<Path>))
            return compileEquals(static_cast<const EqualsExpression<Path>&>(condition));
        if (type == typeid(InExpression))
            return compileIn(static_cast<const InExpression&>(condition));
        if (type == typeid(ExistsExpression))
            return std::make_unique<ExistsCondition>(path(*static_cast<const ExistsExpression&>(condition).operand()));
        return std::make_unique<OpaqueCondition>(condition);
    }

private:
    CompiledPath path(const Expression<Path>& expression) { return CompiledPath(expression, configured_, layout_); }

    // The operands of an and (or an or), with every nested node of the same
    // kind replaced by its own operands: the order in which they are worked
    // out, and where that stops, stay the same. A chain of two-operand nodes
    // is walked along its right side, however long it is.
    template <class Binary, class Multi, class Junction>
    CompiledConditions junctionOperands(const Expression<bool>& junction) {
        CompiledConditions operands;
        const Expression<bool>* node = &junction;
        while (isExactly<Binary>(*node)) {
            const Binary& binary = static_cast<const Binary&>(*node);
            append<Junction>(operands, compile(*binary.left()));
            node = binary.right();
        }
        if (isExactly<Multi>(*node)) {
            for (const Expression<bool>* operand : static_cast<const Multi&>(*node).operands())
                append<Junction>(operands, compile(*operand));
        } else {
            append<Junction>(operands, compile(*node));
        }
        return operands;
    }

    template <class Junction>
    static void append(CompiledConditions& operands, Compiled operand) {
        CompiledCondition& node = *operand;
        if (typeid(node) != typeid(Junction)) {
            operands.push_back(std::move(operand));
            return;
        }
        CompiledConditions nested = static_cast<Junction&>(node).takeOperands();
        std::move(nested.begin(), nested.end(), std::back_inserter(operands));
    }

    Compiled compileEquals(const EqualsExpression<Path>& equals) {
        CompiledPath left = path(*equals.left());
        CompiledPath right = path(*equals.right());
        if (left.fixedText() && right.fixedText())
            return std::make_unique<FixedCondition>(*left.fixedText() == *right.fixedText());
        return std::make_unique<EqualsCondition>(std::move(left), std::move(right));
    }

    Compiled compileIn(const InExpression& in) {
        CompiledPath subject = path(*in.subject());
        std::vector<CompiledPath> list;
        bool fixed = subject.fixedText().has_value();
        bool found = false;
        for (const Expression<Path>* element : in.list()) {
            list.push_back(path(*element));
            fixed = fixed && list.back().fixedText();
            found = found || (fixed && startsWith(*subject.fixedText(), *list.back().fixedText()));
        }
        if (fixed)
            return std::make_unique<FixedCondition>(found);
        return std::make_unique<PrefixCondition>(std::move(subject), std::move(list));
    }

    const ConfiguredVariables& configured_;
    ScratchLayout& layout_;
};

} // namespace

std::unique_ptr<CompiledCondition> compileCondition(const Expression<bool>& condition,
                                                    const ConfiguredVariables& configured, ScratchLayout& layout) {
    return Compiler(configured, layout).compile(condition);
}

} // namespace QuorelScript
