#ifndef QXQRSCRIPT_TESTS_COLLECTINGINCLUDER_HPP
#define QXQRSCRIPT_TESTS_COLLECTINGINCLUDER_HPP

#include <qxqrscript/QuorelRules.hpp>

#include <string>
#include <vector>

// A host's includer that keeps every file the include rules add, in order.
class CollectingIncluder : public QuorelRules::Includer {
public:
    bool include(const char* path) override {
        files.push_back(path);
        return true;
    }
    std::vector<std::string> files;
};

#endif
