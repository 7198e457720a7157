#ifndef QXQRSCRIPT_EXPR_BINDINGS_HPP
#define QXQRSCRIPT_EXPR_BINDINGS_HPP

#include "expr/Path.hpp"

#include <map>

namespace QuorelScript {

// The variables of one query: a bare name such as "file" mapped to its value.
class Bindings : public std::map<Path, Path> {
public:
    Bindings() {}

    // The variables of a query about `file`, referred to by `caller`, under
    // the installation root `vantorRoot` and the directory `cwd`. A null
    // root or cwd counts as ".", a null file or caller as empty.
    Bindings(const char* vantorRoot, const char* file, const char* caller, const char* cwd);
    // The same without vantor, toolbox and cwd.
    Bindings(const char* file, const char* caller);
};

} // namespace QuorelScript

#endif
