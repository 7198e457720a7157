// SPDX-License-Identifier: MIT
#include "expr/Bindings.hpp"

#include "expr/filePathParts.hpp"
#include "expr/fixedVariables.hpp"

#include <string>

namespace QuorelScript {

namespace {

// Made once, when the library is loaded; every query shares their normalizers.
const Path fixedVrk(std::string{vrkValue});
const Path fixedArch(std::string{archValue});
const Path fixedLib(std::string{libValue});

std::string textOr(const char* text, const char* fallback) {
    return text != nullptr ? text : fallback;
}

// A name bound twice keeps its last value, so every name is present once.
// A new entry is a copy of `value` as it stands, never normalized again.
const Path& setVariable(Bindings& bindings, const char* name, const Path& value) {
    return bindings.insert_or_assign(Path(std::string{name}), value).first->second;
}

// The pieces are kept as they are: they come from a normalized path and are
// not normalized again.
Path piece(std::string_view text) {
    return Path::verbatim(text.data(), text.data() + text.size());
}

void bindFileParts(Bindings& bindings, const std::string& file) {
    const FilePathParts parts = splitFilePath(file);
    setVariable(bindings, "dir", piece(parts.dir));
    setVariable(bindings, "name", piece(parts.name));
    setVariable(bindings, "ext", piece(parts.ext));
}

void bindFixedVariables(Bindings& bindings) {
    setVariable(bindings, vrkName, fixedVrk);
    setVariable(bindings, archName, fixedArch);
    setVariable(bindings, libName, fixedLib);
}

} // namespace

Bindings::Bindings(const char* vantorRoot, const char* file, const char* caller, const char* cwd) {
    const Path& vantor = setVariable(*this, "vantor", Path(textOr(vantorRoot, ".")));
    setVariable(*this, "toolbox", Path(vantor.text() + Path(std::string{"/toolbox"}).text()));
    const Path& filePath = setVariable(*this, "file", Path(textOr(file, "")));
    setVariable(*this, "caller", Path(textOr(caller, "")));
    setVariable(*this, "cwd", Path(textOr(cwd, ".")));
    bindFileParts(*this, filePath.text());
    bindFixedVariables(*this);
}

Bindings::Bindings(const char* file, const char* caller) {
    const Path& filePath = setVariable(*this, "file", Path(textOr(file, "")));
    setVariable(*this, "caller", Path(textOr(caller, "")));
    bindFileParts(*this, filePath.text());
    bindFixedVariables(*this);
}

} // namespace QuorelScript
