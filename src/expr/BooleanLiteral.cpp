// SPDX-License-Identifier: MIT
#include "expr/BooleanLiteral.hpp"

#include <ostream>

namespace QuorelScript {

BooleanLiteral::BooleanLiteral(bool value) : value_(value) {}

bool BooleanLiteral::evaluate(const Bindings&) const {
    return value_;
}

Expression<bool>* BooleanLiteral::clone() const {
    return new BooleanLiteral(value_);
}

std::ostream& BooleanLiteral::print(std::ostream& out) const {
    return out << (value_ ? "true" : "false");
}

bool BooleanLiteral::hasVariables() const {
    return false;
}

void BooleanLiteral::substituteVariables(const Bindings&) {}

} // namespace QuorelScript
