// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_EXPR_EXPRTESTING_HPP
#define QXQRSCRIPT_TESTS_EXPR_EXPRTESTING_HPP

#include "expr/Bindings.hpp"
#include "expr/Expression.hpp"
#include "expr/PathList.hpp"
#include "expr/PathLiteral.hpp"

#include <cstring>
#include <initializer_list>
#include <sstream>
#include <string>
#include <utility>

// A path literal written as `text`.
inline QuorelScript::PathLiteral* literal(const char* text) {
    return new QuorelScript::PathLiteral(text, text + std::strlen(text));
}

// A list of path literals.
inline QuorelScript::PathList* literals(std::initializer_list<const char*> texts) {
    QuorelScript::OwnedPathList list(new QuorelScript::PathList);
    for (const char* text : texts)
        list->push_back(literal(text));
    return list.release();
}

template <class T>
std::string printed(const QuorelScript::Expression<T>& expression) {
    std::ostringstream out;
    expression.print(out);
    return out.str();
}

// Bindings from name-value pairs, both made into paths.
inline QuorelScript::Bindings bindings(std::initializer_list<std::pair<const char*, const char*>> variables) {
    QuorelScript::Bindings result;
    for (const auto& variable : variables)
        result.emplace(QuorelScript::Path(variable.first), QuorelScript::Path(variable.second));
    return result;
}

// The text that the literal `text` evaluates to under `variables`.
inline std::string evaluated(const char* text, const QuorelScript::Bindings& variables) {
    return QuorelScript::PathLiteral(text, text + std::strlen(text)).evaluate(variables).text();
}

#endif
