#include "platform/posix/native_names.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

TEST(NativeNames, Utf8IsTakenAsItIsAlsoOutsideTheCodePage) {
    EXPECT_EQ(textFromNative("K名簿é🐱.txt"), u"K名簿é🐱.txt");
    EXPECT_EQ(nativeFromText(u"K名簿é🐱.txt"), "K名簿é🐱.txt");
    EXPECT_EQ(nativeFromText(u"\uFFFD"), "\uFFFD");
    EXPECT_EQ(textFromNative("\uFFFD\xFF"), (Text{0xFFFD, 0xDCFF}));
}

TEST(NativeNames, BytesOutsideUtf8AreCarriedOneByOne) {
    EXPECT_EQ(textFromNative("a\x96\xBC\x95\xEB."), (Text{u'a', 0xDC96, 0xDCBC, 0xDC95, 0xDCEB, u'.'}));
    EXPECT_EQ(textFromNative("\xE3\x81"), (Text{0xDCE3, 0xDC81}));
    EXPECT_EQ(textFromNative("\xC0\xAF"), (Text{0xDCC0, 0xDCAF}));
    EXPECT_EQ(textFromNative("\xED\xB2\x80"), (Text{0xDCED, 0xDCB2, 0xDC80}));
}

TEST(NativeNames, EveryPairOfBytesComesBack) {
    for (int first = 1; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            const std::string name{static_cast<char>(first), static_cast<char>(second), 'x'};
            ASSERT_EQ(nativeFromText(textFromNative(name)), name) << first << ' ' << second;
        }
    }
}

TEST(NativeNames, ABackslashInsideANameIsCarried) {
    EXPECT_EQ(nativeFromText(Text{u'a', carriedBackslash, u'b'}), "a\\b");
    EXPECT_EQ(textFromNative("a\\b"), u"a\\b");
}

TEST(NativeNames, WhatNoNameCanHoldFails) {
    EXPECT_THROW(nativeFromText(Text{u'a', 0, u'b'}), RuntimeFailure);
    EXPECT_THROW(nativeFromText(Text{0xD83D}), RuntimeFailure);
    EXPECT_THROW(nativeFromText(Text{0xD83D, u'a'}), RuntimeFailure);
    EXPECT_THROW(nativeFromText(Text{0xDC2F}), RuntimeFailure);
    EXPECT_THROW(nativeFromText(Text{0xDC00}), RuntimeFailure);
}
