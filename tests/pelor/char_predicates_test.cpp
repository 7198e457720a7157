// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using pelor::alnum;
using pelor::alpha;
using pelor::exact_char;
using pelor::not_char_predicate;
using pelor::or_char_predicate;
using pelor::word_char;

// Every byte for which `predicate` holds, in byte order.
template <class Predicate>
std::string acceptedBytes(const Predicate& predicate) {
    std::string accepted;
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        if (predicate(c)) {
            accepted += c;
        }
    }
    return accepted;
}

const std::string digits = "0123456789";
const std::string upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
const std::string lower = "abcdefghijklmnopqrstuvwxyz";

TEST(CharPredicates, ExactCharHoldsForItsByteOnly) {
    EXPECT_EQ(acceptedBytes(exact_char('q')), "q");
    EXPECT_EQ(acceptedBytes(exact_char('\xE9')), "\xE9");
}

TEST(CharPredicates, AlphaIsTheAsciiLetters) {
    EXPECT_EQ(acceptedBytes(alpha()), upper + lower);
}

TEST(CharPredicates, AlnumIsTheAsciiDigitsAndLetters) {
    EXPECT_EQ(acceptedBytes(alnum()), digits + upper + lower);
}

TEST(CharPredicates, WordCharIsAlnumAndUnderscore) {
    EXPECT_EQ(acceptedBytes(word_char()), digits + upper + "_" + lower);
    for (char c : std::string("-.$ /\\\t")) {
        EXPECT_FALSE(word_char()(c)) << c;
    }
}

TEST(CharPredicates, NoByteFrom0x80IsALetterDigitOrWordCharacter) {
    for (int byte = 0x80; byte < 0x100; ++byte) {
        const char c = static_cast<char>(byte);
        EXPECT_FALSE(alpha()(c)) << byte;
        EXPECT_FALSE(alnum()(c)) << byte;
        EXPECT_FALSE(word_char()(c)) << byte;
    }
}

// Bytes are classified as signed chars: one of 0x80 or above reaches the
// classification functions as a negative number, not as its unsigned value.
TEST(CharPredicates, BytesAreClassifiedThroughSignedChar) {
    EXPECT_EQ(pelor::detail::classification_code('A'), 65);
    EXPECT_EQ(pelor::detail::classification_code('\x80'), -128);
    EXPECT_EQ(pelor::detail::classification_code('\xE9'), -23);
    EXPECT_EQ(pelor::detail::classification_code('\xFF'), -1);
}

TEST(CharPredicates, OrHoldsWhenEitherHolds) {
    EXPECT_EQ(acceptedBytes(or_char_predicate<exact_char, exact_char>(' ', '\t')), "\t ");
    EXPECT_EQ(acceptedBytes(or_char_predicate<alnum, exact_char>(alnum(), '_')), acceptedBytes(word_char()));
}

// A predicate that holds for one byte and counts how often it is asked.
class CountingPredicate {
public:
    CountingPredicate(char accepted, int& asked) : accepted_(accepted), asked_(&asked) {}

    bool operator()(char c) const {
        ++*asked_;
        return c == accepted_;
    }

private:
    char accepted_;
    int* asked_;
};

TEST(CharPredicates, OrAsksTheSecondOnlyWhenTheFirstSaysNo) {
    int firstAsked = 0;
    int secondAsked = 0;
    const or_char_predicate<CountingPredicate, CountingPredicate> either(CountingPredicate('a', firstAsked),
                                                                         CountingPredicate('b', secondAsked));
    EXPECT_TRUE(either('a'));
    EXPECT_EQ(firstAsked, 1);
    EXPECT_EQ(secondAsked, 0);
    EXPECT_TRUE(either('b'));
    EXPECT_FALSE(either('c'));
    EXPECT_EQ(firstAsked, 3);
    EXPECT_EQ(secondAsked, 2);
}

TEST(CharPredicates, NotHoldsExactlyWhereItsOperandDoesNot) {
    const std::string all = acceptedBytes([](char) { return true; });
    ASSERT_EQ(all.size(), 256u);
    const std::string notWord = acceptedBytes(not_char_predicate<word_char>());
    EXPECT_EQ(notWord.size() + acceptedBytes(word_char()).size(), all.size());
    for (char c : notWord) {
        EXPECT_FALSE(word_char()(c));
    }
    EXPECT_EQ(acceptedBytes(not_char_predicate<exact_char>('"')).find('"'), std::string::npos);
    EXPECT_EQ(acceptedBytes(not_char_predicate<exact_char>('"')).size(), 255u);
}

} // namespace
