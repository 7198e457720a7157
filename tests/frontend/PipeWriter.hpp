// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_FRONTEND_PIPEWRITER_HPP
#define QXQRSCRIPT_TESTS_FRONTEND_PIPEWRITER_HPP

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <thread>

#include <unistd.h>

// A pipe whose other end a thread writes: `count` bytes, `pattern` over and
// over, then it closes its end. The read end is reachable by name, as
// "/dev/fd/N", the way a shell hands a pipe to a program.
class PipeWriter {
public:
    PipeWriter(const std::string& pattern, std::size_t count) {
        // A reader that stops early must not end the test process.
        std::signal(SIGPIPE, SIG_IGN);
        int ends[2];
        if (::pipe(ends) != 0)
            throw std::runtime_error("cannot create a pipe");
        readEnd_ = ends[0];
        writer_ = std::thread(writeAndClose, ends[1], pattern, count);
    }
    explicit PipeWriter(const std::string& contents) : PipeWriter(contents, contents.size()) {}
    PipeWriter(const PipeWriter&) = delete;
    PipeWriter& operator=(const PipeWriter&) = delete;
    ~PipeWriter() {
        ::close(readEnd_);
        writer_.join();
    }

    std::string path() const { return "/dev/fd/" + std::to_string(readEnd_); }

private:
    static void writeAndClose(int writeEnd, std::string pattern, std::size_t count) {
        std::string block;
        while (!pattern.empty() && block.size() < 64 * 1024)
            block += pattern;
        for (std::size_t left = count; left > 0;) {
            const ssize_t written = ::write(writeEnd, block.data(), std::min(left, block.size()));
            if (written <= 0)
                break;
            left -= static_cast<std::size_t>(written);
        }
        ::close(writeEnd);
    }

    int readEnd_ = -1;
    std::thread writer_;
};

#endif
