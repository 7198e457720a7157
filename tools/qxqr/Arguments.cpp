// SPDX-License-Identifier: MIT
#include "Arguments.hpp"

#include <algorithm>

namespace qxqr {

Arguments splitAtSeparator(int argc, const char* const* argv) {
    Arguments arguments;
    const char* const* end = argv + argc;
    const char* const* separator = std::find_if(argv, end, [](const char* word) { return std::string(word) == "--"; });
    arguments.parsed.assign(argv, separator);
    arguments.separated = separator != end;
    if (arguments.separated)
        arguments.operands.assign(separator + 1, end);
    return arguments;
}

} // namespace qxqr
