// SPDX-License-Identifier: MIT
// A host's includer may ask the same rule set about other files, configure
// it anew or bind a variable while getIncludes is handing it files, and may
// reuse the text it asked about: every answer is the one of asking rule by
// rule, with the file and the variables the query began with.
#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

const char script[] = "exclude if $file in [$vantor/]\n"
                      "include [$dir/$name.h, /r2/$name.o] if $ext == .c\n"
                      "include $dir/extra.h if $name == main\n"
                      "include $dir/bound.h if $pkg == yes\n";

class CallbackIncluder : public QuorelRules::Includer {
public:
    explicit CallbackIncluder(std::function<void(const std::string&)> onInclude) : onInclude_(onInclude) {}

    bool include(const char* path) override {
        included.push_back(path);
        onInclude_(path);
        return true;
    }

    std::vector<std::string> included;

private:
    std::function<void(const std::string&)> onInclude_;
};

std::unique_ptr<QuorelScript::Rules> parsedRules() {
    QuorelScript::Parser parser;
    std::unique_ptr<QuorelScript::Rules> rules(parser.parse(script));
    rules->setVantorRoot("/r1");
    return rules;
}

} // namespace

TEST(ParsedRulesReentry, AnIncluderMayAskTheSameRuleSet) {
    std::unique_ptr<QuorelScript::Rules> rules = parsedRules();
    std::vector<std::string> answers;
    CallbackIncluder includer([&](const std::string& path) {
        answers.push_back(path + (rules->isExcluded(path.c_str(), nullptr, nullptr) ? " excluded" : " kept"));
    });
    rules->getIncludes("src/main.c", nullptr, includer);
    EXPECT_EQ(answers, (std::vector<std::string>{"src/main.h kept", "/r2/main.o kept", "src/extra.h kept"}));
}

// A new root applies to the queries that start after it.
TEST(ParsedRulesReentry, AnIncluderMayReconfigureTheRuleSet) {
    std::unique_ptr<QuorelScript::Rules> rules = parsedRules();
    std::vector<std::string> answers;
    CallbackIncluder includer([&](const std::string& path) {
        rules->setVantorRoot("/r2");
        answers.push_back(path + (rules->isExcluded(path.c_str(), nullptr, nullptr) ? " excluded" : " kept"));
    });
    rules->getIncludes("src/main.c", nullptr, includer);
    EXPECT_EQ(answers, (std::vector<std::string>{"src/main.h kept", "/r2/main.o excluded", "src/extra.h kept"}));
}

// A bound variable changes the conditions at once, so the rules after the
// one that included see it.
TEST(ParsedRulesReentry, AVariableBoundByTheIncluderCountsForTheRulesAfter) {
    std::unique_ptr<QuorelScript::Rules> rules = parsedRules();
    CallbackIncluder includer([&](const std::string&) { rules->bindVariable("pkg", "yes"); });
    rules->getIncludes("src/main.c", nullptr, includer);
    EXPECT_EQ(includer.included, (std::vector<std::string>{"src/main.h", "/r2/main.o", "src/extra.h", "src/bound.h"}));
}

// The query copied the file's name when it began.
TEST(ParsedRulesReentry, AnIncluderMayReuseTheTextAskedAbout) {
    std::unique_ptr<QuorelScript::Rules> rules = parsedRules();
    char file[64] = "src/main.c";
    CallbackIncluder includer([&](const std::string&) { std::strcpy(file, "/elsewhere/other.h"); });
    rules->getIncludes(file, nullptr, includer);
    EXPECT_EQ(includer.included, (std::vector<std::string>{"src/main.h", "/r2/main.o", "src/extra.h"}));
}
