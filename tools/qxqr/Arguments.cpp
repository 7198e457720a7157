#include "Arguments.hpp"

#include <algorithm>
#include <istream>

namespace qxqr {

Arguments splitAtSeparator(int argc, const char* const* argv)
{
    Arguments arguments;
    const char* const* end = argv + argc;
    const char* const* separator =
        std::find_if(argv, end, [](const char* word) { return std::string(word) == "--"; });
    arguments.parsed.assign(argv, separator);
    arguments.separated = separator != end;
    if (arguments.separated)
        arguments.operands.assign(separator + 1, end);
    return arguments;
}

namespace {

void appendLines(std::istream& in, std::vector<std::string>& paths)
{
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (!line.empty())
            paths.push_back(line);
    }
}

} // namespace

std::vector<std::string> expandStandardInput(const std::vector<std::string>& operands, std::istream& in)
{
    std::vector<std::string> paths;
    for (const std::string& operand : operands) {
        if (operand == "-")
            appendLines(in, paths);
        else
            paths.push_back(operand);
    }
    return paths;
}

} // namespace qxqr
