// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_FRONTEND_READWHOLEFILE_HPP
#define QXQRSCRIPT_FRONTEND_READWHOLEFILE_HPP

#include <string>

namespace QuorelScript {

// Reads the script file `file` whole, bytes as they are, into `text`, and
// tells whether that succeeded. Only a regular file that can tell its size
// and a pipe are read, and neither beyond FileReader::maxFileSize: a
// regular file that is larger is refused before anything is allocated, a
// pipe as soon as it gives more. Nothing ever waits for a FIFO's writer:
// a FIFO with a name in the file system is refused, whether or not a
// writer has it open. A null `file` names no file. On false, `text` holds
// nothing of use.
bool readWholeFile(const char* file, std::string& text);

} // namespace QuorelScript

#endif
