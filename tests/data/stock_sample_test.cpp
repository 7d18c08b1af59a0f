// What scoring, groups and correlation will find in the sample of test results: results that show something.

#include "data/stock.h"
#include "platform/number_reader.h"
#include "platform/utf8.h"
#include "sheet/cell.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numeric>
#include <set>

namespace {

struct Question {
    int item;
    std::string answer;
    int points;
};

struct Board {
    int raw = 0;
    std::vector<Question> questions;
    std::set<int> resultItems;
};

using Numbers = std::vector<double>;

double mean(const Numbers& numbers) {
    return std::accumulate(numbers.begin(), numbers.end(), 0.0) / static_cast<double>(numbers.size());
}

double deviation(const Numbers& numbers) {
    double sum = 0;
    for (const double number : numbers) {
        sum += (number - mean(numbers)) * (number - mean(numbers));
    }
    return std::sqrt(sum / static_cast<double>(numbers.size()));
}

double correlation(const Numbers& xs, const Numbers& ys) {
    double sum = 0;
    for (std::size_t i = 0; i < xs.size(); ++i) {
        sum += (xs[i] - mean(xs)) * (ys[i] - mean(ys));
    }
    return sum / static_cast<double>(xs.size()) / deviation(xs) / deviation(ys);
}

/// The sample with its board.
struct SampleWorld : TestWorld {
    SampleWorld() {
        writeFile("t.txt", stockFile("サンプル試験結果.___"));
        writeFile("kt.txt", stockFile("kサンプル試験結果.___"));
        openTable("t.txt");
        computeItemStart(zormod.items);
        readBoard();
        for (int record = 1; record <= recordCount(zormod); ++record) {
            if (isPresent(record)) {
                present.push_back(record);
            }
        }
    }
    std::string cell(int record, int item) { return utf8(trimmed(getRecordCell(zormod, record, item))); }
    /// A person is there if an item beyond the ID item is neither blank nor a star.
    bool isPresent(int record) {
        for (int item = 1; item <= zormod.items.itemCount; ++item) {
            const std::string text = cell(record, item);
            if (!text.empty() && text != "*") {
                return true;
            }
        }
        return false;
    }
    double score(int record) {
        double sum = 0;
        for (const Question& question : board.questions) {
            sum += cell(record, question.item) == question.answer ? question.points : 0;
        }
        return sum;
    }
    Numbers scores(const std::vector<int>& records) {
        Numbers found;
        for (const int record : records) {
            found.push_back(score(record));
        }
        return found;
    }
    Numbers column(const std::vector<int>& records, const std::string& name) {
        Numbers found;
        for (const int record : records) {
            found.push_back(Val(getRecordCell(zormod, record, itemNamed(name))));
        }
        return found;
    }
    int itemNamed(const std::string& name) {
        int item = 0;
        while (item < zormod.items.itemCount && utf8(zormod.items.itemName[item]) != name) {
            ++item;
        }
        EXPECT_EQ(utf8(zormod.items.itemName[item]), name);
        return item;
    }

    Board board;
    std::vector<int> present;

private:
    void readBoard() {
        const std::string bytes = stockFile("サンプル試験結果.0__");
        std::vector<Text> lines;
        for (std::size_t at = 0; at < bytes.size();) {
            const auto end = bytes.find("\r\n", at);
            ASSERT_NE(end, std::string::npos);
            lines.push_back(codePage.decode(bytes.substr(at, end - at)));
            at = end + 2;
        }
        ASSERT_GE(lines.size(), 5U);
        ASSERT_EQ((lines.size() - 5) % 3, 0U);
        board.raw = static_cast<int>(Val(lines[1]));
        for (std::size_t i = 1; i < 5; ++i) {
            board.resultItems.insert(static_cast<int>(Val(lines[i])));
        }
        for (std::size_t i = 5; i < lines.size(); i += 3) {
            board.questions.push_back(
                {static_cast<int>(Val(lines[i])), utf8(lines[i + 1]), static_cast<int>(Val(lines[i + 2]))});
        }
    }
};

} // namespace

TEST(StockSample, TheBoardFitsTheTable) {
    SampleWorld world;
    EXPECT_EQ(world.board.resultItems.size(), 4U);
    std::map<int, int> answers;
    for (const Question& question : world.board.questions) {
        ++answers[question.item];
        EXPECT_TRUE(utf8(world.zormod.items.itemName[question.item]).starts_with("問"));
        EXPECT_LE(world.codePage.encode(fromUtf8(question.answer)).size(),
                  static_cast<std::size_t>(world.zormod.items.itemWidth[question.item]));
    }
    EXPECT_EQ(answers.size(), 20U);
    EXPECT_EQ(answers[world.itemNamed("問15")], 2) << "one question with two right answers";
    for (const int item : world.board.resultItems) {
        EXPECT_FALSE(answers.contains(item));
        for (int record = 1; record <= 40; ++record) {
            EXPECT_EQ(world.cell(record, item), "") << "results come by scoring";
        }
    }
}

TEST(StockSample, ThreeOfFortyAreAbsentByStarsOrBlanks) {
    SampleWorld world;
    ASSERT_EQ(recordCount(world.zormod), 40);
    EXPECT_EQ(world.present.size(), 37U);
    int stars = 0;
    for (int record = 1; record <= 40; ++record) {
        stars += world.cell(record, 1) == "*";
        EXPECT_NE(world.cell(record, 0), "") << "the name stands in the ID item, which the test for absence leaves out";
    }
    EXPECT_EQ(stars, 2);
}

TEST(StockSample, ScoringGivesEveryLevelOfTheFive) {
    SampleWorld world;
    const Numbers scores = world.scores(world.present);
    const double middle = mean(scores);
    const double spread = deviation(scores);
    EXPECT_GT(spread, 10);
    std::map<int, int> levels;
    for (const double score : scores) {
        EXPECT_GT(score, 0);
        const double z = (score - middle) / spread;
        ++levels[z < -1.5 ? 1 : z < -.5 ? 2 : z < .5 ? 3 : z < 1.5 ? 4 : 5];
    }
    for (int level = 1; level <= 5; ++level) {
        EXPECT_GE(levels[level], 2) << level;
    }
}

TEST(StockSample, BothRightAnswersOfAQuestionAreGiven) {
    SampleWorld world;
    std::map<std::pair<int, std::string>, int> given;
    for (const int record : world.present) {
        for (const Question& question : world.board.questions) {
            given[{question.item, question.answer}] += world.cell(record, question.item) == question.answer;
        }
    }
    for (const auto& [question, count] : given) {
        EXPECT_GT(count, 0) << question.first << " " << question.second;
        EXPECT_LT(count, 37) << question.first << " " << question.second;
    }
}

TEST(StockSample, TheGroupsDifferInTheirMeans) {
    SampleWorld world;
    std::map<std::string, std::vector<int>> groups;
    for (const int record : world.present) {
        groups[world.cell(record, world.itemNamed("組"))].push_back(record);
    }
    ASSERT_EQ(groups.size(), 3U);
    ASSERT_TRUE(groups.contains("1") && groups.contains("2") && groups.contains("3"));
    for (const auto& [group, records] : groups) {
        EXPECT_GE(records.size(), 10U) << group;
    }
    EXPECT_GT(mean(world.scores(groups["2"])), mean(world.scores(groups["1"])) + 5);
    EXPECT_GT(mean(world.scores(groups["3"])), mean(world.scores(groups["2"])) + 5);
}

TEST(StockSample, TheSubjectsCorrelateStronglyAndWeakly) {
    SampleWorld world;
    const Numbers language = world.column(world.present, "国語");
    const Numbers mathematics = world.column(world.present, "数学");
    const Numbers hours = world.column(world.present, "学習時間");
    EXPECT_GT(correlation(world.scores(world.present), mathematics), .6);
    EXPECT_GT(correlation(language, mathematics), .2);
    EXPECT_LT(correlation(language, mathematics), .7);
    EXPECT_GT(correlation(mathematics, hours), .3);
    int missing = 0;
    for (const int record : world.present) {
        missing += world.cell(record, world.itemNamed("英語")).empty();
    }
    EXPECT_EQ(missing, 1) << "one value missing, to show how each statistic leaves it out";
}

TEST(StockSample, TheSexesMakeTwoClasses) {
    SampleWorld world;
    std::map<std::string, int> classes;
    for (const int record : world.present) {
        ++classes[world.cell(record, world.itemNamed("性別"))];
    }
    ASSERT_EQ(classes.size(), 2U);
    EXPECT_GT(classes["女"], 10);
    EXPECT_GT(classes["男"], 10);
}
