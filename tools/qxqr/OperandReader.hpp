// SPDX-License-Identifier: MIT
#ifndef QXQR_OPERANDREADER_HPP
#define QXQR_OPERANDREADER_HPP

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace qxqr {

// The words after "--" (the files of `query`, the start files of `walk`),
// one at a time, each "-" standing for the paths read from `in`, one a
// line: empty lines are skipped and a carriage return before a line end is
// dropped, so that a list written on any system can be piped in. A line is
// read only when it is asked for, so that a list of any length is never
// held whole and each answer can follow its name at once.
class OperandReader {
public:
    OperandReader(std::vector<std::string> operands, std::istream& in);

    // Puts the next path into `path`; false when there is none left.
    bool next(std::string& path);

private:
    bool nextLine(std::string& path);

    std::vector<std::string> operands;
    std::size_t position = 0;
    bool readingInput = false; // between a "-" and the end of `in`
    std::istream& in;
};

} // namespace qxqr

#endif
