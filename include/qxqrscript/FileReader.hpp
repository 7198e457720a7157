// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_FILEREADER_HPP
#define QXQRSCRIPT_FILEREADER_HPP

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/version.hpp>

#include <cstddef>

namespace QuorelScript {

class Rules;

// Reads a script file whole and parses it under the file's name.
// What is read: a regular file, and a pipe (what "|" or "<(...)" give, or
// /dev/stdin when standard input is one), either of at most maxFileSize
// bytes. A regular file is measured before anything is allocated; a pipe is
// read to its end, and no further than the limit. What is not read: a file
// that is missing or not permitted, a directory, a FIFO with a name in the
// file system (reading it would wait for a writer), a device, a socket, a
// file that cannot tell its size (as under /proc), a larger file.
// A file that cannot be read is not reported: the result is as for a syntax
// error (nothing added, or null), no message is written and the script name
// stays as it was. The text ends at the first NUL byte, if the file has one.
class QXQRSCRIPT_API FileReader {
public:
    // The largest script file read: 128 MiB.
    static constexpr std::size_t maxFileSize = std::size_t{128} * 1024 * 1024;

    FileReader();

    // A null `rules` makes the call do nothing: the file is not read.
    void read(Rules* rules, const char* file);
    // A null `file` names no file, and gives null.
    Rules* read(const char* file);

    Parser& getParser();
    const Parser& getParser() const;

private:
    Parser parser;
};

} // namespace QuorelScript

#endif
