// SPDX-License-Identifier: MIT
#include "observe/traceCondition.hpp"

#include "RulesTesting.hpp"
#include "TempTree.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace testing_rules;
using QuorelScript::NodeSource;
using QuorelScript::Observe::Condition;
using QuorelScript::Observe::NodeValue;
using QuorelScript::Observe::none;

// A condition, its view and what tracing it gave.
struct Traced {
    std::unique_ptr<Expression<bool>> condition;
    Condition view;
    std::vector<NodeValue> values;
    bool value = false;

    Traced(Expression<bool>* built, const Bindings& bindings) : condition(built) {
        std::vector<NodeSource> sources;
        view = QuorelScript::conditionView(*condition, &sources);
        value = QuorelScript::traceCondition(view, sources, bindings, values);
        EXPECT_EQ(value, condition->evaluate(bindings)) << "the trace comes to what the condition does";
    }
};

const Bindings fileBindings("/opt/v", "/src/main.c", "/src/app.c", "/work");

TEST(traceCondition, RecordsEveryValueAndWhatWasNotEvaluated) {
    // or(and(equals($ext,.c), equals($name,x)), equals($dir,/src))
    const Traced traced(either(both(equals("$ext", ".c"), equals("$name", "x")), equals("$dir", "/src")), fileBindings);
    EXPECT_TRUE(traced.value);
    const std::vector<NodeValue>& values = traced.values;
    ASSERT_EQ(values.size(), 11u);
    EXPECT_TRUE(values[0].evaluated);
    EXPECT_TRUE(values[0].value);
    EXPECT_FALSE(values[1].value) << "the and";
    EXPECT_TRUE(values[2].value) << "$ext == .c";
    EXPECT_EQ(values[3].text, ".c") << "$ext substituted";
    EXPECT_EQ(values[4].text, ".c");
    EXPECT_FALSE(values[5].value) << "$name == x";
    EXPECT_EQ(values[6].text, "main");
    EXPECT_TRUE(values[8].evaluated) << "the and was false, so the or asked its right operand";
    EXPECT_TRUE(values[8].value);
    EXPECT_EQ(values[9].text, "/src");
}

TEST(traceCondition, OperandsAfterTheDecidingOneAreNotEvaluated) {
    const Traced traced(both(equals("$ext", ".h"), exists("$dir/never")), fileBindings);
    EXPECT_FALSE(traced.value);
    for (std::size_t index = 4; index < traced.values.size(); ++index) {
        EXPECT_FALSE(traced.values[index].evaluated) << index;
        EXPECT_EQ(traced.values[index].text, "") << index;
    }
    const Traced multi(any({truth(false), truth(true), exists("/x")}), fileBindings);
    EXPECT_TRUE(multi.values[2].evaluated);
    EXPECT_FALSE(multi.values[3].evaluated);
}

TEST(traceCondition, InRecordsTheElementThatMatched) {
    const Traced traced(in("$file", {"/usr/", "/sr", "/src/"}), fileBindings);
    EXPECT_TRUE(traced.value);
    EXPECT_EQ(traced.values[0].matchedElement, 2u) << "the second element, /sr, a plain prefix";
    EXPECT_FALSE(traced.values[4].evaluated) << "the elements after it are not evaluated";
    const Traced missed(in("$file", {"/usr/"}), fileBindings);
    EXPECT_EQ(missed.values[0].matchedElement, none);
}

TEST(traceCondition, ExistsRecordsThePathAskedAndTheAnswer) {
    TempTree tree;
    tree.file("present");
    const Bindings bindings("/opt/v", (tree.path() + "/present").c_str(), nullptr, "/work");
    const Traced traced(both(exists("$file"), exists("$dir/absent")), bindings);
    EXPECT_EQ(traced.values[2].text, tree.path() + "/present");
    EXPECT_TRUE(traced.values[1].value);
    EXPECT_EQ(traced.values[4].text, tree.path() + "/absent");
    EXPECT_FALSE(traced.values[3].value);
}

// A path of a fixed text that logs each evaluation, so that the order in
// which a comparison asks its two sides shows.
class LoggedPath : public TrackedPath {
public:
    LoggedPath(Tracker& tracker, const std::string& text)
        : TrackedPath(tracker, text), tracker_(tracker), text_(text) {}

    Path evaluate(const Bindings& bindings) const override {
        tracker_.log.push_back("evaluate " + text_);
        return TrackedPath::evaluate(bindings);
    }

private:
    Tracker& tracker_;
    std::string text_;
};

TEST(traceCondition, EqualsEvaluatesItsRightPathFirst) {
    Tracker tracker;
    const Traced traced(new EqualsExpression<Path>(new LoggedPath(tracker, "left"), new LoggedPath(tracker, "right")),
                        fileBindings);
    EXPECT_FALSE(traced.value);
    EXPECT_TRUE(traced.values[1].evaluated);
    EXPECT_TRUE(traced.values[2].evaluated);
    // The trace, then the plain evaluation it is compared with: each asks
    // the right side first.
    EXPECT_EQ(tracker.log,
              (std::vector<std::string>{"evaluate right", "evaluate left", "evaluate right", "evaluate left"}));
}

TEST(traceCondition, ANodeOfAnotherKindEvaluatesItself) {
    Tracker tracker;
    const Traced traced(negation(new TrackedCondition(tracker, "t", true)), fileBindings);
    EXPECT_FALSE(traced.value);
    EXPECT_TRUE(traced.values[1].value);
    // Once for the trace, once for the comparison with the plain evaluation.
    EXPECT_EQ(tracker.log, (std::vector<std::string>{"evaluate t", "evaluate t"}));
}

TEST(traceCondition, ALongChainIsTracedWithoutRecursion) {
    Expression<bool>* chain = equals("$name", "main");
    for (int i = 0; i < 100000; ++i)
        chain = new OrExpression(equals("$name", "x"), chain);
    const Traced traced(chain, fileBindings);
    EXPECT_TRUE(traced.value);
    EXPECT_TRUE(traced.values.back().evaluated);
}

TEST(traceCondition, EmptyNaryNodesHaveTheirNeutralValues) {
    EXPECT_TRUE(Traced(all({}), fileBindings).value);
    EXPECT_FALSE(Traced(any({}), fileBindings).value);
}

} // namespace
