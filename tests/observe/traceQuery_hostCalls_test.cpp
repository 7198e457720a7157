// SPDX-License-Identifier: MIT
// A traced query asks the host services exactly what the query itself asks,
// in the same order, and comes to the same answers: for scripts that test
// existence, list directories and match patterns, before and after
// precompute.
#include "RecordingHostServices.hpp"
#include "RecordingIncluder.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>
#include <qxqrscript/observe.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

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
};

const char* const files[] = {"/src/main.c", "/src/x.h", "src/y", "", "/opt/v/toolbox/include/t.h", "/a/b.c.o"};
const char* const callers[] = {"/src/app.c", nullptr};

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

TEST(traceQuery, AsksTheHostWhatTheQueryAsks) {
    for (const char* script : scripts) {
        QuorelScript::Parser parser;
        std::unique_ptr<QuorelScript::Rules> rules(parser.parse(script));
        ASSERT_TRUE(rules) << script;
        rules->setVantorRoot("/opt/v");
        rules->setCwd("/work");
        compareEveryQuery(*rules, std::string("before precompute: ") + script);
        rules->precompute();
        compareEveryQuery(*rules, std::string("after precompute: ") + script);
    }
}

} // namespace
