#include "edit/font_sizes.h"

#include <gmock/gmock.h>

#include <vector>

TEST(FontSizes, GrowThroughTheFixedSizesAndStopAt48) {
    std::vector<int> sizes{8};
    while (const auto next = largerFontSize(sizes.back())) {
        sizes.push_back(*next);
    }
    EXPECT_THAT(sizes, testing::ElementsAre(8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 48));
    EXPECT_EQ(largerFontSize(72), std::nullopt);
}

TEST(FontSizes, ShrinkThroughTheFixedSizesFromWhereverTheyStand) {
    std::vector<int> sizes{72};
    while (const auto next = smallerFontSize(sizes.back())) {
        sizes.push_back(*next);
    }
    EXPECT_THAT(sizes, testing::ElementsAre(72, 48, 24, 20, 18, 16, 14, 12, 11, 10, 9, 8));
    EXPECT_EQ(smallerFontSize(13), 12);
    EXPECT_EQ(largerFontSize(13), 14);
}

TEST(FontSizes, EverySizeIsAnEvenNumberOfPixels) {
    for (int size = 8; size <= 72; ++size) {
        EXPECT_EQ(fontPixels(size) % 2, 0) << size;
    }
}

TEST(FontSizes, ADesktopWithLargeLettersStartsLarge) {
    EXPECT_EQ(firstFontSize(12), 8);
    EXPECT_EQ(firstFontSize(16), 10);
    EXPECT_EQ(firstFontSize(32), 20);
    EXPECT_EQ(firstFontSize(64), 24);
}
