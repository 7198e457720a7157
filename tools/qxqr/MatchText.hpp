// SPDX-License-Identifier: MIT
#ifndef QXQR_MATCHTEXT_HPP
#define QXQR_MATCHTEXT_HPP

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <utility>

namespace qxqr {

// The text by which the library names the rule that decided a query:
// "<script>, line <n>: ", a line end, then the rule as the script wrote it.
class MatchText {
public:
    explicit MatchText(std::string text) : whole(std::move(text)) {}

    // Every line indented by `indent`, without trailing blanks, each ended
    // with a line end.
    std::string indented(const std::string& indent) const;
    // {"script": ..., "line": ..., "text": ...}; script and line are null if
    // the text does not have the library's form.
    nlohmann::json toJson() const;
    // toJson() of the deciding rule's text, or null when no rule decided.
    static nlohmann::json toJson(const std::optional<std::string>& text);

private:
    std::string whole;
};

} // namespace qxqr

#endif
