#include <qxqrscript/FileReader.hpp>

#include <fstream>
#include <memory>

namespace QuorelScript {

namespace {

// Reads the whole file, bytes as they are, into a new NUL-terminated
// `buffer`; false, with `buffer` untouched, when the file cannot be read.
bool readWholeFile(const char* file, std::unique_ptr<char[]>& buffer) {
    std::ifstream in(file, std::ios::in | std::ios::binary);
    if (!in.is_open())
        return false;
    // A directory opens like a file, but its first read fails, and the size
    // it reports means nothing.
    in.peek();
    if (in.bad())
        return false;
    in.seekg(0, std::ios::end);
    const std::streamoff size = in.tellg();
    // Some files, many under /proc among them, cannot tell their size.
    if (size < 0)
        return false;
    in.seekg(0, std::ios::beg);
    buffer.reset(new char[size + 1]);
    in.read(buffer.get(), size);
    // The file may have shrunk meanwhile: the text ends after what was read.
    buffer[in.gcount()] = '\0';
    in.close();
    return true;
}

} // namespace

FileReader::FileReader() {}

void FileReader::read(Rules* rules, const char* file) {
    std::unique_ptr<char[]> contents;
    if (!readWholeFile(file, contents))
        return;
    parser.setScriptName(file);
    parser.parse(rules, contents.get());
}

Rules* FileReader::read(const char* file) {
    std::unique_ptr<char[]> contents;
    if (!readWholeFile(file, contents))
        return nullptr;
    parser.setScriptName(file);
    return parser.parse(contents.get());
}

Parser& FileReader::getParser() {
    return parser;
}

const Parser& FileReader::getParser() const {
    return parser;
}

} // namespace QuorelScript
