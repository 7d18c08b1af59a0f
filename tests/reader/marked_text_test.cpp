#include "reader/marked_text.h"

#include <gtest/gtest.h>

#include <array>

using Kind = ClipboardRequest::Kind;

TEST(MarkedText, ATextWithTheMarkIsSpokenWithoutIt) {
    const auto request = requestIn("山田 ､  ｷﾞｮｳ12。｡.");
    EXPECT_EQ(request.kind, Kind::speech);
    EXPECT_EQ(request.text, "山田 ､  ｷﾞｮｳ12");
}

TEST(MarkedText, ATextWithoutTheWholeMarkAtItsEndIsLeftAlone) {
    for (const char* text : {"", "山田", "。｡.山田", "山田。｡. ", "山田。｡.\n", "山田｡.", "山田。.", "山田。｡。"})
        EXPECT_EQ(requestIn(text).kind, Kind::none) << text;
}

TEST(MarkedText, ABareMarkIsSilence) { EXPECT_EQ(requestIn("。｡.").kind, Kind::silence); }

TEST(MarkedText, OnlyTheLastMarkIsTakenOff) {
    EXPECT_EQ(requestIn("。｡.。｡.").kind, Kind::speech);
    EXPECT_EQ(requestIn("。｡.。｡.").text, "。｡.");
}

TEST(MarkedText, EachSpeedMarkSetsItsSpeed) {
    const std::array<const char*, 10> marks{
        "＜速さ０＞速度調整0。｡.", "＜速さ１＞速度調整1。｡.", "＜速さ２＞速度調整2。｡.", "＜速さ３＞速度調整3。｡.",
        "＜速さ４＞速度調整4。｡.", "＜速さ５＞速度調整5。｡.", "＜速さ６＞速度調整6。｡.", "＜速さ７＞速度調整7。｡.",
        "＜速さ８＞速度調整8。｡.", "＜速さ９＞速度調整9。｡.",
    };
    for (int speed = 0; speed < 10; ++speed) {
        const auto request = requestIn(marks.at(static_cast<std::size_t>(speed)));
        EXPECT_EQ(request.kind, Kind::speed);
        EXPECT_EQ(request.speed, speed);
        EXPECT_EQ(request.text, "");
    }
}

TEST(MarkedText, WhatOnlyLooksLikeASpeedMarkIsSpoken) {
    for (const char* text : {"＜速さ１＞速度調整2。｡.", "＜速さ１＞速度調整。｡.", " ＜速さ１＞速度調整1。｡."})
        EXPECT_EQ(requestIn(text).kind, Kind::speech) << text;
    EXPECT_EQ(requestIn("＜速さ１＞速度調整1").kind, Kind::none);
}

TEST(MarkedText, AnyBytesAreAllowed) {
    EXPECT_EQ(requestIn(std::string("\xFF\x00\xE3\x80", 4)).kind, Kind::none);
    EXPECT_EQ(requestIn("\xFF\xE3。｡.").text, "\xFF\xE3");
}
