// SPDX-License-Identifier: MIT
// Fuzz target: the input is the text of a script. Whatever it holds, parsing
// gives a rule set or a syntax error, and a rule set survives every query.
#include "exerciseRules.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <cstddef>
#include <cstdint>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

namespace {

// Keeps what is written to standard output while it exists, to throw away:
// the debug trace is exercised without flooding the fuzzer's output.
class SilencedStandardOutput {
public:
    SilencedStandardOutput() : saved_(std::cout.rdbuf(discarded_.rdbuf())) {}
    SilencedStandardOutput(const SilencedStandardOutput&) = delete;
    SilencedStandardOutput& operator=(const SilencedStandardOutput&) = delete;
    ~SilencedStandardOutput() { std::cout.rdbuf(saved_); }

private:
    std::ostringstream discarded_;
    std::streambuf* saved_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The library reads a script up to its terminating NUL, so an input with
    // a NUL inside is a shorter script.
    const std::string script(reinterpret_cast<const char*>(data), size);
    QuorelScript::Parser parser;
    std::unique_ptr<QuorelScript::Rules> rules(parser.parse(script.c_str()));
    if (!rules)
        return 0;
    // The same text again, into the rule set it made, with the debug trace
    // on: the append operations and the trace see every accepted script too.
    {
        SilencedStandardOutput silenced;
        parser.parse(rules.get(), script.c_str(), true);
    }
    exerciseRules(*rules);
    return 0;
}
