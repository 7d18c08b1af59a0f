#include "structure/range_questions.h"

#include "platform/dialogs.h"
#include "platform/number_text.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr TextView recordWord = u"記録";
constexpr TextView itemWord = u"項目";

/// One end alone, or both and the word for the span between them.
Text spanWords(TextView word, std::int32_t from, std::int32_t to, TextView span) {
    const auto [first, last] = std::minmax(from, to);
    Text words(word);
    words += plainNumber(first);
    if (first != last) {
        words += u"から";
        words += word;
        words += plainNumber(last);
        words += span;
    }
    return words;
}

struct RefusalText {
    TextView text;
    TextView title;
};

constexpr RefusalText refusalText(MissingRange missing) {
    switch (missing) {
    case MissingRange::itemsToInsert:
        return {u"Alt+←→で項目挿入範囲を指定した上で、本ﾒﾆｭｰを選択して下さい", u"項目挿入範囲の指定"};
    case MissingRange::blockToClear:
        return {u"Alt+矢印またはshift+矢印で消去範囲を指定した上で、本ﾒﾆｭｰを選択して下さい", u"消去範囲の先指定"};
    case MissingRange::items:
        return {u"Alt+←→で項目範囲を指定した上で、本ﾒﾆｭｰを選択して下さい", u"項目範囲の先指定"};
    case MissingRange::records:
        return {u"Alt+↓↑で記録範囲を指定した上で、本ﾒﾆｭｰを選択して下さい", u"記録範囲の先指定"};
    case MissingRange::blockToCopy:
        return {u"shift+矢印で範囲を指定した上で、本ﾒﾆｭｰを選択して下さい", u"範囲の先指定"};
    case MissingRange::blockToClip:
        break;
    }
    return {u"Alt+矢印またはshift+矢印でClip範囲を指定した上で本ﾒﾆｭｰを選択して下さい.", u"ｸﾘｯﾌﾟ範囲の指定"};
}

} // namespace

RangeQuestion deleteRecordsQuestion(std::int32_t from, std::int32_t to) {
    return {u"指定範囲の記録の排除",
            spanWords(recordWord, from, to, u"の範囲の記録") +
                u"を　削除し、以後のﾃﾞｰﾀを前に詰めます。削除部はクリップファイルになります｡"
                u"なお記録数の多い場合は時間がかかります。"};
}

RangeQuestion deleteItemsQuestion(std::int16_t from, std::int16_t to) {
    return {u"項目の削除", spanWords(itemWord, from, to, u"の範囲の項目") + u"　を　削除します。復活はできません。"};
}

RangeQuestion clearRangeQuestion(const Selection& selection) {
    return {u"指定範囲データ消去",
            spanWords(recordWord, selection.selRecordFrom, selection.selRecordTo, u"の範囲") + u"に於ける、" +
                spanWords(itemWord, selection.selItemFrom, selection.selItemTo, u"の範囲") +
                u" のデータを消去し、ブランクに置き換えます。消去部はクリップファイルになります"};
}

RangeQuestion insertItemsQuestion(std::int16_t from, std::int16_t to) {
    Text text = u"項目番号";
    text += plainNumber(std::min(from, to));
    text += u"の位置に、";
    text += plainNumber(std::abs(to - from));
    text += u" 項目、挿入します。挿入項目の項目幅は１、左詰め、項目名は適当な名前が付けられます。"
            u"操作終了後ﾒﾆｭｰのﾋｮｳﾃﾞｻﾞｲﾝ項目幅の変更等の機能で必要に応じて変更して下さい。";
    return {u"項目の挿入", text};
}

bool isAnsweredYes(ZORMOD& zormod, const RangeQuestion& question) {
    return zormod.platform.dialogs.askYesNoCancel(Text(question.title), question.text) == Answer::yes;
}

void tellMissingRange(ZORMOD& zormod, MissingRange missing) {
    const RefusalText refusal = refusalText(missing);
    zormod.platform.dialogs.showMessage(Text(refusal.text), Text(refusal.title));
}
