// A host's includer may ask the same rule set about other files, or even
// configure it anew, while getIncludes is handing it files.
#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

const char script[] = "exclude if $ext == .o\n"
                      "include [$dir/$name.h, $dir/$name.o] if $ext == .c\n"
                      "include $dir/extra.h if $name == main\n";

class AskingIncluder : public QuorelRules::Includer {
public:
    AskingIncluder(QuorelScript::Rules& rules, bool reconfigure) : rules_(rules), reconfigure_(reconfigure) {}

    bool include(const char* path) override {
        const std::string file(path);
        if (reconfigure_)
            rules_.setVantorRoot(("/root/" + file).c_str());
        answers.push_back(file + (rules_.isExcluded(path, nullptr, nullptr) ? " excluded" : " kept"));
        return true;
    }

    std::vector<std::string> answers;

private:
    QuorelScript::Rules& rules_;
    bool reconfigure_;
};

void expectNestedQueriesAnswered(bool reconfigure) {
    QuorelScript::Parser parser;
    std::unique_ptr<QuorelScript::Rules> rules(parser.parse(script));
    AskingIncluder includer(*rules, reconfigure);
    rules->getIncludes("src/main.c", nullptr, includer);
    EXPECT_EQ(includer.answers,
              (std::vector<std::string>{"src/main.h kept", "src/main.o excluded", "src/extra.h kept"}));
}

} // namespace

TEST(ParsedRulesReentry, AnIncluderMayAskTheSameRuleSet) {
    expectNestedQueriesAnswered(false);
}

TEST(ParsedRulesReentry, AnIncluderMayReconfigureTheRuleSet) {
    expectNestedQueriesAnswered(true);
}
