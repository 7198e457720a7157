// SPDX-License-Identifier: MIT
#include "ReferencePrecompute.hpp"

#include "expr/AndExpression.hpp"
#include "expr/Bindings.hpp"
#include "expr/BooleanLiteral.hpp"
#include "expr/MultiAndExpression.hpp"
#include "expr/MultiOrExpression.hpp"
#include "expr/NotExpression.hpp"
#include "expr/OrExpression.hpp"

#include <cstddef>
#include <string>
#include <typeinfo>
#include <vector>

namespace ReferencePrecompute {

// Takes ownership of `condition` and returns the node that replaces it.
Expression<bool>* simplified(Expression<bool>* condition);

namespace {

using Owned = std::unique_ptr<Expression<bool>>;
using Operands = std::vector<Expression<bool>*>;
using Not = NotExpression<bool>;

// Of a null node, typeid throws std::bad_typeid, as the rewrite must.
template <class Kind>
bool is(const Expression<bool>* node) {
    return typeid(*node) == typeid(Kind);
}

// A node without variables, replaced by its value; evaluating it may ask the
// host whether files exist.
Expression<bool>* folded(Owned node) {
    return new BooleanLiteral(node->evaluate(Bindings()));
}

// Simplifies the operand at `position` in place; while it is out for the
// rewrite, the list holds null there, so that nothing is owned twice.
void simplifyInPlace(Operands& operands, std::size_t position) {
    Expression<bool>* operand = operands[position];
    operands[position] = nullptr;
    operands[position] = simplified(operand);
}

// The operands of a chain of two-operand nodes of one kind, left to right,
// appended to `multi`; the emptied nodes of the chain are deleted.
template <class Binary, class Multi>
void gather(Binary& node, Multi& multi) {
    for (Expression<bool>* operand : {node.releaseLeft(), node.releaseRight()}) {
        Owned owned(operand);
        if (is<Binary>(operand))
            gather(static_cast<Binary&>(*operand), multi);
        else
            multi.append(owned.release());
    }
}

template <class Multi>
struct Junction;

template <>
struct Junction<MultiAndExpression> {
    using Dual = MultiOrExpression;
    static constexpr bool decisive = false;
};

template <>
struct Junction<MultiOrExpression> {
    using Dual = MultiAndExpression;
    static constexpr bool decisive = true;
};

template <class Multi>
void flatten(Operands& operands) {
    for (std::size_t position = 0; position < operands.size();) {
        simplifyInPlace(operands, position);
        if (!is<Multi>(operands[position])) {
            ++position;
            continue;
        }
        Owned child(operands[position]);
        Operands spliced;
        spliced.swap(static_cast<Multi&>(*child).operands());
        operands.erase(operands.begin() + static_cast<std::ptrdiff_t>(position));
        operands.insert(operands.begin() + static_cast<std::ptrdiff_t>(position), spliced.begin(), spliced.end());
    }
}

template <class Multi>
void applyDeMorgan(Operands& operands) {
    using Dual = typename Junction<Multi>::Dual;
    for (std::size_t position = 0; position < operands.size();) {
        if (!is<Not>(operands[position]) || !is<Dual>(static_cast<Not&>(*operands[position]).operand())) {
            ++position;
            continue;
        }
        Owned negation(operands[position]);
        operands.erase(operands.begin() + static_cast<std::ptrdiff_t>(position));
        Operands negated;
        negated.swap(static_cast<Dual&>(*static_cast<Not&>(*negation).operand()).operands());
        for (Expression<bool>*& operand : negated) {
            Expression<bool>* inner = operand;
            operand = nullptr;
            operands.insert(operands.begin() + static_cast<std::ptrdiff_t>(position), nullptr);
            operands[position++] = simplified(new Not(inner));
        }
    }
}

// Returns the node that the literals decide, or null when they decide
// nothing and the true operands (false ones for an or) are gone.
template <class Multi>
Expression<bool>* dropLiterals(Operands& operands) {
    for (std::size_t position = 0; position < operands.size();) {
        simplifyInPlace(operands, position);
        if (!is<BooleanLiteral>(operands[position])) {
            ++position;
            continue;
        }
        if (static_cast<BooleanLiteral&>(*operands[position]).value() == Junction<Multi>::decisive)
            return new BooleanLiteral(Junction<Multi>::decisive);
        delete operands[position];
        operands.erase(operands.begin() + static_cast<std::ptrdiff_t>(position));
    }
    return nullptr;
}

template <class Multi>
Expression<bool>* simplifiedJunction(std::unique_ptr<Multi> node) {
    Operands& operands = node->operands();
    flatten<Multi>(operands);
    applyDeMorgan<Multi>(operands);
    if (Expression<bool>* decided = dropLiterals<Multi>(operands))
        return decided;
    if (operands.empty())
        return new BooleanLiteral(!Junction<Multi>::decisive);
    if (operands.size() == 1) {
        Expression<bool>* only = operands.front();
        operands.clear();
        return simplified(only);
    }
    return node.release();
}

template <class Binary, class Multi>
Expression<bool>* simplifiedChain(Owned node) {
    std::unique_ptr<Multi> multi(new Multi);
    gather(static_cast<Binary&>(*node), *multi);
    return simplifiedJunction(std::move(multi));
}

Expression<bool>* simplifiedNegation(Owned node) {
    Not& negation = static_cast<Not&>(*node);
    Owned operand(simplified(negation.releaseOperand()));
    if (is<Not>(operand.get()))
        return simplified(static_cast<Not&>(*operand).releaseOperand());
    if (!operand->hasVariables())
        return new BooleanLiteral(!operand->evaluate(Bindings()));
    negation.adoptOperand(operand.release());
    return node.release();
}

template <class Rule>
std::vector<Rule*>* mergedAndSimplified(const std::vector<Rule*>* rules) {
    if (rules == nullptr)
        return nullptr;
    std::unique_ptr<std::vector<Rule*>> merged(new std::vector<Rule*>);
    if (rules->empty())
        return merged.release();
    Owned condition;
    if (rules->size() == 1) {
        condition.reset(rules->front()->condition->clone());
    } else {
        std::unique_ptr<MultiOrExpression> either(new MultiOrExpression);
        for (const Rule* rule : *rules)
            either->append(rule->condition->clone());
        condition = std::move(either);
    }
    std::unique_ptr<Rule> rule(new Rule(simplified(condition.release())));
    rule->debugInfo = rules->front()->debugInfo;
    merged->push_back(rule.release());
    return merged.release();
}

IncludeRuleList* copied(const IncludeRuleList* rules) {
    if (rules == nullptr)
        return nullptr;
    std::unique_ptr<IncludeRuleList> copy(new IncludeRuleList);
    for (const IncludeRule* rule : *rules) {
        Owned condition(rule->condition->clone());
        std::unique_ptr<IncludeRule> ruleCopy(new IncludeRule(clonePathList(*rule->paths), condition.release()));
        ruleCopy->debugInfo = rule->debugInfo;
        copy->push_back(ruleCopy.release());
    }
    return copy.release();
}

} // namespace

Expression<bool>* simplified(Expression<bool>* condition) {
    Owned node(condition);
    if (is<BooleanLiteral>(condition))
        return node.release();
    if (!condition->hasVariables())
        return folded(std::move(node));
    if (is<AndExpression>(condition))
        return simplifiedChain<AndExpression, MultiAndExpression>(std::move(node));
    if (is<OrExpression>(condition))
        return simplifiedChain<OrExpression, MultiOrExpression>(std::move(node));
    if (is<Not>(condition))
        return simplifiedNegation(std::move(node));
    if (is<MultiAndExpression>(condition))
        return simplifiedJunction(
            std::unique_ptr<MultiAndExpression>(static_cast<MultiAndExpression*>(node.release())));
    if (is<MultiOrExpression>(condition))
        return simplifiedJunction(std::unique_ptr<MultiOrExpression>(static_cast<MultiOrExpression*>(node.release())));
    return node.release();
}

std::unique_ptr<ParsedRules> precomputed(ParsedRules& rules, const PlainQueries::Configuration& configuration) {
    if (configuration.hasRoot) {
        rules.bindVariable("vantor", configuration.vantorRoot.c_str());
        rules.bindVariable("toolbox", (configuration.vantorRoot + "/toolbox").c_str());
    }
    if (configuration.hasCwd)
        rules.bindVariable("cwd", configuration.cwd.c_str());
    rules.bindVariable("arch", "ia32lx");
    rules.bindVariable("lib", ".so");
    rules.bindVariable("vrk", ".vrkilx");
    std::unique_ptr<ExcludeRuleList> excludes(mergedAndSimplified(rules.excludeRuleList()));
    std::unique_ptr<PruneRuleList> prunes(mergedAndSimplified(rules.pruneRuleList()));
    return std::unique_ptr<ParsedRules>(
        new ParsedRules(excludes.release(), prunes.release(), copied(rules.includeRuleList())));
}

} // namespace ReferencePrecompute
