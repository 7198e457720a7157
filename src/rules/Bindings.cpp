#include "expr/Bindings.hpp"

#include "rules/fixedVariables.hpp"

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

// The characters of `text` from `begin` up to `end`, kept as they are: they
// come from a normalized path and are not normalized again.
Path piece(const std::string& text, std::string::size_type begin, std::string::size_type end) {
    return Path::verbatim(text.data() + begin, text.data() + end);
}

// dir, name and ext of a normalized file path. A dot that opens the path is
// no extension (.profile), nor is one in a directory name (a.b/c); a dot
// right after the last slash is one (x/.hidden has an empty name).
void bindFileParts(Bindings& bindings, const std::string& file) {
    const std::string::size_type slash = file.rfind('/');
    const std::string::size_type dot = file.rfind('.');
    const bool hasSlash = slash != std::string::npos;
    const bool hasExtension = dot != std::string::npos && dot != 0 && (!hasSlash || slash < dot);
    const std::string::size_type nameBegin = hasSlash ? slash + 1 : 0;
    const std::string::size_type extensionBegin = hasExtension ? dot : file.size();

    setVariable(bindings, "dir", piece(file, 0, hasSlash ? slash : 0));
    setVariable(bindings, "name", piece(file, nameBegin, extensionBegin));
    setVariable(bindings, "ext", piece(file, extensionBegin, file.size()));
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
