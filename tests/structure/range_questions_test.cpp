#include "structure/range_questions.h"

#include "support/test_world.h"

#include <gmock/gmock.h>

namespace {

std::string words(const RangeQuestion& question) { return utf8(question.title) + "/" + utf8(question.text); }

} // namespace

TEST(RangeQuestions, OneRecordIsNamedAlone) {
    EXPECT_EQ(words(deleteRecordsQuestion(1, 1)),
              "指定範囲の記録の排除/記録1を　削除し、以後のﾃﾞｰﾀを前に詰めます。削除部はクリップファイルになります｡"
              "なお記録数の多い場合は時間がかかります。");
}

TEST(RangeQuestions, SeveralRecordsAreNamedByTheirEndsInOrder) {
    EXPECT_EQ(words(deleteRecordsQuestion(12, 5)),
              "指定範囲の記録の排除/記録5から記録12の範囲の記録を　削除し、以後のﾃﾞｰﾀを前に詰めます。"
              "削除部はクリップファイルになります｡なお記録数の多い場合は時間がかかります。");
}

TEST(RangeQuestions, ItemsAreNamedLikeRecords) {
    EXPECT_EQ(words(deleteItemsQuestion(0, 0)), "項目の削除/項目0　を　削除します。復活はできません。");
    EXPECT_EQ(words(deleteItemsQuestion(3, 1)),
              "項目の削除/項目1から項目3の範囲の項目　を　削除します。復活はできません。");
}

TEST(RangeQuestions, ClearingNamesRecordsAndItems) {
    EXPECT_EQ(words(clearRangeQuestion({.selectionKind = 1, .selRecordFrom = 7, .selRecordTo = 2, .selItemFrom = 1, .selItemTo = 3})),
              "指定範囲データ消去/記録2から記録7の範囲に於ける、項目1から項目3の範囲"
              " のデータを消去し、ブランクに置き換えます。消去部はクリップファイルになります");
    EXPECT_EQ(words(clearRangeQuestion({.selectionKind = 1, .selRecordFrom = 2, .selRecordTo = 2, .selItemFrom = 1, .selItemTo = 1})),
              "指定範囲データ消去/記録2に於ける、項目1"
              " のデータを消去し、ブランクに置き換えます。消去部はクリップファイルになります");
}

TEST(RangeQuestions, InsertingItemsTellsOneLessThanAreInserted) {
    EXPECT_EQ(words(insertItemsQuestion(4, 2)),
              "項目の挿入/項目番号2の位置に、2 項目、挿入します。挿入項目の項目幅は１、左詰め、"
              "項目名は適当な名前が付けられます。操作終了後ﾒﾆｭｰのﾋｮｳﾃﾞｻﾞｲﾝ項目幅の変更等の機能で必要に応じて変更して下さい。");
}

TEST(RangeQuestions, OnlyYesIsYesAndTheTitleIsShown) {
    TestWorld world;
    for (const Answer answer : {Answer::yes, Answer::no, Answer::cancel}) {
        world.dialogs.answers = {answer};
        EXPECT_EQ(isAnsweredYes(world.zormod, deleteRecordsQuestion(1, 2)), answer == Answer::yes);
    }
    ASSERT_EQ(world.dialogs.questions.size(), 3U);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "指定範囲の記録の排除");
}

TEST(RangeQuestions, EachMissingRangeHasItsMessage) {
    const std::vector<std::pair<MissingRange, std::string>> messages = {
        {MissingRange::itemsToInsert,
         "項目挿入範囲の指定/Alt+←→で項目挿入範囲を指定した上で、本ﾒﾆｭｰを選択して下さい"},
        {MissingRange::blockToClear,
         "消去範囲の先指定/Alt+矢印またはshift+矢印で消去範囲を指定した上で、本ﾒﾆｭｰを選択して下さい"},
        {MissingRange::items, "項目範囲の先指定/Alt+←→で項目範囲を指定した上で、本ﾒﾆｭｰを選択して下さい"},
        {MissingRange::records, "記録範囲の先指定/Alt+↓↑で記録範囲を指定した上で、本ﾒﾆｭｰを選択して下さい"},
        {MissingRange::blockToCopy, "範囲の先指定/shift+矢印で範囲を指定した上で、本ﾒﾆｭｰを選択して下さい"},
        {MissingRange::blockToClip,
         "ｸﾘｯﾌﾟ範囲の指定/Alt+矢印またはshift+矢印でClip範囲を指定した上で本ﾒﾆｭｰを選択して下さい."}};
    for (const auto& [missing, text] : messages) {
        TestWorld world;
        world.dialogs.expectedMessages = 1;
        tellMissingRange(world.zormod, missing);
        EXPECT_EQ(utf8(world.dialogs.messages.at(0).title) + "/" + utf8(world.dialogs.messages.at(0).text), text);
    }
}
