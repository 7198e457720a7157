// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_LITERAL_STRING_HPP
#define QXQRSCRIPT_PELOR_LITERAL_STRING_HPP

#include "pelor/parser.hpp"

#include <string>
#include <utility>

namespace pelor {

// Matches its text exactly, byte for byte and case-sensitively, and nothing
// around it: no whitespace is skipped and what follows is not looked at. The
// empty literal matches everywhere, the end of input included, consuming
// nothing. The literal owns a copy of its text and compares it in place
// against the input.
class literal_string : public parser<literal_string> {
public:
    literal_string(std::string text) : text_(std::move(text)) {}
    literal_string(const char* text) : text_(text) {}

    template <class Iterator>
    bool match(Iterator& pos, Iterator end) const {
        return detail::all_or_nothing(pos, [this, end](Iterator& cursor) {
            for (char expected : text_) {
                if (cursor == end || *cursor != expected) {
                    return false;
                }
                ++cursor;
            }
            return true;
        });
    }

private:
    std::string text_;
};

// The literal for `text`.
inline literal_string lit(const char* text) {
    return literal_string(text);
}

inline literal_string lit(std::string text) {
    return literal_string(std::move(text));
}

} // namespace pelor

#endif
