#include "pelor/pelor.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace {

template <class A, class B, class = void>
struct HasSequence : std::false_type {};

template <class A, class B>
struct HasSequence<A, B, std::void_t<decltype(std::declval<const A&>() >> std::declval<const B&>())>>
    : std::true_type {};

template <class A, class B, class = void>
struct HasChoice : std::false_type {};

template <class A, class B>
struct HasChoice<A, B, std::void_t<decltype(std::declval<const A&>() | std::declval<const B&>())>> : std::true_type {};

TEST(Construction, OperatorsCombineParsers)
{
    EXPECT_TRUE((HasSequence<pelor::epsilon, pelor::ref<pelor::rule>>::value));
    EXPECT_TRUE((HasChoice<pelor::literal_string, pelor::char_class<pelor::alpha>>::value));
}

TEST(Construction, OperatorsLeaveOtherTypesAlone)
{
    EXPECT_FALSE((HasSequence<std::string, pelor::epsilon>::value));
    EXPECT_FALSE((HasSequence<pelor::epsilon, const char*>::value));
    EXPECT_FALSE((HasChoice<pelor::epsilon, char>::value));
    EXPECT_FALSE((HasChoice<pelor::rule, pelor::epsilon>::value));
    EXPECT_FALSE((HasSequence<pelor::exact_char, pelor::exact_char>::value));
    EXPECT_TRUE((HasChoice<int, int>::value));
}

TEST(Construction, EveryParserIsMarkedAsOne)
{
    EXPECT_TRUE(pelor::is_parser<pelor::epsilon>::value);
    EXPECT_TRUE(pelor::is_parser<pelor::end_of_input>::value);
    EXPECT_TRUE(pelor::is_parser<pelor::ref<pelor::rule>>::value);
    EXPECT_TRUE((pelor::is_parser<pelor::repeat_adapter<pelor::epsilon, 0, 1>>::value));
    EXPECT_FALSE(pelor::is_parser<pelor::rule>::value);
    EXPECT_FALSE(pelor::is_parser<pelor::word_char>::value);
    EXPECT_FALSE(pelor::is_parser<std::string>::value);
}

TEST(Construction, PrimitivesAreSmallValues)
{
    EXPECT_TRUE(std::is_empty<pelor::epsilon>::value);
    EXPECT_TRUE(std::is_empty<pelor::end_of_input>::value);
    EXPECT_EQ(sizeof(pelor::char_class<pelor::alpha>), 1u);
    EXPECT_EQ(sizeof(pelor::char_class<pelor::exact_char>), sizeof(char));
    EXPECT_EQ(sizeof(pelor::literal_string), sizeof(std::string));
}

} // namespace
