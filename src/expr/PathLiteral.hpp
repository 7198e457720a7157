// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_PATHLITERAL_HPP
#define QXQRSCRIPT_EXPR_PATHLITERAL_HPP

#include "expr/Expression.hpp"
#include "expr/Path.hpp"

namespace QuorelScript {

// A path as the script wrote it, possibly with $name or ${name} variables.
// Its text is kept exactly as written until a variable is substituted into it.
class PathLiteral : public Expression<Path> {
public:
    // The characters from `first` up to `last`, unchanged.
    PathLiteral(const char* first, const char* last);

    Path evaluate(const Bindings& bindings) const override;
    Expression<Path>* clone() const override;
    std::ostream& print(std::ostream& out) const override;
    bool hasVariables() const override;
    void substituteVariables(const Bindings& bindings) override;

    const Path& path() const { return path_; }

private:
    Path path_;
};

} // namespace QuorelScript

#endif
