// SPDX-License-Identifier: MIT
#include "Settings.hpp"

#include "PathParts.hpp"

#include <map>

namespace qxqr::bench {

std::string withHostValues(const std::string& path, const Settings& settings) {
    const std::map<std::string, std::string> values = {{"vantor", settings.vantorRoot},
                                                       {"toolbox", settings.vantorRoot + "/toolbox"},
                                                       {"cwd", settings.cwd},
                                                       {"vrk", ".vrkilx"},
                                                       {"lib", ".so"},
                                                       {"arch", "ia32lx"}};
    std::string result;
    for (const PathPart& part : pathParts(path)) {
        auto value = part.isVariable ? values.find(part.text) : values.end();
        if (value != values.end())
            result += value->second;
        else
            result += part.isVariable ? "$" + part.text : part.text;
    }
    return result;
}

} // namespace qxqr::bench
