// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_FRONTEND_ERRORSINK_HPP
#define QXQRSCRIPT_FRONTEND_ERRORSINK_HPP

#include <ostream>
#include <sstream>

namespace QuorelScript {

// Where a parser's syntax errors go: the host's stream once the host has
// set one, and until then a capture of the parser's own, so that errors are
// kept silently. The first real stream receives whatever was kept until
// then; setting none goes back to the capture.
class ErrorSink {
public:
    ErrorSink();
    ErrorSink(const ErrorSink&) = delete;
    ErrorSink& operator=(const ErrorSink&) = delete;

    std::ostream& stream() const { return *sink_; }
    // The stream is not owned and must outlive its use.
    void redirect(std::ostream* sink);

private:
    std::ostringstream capture_;
    std::ostream* sink_;
};

} // namespace QuorelScript

#endif
