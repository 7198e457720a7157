// SPDX-License-Identifier: MIT
#include "FileParts.hpp"

namespace qxqr::bench {

std::string_view FileParts::operator[](FileVariable variable) const {
    switch (variable) {
    case FileVariable::dir:
        return dir;
    case FileVariable::name:
        return name;
    case FileVariable::ext:
        return ext;
    case FileVariable::file:
        break;
    }
    return file;
}

FileParts fileParts(std::string_view file) {
    const std::size_t slash = file.rfind('/');
    const std::size_t dot = file.rfind('.');
    const bool hasExtension =
        dot != std::string_view::npos && dot != 0 && (slash == std::string_view::npos || slash < dot);
    const std::size_t nameStart = slash == std::string_view::npos ? 0 : slash + 1;
    const std::size_t extensionStart = hasExtension ? dot : file.size();

    FileParts parts;
    parts.file = file;
    parts.dir = slash == std::string_view::npos ? std::string_view() : file.substr(0, slash);
    parts.name = file.substr(nameStart, extensionStart - nameStart);
    parts.ext = file.substr(extensionStart);
    return parts;
}

} // namespace qxqr::bench
