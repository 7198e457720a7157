// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_PATHTEXTNORMALFORM_HPP
#define QXQRSCRIPT_EXPR_PATHTEXTNORMALFORM_HPP

#include <string>
#include <string_view>

namespace QuorelScript {

// The normal form of a path's text, as plain functions over its characters:
// what the path normalizer does, in time linear in the length of the text.

// The white space that is trimmed from around a path: exactly these seven
// characters. Backspace belongs to the set on purpose, while other control
// characters, such as bell or escape, do not.
inline constexpr char pathWhiteSpace[] = " \t\v\b\n\r\f";

// Collapses every run of slashes into one. The text is searched as a C string
// with the locale's multibyte-aware search, so once anything has been
// collapsed, a NUL inside the text ends it. True when no two slash bytes
// follow each other in what is left (only an encoding in which a slash byte
// can end another character may leave some).
bool collapseDoubledSlashes(std::string& text);

// Removes the path white space around the text.
void trimPathWhiteSpace(std::string& text);
std::string_view trimmedOfPathWhiteSpace(std::string_view text);
bool endsInPathWhiteSpace(std::string_view text);

// Both of the above, in that order: the text a normalizer leaves. Returns
// what the collapse returns.
bool normalizePathText(std::string& text);

// True when `text` is already in normal form, so that normalizing it would
// change nothing.
bool isNormalPathText(std::string_view text);

} // namespace QuorelScript

#endif
