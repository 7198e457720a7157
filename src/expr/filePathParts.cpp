// SPDX-License-Identifier: MIT
#include "expr/filePathParts.hpp"

namespace QuorelScript {

FilePathParts splitFilePath(std::string_view file) {
    const std::string_view::size_type slash = file.rfind('/');
    const std::string_view::size_type dot = file.rfind('.');
    const bool hasSlash = slash != std::string_view::npos;
    const bool hasExtension = dot != std::string_view::npos && dot != 0 && (!hasSlash || slash < dot);
    const std::string_view::size_type nameBegin = hasSlash ? slash + 1 : 0;
    const std::string_view::size_type extensionBegin = hasExtension ? dot : file.size();
    return {file.substr(0, hasSlash ? slash : 0), file.substr(nameBegin, extensionBegin - nameBegin),
            file.substr(extensionBegin)};
}

} // namespace QuorelScript
