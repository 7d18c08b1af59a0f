// The tables that come with the program, opened as the program opens them after copying them from their sources.

#include "data/stock.h"
#include "sheet/cell.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "start/model_files.h"
#include "start/table_opening.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

namespace {

struct StockTable {
    const char* source;
    int items; ///< beyond the ID item
    int width; ///< of each of them; 0 where they differ
    int records;
};

constexpr StockTable stockTables[] = {
    {"m1", 9, 0, 0},
    {"m2", 11, 0, 0},
    {"s10", 10, 20, 0},
    {"s50", 50, 4, 0},
    {"s100", 100, 2, 0},
    {"g40", 0, 0, 0},
    {"サンプル住所録", 11, 0, 30},
    {"サンプル試験結果", 30, 0, 40},
};

/// A world with one table of the stock open.
struct StockWorld : TestWorld {
    explicit StockWorld(const std::string& source) {
        EXPECT_TRUE(isInStock(source + ".___")) << source;
        writeFile("t.txt", stockFile(source + ".___"));
        writeFile("kt.txt", stockFile("k" + source + ".___"));
        openTable("t.txt");
        computeItemStart(zormod.items);
    }
    std::string cell(int record, int item) { return utf8(trimmed(getRecordCell(zormod, record, item))); }
    int itemNamed(const std::string& name) {
        for (int i = 0; i <= zormod.items.itemCount; ++i) {
            if (utf8(zormod.items.itemName[i]) == name) {
                return i;
            }
        }
        ADD_FAILURE() << "no item " << name;
        return 0;
    }
};

/// The first cell of a record that a telephone form would dial.
std::string firstNumber(StockWorld& world, int record) {
    for (int item = 0; item <= world.zormod.items.itemCount; ++item) {
        const std::string text = world.cell(record, item);
        const auto digits = std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
        if (text.find_first_not_of("0123456789-() ") == std::string::npos && text.starts_with("0") && digits >= 9 &&
            digits <= 11) {
            return text;
        }
    }
    return {};
}

} // namespace

TEST(StockTables, EachOpensWithItsItemsAndRecords) {
    for (const StockTable& stock : stockTables) {
        SCOPED_TRACE(stock.source);
        StockWorld world(stock.source);
        const ItemTable& items = world.zormod.items;
        EXPECT_EQ(items.itemCount, stock.items);
        EXPECT_LE(items.itemStart[items.itemCount] + items.itemWidth[items.itemCount] - 1, 254);
        EXPECT_EQ(recordCount(world.zormod), stock.records);
        EXPECT_FALSE(world.zormod.file.tableMemo.empty());
        for (int i = 1; stock.width != 0 && i <= stock.items; ++i) {
            EXPECT_EQ(items.itemWidth[i], stock.width);
        }
    }
}

TEST(StockTables, EachIsFilledFoundAgainAndComesBackFromItsSourceWhenDeleted) {
    for (const Model& model : models()) {
        SCOPED_TRACE(utf8(model.caption));
        TestWorld world;
        for (const TextView source : {model.itemSource, model.dataSource}) {
            world.writeFile(utf8(source), stockFile(utf8(source)));
        }
        ASSERT_EQ(openModel(world.zormod, model.number), u"");
        const std::string name = utf8(model.dataFile);
        const std::string pristine = world.bytesOf(name);
        world.zormod.position.curItem = std::min<std::int16_t>(1, world.zormod.items.itemCount);
        commitCell(world.zormod, u"77");
        commitRecord(world.zormod);
        const std::string filled = world.bytesOf(name);
        EXPECT_NE(filled, pristine);

        forgetTable(world.zormod);
        ASSERT_EQ(openModel(world.zormod, model.number), u"");
        EXPECT_EQ(world.bytesOf(name), filled);
        EXPECT_TRUE(utf8(getRecordCell(world.zormod, 1, world.zormod.items.itemCount == 0 ? 0 : 1)).find("77") != std::string::npos);

        forgetTable(world.zormod);
        std::filesystem::remove(world.folder.path() + "/" + name);
        std::filesystem::remove(world.folder.path() + "/k" + name);
        ASSERT_EQ(openModel(world.zormod, model.number), u"");
        EXPECT_EQ(world.bytesOf(name), pristine);
        EXPECT_EQ(world.bytesOf("k" + name), stockFile(utf8(model.itemSource)));
    }
}

TEST(StockTables, ThePaperHasLinesOfFortyBytesAndNoItems) {
    StockWorld world("g40");
    EXPECT_EQ(world.zormod.items.itemCount, 0);
    EXPECT_EQ(world.zormod.items.itemWidth[0], 40);
}

TEST(StockTables, RecordsAre256BytesLongAndEndInCrLf) {
    for (const StockTable& stock : stockTables) {
        const std::string bytes = stockFile(std::string(stock.source) + ".___");
        ASSERT_EQ(bytes.size(), 256U * static_cast<std::size_t>(stock.records)) << stock.source;
        for (std::size_t at = 0; at < bytes.size(); at += 256) {
            EXPECT_EQ(bytes.substr(at, 256).find("\r\n"), 254U) << stock.source;
        }
    }
}

TEST(StockTables, TheHouseholdAccountsTakeMoneyToTheRight) {
    StockWorld world("m1");
    for (const char* name : {"収入", "支出", "残高"}) {
        const int item = world.itemNamed(name);
        EXPECT_EQ(world.zormod.items.itemAlign[item], u"R") << name;
        EXPECT_GE(world.zormod.items.itemWidth[item], 8) << name;
    }
    for (const char* name : {"日付", "費目", "摘要"}) {
        EXPECT_EQ(world.zormod.items.itemAlign[world.itemNamed(name)], u"L") << name;
    }
}

TEST(StockTables, TheSampleOfAddressesHasTheItemsOfTheAddressBook) {
    StockWorld model("m2");
    StockWorld sample("サンプル住所録");
    for (int i = 0; i <= model.zormod.items.itemCount; ++i) {
        EXPECT_EQ(sample.zormod.items.itemName[i], model.zormod.items.itemName[i]);
        EXPECT_EQ(sample.zormod.items.itemWidth[i], model.zormod.items.itemWidth[i]);
        EXPECT_EQ(sample.zormod.items.itemAlign[i], model.zormod.items.itemAlign[i]);
    }
}

TEST(StockTables, TheSampleOfAddressesMakesLabels) {
    StockWorld world("サンプル住所録");
    // The numbers that the guide tells for the prompts of the labels.
    EXPECT_EQ(world.itemNamed("氏名"), 1);
    EXPECT_EQ(world.itemNamed("敬称"), 3);
    EXPECT_EQ(world.itemNamed("郵便番号"), 4);
    EXPECT_EQ(world.itemNamed("住所"), 5);
    std::set<std::string> names;
    int broken = 0;
    for (int record = 1; record <= 30; ++record) {
        names.insert(world.cell(record, 1));
        EXPECT_TRUE(world.cell(record, 4).starts_with("000-")) << "no postal code that exists";
        const Text address = trimmed(getRecordCell(world.zormod, record, 5));
        EXPECT_FALSE(address.empty());
        broken += contains(address, u" ");
        EXPECT_TRUE(address.size() <= 30 || contains(address, u" ")) << "the label would ask where to break " << record;
    }
    EXPECT_EQ(names.size(), 30U);
    EXPECT_GT(broken, 5);
    EXPECT_LT(broken, 30);
}

TEST(StockTables, TheSampleOfAddressesHasNumbersToDialThatBelongToNobody) {
    StockWorld world("サンプル住所録");
    int without = 0;
    for (int record = 1; record <= 30; ++record) {
        const std::string number = firstNumber(world, record);
        without += number.empty();
        EXPECT_TRUE(number.empty() || number.find("-0000-") != std::string::npos) << number;
    }
    EXPECT_EQ(without, 1) << "one person without a telephone, to show what happens then";
}
