// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_PELOR_SCAN_HPP
#define QXQRSCRIPT_TESTS_PELOR_SCAN_HPP

#include <cstddef>
#include <ostream>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// What one match did: whether it matched, and how far the position moved.
struct Scan {
    bool matched;
    std::ptrdiff_t consumed;

    bool operator==(const Scan& other) const { return matched == other.matched && consumed == other.consumed; }
};

inline std::ostream& operator<<(std::ostream& out, const Scan& scan) {
    return out << (scan.matched ? "matched, consumed " : "failed, moved ") << scan.consumed;
}

inline Scan matched(std::ptrdiff_t consumed) {
    return Scan{true, consumed};
}

// A failure that left the position where it was.
inline Scan failed() {
    return Scan{false, 0};
}

// Matches `parser` over the bytes of `text` from `start` up to, but not
// including, `stop`, through character pointers, the position kind the script
// front end uses. The bytes from `stop` on stay in memory but are not input,
// so a parser that read them would be caught.
template <class Parser>
Scan scanWithin(const Parser& parser, const std::string& text, std::size_t start, std::size_t stop) {
    const char* const begin = text.data() + start;
    const char* pos = begin;
    const bool result = parser.match(pos, text.data() + stop);
    return Scan{result, pos - begin};
}

// Matches `parser` over `text` from byte `start` to the end of the text.
template <class Parser>
Scan scan(const Parser& parser, const std::string& text, std::size_t start = 0) {
    return scanWithin(parser, text, start, text.size());
}

// An action that logs "label:matched text" for every call.
class Recorder {
public:
    Recorder(std::vector<std::string>& log, std::string label) : log_(&log), label_(std::move(label)) {}

    template <class Iterator>
    void operator()(Iterator first, Iterator last) const {
        log_->push_back(label_ + ":" + std::string(first, last));
    }

private:
    std::vector<std::string>* log_;
    std::string label_;
};

// An action that counts its calls.
class Counter {
public:
    explicit Counter(int& calls) : calls_(&calls) {}

    template <class Iterator>
    void operator()(Iterator, Iterator) const {
        ++*calls_;
    }

private:
    int* calls_;
};

// An action that throws std::runtime_error.
class Throwing {
public:
    template <class Iterator>
    void operator()(Iterator, Iterator) const {
        throw std::runtime_error("from the action");
    }
};

// A text of up to `longest` bytes drawn from `alphabet`.
inline std::string randomText(std::mt19937& random, const std::string& alphabet, std::size_t longest) {
    std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
    std::string text(std::uniform_int_distribution<std::size_t>(0, longest)(random), ' ');
    for (char& byte : text) {
        byte = alphabet[pick(random)];
    }
    return text;
}

#endif
