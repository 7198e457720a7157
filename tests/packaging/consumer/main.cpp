// SPDX-License-Identifier: MIT
// A host program built against an installed copy of the library: it parses
// a one-rule script, asks one question, and asks it again with a trace.
#include <qxqrscript.hpp>

#include <iostream>
#include <memory>
#include <string>

int main() {
    QuorelScript::Parser parser;
    std::unique_ptr<QuorelScript::Rules> rules(parser.parse("exclude if $ext == .o\n"));
    const std::string headersVersion = std::to_string(QXQRSCRIPT_VERSION_MAJOR) + "." +
                                       std::to_string(QXQRSCRIPT_VERSION_MINOR) + "." +
                                       std::to_string(QXQRSCRIPT_VERSION_PATCH);
    if (!rules || libqxqrscript_version != headersVersion)
        return 1;
    if (!rules->isExcluded("/src/main.o", nullptr, nullptr) || rules->isExcluded("/src/main.c", nullptr, nullptr))
        return 1;
    using namespace QuorelScript::Observe;
    if (traceQuery(*rules, Question::Excluded, "/src/main.o", nullptr).decidingRule != 0)
        return 1;
    std::cout << "installed package works" << std::endl;
    return 0;
}
