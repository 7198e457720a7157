// SPDX-License-Identifier: MIT
// Fuzz target: the input is the content of a script file, read through the
// file reader, so that the bytes reach the parser the way a host's files do
// (carriage returns, NUL bytes, no final line end, binary junk).
#include "exerciseRules.hpp"

#include <qxqrscript/FileReader.hpp>
#include <qxqrscript/Rules.hpp>

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

namespace {

// One file for the whole run, removed when the process ends.
class ScratchFile {
public:
    ScratchFile() {
        const char* folder = std::getenv("TMPDIR");
        path_ = std::string(folder != nullptr && *folder != '\0' ? folder : "/tmp") + "/qxqr-fuzz-XXXXXX";
        const int descriptor = mkstemp(&path_[0]);
        if (descriptor < 0) {
            std::perror("qxqr fuzz: cannot create a scratch file");
            std::abort();
        }
        close(descriptor);
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() { std::remove(path_.c_str()); }

    const char* write(const std::uint8_t* data, std::size_t size) const {
        std::ofstream out(path_, std::ios::out | std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
        return path_.c_str();
    }

private:
    std::string path_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ScratchFile scratch;
    QuorelScript::FileReader reader;
    const char* file = scratch.write(data, size);
    std::unique_ptr<QuorelScript::Rules> rules(reader.read(file));
    if (!rules)
        return 0;
    // The same file again, appended to the rule set it made.
    reader.read(rules.get(), file);
    exerciseRules(*rules);
    return 0;
}
