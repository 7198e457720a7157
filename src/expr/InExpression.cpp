// SPDX-License-Identifier: MIT
#include "expr/InExpression.hpp"

#include "expr/ExpressionVector.hpp"
#include "expr/OwnedPointers.hpp"

#include <ostream>
#include <utility>

namespace QuorelScript {

bool hasPathPrefix(const std::string& text, const std::string& prefix) {
    return prefix.length() <= text.length() && text.compare(0, prefix.length(), prefix) == 0;
}

InExpression::InExpression(Expression<Path>* subject, PathList* list) : subject_(subject), list_(list) {}

InExpression::~InExpression() {
    delete subject_;
    deletePathList(list_);
}

// The subject is evaluated once; the elements one at a time, in list order,
// up to the first that is a prefix of it.
bool InExpression::evaluate(const Bindings& bindings) const {
    const Path subject = subject_->evaluate(bindings);
    for (const Expression<Path>* element : *list_)
        if (hasPathPrefix(subject.text(), element->evaluate(bindings).text()))
            return true;
    return false;
}

Expression<bool>* InExpression::clone() const {
    OwnedPointer<Expression<Path>> subjectCopy(subject_->clone());
    OwnedPathList listCopy(clonePathList(*list_));
    return newOwner<InExpression>(std::move(subjectCopy), std::move(listCopy));
}

std::ostream& InExpression::print(std::ostream& out) const {
    out << "in(";
    subject_->print(out) << ',';
    return printPathList(out, *list_) << ')';
}

bool InExpression::hasVariables() const {
    return subject_->hasVariables() || anyHasVariables(*list_);
}

void InExpression::substituteVariables(const Bindings& bindings) {
    subject_->substituteVariables(bindings);
    substituteEach(*list_, bindings);
}

} // namespace QuorelScript
