#include "platform/keys_on_hold.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr KeysOnHold::Moment start = 5000;

RawKey press(unsigned code, unsigned time = 1) { return {.isPress = true, .code = code, .modifiers = 0, .time = time}; }
RawKey release(unsigned code, unsigned time = 1) { return {.isPress = false, .code = code, .modifiers = 0, .time = time}; }

/// Takes everything that waits.
std::vector<RawKey> allOf(KeysOnHold& keys, KeysOnHold::Moment now = start) {
    std::vector<RawKey> all;
    int givenUp = 0;
    while (const auto key = keys.next(now, givenUp)) {
        all.push_back(*key);
    }
    EXPECT_EQ(givenUp, 0);
    return all;
}

} // namespace

TEST(KeysOnHold, LetsKeysThroughWhileNothingChanges) {
    KeysOnHold keys;
    EXPECT_FALSE(keys.comes(press(10), start));
    EXPECT_FALSE(keys.reaches(press(10)));
    EXPECT_FALSE(keys.isHolding());
}

TEST(KeysOnHold, KeepsWhatComesInItsOrder) {
    KeysOnHold keys;
    keys.hold(start);
    EXPECT_TRUE(keys.comes(press(10), start));
    EXPECT_TRUE(keys.comes(release(10), start));
    EXPECT_TRUE(keys.comes(press(11), start));
    EXPECT_EQ(allOf(keys), (std::vector{press(10), release(10), press(11)}));
    EXPECT_TRUE(keys.isHolding()) << "until it is ended";
    keys.end();
    EXPECT_FALSE(keys.comes(press(12), start));
}

TEST(KeysOnHold, KeepsWhatHasNotReachedAControlYetAheadOfWhatComes) {
    KeysOnHold keys;
    keys.comes(press(10), start);
    keys.comes(release(10), start);
    keys.comes(press(11), start);
    EXPECT_FALSE(keys.reaches(press(10)));
    keys.hold(start); // by the handler of that press
    EXPECT_TRUE(keys.mayStillReach());
    keys.comes(press(12), start);
    EXPECT_TRUE(keys.reaches(release(10)));
    EXPECT_TRUE(keys.reaches(press(11)));
    EXPECT_TRUE(keys.reaches(press(11))) << "the toolkit brings a key several times";
    EXPECT_FALSE(keys.reaches(press(10))) << "that key goes on to the widgets above its own";
    EXPECT_EQ(allOf(keys), (std::vector{release(10), press(11), press(12)}));
}

TEST(KeysOnHold, LetsAKeyThroughThatWasHandedOn) {
    KeysOnHold keys;
    keys.comes(press(10), start);
    keys.hold(start);
    EXPECT_TRUE(keys.reaches(press(10)));
    EXPECT_EQ(allOf(keys), std::vector{press(10)});
    EXPECT_FALSE(keys.mayStillReach());
    keys.goesOn(press(10), start);
    EXPECT_FALSE(keys.reaches(press(10)));
}

TEST(KeysOnHold, TellsKeysOfOneCodeApartByTime) {
    KeysOnHold keys;
    keys.comes(press(10, 1), start);
    keys.comes(press(10, 2), start);
    EXPECT_FALSE(keys.reaches(press(10, 1)));
    keys.hold(start);
    EXPECT_FALSE(keys.reaches(press(10, 1)));
    EXPECT_TRUE(keys.reaches(press(10, 2)));
}

TEST(KeysOnHold, ForgetsWhatAWindowCouldNotTakeOnceALaterKeyReachesAControl) {
    KeysOnHold keys;
    keys.comes(press(10), start);
    keys.comes(release(10), start);
    keys.comes(press(11), start);
    keys.reaches(press(11));
    keys.hold(start);
    EXPECT_TRUE(allOf(keys).empty());
}

TEST(KeysOnHold, ForgetsWhatNeverReachedAControl) {
    KeysOnHold keys;
    keys.comes(release(10), start);
    keys.hold(start + KeysOnHold::patience + 1);
    EXPECT_TRUE(allOf(keys, start + KeysOnHold::patience + 1).empty());
}

TEST(KeysOnHold, RemembersFewKeysOfAToolkitThatBringsNone) {
    KeysOnHold keys;
    for (unsigned i = 1; i <= 1000; ++i) {
        keys.comes(press(10, i), start);
    }
    keys.hold(start);
    const auto all = allOf(keys);
    ASSERT_EQ(all.size(), 64U);
    EXPECT_EQ(all.front(), press(10, 937));
    EXPECT_EQ(all.back(), press(10, 1000));
}

TEST(KeysOnHold, GivesUpPressesThatWaitedTooLongButNoRelease) {
    KeysOnHold keys;
    keys.hold(start);
    keys.comes(press(10), start);
    keys.comes(release(10), start);
    keys.comes(press(11), start + 1);
    int givenUp = 0;
    EXPECT_EQ(keys.next(start + KeysOnHold::patience + 1, givenUp), release(10));
    EXPECT_EQ(givenUp, 1);
    EXPECT_EQ(keys.next(start + KeysOnHold::patience + 1, givenUp), press(11));
    EXPECT_EQ(givenUp, 1);
}

TEST(KeysOnHold, CountsThePressesThatAreGivenUpAtTheEnd) {
    KeysOnHold keys;
    keys.hold(start);
    keys.comes(press(10), start);
    keys.comes(release(10), start);
    keys.comes(press(11), start);
    EXPECT_EQ(keys.end(), 2);
    EXPECT_EQ(keys.end(), 0);
    EXPECT_FALSE(keys.isHolding());
}

TEST(KeysOnHold, KnowsWhichReleaseWaits) {
    KeysOnHold keys;
    keys.hold(start);
    keys.comes(press(10), start);
    EXPECT_FALSE(keys.isReleaseWaiting(10));
    keys.comes(release(10), start);
    EXPECT_TRUE(keys.isReleaseWaiting(10));
    EXPECT_FALSE(keys.isReleaseWaiting(11));
}

TEST(KeysOnHold, HandsOneKeyOutAheadOfTheOthers) {
    KeysOnHold keys;
    keys.hold(start);
    keys.comes(press(10), start);
    keys.comes(press(9), start);
    keys.comes(release(9), start);
    EXPECT_EQ(keys.nextOf(9), press(9));
    EXPECT_EQ(keys.nextOf(9), release(9));
    EXPECT_EQ(keys.nextOf(9), std::nullopt);
    EXPECT_EQ(allOf(keys), std::vector{press(10)});
}

TEST(KeysOnHold, HandsOutTheReleasesOfKeysWhosePressWasHandedOn) {
    KeysOnHold keys;
    keys.hold(start);
    keys.comes(press(10), start);
    keys.comes(release(11), start);
    keys.comes(release(10), start);
    EXPECT_EQ(keys.nextOf(9), release(11));
    EXPECT_EQ(keys.nextOf(9), std::nullopt);
    EXPECT_EQ(allOf(keys), (std::vector{press(10), release(10)}));
}

TEST(KeysOnHold, HoldsOnWhenAnotherWindowComesBeforeTheFirstHasItsKeys) {
    KeysOnHold keys;
    keys.hold(start);
    keys.comes(press(10), start);
    keys.comes(press(11), start);
    int givenUp = 0;
    EXPECT_EQ(keys.next(start, givenUp), press(10));
    keys.goesOn(press(10), start);
    keys.reaches(press(10));
    keys.hold(start + 1000); // that key has opened another
    EXPECT_EQ(keys.since(), start + 1000);
    EXPECT_EQ(allOf(keys), std::vector{press(11)});
}
