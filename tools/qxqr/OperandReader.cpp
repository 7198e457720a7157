// SPDX-License-Identifier: MIT
#include "OperandReader.hpp"

#include <istream>
#include <utility>

namespace qxqr {

OperandReader::OperandReader(std::vector<std::string> operands, std::istream& in)
    : operands(std::move(operands)), in(in) {}

bool OperandReader::next(std::string& path) {
    while (true) {
        if (readingInput && nextLine(path))
            return true;
        readingInput = false;
        if (position == operands.size())
            return false;
        const std::string& operand = operands[position++];
        if (operand != "-") {
            path = operand;
            return true;
        }
        readingInput = true;
    }
}

bool OperandReader::nextLine(std::string& path) {
    while (std::getline(in, path)) {
        if (!path.empty() && path.back() == '\r')
            path.pop_back();
        if (!path.empty())
            return true;
    }
    return false;
}

} // namespace qxqr
