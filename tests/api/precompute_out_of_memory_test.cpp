// SPDX-License-Identifier: MIT
// A precompute that runs out of memory while it rewrites a merged condition
// leaves that rule without a condition. The rule set stays usable, as a host
// that catches std::bad_alloc may go on with it: such a rule never holds,
// and it is asked, printed, shown, traced and precomputed again as the
// literal false.
#include "ReplacedAllocator.hpp"

#include <qxqrscript.hpp>
#include <qxqrscript/observe.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <sstream>
#include <string>

namespace {

using QuorelScript::Parser;
using QuorelScript::Rules;
namespace Observe = QuorelScript::Observe;

// No literal false anywhere, and nothing that folds to false: a condition
// shown as false can only be a missing one.
const char script[] = "exclude if $ext == .o\n"
                      "exclude if $dir == gen\n"
                      "prune if $name == skip or $ext == .tmp\n"
                      "prune if $dir == gen\n";

const char file[] = "gen/skip.o";

std::unique_ptr<Rules> askedOnce() {
    Parser parser;
    std::unique_ptr<Rules> rules(parser.parse(script));
    EXPECT_TRUE(rules->isExcluded(file, nullptr, nullptr));
    return rules;
}

bool isLeftWithoutCondition(const Rules& rules, Observe::RuleKind kind) {
    const std::vector<Observe::Rule> views = Observe::rulesOf(rules, kind);
    return views.size() == 1 && views[0].condition.nodes[0].kind == Observe::NodeKind::False;
}

// Asked more than once: the first queries after a change are answered rule
// by rule, the later ones from rules prepared anew.
void expectNeverHolds(Rules& rules, bool (Rules::*query)(const char*, const char*, const char*),
                      Observe::Question question) {
    for (int round = 0; round < 8; ++round)
        EXPECT_FALSE((rules.*query)(file, nullptr, nullptr));
    const Observe::QueryTrace trace = Observe::traceQuery(rules, question, file, nullptr);
    ASSERT_EQ(trace.rules.size(), 1u);
    EXPECT_TRUE(trace.rules[0].evaluated);
    EXPECT_FALSE(trace.rules[0].fired);
}

} // namespace

TEST(PrecomputeOutOfMemory, ARuleLeftWithoutConditionNeverHolds) {
    int leftWithout = 0;
    for (long allowed = 0;; ++allowed) {
        const std::unique_ptr<Rules> rules = askedOnce();
        ReplacedAllocator::failAfter(allowed);
        try {
            rules->precompute();
        } catch (const std::bad_alloc&) {
        }
        const bool failed = ReplacedAllocator::failed();
        ReplacedAllocator::failAfter(-1);
        if (!failed)
            break;
        const bool excludeWithout = isLeftWithoutCondition(*rules, Observe::RuleKind::Exclude);
        const bool pruneWithout = isLeftWithoutCondition(*rules, Observe::RuleKind::Prune);
        if (excludeWithout)
            expectNeverHolds(*rules, &Rules::isExcluded, Observe::Question::Excluded);
        if (pruneWithout)
            expectNeverHolds(*rules, &Rules::isPruned, Observe::Question::Pruned);
        if (!excludeWithout && !pruneWithout)
            continue;
        ++leftWithout;
        std::ostringstream printed;
        printed << rules.get();
        EXPECT_NE(printed.str().find(excludeWithout ? "\texclude if false\n" : "\tprune if false\n"), std::string::npos)
            << printed.str();
        rules->precompute();
        EXPECT_EQ(isLeftWithoutCondition(*rules, Observe::RuleKind::Exclude), excludeWithout);
        EXPECT_EQ(isLeftWithoutCondition(*rules, Observe::RuleKind::Prune), pruneWithout);
    }
    EXPECT_GT(leftWithout, 0) << "no allocation failure left a rule without its condition";
}
