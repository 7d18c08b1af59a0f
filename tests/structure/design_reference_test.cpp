#include "structure/design_world.h"

#include "sheet/cell.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<TestWorld::Item> mine = {{u"ID", u"L", 3}, {u"名", u"L", 10}};
const std::vector<TestWorld::Item> other = {
    {u"番号", u"R", 4}, {u"品名", u"L", 20}, {u"数", u"R", 5}, {u"値", u"R", 8}};

struct ReferenceWorld : DesignWorld {
    ReferenceWorld() {
        makeTable("o.txt", other, {});
        table(mine, {{u"1", u"山田"}});
        zormod.speech.speechMode = 2;
    }
    Result read(const std::string& name) {
        const Text path = zormod.file.programFolder + Text(name.begin(), name.end());
        return readItemFileToDesign(*design, path.substr(2), path.substr(0, 1));
    }
    /// Chooses a file of the list.
    void take(TextView name) {
        FolderBrowser& list = design->references;
        list.refresh();
        const auto found = std::find(list.files().begin(), list.files().end(), name);
        ASSERT_NE(found, list.files().end()) << utf8(name);
        list.selectFile(static_cast<int>(found - list.files().begin()));
        takeReference(*design);
    }
};

TEST(DesignReference, AChangedTableTakesTheGridAloneFromTheOtherFile) {
    ReferenceWorld world;
    TableDesign& design = world.change();
    world.take(u"ko.txt");
    EXPECT_THAT(design.rows, ElementsAre(DesignRow{u"番号", u"R", u" 4"}, DesignRow{u"品名", u"L", u" 20"},
                                         DesignRow{u"数", u"R", u" 5"}, DesignRow{u"値", u"R", u" 8"}));
    EXPECT_EQ(design.text1, u"3");
    EXPECT_EQ(design.text2, u"memo");
    EXPECT_EQ(utf8(designFault(design)), "");
}

TEST(DesignReference, TheItemCountOfTheOpenTableIsThatOfTheReferenceUntilTheFormIsLeft) {
    ReferenceWorld world;
    TableDesign& design = world.change();
    world.take(u"ko.txt");
    EXPECT_EQ(world.zormod.items.itemCount, 3);
    EXPECT_EQ(world.zormod.items.itemName[1], u"名");
    EXPECT_EQ(getCell(world.zormod, 1), u"山田      ");
    EXPECT_EQ(giveUpDesign(design), DesignOutcome::closed);
    EXPECT_EQ(world.zormod.items.itemCount, 1);
    EXPECT_EQ(world.zormod.items.itemWidth[1], 10);
    EXPECT_EQ(getCell(world.zormod, 1), u"山田      ");
}

TEST(DesignReference, ANewTableNotesItsSourceAndTheOpenTableStaysItself) {
    ReferenceWorld world;
    TableDesign& design = world.newDesign();
    world.take(u"ko.txt");
    EXPECT_EQ(design.rows.at(1), (DesignRow{u"品名", u"L", u"20"}));
    EXPECT_EQ(utf8(design.text2), "o.txtよりｺﾋﾟｰ");
    EXPECT_THAT(world.takeSpoken(), ElementsAre("o.txtよりｺﾋﾟｰ"));
    EXPECT_EQ(world.zormod.file.tableMemo, u"memo");
    EXPECT_EQ(world.zormod.file.fileName, design.before.file.fileName);
    EXPECT_EQ(world.zormod.items.itemName[1], u"名");
}

TEST(DesignReference, ACommaInTheSourcesNameCantSpoilTheMemo) {
    ReferenceWorld world;
    world.makeTable("a,b.txt", other, {});
    TableDesign& design = world.newDesign();
    world.take(u"ka,b.txt");
    EXPECT_EQ(utf8(design.text2), "a，b.txtよりｺﾋﾟｰ");
}

TEST(DesignReference, ARefusedFileLeavesGridAndTableAsTheyWere) {
    for (const char16_t* task : {u"", u"tdesign"}) {
        for (const char* spoilt : {"", "100  ' 0,m,, 2\r\n1000 'ID,L\r\n", "100  ' 0,m,, 255\r\n", "x,y,z,-1\r\n"}) {
            ReferenceWorld world;
            world.writeFile("Kbad.txt", spoilt);
            TableDesign& design = world.open(task);
            const auto rows = design.rows;
            world.expectMessage();
            world.take(u"Kbad.txt");
            EXPECT_EQ(world.message().first, "ﾛﾐｶﾌｧｲﾙでないか、項目設定を記述したﾌｧｲﾙが不良です");
            EXPECT_EQ(design.rows, rows);
            EXPECT_TRUE(hasTable(world.zormod));
            EXPECT_EQ(world.zormod.file.tableMemo, u"memo");
            EXPECT_EQ(getCell(world.zormod, 1), u"山田      ");
        }
    }
}

TEST(DesignReference, TheKindOfRefusalIsInTheTitle) {
    ReferenceWorld world;
    world.change();
    world.writeFile("Kmany.txt", "100  ' 0,m,, 255\r\n");
    world.expectMessage();
    EXPECT_EQ(world.read("many.txt"), u"error");
    EXPECT_EQ(world.message().second, "項目ﾌｧｲﾙ読込エラー");
    world.expectMessage();
    EXPECT_EQ(world.read("missing.txt"), u"error");
    EXPECT_EQ(world.message().second, "項目挿入不可能");
}

TEST(DesignReference, AReferenceMayHaveAsManyItemsAsATableCan) {
    ReferenceWorld world;
    world.change();
    std::string names;
    std::string widths;
    for (int item = 0; item <= 254; ++item) {
        names += std::to_string(1000 + item) + " 'n" + std::to_string(item) + ",L\r\n";
        widths += std::to_string(2000 + item) + " ' 1\r\n";
    }
    world.writeFile("Kmost.txt", "100  ' 0,m,, 254\r\n" + names + widths);
    EXPECT_EQ(world.read("most.txt"), u"");
    ASSERT_EQ(world.design->rows.size(), 255U);
    EXPECT_EQ(world.design->rows[254], (DesignRow{u"n254", u"L", u" 1"}));
    EXPECT_EQ(utf8(referenceReading(*world.design, u"Kmost.txt")),
              "Kmost.txt。項目数254のファイルです第1項目の、項目名はn1。です。");
}

TEST(DesignReference, TheOldFormWithoutAnApostropheIsReadByTheDesignAlone) {
    const auto oldForm = [](ReferenceWorld& world) {
        world.writeFile("Kold.txt", world.codePage.encode(u"100,,memo,1\r\n      番号,L\r\n1001 '品名 ,R\r\n"));
    };
    ReferenceWorld world;
    oldForm(world);
    world.change();
    EXPECT_EQ(world.read("old.txt"), u"");
    EXPECT_EQ(world.design->rows.size(), 2U);
    EXPECT_EQ(world.design->rows[1], (DesignRow{u"品名", u"R", u""}));
    EXPECT_EQ(utf8(designFault(*world.design)), "項目幅がが未定義です0項目");

    ReferenceWorld strict;
    oldForm(strict);
    strict.newDesign();
    strict.expectMessage();
    strict.take(u"Kold.txt");
    EXPECT_EQ(strict.message().second, "項目ﾌｧｲﾙ読込エラー");
    EXPECT_THAT(strict.design->rows, ElementsAre(DesignRow{}));
}

TEST(DesignReference, AnApostropheAtAnotherPlaceDoesNotMatterHere) {
    ReferenceWorld world;
    world.writeFile("Kodd.txt", "100 ' 0,m,, 0\r\n1000 'ID ,L \r\n2000 ' 6\r\n");
    world.change();
    EXPECT_EQ(world.read("odd.txt"), u"");
    EXPECT_EQ(world.design->rows[0], (DesignRow{u"ID", u"L", u" 6"}));
}

TEST(DesignReference, WalkingTheListTellsNumberOfItemsAndFirstItem) {
    ReferenceWorld world;
    world.change();
    EXPECT_EQ(utf8(referenceReading(*world.design, u"Ko.txt")),
              "Ko.txt。項目数3のファイルです第1項目の、項目名は品名。です。");
    world.makeTable("i.txt", {{u"全文", u"L", 40}}, {});
    EXPECT_EQ(utf8(referenceReading(*world.design, u"Ki.txt")),
              "Ki.txt。項目はID項目のみで、項目名は全文。です。ロミカﾌｧｲﾙでないかもしれません。");
}

TEST(DesignReference, WalkingPastOtherFilesNamesThemAndTouchesNothing) {
    ReferenceWorld world;
    world.change();
    world.writeFile("Kx.txt", "only text\r\n");
    world.writeFile("Kmany.txt", "100  ' 0,m,, 255\r\n");
    for (const char16_t* name : {u"Kx.txt", u"Kmany.txt", u"Kgone.txt"}) {
        EXPECT_EQ(referenceReading(*world.design, name), Text(name) + u"。");
    }
    EXPECT_TRUE(hasTable(world.zormod));
    EXPECT_EQ(world.zormod.items.itemCount, 1);
}

TEST(DesignReference, EscClosesTheListFirst) {
    ReferenceWorld world;
    TableDesign& design = world.change();
    design.referencesShown = true;
    EXPECT_EQ(giveUpDesign(design), DesignOutcome::stays);
    EXPECT_FALSE(design.referencesShown);
    EXPECT_THAT(world.takeSpoken(), ElementsAre("参照ファイルリストクローズ"));
    EXPECT_EQ(world.zormod.taskWord, u"tdesign");
}

} // namespace
