// SPDX-License-Identifier: MIT
// Fuzz target: the input is the text of a script. Whatever it holds, parsing
// gives a rule set or a syntax error, and a rule set survives every query.
#include "StreamCapture.hpp"
#include "exerciseRules.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

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
    // The trace is thrown away rather than flood the fuzzer's output.
    {
        const qxqr::StreamCapture discarded;
        parser.parse(rules.get(), script.c_str(), true);
    }
    exerciseRules(*rules);
    return 0;
}
