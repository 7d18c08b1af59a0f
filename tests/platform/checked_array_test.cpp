#include "platform/checked_array.h"

#include <gtest/gtest.h>

TEST(CheckedArray, GivesItsElementsAndRefusesEveryOtherIndex) {
    CheckedArray<int, 256> array;
    array[0] = 1;
    array[255] = 2;
    EXPECT_EQ(array[0], 1);
    EXPECT_EQ(array[255], 2);
    for (const std::int64_t index : {std::int64_t{-1}, std::int64_t{256}, INT64_MAX, INT64_MIN}) {
        try {
            array[index] = 3;
            FAIL() << index;
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.kind, FailureKind::subscript);
        }
    }
}
