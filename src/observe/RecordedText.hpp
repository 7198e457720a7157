// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_OBSERVE_RECORDEDTEXT_HPP
#define QXQRSCRIPT_OBSERVE_RECORDEDTEXT_HPP

#include <string>

namespace QuorelScript {

// The parts of the text that names a rule: "<script>, line <n>: ", a line
// end, then the rule as the script wrote it. The script's name is all of
// the first line before its last ", line <n>: ", so a name may hold that
// form itself.
struct RecordedText {
    std::string script;
    long line = 0;
    std::string text;
};

// A text without that form (the name a rule has before the parser attaches
// one, or a rule made by hand) gives an empty script, line 0 and the whole
// text.
RecordedText splitRecordedText(const std::string& recorded);

} // namespace QuorelScript

#endif
