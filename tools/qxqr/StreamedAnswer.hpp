// SPDX-License-Identifier: MIT
#ifndef QXQR_STREAMEDANSWER_HPP
#define QXQR_STREAMEDANSWER_HPP

#include "OutputFormat.hpp"
#include "StreamedJsonDocument.hpp"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>

namespace qxqr {

// The answer of a command that streams one part per file (see Command.hpp):
// with --format json, the items of the document {"files": [...], ...};
// otherwise text on standard output. Each part is written as it is added.
class StreamedAnswer {
public:
    explicit StreamedAnswer(const OutputFormat& format);

    // Whether the parts are to be given as JSON items rather than as text.
    bool isJson() const { return document.has_value(); }
    void addItem(const nlohmann::json& item);
    void addText(const std::string& text);
    // Ends the answer: the document with the members `closingMembers`, or
    // the text with `closingText` (if any).
    void finish(const nlohmann::json& closingMembers, const std::string& closingText);

private:
    std::optional<StreamedJsonDocument> document;
};

} // namespace qxqr

#endif
