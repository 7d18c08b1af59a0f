#include "edit/range_list.h"

#include "support/doubles.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <utility>
#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Ends = std::pair<std::int64_t, std::int64_t>;

constexpr const char* wrongCharacter = "数字-/以外の文字が含まれる、又は無駄なスペースが含まれる";
constexpr const char* twoDashes = "ブロック中に１以上の「－」がある";
constexpr const char* recordOver = "レコード番号がオーバ";
constexpr const char* recordUnder = "指定値が１より小さい";
constexpr const char* itemOver = "指定値が最大項目番号をオーバ";

std::vector<Ends> blocks(Text text) {
    std::vector<Ends> found;
    while (const auto block = nextRangeBlock(text)) {
        found.emplace_back(block->first, block->last);
    }
    EXPECT_TRUE(text.empty());
    return found;
}

std::string records(Text text, std::int64_t count = 100) {
    return utf8(checkRangeList(text, RangeListKind::records, count));
}
std::string items(Text text, std::int64_t highest = 20) {
    return utf8(checkRangeList(text, RangeListKind::items, highest));
}

/// The notation once more, by cutting the whole list at its slashes instead of walking it: for lists so short that no
/// cut shortens them.
struct Model {
    explicit Model(const std::string& list) {
        std::istringstream in(list);
        for (std::string token; std::getline(in, token, '/');) {
            token.erase(0, token.find_first_not_of('-') == std::string::npos ? token.size()
                                                                             : token.find_first_not_of('-'));
            if (token.empty()) {
                continue;
            }
            const auto dash = token.find('-');
            const auto number = [](const std::string& digits) { return digits.empty() ? 0 : std::stoll(digits); };
            const std::int64_t a = number(token.substr(0, dash));
            const std::int64_t b = dash == std::string::npos ? a : number(token.substr(dash + 1));
            blocks.emplace_back(std::min(a, b), std::max(a, b));
        }
    }
    static std::string fault(const std::string& list, RangeListKind kind, std::int64_t highest) {
        const auto bad = list.find_first_not_of("0123456789-/");
        auto second = std::string::npos;
        for (std::size_t i = 0; i < list.size() && second == std::string::npos; ++i) {
            const auto start = i == 0 ? 0 : list.rfind('/', i - 1) + 1;
            if (list[i] == '-' && list.substr(start, i - start).find('-') != std::string::npos) {
                second = i;
            }
        }
        if (bad != second) {
            return bad < second ? wrongCharacter : twoDashes;
        }
        for (const auto& [first, last] : Model(list).blocks) {
            if (last > highest) {
                return kind == RangeListKind::records ? recordOver : itemOver;
            }
            if (kind == RangeListKind::records && first == 0) {
                return recordUnder;
            }
        }
        return {};
    }
    std::vector<Ends> blocks;
};

} // namespace

TEST(RangeList, BlocksComeInTheOrderInWhichTheyWereWritten) {
    EXPECT_THAT(blocks(u"10-15/80-100/3"), ElementsAre(Ends(10, 15), Ends(80, 100), Ends(3, 3)));
    EXPECT_THAT(blocks(u"0-3/6/9-12"), ElementsAre(Ends(0, 3), Ends(6, 6), Ends(9, 12)));
    EXPECT_THAT(blocks(u"10-15/3"), ElementsAre(Ends(10, 15), Ends(3, 3)));
}

TEST(RangeList, OneNumberIsABlockOfOne) {
    EXPECT_THAT(blocks(u"3"), ElementsAre(Ends(3, 3)));
}

TEST(RangeList, EndsAreSwappedWhereTheyStandTheOtherWayRound) {
    EXPECT_THAT(blocks(u"15-10"), ElementsAre(Ends(10, 15)));
}

TEST(RangeList, ABlockMayStandTwice) {
    EXPECT_THAT(blocks(u"2/2-4/2"), ElementsAre(Ends(2, 2), Ends(2, 4), Ends(2, 2)));
}

TEST(RangeList, ASlashAtTheEndChangesNothing) {
    EXPECT_THAT(blocks(u"5/"), ElementsAre(Ends(5, 5)));
    EXPECT_EQ(records(u"5/"), "");
    EXPECT_EQ(records(u"5"), "");
}

TEST(RangeList, SignsInFrontAreDropped) {
    EXPECT_THAT(blocks(u"/-/5//-7"), ElementsAre(Ends(5, 5), Ends(7, 7)));
    EXPECT_EQ(records(u"-5"), "");
}

TEST(RangeList, AMissingSecondEndIsZero) {
    EXPECT_THAT(blocks(u"5-"), ElementsAre(Ends(0, 5)));
    EXPECT_EQ(records(u"5-"), recordUnder);
    EXPECT_EQ(items(u"5-"), "");
}

TEST(RangeList, TheTakenBlockGoesWithTheSignsBehindIt) {
    Text text = u"1-2/-/3";
    EXPECT_EQ(nextRangeBlock(text), (RangeBlock{1, 2}));
    EXPECT_EQ(utf8(text), "3");
    EXPECT_EQ(nextRangeBlock(text), (RangeBlock{3, 3}));
    EXPECT_EQ(utf8(text), "");
    EXPECT_EQ(nextRangeBlock(text), std::nullopt);
}

TEST(RangeList, AListOfSlashesHasNoBlockAndIsValid) {
    EXPECT_THAT(blocks(u"//"), IsEmpty());
    EXPECT_EQ(records(u"//"), "");
    EXPECT_EQ(items(u"//"), "");
    EXPECT_EQ(records(u""), "");
}

TEST(RangeList, TwoDashesInABlockAreAFault) {
    EXPECT_EQ(records(u"1-2-3"), twoDashes);
    EXPECT_EQ(records(u"1--3"), twoDashes);
    EXPECT_EQ(records(u"1-2/3-4"), "");
}

TEST(RangeList, AnyOtherCharacterIsAFault) {
    for (const TextView list : {u"10 - 15", u" 1", u"1 ", u"1,2", u"１", u"1～3", u"a", u"1.5"}) {
        EXPECT_EQ(records(Text(list)), wrongCharacter) << utf8(list);
    }
}

TEST(RangeList, TheFaultThatStandsFirstIsTold) {
    EXPECT_EQ(records(u"1-2-3 "), twoDashes);
    EXPECT_EQ(records(u"1 -2-3"), wrongCharacter);
    EXPECT_EQ(records(u"0/200"), recordUnder);
    EXPECT_EQ(records(u"200/0"), recordOver);
    EXPECT_EQ(records(u"0-200"), recordOver) << "an end above is looked for before one below";
    EXPECT_EQ(records(u"200/x"), wrongCharacter) << "characters are looked at before numbers";
}

TEST(RangeList, RecordsReachFromOneToTheCount) {
    EXPECT_EQ(records(u"1-100"), "");
    EXPECT_EQ(records(u"90-101"), recordOver);
    EXPECT_EQ(records(u"101-90"), recordOver);
    EXPECT_EQ(records(u"0"), recordUnder);
    EXPECT_EQ(records(u"1", 0), recordOver);
}

TEST(RangeList, ItemsReachFromZeroToTheHighest) {
    EXPECT_EQ(items(u"0"), "");
    EXPECT_EQ(items(u"0-20"), "");
    EXPECT_EQ(items(u"0-21"), itemOver);
    EXPECT_EQ(items(u"21-0"), itemOver);
}

TEST(RangeList, NumbersOfAnyLengthAreOver) {
    for (const TextView list : {u"2147483648", u"4294967297", u"1-18446744073709551617",
                                u"99999999999999999999999999999999999999999999999999"}) {
        EXPECT_EQ(records(Text(list), INT32_MAX), recordOver) << utf8(list);
        EXPECT_EQ(items(Text(list), INT16_MAX), itemOver) << utf8(list);
    }
    EXPECT_EQ(records(u"0000000000000000000000000000000000000000000000000000000000007"), "");
}

TEST(RangeList, TheCheckUsesTheTextUp) {
    Text text = u"1/2/3";
    EXPECT_TRUE(checkRangeList(text, RangeListKind::records, 100).empty());
    EXPECT_TRUE(text.empty());
}

TEST(RangeList, OnlyTwoHundredAndFiftyFiveCharactersBehindACutSurvive) {
    Text ones = u"7/";
    while (ones.size() < 2 + 254) {
        ones += u"1/";
    }
    EXPECT_THAT(blocks(ones + u"9"), testing::Contains(Ends(9, 9))) << "255 characters behind the first cut";
    EXPECT_THAT(blocks(ones + u"98"),
                testing::AllOf(testing::Contains(Ends(9, 9)), testing::Not(testing::Contains(Ends(98, 98)))));
    EXPECT_EQ(blocks(ones + u"9/9/9/9").size(), blocks(ones + u"9").size());
    EXPECT_EQ(records(ones + u"9/999"), "") << "what is lost is not checked either";
    EXPECT_EQ(records(ones + u"9/x"), wrongCharacter) << "characters are checked before anything is cut";
    EXPECT_THAT(blocks(u"7-" + Text(255, u'0') + u"5"), ElementsAre(Ends(0, 7)));
    EXPECT_THAT(blocks(u"/" + Text(254, u'0') + u"12"), ElementsAre(Ends(1, 1))) << "a dropped sign is a cut, too";
}

TEST(RangeList, RandomListsReadAsAListCutAtItsSlashesDoes) {
    std::mt19937 random(45);
    constexpr std::string_view characters = "0123456789123-/-/x ";
    int valid = 0;
    int faulty = 0;
    for (int round = 0; round < 20000; ++round) {
        // Half of the lists hold allowed characters alone.
        const auto kinds = round % 2 == 0 ? characters.size() - 2 : characters.size();
        std::string list;
        const auto length = random() % 14;
        while (list.size() < length) {
            list += characters[random() % kinds];
        }
        const Text text(list.begin(), list.end());
        const std::string fault = Model::fault(list, RangeListKind::records, 150);
        EXPECT_EQ(records(text, 150), fault) << list;
        EXPECT_EQ(items(text, 150), Model::fault(list, RangeListKind::items, 150)) << list;
        if (fault != wrongCharacter && fault != twoDashes) {
            EXPECT_EQ(blocks(text), Model(list).blocks) << list;
        }
        ++(fault.empty() ? valid : faulty);
    }
    EXPECT_GT(valid, 500);
    EXPECT_GT(faulty, 500);
}
