// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_BINDINGS_HPP
#define QXQRSCRIPT_EXPR_BINDINGS_HPP

#include "expr/Path.hpp"

#include <map>
#include <string_view>

namespace QuorelScript {

// Orders paths by their text, and lets a map of paths be searched with a
// bare text, so that looking a name up needs no path made for it.
struct PathOrder {
    using is_transparent = void;

    bool operator()(const Path& a, const Path& b) const { return a < b; }
    bool operator()(const Path& a, std::string_view b) const { return std::string_view(a.text()) < b; }
    bool operator()(std::string_view a, const Path& b) const { return a < std::string_view(b.text()); }
};

// The variables of one query: a bare name such as "file" mapped to its value.
class Bindings : public std::map<Path, Path, PathOrder> {
public:
    Bindings() = default;

    // The variables of a query about `file`, referred to by `caller`, under
    // the installation root `vantorRoot` and the directory `cwd`. A null
    // root or cwd counts as ".", a null file or caller as empty.
    Bindings(const char* vantorRoot, const char* file, const char* caller, const char* cwd);
    // The same without vantor, toolbox and cwd.
    Bindings(const char* file, const char* caller);
};

} // namespace QuorelScript

#endif
