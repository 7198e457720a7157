// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <typeindex>
#include <typeinfo>
#include <vector>

namespace {

using pelor::ch;
using pelor::ref;
using pelor::rule;

// Logs each word it is given, and the kind of position it was given it with.
class WordLog {
public:
    WordLog(std::vector<std::string>& words, std::vector<std::type_index>& kinds) : words_(&words), kinds_(&kinds) {}

    template <class Iterator>
    void operator()(Iterator first, Iterator last) const {
        words_->push_back(std::string(first, last));
        kinds_->push_back(typeid(Iterator));
    }

private:
    std::vector<std::string>* words_;
    std::vector<std::type_index>* kinds_;
};

// A comma-separated list of words, spread over three rules so that matching
// crosses rule boundaries.
class WordList {
public:
    WordList() {
        word = pelor::one_or_more(pelor::char_class<pelor::word_char>())[WordLog(words, kinds)];
        list = ref<rule>(word) >> pelor::zero_or_more(ch(',') >> ref<rule>(word));
        whole = ref<rule>(list) >> pelor::end_of_input();
    }

    rule word;
    rule list;
    rule whole;
    std::vector<std::string> words;
    std::vector<std::type_index> kinds;
};

template <class Iterator>
Iterator beginOf(std::string& text) {
    if constexpr (std::is_pointer<Iterator>::value) {
        return text.data();
    } else {
        return text.begin();
    }
}

template <class Iterator>
class PositionKinds : public ::testing::Test {};

using Kinds = ::testing::Types<const char*, char*, std::string::const_iterator, std::string::iterator>;

// Names each case after its kind of position. Given, it also fills the
// macro's last, optional argument, without which clang warns (-Wpedantic).
struct KindName {
    template <class Iterator>
    static std::string GetName(int) {
        if constexpr (std::is_same<Iterator, const char*>::value)
            return "ConstPointer";
        else if constexpr (std::is_same<Iterator, char*>::value)
            return "Pointer";
        else if constexpr (std::is_same<Iterator, std::string::const_iterator>::value)
            return "ConstIterator";
        else
            return "Iterator";
    }
};
TYPED_TEST_SUITE(PositionKinds, Kinds, KindName);

TYPED_TEST(PositionKinds, MatchAWholeListThroughTheSameKind) {
    WordList grammar;
    std::string text = "ab,c_d,e1";
    const TypeParam begin = beginOf<TypeParam>(text);
    const TypeParam end = begin + text.size();
    TypeParam pos = begin;
    EXPECT_TRUE(grammar.whole.body()->parse(pos, end));
    EXPECT_EQ(pos - begin, 9);
    EXPECT_EQ(grammar.words, (std::vector<std::string>{"ab", "c_d", "e1"}));
    EXPECT_EQ(grammar.kinds, std::vector<std::type_index>(3, typeid(TypeParam)));
}

TYPED_TEST(PositionKinds, FailUnmovedThroughTheSameKind) {
    WordList grammar;
    std::string text = "ab,c_d,,e1";
    const TypeParam begin = beginOf<TypeParam>(text);
    TypeParam pos = begin;
    EXPECT_FALSE(grammar.whole.body()->parse(pos, begin + text.size()));
    EXPECT_EQ(pos, begin);
    EXPECT_EQ(grammar.words, (std::vector<std::string>{"ab", "c_d"}));
}

TYPED_TEST(PositionKinds, FailAtTheEndOfAnEmptyInput) {
    WordList grammar;
    std::string text;
    TypeParam pos = beginOf<TypeParam>(text);
    EXPECT_FALSE(grammar.whole.body()->parse(pos, pos));
    EXPECT_TRUE(grammar.words.empty());
}

TEST(PositionKinds, RuleMatchEntersTheCharacterPointerKind) {
    WordList grammar;
    const std::string text = "x,y";
    const char* pos = text.data();
    EXPECT_TRUE(grammar.whole.match(pos, text.data() + text.size()));
    EXPECT_EQ(pos, text.data() + 3);
    EXPECT_EQ(grammar.kinds, std::vector<std::type_index>(2, typeid(const char*)));
}

} // namespace
