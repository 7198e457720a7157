// SPDX-License-Identifier: MIT
#include "rules/ParsedRules.hpp"

#include "RulesTesting.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>

using namespace testing_rules;

TEST(ParsedRulesPrint, BlocksComeExcludePruneIncludeEachClosedByAnEmptyLine) {
    ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E1", exists("/a")),
                                          rule<ExcludeRule>("E2", in("$file", {"$vantor/toolbox", "/usr"}))},
                      new PruneRuleList{rule<PruneRule>("P", negation(equals("$file", "/b")))},
                      new IncludeRuleList{includeRule({"/x", "$dir/y"}, truth(true)),
                                          includeRule({"/z"}, both(truth(false), exists("$file")))});
    EXPECT_EQ(printed(rules), "\texclude if exists(/a)\n"
                              "\texclude if in($file,[$vantor/toolbox,/usr])\n"
                              "\n"
                              "\tprune if not(equals($file,/b))\n"
                              "\n"
                              "\tinclude [/x,$dir/y] if true\n"
                              "\tinclude [/z] if and(false,exists($file))\n"
                              "\n");
}

TEST(ParsedRulesPrint, EmptyListPrintsALoneEmptyLineAndANullListNothing) {
    EXPECT_EQ(printed(ParsedRules(new ExcludeRuleList, nullptr, nullptr)), "\n");
    EXPECT_EQ(printed(ParsedRules(nullptr, new PruneRuleList, new IncludeRuleList)), "\n\n");
    EXPECT_EQ(printed(ParsedRules(nullptr, new PruneRuleList{rule<PruneRule>("P", truth(true))}, nullptr)),
              "\tprune if true\n\n");
}

TEST(ParsedRulesPrint, ARuleWithoutConditionPrintsAsNeverHolding) {
    EXPECT_EQ(printed(ParsedRules(new ExcludeRuleList{rule<ExcludeRule>("E", nullptr)},
                                  new PruneRuleList{rule<PruneRule>("P", nullptr)},
                                  new IncludeRuleList{includeRule({"/a"}, nullptr)})),
              "\texclude if false\n\n\tprune if false\n\n\tinclude [/a] if false\n\n");
}

TEST(ParsedRulesPrint, ReturnsTheStreamAndWorksThroughTheStreamOperator) {
    const ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", truth(false))}, nullptr, nullptr);
    std::ostringstream out;
    EXPECT_EQ(&rules.print(out), &out);
    std::ostringstream viaOperator;
    viaOperator << static_cast<const Rules*>(&rules) << "end";
    EXPECT_EQ(viaOperator.str(), "\texclude if false\n\nend");
}

// Every line ends with std::endl, which flushes: a stream whose buffer only
// passes text on when flushed still receives every line.
TEST(ParsedRulesPrint, FlushesEveryLine) {
    class CountingFlushes : public std::stringbuf {
    public:
        int flushes = 0;

    protected:
        int sync() override {
            ++flushes;
            return 0;
        }
    } buffer;
    std::ostream out(&buffer);
    const ParsedRules rules(new ExcludeRuleList{rule<ExcludeRule>("E", truth(false))},
                            new PruneRuleList{rule<PruneRule>("P", truth(true))}, nullptr);
    rules.print(out);
    EXPECT_EQ(buffer.flushes, 4);
}
