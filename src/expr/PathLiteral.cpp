// SPDX-License-Identifier: MIT
#include "expr/PathLiteral.hpp"

#include <ostream>

namespace QuorelScript {

PathLiteral::PathLiteral(const char* first, const char* last) : path_(Path::verbatim(first, last)) {}

// The literal itself stays as it is; its value is a substituted copy.
Path PathLiteral::evaluate(const Bindings& bindings) const {
    Path value(path_);
    value.substituteVariables(bindings);
    return value;
}

// The copy gets a normalizer of its own rather than sharing this one.
Expression<Path>* PathLiteral::clone() const {
    const char* first = path_.text().data();
    return new PathLiteral(first, first + path_.length());
}

std::ostream& PathLiteral::print(std::ostream& out) const {
    return out << path_.text();
}

bool PathLiteral::hasVariables() const {
    return path_.text().find('$') != std::string::npos;
}

// A text without references has nothing to substitute: it stays as it is.
void PathLiteral::substituteVariables(const Bindings& bindings) {
    if (hasVariables())
        path_ = evaluate(bindings);
}

} // namespace QuorelScript
