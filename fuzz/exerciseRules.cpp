// SPDX-License-Identifier: MIT
#include "exerciseRules.hpp"

#include <qxqrscript/Rules.hpp>

#include <sstream>

namespace {

// Counts the files the include rules add. The fake file tree is small, so
// even "include /*/*/* if true" adds a bounded number of them.
class CountingIncluder : public QuorelRules::Includer {
public:
    bool include(const char*) override {
        ++count;
        return true;
    }

    unsigned long count = 0;
};

struct Query {
    const char* file;
    const char* caller;
};

// Files of the fake tree and around it: inside the installation and the
// project, a hidden file, a blank in a name, a relative path, doubled and
// trailing slashes, no extension, and no file at all.
const Query queries[] = {
    {"/work/src/main.c", "/work/src/util.c"},
    {"/vantor/lib/libcore.so", nullptr},
    {"/vantor/toolbox/local/x.o", "/work/src/main.c"},
    {"/work/notes/release notes.txt", ""},
    {"/work/.hidden", "/work"},
    {"a/b.c", "a"},
    {"//work//src/", "/"},
    {"", nullptr},
};

void askAbout(QuorelScript::Rules& rules) {
    CountingIncluder includer;
    for (const Query& query : queries) {
        rules.isExcluded(query.file, nullptr, query.caller);
        rules.isPruned(query.file, nullptr, query.caller);
        rules.getIncludes(query.file, nullptr, includer);
        rules.getLastMatchText();
    }
}

void print(const QuorelScript::Rules& rules) {
    std::ostringstream printed;
    printed << &rules;
}

} // namespace

void exerciseRules(QuorelScript::Rules& rules) {
    print(rules);
    rules.bindVariable("project", "/work");
    rules.setVantorRoot("/vantor");
    rules.setCwd("/work");
    askAbout(rules);
    rules.precompute();
    print(rules);
    askAbout(rules);
}
