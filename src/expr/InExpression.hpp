// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_INEXPRESSION_HPP
#define QXQRSCRIPT_EXPR_INEXPRESSION_HPP

#include "expr/Expression.hpp"
#include "expr/Path.hpp"
#include "expr/PathList.hpp"

namespace QuorelScript {

// Whether `prefix` begins `text`: the test of each element of an `in` list,
// a plain prefix test ("/a/b" begins "/a/bc" as well as "/a/b/c", and the
// empty text begins everything).
bool hasPathPrefix(const std::string& text, const std::string& prefix);

// in(subject,[a,b,...]): some element's text is a prefix of the subject's.
class InExpression : public Expression<bool> {
public:
    // Takes ownership of the subject, the list and every element.
    InExpression(Expression<Path>* subject, PathList* list);
    InExpression(const InExpression&) = delete;
    InExpression& operator=(const InExpression&) = delete;
    ~InExpression() override;

    bool evaluate(const Bindings& bindings) const override;
    Expression<bool>* clone() const override;
    std::ostream& print(std::ostream& out) const override;
    bool hasVariables() const override;
    void substituteVariables(const Bindings& bindings) override;

    Expression<Path>* subject() const { return subject_; }
    const PathList& list() const { return *list_; }

private:
    Expression<Path>* subject_;
    PathList* list_;
};

} // namespace QuorelScript

#endif
