// SPDX-License-Identifier: MIT
#include "frontend/ErrorSink.hpp"

#include <gtest/gtest.h>

#include <sstream>

using QuorelScript::ErrorSink;

TEST(ErrorSink, KeepsWhatIsWrittenUntilAStreamIsSet) {
    ErrorSink sink;
    sink.stream() << "one ";
    sink.stream() << "two";
    std::ostringstream host;
    sink.redirect(&host);
    EXPECT_EQ("one two", host.str());
    sink.stream() << " three";
    EXPECT_EQ("one two three", host.str());
}

TEST(ErrorSink, WhatWasKeptGoesToTheFirstStreamOnly) {
    ErrorSink sink;
    sink.stream() << "kept";
    std::ostringstream first;
    std::ostringstream second;
    sink.redirect(&first);
    sink.redirect(&second);
    EXPECT_EQ("kept", first.str());
    EXPECT_EQ("", second.str());
}

// Only what was written while there was no stream is kept: what a stream
// received is not written again.
TEST(ErrorSink, NoStreamKeepsWhatFollowsForTheNextOne) {
    ErrorSink sink;
    std::ostringstream first;
    sink.redirect(&first);
    sink.stream() << "shown";
    sink.redirect(nullptr);
    sink.stream() << "kept";
    std::ostringstream next;
    sink.redirect(&next);
    EXPECT_EQ("shown", first.str());
    EXPECT_EQ("kept", next.str());
}
