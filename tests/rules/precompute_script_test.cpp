// SPDX-License-Identifier: MIT
#include "TempTree.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

namespace {

const char script[] = "exclude if $file == /a\n"
                      "exclude if $file in [$toolbox] and not (not ($file exists))\n"
                      "prune if true and not false\n"
                      "include [$vantor/x] if $arch == ia32lx\n"
                      "include /b if not (not ($file exists))\n";

std::string printed(const QuorelScript::Rules& rules) {
    std::ostringstream out;
    rules.print(out);
    return out.str();
}

} // namespace

TEST(ParsedRulesPrecomputeScript, MergesAndSimplifiesWhatTheParserBuilt) {
    TempTree tree;
    const std::string tool = tree.file("toolbox/tool");
    QuorelScript::Parser parser;
    const std::unique_ptr<QuorelScript::Rules> rules(parser.parse(script));
    ASSERT_NE(rules, nullptr);
    rules->setVantorRoot(tree.path().c_str());

    ASSERT_TRUE(rules->isExcluded("/a", nullptr, nullptr));
    const std::string firstRuleText = rules->getLastMatchText();
    ASSERT_TRUE(rules->isExcluded(tool.c_str(), nullptr, nullptr));
    const std::string secondRuleText = rules->getLastMatchText();
    EXPECT_NE(firstRuleText, secondRuleText);

    rules->precompute();
    EXPECT_EQ(printed(*rules), "\texclude if or([equals($file,/a),or([in($file,[" + tree.path("toolbox") +
                                   "]),exists($file)])])\n"
                                   "\n"
                                   "\tprune if true\n"
                                   "\n"
                                   "\tinclude [$vantor/x] if equals(ia32lx,ia32lx)\n"
                                   "\tinclude [/b] if not(not(exists($file)))\n"
                                   "\n");
    EXPECT_TRUE(rules->isExcluded(tool.c_str(), nullptr, nullptr));
    EXPECT_EQ(rules->getLastMatchText(), firstRuleText);
    EXPECT_FALSE(rules->isExcluded(tree.path("toolbox/missing").c_str(), nullptr, nullptr));
}

TEST(ParsedRulesPrecomputeScript, SimplifiesEachKindOfCondition) {
    const struct {
        const char* condition;
        const char* simplified;
    } cases[] = {
        {"true and not false", "true"},
        {"not (not ($file exists))", "exists($file)"},
        {"a$ext exists and b$ext exists and c$ext exists", "or([exists(a$ext),exists(b$ext),exists(c$ext)])"},
        {"x$ext exists and not (a$ext exists or b$ext exists)",
         "or([exists(x$ext),not(exists(a$ext)),not(exists(b$ext))])"},
        {"(true or $file exists) and (true or $dir exists)", "true"},
        {"(false and $file exists) or (false and $dir exists)", "false"},
        {"$file exists and $lib == .so", "exists($file)"},
    };
    for (const auto& example : cases) {
        QuorelScript::Parser parser;
        const std::string text = std::string("prune if ") + example.condition + "\n";
        const std::unique_ptr<QuorelScript::Rules> rules(parser.parse(text.c_str()));
        ASSERT_NE(rules, nullptr) << text;
        rules->precompute();
        EXPECT_EQ(printed(*rules), std::string("\tprune if ") + example.simplified + "\n\n") << text;
    }
}
