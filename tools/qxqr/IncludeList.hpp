// SPDX-License-Identifier: MIT
#ifndef QXQR_INCLUDELIST_HPP
#define QXQR_INCLUDELIST_HPP

#include <qxqrscript/QuorelRules.hpp>

#include <string>
#include <vector>

namespace qxqr {

// The files that the include rules add for one file, in the order the
// library reports them (duplicates included, as the library gives them).
class IncludeList : public QuorelRules::Includer {
public:
    bool include(const char* path) override;

    // What the include rules of `rules` add for `file`.
    static std::vector<std::string> of(QuorelRules& rules, const std::string& file);

private:
    std::vector<std::string> included;
};

} // namespace qxqr

#endif
