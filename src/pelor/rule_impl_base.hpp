// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_RULE_IMPL_BASE_HPP
#define QXQRSCRIPT_PELOR_RULE_IMPL_BASE_HPP

#include <string>

namespace pelor {

// The body of a grammar rule, seen from outside: one virtual entry point per
// kind of input position, all four with the scanning contract of parser.hpp.
// A body entered through one kind of position reaches the rules it refers to
// through the same kind, so a grammar runs entirely over the kind it was
// started with.
class rule_impl_base {
public:
    rule_impl_base(const rule_impl_base&) = delete;
    rule_impl_base& operator=(const rule_impl_base&) = delete;
    virtual ~rule_impl_base() = default;

    virtual bool parse(const char*& pos, const char* end) const = 0;
    virtual bool parse(char*& pos, char* end) const = 0;
    virtual bool parse(std::string::const_iterator& pos, std::string::const_iterator end) const = 0;
    virtual bool parse(std::string::iterator& pos, std::string::iterator end) const = 0;

protected:
    rule_impl_base() = default;
};

namespace detail {

// Enters a rule body, if there is one: an absent body fails at once and
// leaves the position alone.
template <class Iterator>
bool enter_body(const rule_impl_base* body, Iterator& pos, Iterator end) {
    return body != nullptr && body->parse(pos, end);
}

} // namespace detail

} // namespace pelor

#endif
