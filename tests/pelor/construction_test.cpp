// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace {

template <class A, class B, class = void>
struct HasSequence : std::false_type {};

template <class A, class B>
struct HasSequence<A, B, std::void_t<decltype(std::declval<const A&>() >> std::declval<const B&>())>> : std::true_type {
};

template <class A, class B, class = void>
struct HasChoice : std::false_type {};

template <class A, class B>
struct HasChoice<A, B, std::void_t<decltype(std::declval<const A&>() | std::declval<const B&>())>> : std::true_type {};

TEST(Construction, OperatorsCombineParsers) {
    EXPECT_TRUE((HasSequence<pelor::epsilon, pelor::ref<pelor::rule>>::value));
    EXPECT_TRUE((HasChoice<pelor::literal_string, pelor::char_class<pelor::alpha>>::value));
}

TEST(Construction, OperatorsLeaveOtherTypesAlone) {
    EXPECT_FALSE((HasSequence<std::string, pelor::epsilon>::value));
    EXPECT_FALSE((HasSequence<pelor::epsilon, const char*>::value));
    EXPECT_FALSE((HasChoice<pelor::epsilon, char>::value));
    EXPECT_FALSE((HasChoice<pelor::rule, pelor::epsilon>::value));
    EXPECT_FALSE((HasSequence<pelor::exact_char, pelor::exact_char>::value));
    EXPECT_TRUE((HasChoice<int, int>::value));
}

TEST(Construction, EveryParserIsMarkedAsOne) {
    EXPECT_TRUE(pelor::is_parser<pelor::epsilon>::value);
    EXPECT_TRUE(pelor::is_parser<pelor::end_of_input>::value);
    EXPECT_TRUE(pelor::is_parser<pelor::ref<pelor::rule>>::value);
    EXPECT_TRUE((pelor::is_parser<pelor::repeat_adapter<pelor::epsilon, 0, 1>>::value));
    EXPECT_FALSE(pelor::is_parser<pelor::rule>::value);
    EXPECT_FALSE(pelor::is_parser<pelor::word_char>::value);
    EXPECT_FALSE(pelor::is_parser<std::string>::value);
}

// A rule boundary costs one virtual call and nothing inside a body costs any:
// no parser or predicate type has a virtual function, so every match inside a
// body is a direct call on a value of known type, and the body type itself is
// final, so its entry points call the expression's match directly.
TEST(Construction, NothingButTheRuleBodyIsPolymorphic) {
    using pelor::char_class;
    using pelor::epsilon;
    using pelor::exact_char;
    using pelor::literal_string;
    using Char = char_class<exact_char>;
    using Reference = pelor::ref<pelor::rule>;
    using Body = pelor::and_adapter<pelor::or_adapter<literal_string, Reference>,
                                    pelor::repeat_adapter<pelor::epsilon_adapter<Char>, 0, -1>>;
    EXPECT_FALSE(std::is_polymorphic<literal_string>::value);
    EXPECT_FALSE(std::is_polymorphic<Char>::value);
    EXPECT_FALSE(std::is_polymorphic<epsilon>::value);
    EXPECT_FALSE(std::is_polymorphic<pelor::end_of_input>::value);
    EXPECT_FALSE(std::is_polymorphic<Reference>::value);
    EXPECT_FALSE(std::is_polymorphic<Body>::value);
    EXPECT_FALSE((std::is_polymorphic<pelor::action_adapter<Body, void (*)(const char*, const char*)>>::value));
    EXPECT_FALSE((std::is_polymorphic<pelor::chain_adapter<Body, Char, void (*)(const char*, const char*)>>::value));
    EXPECT_FALSE((std::is_polymorphic<pelor::balanced_adapter<Char, Body, Reference>>::value));
    EXPECT_FALSE(std::is_polymorphic<pelor::nesting_adapter<Body>>::value);
    EXPECT_FALSE(std::is_polymorphic<pelor::nesting_depth>::value);
    using Predicate = pelor::or_char_predicate<pelor::alnum, pelor::not_char_predicate<pelor::word_char>>;
    EXPECT_FALSE(std::is_polymorphic<Predicate>::value);
    EXPECT_FALSE(std::is_polymorphic<pelor::alpha>::value);
    EXPECT_FALSE(std::is_polymorphic<pelor::rule>::value);
    EXPECT_TRUE(std::is_polymorphic<pelor::rule_impl_base>::value);
    EXPECT_TRUE(std::is_final<pelor::rule_impl<Body>>::value);
}

TEST(Construction, PrimitivesAreSmallValues) {
    EXPECT_TRUE(std::is_empty<pelor::epsilon>::value);
    EXPECT_TRUE(std::is_empty<pelor::end_of_input>::value);
    EXPECT_EQ(sizeof(pelor::char_class<pelor::alpha>), 1u);
    EXPECT_EQ(sizeof(pelor::char_class<pelor::exact_char>), sizeof(char));
    EXPECT_EQ(sizeof(pelor::literal_string), sizeof(std::string));
}

} // namespace
