// SPDX-License-Identifier: MIT
#include "StreamedAnswer.hpp"

#include "StandardOutput.hpp"

namespace qxqr {

StreamedAnswer::StreamedAnswer(const OutputFormat& format) {
    if (format.isJson())
        document.emplace("files");
}

void StreamedAnswer::addItem(const nlohmann::json& item) {
    document->append(item);
}

void StreamedAnswer::addText(const std::string& text) {
    writeStandardOutput(text);
}

void StreamedAnswer::finish(const nlohmann::json& closingMembers, const std::string& closingText) {
    if (document)
        document->finish(closingMembers);
    else if (!closingText.empty())
        writeStandardOutput(closingText);
}

} // namespace qxqr
