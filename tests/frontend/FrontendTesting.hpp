// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_FRONTEND_FRONTENDTESTING_HPP
#define QXQRSCRIPT_TESTS_FRONTEND_FRONTENDTESTING_HPP

#include "StreamCapture.hpp"

#include <qxqrscript/Rules.hpp>

#include <iostream>
#include <memory>
#include <sstream>
#include <streambuf>
#include <string>

namespace FrontendTesting {

// The printed form of a rule set.
inline std::string printed(const QuorelScript::Rules& rules) {
    std::ostringstream out;
    out << &rules;
    return out.str();
}

// The message a syntax error on `line` of the script `name` at `text` produces.
inline std::string syntaxErrorMessage(const std::string& name, int line, const std::string& text) {
    return "Syntax error in quorel rules script (" + name + ") at line " + std::to_string(line) + ":\n" + text + "\n\n";
}

// While it exists, writing to standard output throws std::ios_base::failure:
// a way to make an exception leave a parse that traces.
class ThrowingStandardOutput {
public:
    ThrowingStandardOutput() : redirect_(std::cout, refusing_), savedMask_(std::cout.exceptions()) {
        std::cout.exceptions(std::ios_base::badbit);
    }
    ThrowingStandardOutput(const ThrowingStandardOutput&) = delete;
    ThrowingStandardOutput& operator=(const ThrowingStandardOutput&) = delete;
    ~ThrowingStandardOutput() {
        std::cout.clear();
        std::cout.exceptions(savedMask_);
    }

private:
    // Refuses every character.
    class RefusingBuffer : public std::streambuf {
    protected:
        int_type overflow(int_type) override { return traits_type::eof(); }
    };

    RefusingBuffer refusing_;
    qxqr::StreamRedirect redirect_;
    std::ios_base::iostate savedMask_;
};

} // namespace FrontendTesting

#endif
