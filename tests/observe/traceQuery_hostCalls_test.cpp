// SPDX-License-Identifier: MIT
// A traced query asks the host services exactly what the query itself asks,
// in the same order, and comes to the same answers: for scripts that test
// existence, list directories and match patterns, for scripts with enough
// guarded rules of a kind that the prepared queries look them up in an
// index, and for a rule set built by hand, before and after precompute;
// also in a multibyte locale other than UTF-8, where the runs of slashes are
// found with the host's text search. That search is a pure function, and it
// is not among the calls compared: a prepared query looks for doubled
// slashes only in the texts its conditions read, where the trace binds every
// variable first, as a query evaluated rule by rule does.
#include "RecordingHostServices.hpp"
#include "RecordingIncluder.hpp"
#include "RulesTesting.hpp"

#include "rules/ParsedRules.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>
#include <qxqrscript/host.hpp>
#include <qxqrscript/observe.hpp>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

// The linker takes this in place of the library's own, which lives in a
// separate member of its static archive. The library asks it only in a
// multibyte locale other than UTF-8: GBK here, where no byte of a two-byte
// character is a slash, so that a search byte by byte finds what the real
// one finds.
std::size_t searchesForSlashes = 0;

char* hbMultiByteStrStr(char* haystack, const char* needle) {
    ++searchesForSlashes;
    return std::strstr(haystack, needle);
}

namespace {

using QuorelScript::Observe::QueryTrace;
using QuorelScript::Observe::Question;
using QuorelScript::Observe::traceQuery;

const char* const scripts[] = {
    "exclude if $dir/$name.o exists and $ext == .c\n"
    "exclude if $file in [$toolbox/, /usr/include] or $name.h exists\n"
    "exclude unless not ($caller exists) and $cwd/x exists\n"
    "prune if /fixed exists or $dir exists\n"
    "prune if not ($file == $caller) and $vantor/lib exists\n"
    "include [$dir/$name.h, $dir, $dir/*.c, $caller/x] if $ext == .c or $dir/?.h exists\n"
    "include [lib/libm$lib] if $toolbox exists\n",

    "exclude if $unknown/a exists or $file in [$cwd, $dir/$name]\n"
    "exclude if (a exists and b exists or c exists) and $name == never\n"
    "exclude if $ext == .h\n"
    "prune if true and $name exists\n"
    "prune if not (x exists) and not (not ($file exists))\n"
    "include [a, b/*, $vantor] if true\n"
    "include [$file.d] if $dir/.deps exists\n",

    // Twelve exclude rules, ten prune rules and ten include rules of which
    // at least ten of each kind test a variable against fixed texts before
    // anything else: more than enough for the prepared queries to find
    // them through an index rather than one by one.
    "exclude if $ext == .o and $dir//obj exists\n"
    "exclude if $ext == .a\n"
    "exclude if $file in [/usr/include/, /opt/v/toolbox/] and $name.h exists\n"
    "exclude if $name == main and $caller exists\n"
    "exclude if $dir == /src and not ($dir//$name.skip exists)\n"
    "exclude if $ext == .tmp or $name.tmp exists\n"
    "exclude if $file in [/a/, /b/] and $dir exists\n"
    "exclude if $ext == .h and $dir//$name.c exists\n"
    "exclude if $name == y or $name == z\n"
    "exclude if $file in [/src/] and $ext == .c and $dir//main.o exists\n"
    "exclude if $ext == .d\n"
    "exclude if $dir exists\n"
    "prune if $ext == .c and $dir//.git exists\n"
    "prune if $name == x and $caller//x exists\n"
    "prune if $file in [/usr/] and $file exists\n"
    "prune if $ext == .h and not ($dir//$name.h exists)\n"
    "prune if $dir == /src and $cwd//src exists\n"
    "prune if $name == b.c and $toolbox//lib exists\n"
    "prune if $file in [/opt/, /src/] and $dir//CVS exists\n"
    "prune if $ext == .o and $vantor exists\n"
    "prune if $name == t\n"
    "prune if $ext == .y or $ext == .h and $file exists\n"
    "include [$dir//$name.h] if $ext == .c and $dir//$name.h exists\n"
    "include [$dir, $dir/*.o] if $ext == .o\n"
    "include [$toolbox//include] if $file in [/opt/] and $toolbox exists\n"
    "include [$file.d] if $name == main\n"
    "include [$dir//?.h] if $ext == .h and $dir exists\n"
    "include [$caller] if $dir == /src and $caller exists\n"
    "include [a//b] if $name == y\n"
    "include [$cwd//$name] if $file in [/a/, src/] and $cwd exists\n"
    "include [$vantor/lib$lib] if $ext == .c and $vantor//lib exists\n"
    "include [$dir/x] if $name == x and $dir//x exists\n",
};

const char* const files[] = {"/src/main.c",  "/src/x.h",          "src/y", "", "/opt/v/toolbox/include/t.h", "/a/b.c.o",
                             "/src//main.c", "/usr//include//x.h"};
const char* const callers[] = {"/src/app.c", "/src//app.c", nullptr};

// What a query answered and asked.
struct Observed {
    bool answer = false;
    std::string lastMatchText;
    std::vector<std::string> included;
    std::vector<std::string> hostCalls;

    bool operator==(const Observed& other) const {
        return answer == other.answer && lastMatchText == other.lastMatchText && included == other.included &&
               hostCalls == other.hostCalls;
    }
};

std::ostream& operator<<(std::ostream& out, const Observed& observed) {
    out << "answer " << observed.answer << ", match text '" << observed.lastMatchText << "', included:";
    for (const std::string& file : observed.included)
        out << ' ' << file;
    out << ", host calls:";
    for (const std::string& call : observed.hostCalls)
        out << "\n  " << call;
    return out;
}

Observed asked(QuorelScript::Rules& rules, Question question, const char* file, const char* caller) {
    RecordingHostServices::log().clear();
    Observed observed;
    RecordingIncluder includer;
    switch (question) {
    case Question::Excluded:
        observed.answer = rules.isExcluded(file, nullptr, caller);
        break;
    case Question::Pruned:
        observed.answer = rules.isPruned(file, nullptr, caller);
        break;
    case Question::Includes:
        rules.getIncludes(file, nullptr, includer);
        observed.answer = !includer.paths.empty();
        break;
    }
    observed.included = includer.paths;
    observed.lastMatchText = rules.getLastMatchText();
    observed.hostCalls = RecordingHostServices::log();
    return observed;
}

Observed traced(QuorelScript::Rules& rules, Question question, const char* file, const char* caller) {
    RecordingHostServices::log().clear();
    const QueryTrace trace = traceQuery(rules, question, file, caller);
    Observed observed;
    observed.hostCalls = RecordingHostServices::log();
    for (const auto& rule : trace.rules)
        for (const auto& path : rule.included)
            observed.included.insert(observed.included.end(), path.files.begin(), path.files.end());
    observed.answer = question == Question::Includes ? !observed.included.empty() : trace.answer;
    observed.lastMatchText = rules.getLastMatchText();
    return observed;
}

void compareEveryQuery(QuorelScript::Rules& rules, const std::string& context) {
    for (const char* file : files)
        for (const char* caller : callers)
            for (Question question : {Question::Excluded, Question::Pruned, Question::Includes}) {
                const std::string query =
                    context + ", file '" + file + "', question " + std::to_string(static_cast<int>(question));
                const Observed plain = asked(rules, question, file, caller);
                const Observed withTrace = traced(rules, question, file, caller);
                EXPECT_EQ(withTrace, plain) << query;
                EXPECT_FALSE(plain.hostCalls.empty() && question != Question::Pruned && *file)
                    << "the scripts make every query ask the host something: " << query;
            }
}

// The rules of a kind in a rule set built by hand, in forms that no script
// gives before precompute: n-ary and and or, a rule without a condition, a
// not over an n-ary or.
QuorelScript::Rules* builtByHand() {
    using namespace testing_rules;
    return new ParsedRules(
        new ExcludeRuleList{
            rule<ExcludeRule>("E0", nullptr),
            rule<ExcludeRule>("E1", any({exists("$dir//$name.c"), equals("$ext", ".h"), in("$file", {"/src/"})})),
            rule<ExcludeRule>("E2", all({exists("$caller"), negation(any({exists("$dir"), truth(false)}))})),
            rule<ExcludeRule>("E3", both(in("$file", {"/a/", "$cwd//a"}), exists("$file.bak"))),
        },
        new PruneRuleList{
            rule<PruneRule>("P1", either(negation(exists("$toolbox//x")), equals("$name", "main"))),
            rule<PruneRule>("P2", all({truth(true), exists("/fixed//path"), equals("$vantor", "/opt/v")})),
        },
        new IncludeRuleList{
            includeRule({"$dir//$name.h", "$dir/*"}, any({exists("$dir"), equals("$ext", ".c")})),
            includeRule({"$vantor/x"}, nullptr),
            includeRule({"$caller", "$file.d"}, all({truth(true), negation(exists("$file.d"))})),
        });
}

void compareBeforeAndAfterPrecompute(QuorelScript::Rules& rules, const std::string& name) {
    rules.setVantorRoot("/opt/v");
    rules.setCwd("/work");
    compareEveryQuery(rules, "before precompute: " + name);
    rules.precompute();
    compareEveryQuery(rules, "after precompute: " + name);
}

TEST(traceQuery, AsksTheHostWhatTheQueryAsks) {
    for (const char* script : scripts) {
        QuorelScript::Parser parser;
        std::unique_ptr<QuorelScript::Rules> rules(parser.parse(script));
        ASSERT_TRUE(rules) << script;
        compareBeforeAndAfterPrecompute(*rules, script);
    }
}

TEST(traceQuery, AsksTheHostWhatTheQueryAsksOfRulesBuiltByHand) {
    const std::unique_ptr<QuorelScript::Rules> rules(builtByHand());
    compareBeforeAndAfterPrecompute(*rules, "rules built by hand");
}

// Puts the locale it found back when it goes, however the test ends.
class LocaleRestorer {
public:
    LocaleRestorer() : saved_(std::setlocale(LC_ALL, nullptr)) {}
    LocaleRestorer(const LocaleRestorer&) = delete;
    LocaleRestorer& operator=(const LocaleRestorer&) = delete;
    ~LocaleRestorer() { std::setlocale(LC_ALL, saved_.c_str()); }

private:
    std::string saved_;
};

TEST(traceQuery, AsksTheHostWhatTheQueryAsksWhereTheHostSearchesForSlashes) {
    const LocaleRestorer restorer;
    ASSERT_NE(nullptr, std::setlocale(LC_ALL, "C.GBK"))
        << "no GBK locale: CTest makes it and sets LOCPATH (now '"
        << (std::getenv("LOCPATH") != nullptr ? std::getenv("LOCPATH") : "") << "')";
    searchesForSlashes = 0;
    for (const char* script : scripts) {
        QuorelScript::Parser parser;
        std::unique_ptr<QuorelScript::Rules> rules(parser.parse(script));
        ASSERT_TRUE(rules) << script;
        compareBeforeAndAfterPrecompute(*rules, script);
    }
    const std::unique_ptr<QuorelScript::Rules> rules(builtByHand());
    compareBeforeAndAfterPrecompute(*rules, "rules built by hand");
    EXPECT_GT(searchesForSlashes, 0u)
        << "the doubled slashes in the scripts and the files are found by the host's search";
}

} // namespace
