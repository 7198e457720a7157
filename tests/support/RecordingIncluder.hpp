// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_RECORDINGINCLUDER_HPP
#define QXQRSCRIPT_TESTS_RECORDINGINCLUDER_HPP

#include <qxqrscript/QuorelRules.hpp>

#include <string>
#include <vector>

// A host's includer that keeps every path it is given, in order.
class RecordingIncluder : public QuorelRules::Includer {
public:
    bool include(const char* path) override {
        paths.push_back(path);
        return true;
    }

    std::vector<std::string> paths;
};

#endif
