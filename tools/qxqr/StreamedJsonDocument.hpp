// SPDX-License-Identifier: MIT
#ifndef QXQR_STREAMEDJSONDOCUMENT_HPP
#define QXQR_STREAMEDJSONDOCUMENT_HPP

#include <nlohmann/json.hpp>

#include <string>

namespace qxqr {

// A JSON document {"<key>": [item...], <closing members>} written to
// standard output while it is made: the opening at once, each item as it
// is appended, the rest at finish. It is laid out byte for byte as
// jsonDocument lays out the whole, so an answer of any length is the same
// document while only one item is ever held. Write failures throw as
// writeStandardOutput does.
class StreamedJsonDocument {
public:
    explicit StreamedJsonDocument(const std::string& arrayKey);

    void append(const nlohmann::json& item);
    // Ends the array, then writes the members of the object
    // `closingMembers`, whose keys sort after the array's key, and ends the
    // document.
    void finish(const nlohmann::json& closingMembers);

private:
    bool empty = true;
};

} // namespace qxqr

#endif
