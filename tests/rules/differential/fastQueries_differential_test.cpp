// SPDX-License-Identifier: MIT
// The prepared queries answer exactly as the plain evaluation does: for
// random scripts, configurations and files, the same answers, the same match
// texts, the same files handed to the includer and the same host-service
// calls in the same order, and the same written to standard output, where
// the debug trace goes, before and after precompute. Precompute itself is
// held to the plain rewrite: the same printed rules and the same host calls.
// Both sides share what is not being proved here (the bindings, evaluate,
// bindVariable, print, the include expansion); their own tests cover them.
// QXQR_DIFFERENTIAL_SEED chooses the first seed; a failure names its seed.
#include "PlainQueries.hpp"
#include "RecordingHostServices.hpp"
#include "ReferencePrecompute.hpp"
#include "StreamCapture.hpp"

#include "rules/ParsedRules.hpp"

#include <qxqrscript/Parser.hpp>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <exception>
#include <memory>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

using QuorelScript::ParsedRules;
using QuorelScript::Parser;

using Random = std::mt19937;

template <std::size_t N>
const char* pick(Random& random, const char* const (&choices)[N]) {
    return choices[std::uniform_int_distribution<std::size_t>(0, N - 1)(random)];
}

bool chance(Random& random, int percent) {
    return std::uniform_int_distribution<int>(0, 99)(random) < percent;
}

// Paths as a script may write them: every variable, lone and inside longer
// texts, unknown ones, fixed texts that files will and will not match,
// doubled slashes and quotes.
const char* const scriptPaths[] = {"$file",
                                   "$dir",
                                   "$name",
                                   "$ext",
                                   "$caller",
                                   "$vantor",
                                   "$toolbox",
                                   "$cwd",
                                   "$vrk",
                                   "$arch",
                                   "$lib",
                                   "$unknown",
                                   "$dir/$name.h",
                                   "$dir/$name$ext",
                                   "$vantor/lib/",
                                   "$toolbox/include",
                                   "$cwd/src/",
                                   "$file.o",
                                   "$name$vrk",
                                   "/usr/include/",
                                   "/usr/include",
                                   "/opt/v",
                                   "/opt/v/toolbox/",
                                   "src",
                                   "src/gen",
                                   "src/gen/",
                                   ".c",
                                   ".h",
                                   ".so",
                                   "x.c",
                                   "main",
                                   "a//b",
                                   "/",
                                   "\"a b\"",
                                   "\"/s p/x.c\"",
                                   "ia32lx",
                                   ".vrkilx",
                                   "#x",
                                   "c:\\d",
                                   "$dir/*.c",
                                   "$dir/?.h",
                                   "*.c",
                                   "/work/src",
                                   "$x/y",
                                   "plugins/*",
                                   "."};

// The shapes an index covers: a variable of the file against fixed texts.
const char* const fileVariables[] = {"$file", "$dir", "$name", "$ext", "$caller"};
const char* const fixedPaths[] = {"/usr/include/",
                                  "/opt/v/toolbox/",
                                  "src/gen",
                                  "src",
                                  ".c",
                                  ".h",
                                  ".so",
                                  "x.c",
                                  "main",
                                  "/",
                                  "$vantor",
                                  "a//b",
                                  "/opt/v",
                                  "/work/src",
                                  "c",
                                  "$cwd",
                                  "$toolbox/include/",
                                  "$vrk",
                                  "$unknown"};

const char* const fileNames[] = {"",
                                 "/a/b/c.d.e",
                                 "c",
                                 "/c.m",
                                 ".profile",
                                 "a.b/c",
                                 "x/.hidden",
                                 "/usr/include/stdio.h",
                                 "/usr/include",
                                 "/opt/v/toolbox/include/x.h",
                                 "/opt/v/lib/libc.so",
                                 "/opt//v/toolbox",
                                 "src/gen/p.c",
                                 "src//main.c",
                                 "src/main.c/",
                                 "  spaced name.c ",
                                 "\tsrc/gen/x.h\n",
                                 "/a/$file/x",
                                 "$",
                                 "$name",
                                 "${ext}.o",
                                 "/p/$dir$vrk",
                                 "\xc3\xa9t\xc3\xa9.c",
                                 "\xff\xfe/x.c",
                                 "a/./b/../c.h",
                                 "/work/src/x.c",
                                 "x.c",
                                 "main.c",
                                 "a//b/x.so",
                                 "///",
                                 "/s p/x.c",
                                 "plugins/a.vrkilx",
                                 "src/gen",
                                 "a b /c d",
                                 "#x/y.c"};

class ScriptWriter {
public:
    explicit ScriptWriter(Random& random) : random_(random), indexedShare_(chance(random, 30) ? 70 : 5) {}

    std::string script() {
        std::string text;
        // Now and then enough rules of the indexed shapes for an index.
        const int most = indexedShare_ > 50 ? 40 : 10;
        const int rules = std::uniform_int_distribution<int>(0, most)(random_);
        for (int i = 0; i < rules; ++i)
            text += rule() + (chance(random_, 10) ? " % note\n" : "\n");
        return text;
    }

private:
    std::string rule() {
        const char* guard = chance(random_, 80) ? " if " : " unless ";
        switch (std::uniform_int_distribution<int>(0, 2)(random_)) {
        case 0:
            return std::string("exclude") + guard + condition(0);
        case 1:
            return std::string("prune") + guard + condition(0);
        default:
            return "include " + list(true) + guard + condition(0);
        }
    }

    std::string path() { return pick(random_, scriptPaths); }

    // A comparison's subject, often a variable of the file, with fixed texts
    // on the other side.
    std::pair<std::string, bool> subject() {
        if (chance(random_, 50))
            return {pick(random_, fileVariables), true};
        return {path(), false};
    }

    std::string other(bool fixed) { return fixed ? pick(random_, fixedPaths) : path(); }

    std::string otherList(bool fixed, bool bareSingleAllowed) {
        if (!fixed)
            return list(bareSingleAllowed);
        const int items = std::uniform_int_distribution<int>(1, 4)(random_);
        std::string text = "[" + other(true);
        for (int i = 1; i < items; ++i)
            text += ", " + other(true);
        return text + "]";
    }

    std::string list(bool bareSingleAllowed) {
        const int items = std::uniform_int_distribution<int>(1, 4)(random_);
        if (items == 1 && bareSingleAllowed && chance(random_, 50))
            return path();
        std::string text = "[" + path();
        for (int i = 1; i < items; ++i)
            text += ", " + path();
        return text + "]";
    }

    std::string condition(int depth) {
        std::string text = conjunction(depth);
        if (chance(random_, 25))
            text += " or " + condition(depth + 1);
        return text;
    }

    std::string conjunction(int depth) {
        std::string text = unary(depth);
        if (chance(random_, 30))
            text += " and " + conjunction(depth + 1);
        return text;
    }

    std::string unary(int depth) { return (chance(random_, 20) ? "not " : "") + atom(depth); }

    std::string atom(int depth) {
        if (chance(random_, indexedShare_)) {
            const std::string variable = pick(random_, fileVariables);
            return chance(random_, 50) ? variable + " == " + other(true) : variable + " in " + otherList(true, true);
        }
        const auto [left, fixed] = subject();
        switch (std::uniform_int_distribution<int>(0, depth > 3 ? 6 : 8)(random_)) {
        case 0:
            return "true";
        case 1:
            return "false";
        case 2:
            return path() + " exists";
        case 3:
            return chance(random_, 80) ? left + " == " + other(fixed) : other(fixed) + " == " + left;
        case 4:
            return left + " != " + other(fixed);
        case 5:
            return left + " in " + otherList(fixed, true);
        case 6:
            return left + " not in " + otherList(fixed, false);
        default:
            return "(" + condition(depth + 1) + ")";
        }
    }

    Random& random_;
    // How often, in percent, a comparison takes a shape an index covers.
    int indexedShare_;
};

// Some refer to variables that precompute binds, so that the order of its
// bindings shows.
const char* const roots[] = {"/opt/v", "/opt/v/", " /opt//v ", "", "$file", "/x/$dir", "/s p", "$cwd/v"};
const char* const directories[] = {"/work", "/work/", "", "$ext/w", "src", "$vrk/w"};
const char* const boundNames[] = {"file", "dir", "ext", "x", "vantor", "caller", "name", "unknown", "toolbox"};
const char* const boundValues[] = {"/b", "$name", "${ext}", "a//b", " c ", "", "/opt/v", "$x/y", "src/gen"};

// One rule set queried through its prepared queries, its twin through the
// plain evaluation; both configured alike.
struct Twins {
    std::unique_ptr<ParsedRules> fast;
    std::unique_ptr<ParsedRules> plain;
    PlainQueries::Configuration configuration;
    std::string plainLastMatch;
};

std::unique_ptr<ParsedRules> parsed(Parser& parser, const std::string& script) {
    return std::unique_ptr<ParsedRules>(static_cast<ParsedRules*>(parser.parse(script.c_str())));
}

// Sets the same configuration on both twins; `percent` scales how much of
// it changes.
void configure(Random& random, Twins& twins, int percent) {
    if (chance(random, 70 * percent / 100)) {
        const char* root = pick(random, roots);
        twins.fast->setVantorRoot(root);
        twins.plain->setVantorRoot(root);
        twins.configuration.hasRoot = true;
        twins.configuration.vantorRoot = root;
    }
    if (chance(random, 60 * percent / 100)) {
        const char* directory = pick(random, directories);
        twins.fast->setCwd(directory);
        twins.plain->setCwd(directory);
        twins.configuration.hasCwd = true;
        twins.configuration.cwd = directory;
    }
    if (chance(random, 40 * percent / 100)) {
        const char* name = pick(random, boundNames);
        const char* value = pick(random, boundValues);
        twins.fast->bindVariable(name, value);
        twins.plain->bindVariable(name, value);
    }
}

class RecordingIncluder : public QuorelRules::Includer {
public:
    bool include(const char* path) override {
        RecordingHostServices::log().push_back(std::string("include ") + path);
        return true;
    }
};

std::string queryFile(Random& random) {
    if (chance(random, 70))
        return pick(random, fileNames);
    // A file made of pieces, with doubled slashes, blanks and long names.
    std::string file;
    const int pieces = std::uniform_int_distribution<int>(1, 5)(random);
    for (int i = 0; i < pieces; ++i) {
        file += pick(random, {"/", "//", "", " "});
        file +=
            chance(random, 5) ? std::string(300, 'n') : pick(random, {"src", "gen", "a.b", "x.c", "$dir", "..", "."});
    }
    return file;
}

template <class List>
int questionsAsked(const List* rules) {
    return rules != nullptr && !rules->empty() ? 1 : 0;
}

// What one side of a comparison leaves to be seen: the host calls and the
// includer's paths in order, and what it wrote to standard output, where
// the debug trace goes.
struct Observed {
    std::vector<std::string> calls;
    std::string output;
};

template <class Ask>
Observed observe(Ask ask) {
    std::vector<std::string>& log = RecordingHostServices::log();
    log.clear();
    const qxqr::StreamCapture output;
    ask();
    return {log, output.text()};
}

void expectAlike(const Observed& plain, const Observed& fast, const char* question) {
    EXPECT_EQ(plain.calls, fast.calls) << question;
    EXPECT_EQ(plain.output, fast.output) << question << ", standard output";
}

// Asks both twins the three questions about one file and compares all that
// can be seen; returns how many of the questions had rules to answer them.
int compareQueries(Twins& twins, const char* file, const char* caller) {
    RecordingIncluder includer;

    bool fastExcluded = false, plainExcluded = false;
    const Observed fastExclude = observe([&] { fastExcluded = twins.fast->isExcluded(file, nullptr, caller); });
    const Observed plainExclude = observe([&] {
        plainExcluded = PlainQueries::firstMatch(twins.plain->excludeRuleList(), twins.configuration, file, caller,
                                                 twins.plainLastMatch);
    });
    EXPECT_EQ(plainExcluded, fastExcluded) << "isExcluded";
    expectAlike(plainExclude, fastExclude, "isExcluded");
    EXPECT_EQ(twins.plainLastMatch, twins.fast->getLastMatchText()) << "getLastMatchText after isExcluded";

    bool fastPruned = false, plainPruned = false;
    const Observed fastPrune = observe([&] { fastPruned = twins.fast->isPruned(file, nullptr, caller); });
    const Observed plainPrune = observe([&] {
        plainPruned = PlainQueries::firstMatch(twins.plain->pruneRuleList(), twins.configuration, file, caller,
                                               twins.plainLastMatch);
    });
    EXPECT_EQ(plainPruned, fastPruned) << "isPruned";
    expectAlike(plainPrune, fastPrune, "isPruned");
    EXPECT_EQ(twins.plainLastMatch, twins.fast->getLastMatchText()) << "getLastMatchText after isPruned";

    const Observed fastInclude = observe([&] { twins.fast->getIncludes(file, nullptr, includer); });
    const Observed plainInclude =
        observe([&] { PlainQueries::includes(twins.plain->includeRuleList(), twins.configuration, file, includer); });
    expectAlike(plainInclude, fastInclude, "getIncludes");
    EXPECT_EQ(twins.plainLastMatch, twins.fast->getLastMatchText()) << "getLastMatchText after getIncludes";
    return questionsAsked(twins.plain->excludeRuleList()) + questionsAsked(twins.plain->pruneRuleList()) +
           questionsAsked(twins.plain->includeRuleList());
}

std::string printed(const ParsedRules& rules) {
    std::ostringstream out;
    rules.print(out);
    return out.str();
}

// Precomputes the fast twin and replaces the plain one by the plain
// rewrite of it; both must print alike and ask the host the same.
void precomputeBoth(Twins& twins) {
    const Observed fast = observe([&] { twins.fast->precompute(); });
    const Observed plain =
        observe([&] { twins.plain = ReferencePrecompute::precomputed(*twins.plain, twins.configuration); });
    expectAlike(plain, fast, "precompute");
    EXPECT_EQ(printed(*twins.plain), printed(*twins.fast)) << "precompute";
    EXPECT_EQ(twins.plainLastMatch, twins.fast->getLastMatchText()) << "getLastMatchText after precompute";
}

// Each twin has a parser of its own, since what a parser hands to a new rule
// set depends on what it parsed before: a list emptied by appending to a
// rule set stays, empty, for the next.
struct Parsers {
    Parser fast;
    Parser plain;
};

// A further script parsed into both twins, its rules after theirs; the
// queries must prepare anew.
void appendScript(Parsers& parsers, Random& random, Twins& twins) {
    const std::string script = ScriptWriter(random).script();
    SCOPED_TRACE("appended script:\n" + script);
    parsers.fast.parse(twins.fast.get(), script.c_str());
    parsers.plain.parse(twins.plain.get(), script.c_str());
    EXPECT_EQ(printed(*twins.plain), printed(*twins.fast)) << "appended script";
}

int compareScript(Parsers& parsers, unsigned seed) {
    Random random(seed);
    const std::string script = ScriptWriter(random).script();
    SCOPED_TRACE("seed " + std::to_string(seed) + ", script:\n" + script);
    Twins twins{parsed(parsers.fast, script), parsed(parsers.plain, script), {}, {}};
    if (!twins.fast || !twins.plain) {
        ADD_FAILURE() << "the generated script does not parse";
        return 0;
    }
    configure(random, twins, 100);
    int compared = 0;
    for (int round = 0; round < 2; ++round) {
        if (round == 1)
            precomputeBoth(twins);
        for (int i = 0; i < 12 && !::testing::Test::HasFailure(); ++i) {
            // Now and then the configuration or the rules change between two
            // queries, and the queries must prepare anew.
            if (chance(random, 8))
                configure(random, twins, 50);
            if (chance(random, 2))
                appendScript(parsers, random, twins);
            const std::string file = queryFile(random);
            const std::string caller = queryFile(random);
            SCOPED_TRACE("file '" + file + "', caller '" + caller + "'");
            const bool nullFile = chance(random, 3);
            const bool nullCaller = chance(random, 10);
            compared += compareQueries(twins, nullFile ? nullptr : file.c_str(), nullCaller ? nullptr : caller.c_str());
        }
        EXPECT_EQ(printed(*twins.plain), printed(*twins.fast));
    }
    return compared;
}

unsigned firstSeed() {
    const char* chosen = std::getenv("QXQR_DIFFERENTIAL_SEED");
    if (chosen == nullptr)
        return 20261122;
    char* end = nullptr;
    const unsigned long seed = std::strtoul(chosen, &end, 10);
    if (end == chosen || *end != '\0')
        ADD_FAILURE() << "QXQR_DIFFERENTIAL_SEED is not a number: '" << chosen << "'";
    return static_cast<unsigned>(seed);
}

// Compares scripts, one seed after the other, until `wanted` questions that
// had rules to answer them are compared, in the locale named.
void compareInLocale(const char* locale, int wanted) {
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(nullptr, std::setlocale(LC_ALL, locale)) << locale;
    Parsers parsers;
    int compared = 0;
    for (unsigned seed = firstSeed(); compared < wanted && !::testing::Test::HasFailure(); ++seed) {
        try {
            compared += compareScript(parsers, seed);
        } catch (const std::exception& error) {
            ADD_FAILURE() << "seed " << seed << ": " << error.what();
        }
    }
    std::setlocale(LC_ALL, saved.c_str());
    EXPECT_GE(compared, wanted);
}

} // namespace

TEST(FastQueries, AnswerExactlyAsThePlainEvaluation) {
    compareInLocale("C", 100000);
}

// In UTF-8, paths are normalized along another way than in the C locale.
TEST(FastQueries, AnswerExactlyAsThePlainEvaluationInUtf8) {
    compareInLocale("C.UTF-8", 20000);
}
