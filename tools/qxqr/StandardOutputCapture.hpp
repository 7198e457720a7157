// SPDX-License-Identifier: MIT
#ifndef QXQR_STANDARDOUTPUTCAPTURE_HPP
#define QXQR_STANDARDOUTPUTCAPTURE_HPP

#include <sstream>
#include <streambuf>
#include <string>

namespace qxqr {

// Collects what is written to std::cout while it lives (the library writes
// its debug trace there), so that the tool can write it out whole later.
class StandardOutputCapture {
public:
    StandardOutputCapture();
    ~StandardOutputCapture();
    StandardOutputCapture(const StandardOutputCapture&) = delete;
    StandardOutputCapture& operator=(const StandardOutputCapture&) = delete;

    std::string text() const { return captured.str(); }

private:
    std::ostringstream captured;
    std::streambuf* original;
};

} // namespace qxqr

#endif
