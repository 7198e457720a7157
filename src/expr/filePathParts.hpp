// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_FILEPATHPARTS_HPP
#define QXQRSCRIPT_EXPR_FILEPATHPARTS_HPP

#include <string_view>

namespace QuorelScript {

// The directory, the name and the extension of a file path, as views into it.
struct FilePathParts {
    std::string_view dir;
    std::string_view name;
    std::string_view ext;
};

// Splits a normalized file path at its last '/' and its last '.'. A path
// without '/', or whose only '/' opens it, has an empty dir. A dot that opens
// the path is no extension (.profile), nor is one in a directory name (a.b/c);
// a dot right after the last slash is one (x/.hidden has an empty name). The
// extension keeps its dot.
FilePathParts splitFilePath(std::string_view file);

} // namespace QuorelScript

#endif
