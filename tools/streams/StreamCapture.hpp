// SPDX-License-Identifier: MIT
#ifndef QXQR_STREAMCAPTURE_HPP
#define QXQR_STREAMCAPTURE_HPP

// Standard library only, so that the tool and the tests of every layer can
// share it without depending on each other.

#include <iostream>
#include <sstream>
#include <streambuf>
#include <string>

namespace qxqr {

// While it lives, what is written to `stream` goes to `buffer` instead; the
// stream's own buffer comes back when it goes, on every way out.
class StreamRedirect {
public:
    StreamRedirect(std::ostream& stream, std::streambuf& buffer) : stream_(stream), original_(stream.rdbuf(&buffer)) {}
    StreamRedirect(const StreamRedirect&) = delete;
    StreamRedirect& operator=(const StreamRedirect&) = delete;
    ~StreamRedirect() { stream_.rdbuf(original_); }

private:
    std::ostream& stream_;
    std::streambuf* original_;
};

// Collects what is written to `stream` (standard output, where the library
// writes its debug trace, unless told otherwise) while it lives.
class StreamCapture {
public:
    explicit StreamCapture(std::ostream& stream = std::cout) : redirect_(stream, *captured_.rdbuf()) {}

    std::string text() const { return captured_.str(); }

private:
    // Declared first, so that the stream has its own buffer back before this
    // one goes.
    std::ostringstream captured_;
    StreamRedirect redirect_;
};

} // namespace qxqr

#endif
