// SPDX-License-Identifier: MIT
#include "observe/RecordedText.hpp"

#include <cctype>

namespace QuorelScript {

RecordedText splitRecordedText(const std::string& recorded) {
    static const std::string lineMark = ", line ";
    static const std::string headingEnd = ": ";
    RecordedText whole{std::string(), 0, recorded};
    const std::string::size_type lineEnd = recorded.find('\n');
    if (lineEnd == std::string::npos || lineEnd < headingEnd.size() ||
        recorded.compare(lineEnd - headingEnd.size(), headingEnd.size(), headingEnd) != 0)
        return whole;
    const std::string::size_type digitsEnd = lineEnd - headingEnd.size();
    std::string::size_type digitsStart = digitsEnd;
    while (digitsStart > 0 && std::isdigit(static_cast<unsigned char>(recorded[digitsStart - 1])))
        --digitsStart;
    if (digitsStart == digitsEnd || digitsStart < lineMark.size() ||
        recorded.compare(digitsStart - lineMark.size(), lineMark.size(), lineMark) != 0)
        return whole;
    const std::string digits = recorded.substr(digitsStart, digitsEnd - digitsStart);
    return {recorded.substr(0, digitsStart - lineMark.size()), digits.size() > 18 ? 0 : std::stol(digits),
            recorded.substr(lineEnd + 1)};
}

} // namespace QuorelScript
