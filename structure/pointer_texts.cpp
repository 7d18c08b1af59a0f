#include "structure/pointer_texts.h"

#include "platform/number_text.h"
#include "sheet/record_file.h"

namespace {

bool isCopy(const ZORMOD& zormod) { return zormod.taskWord == u"copy"; }

TextView copyOrMove(const ZORMOD& zormod) { return isCopy(zormod) ? u"ｺﾋﾟｰ" : u"移動"; }

PointerWords menuWords(const ZORMOD& zormod) {
    return {isCopy(zormod) ? u"ﾃﾞｰﾀｺﾋﾟ-" : u"移動", u"CR",
            (Text(u"選択範囲(マスク範囲)の項目ﾃﾞｰﾀを") += copyOrMove(zormod)) +=
            u"します。←→ｷｰでみどりマスクを動かし移動点を指定して下さい"};
}

PointerWords blockWords(const ZORMOD& zormod) {
    const Selection& range = zormod.selection;
    const Text word(copyOrMove(zormod));
    Text text = u"記録" + plainNumber(range.selRecordFrom) + u"から" + u"記録" + plainNumber(range.selRecordTo);
    text += u"　の範囲の、項目" + plainNumber(range.selItemFrom) + u"から" + plainNumber(range.selItemTo);
    text += u"（マスク範囲）の項目ﾃﾞｰﾀを" + word;
    text += u"します。←→ｷｰで緑のマスクを動かし移動点を指定して下さい｡" + word;
    text += u"先範囲がﾜｰｸｼｰﾄからあふれた場合､あふれ部分は無くなります。又､各ﾃﾞｰﾀは" + word;
    text += u"先の項目幅に従います（" + word + u"先の項目幅が小さい場合はあふれ部分は無くなります）.";
    return {isCopy(zormod) ? u"ﾃﾞｰﾀｺﾋﾟ-" : u"ﾃﾞｰﾀ移動", u"ﾃﾞｰﾀ" + word + u"CR", text};
}

const PointerWords& itemWords() {
    static const PointerWords words = {
        u"項目の移動", u"項目移動実行CR",
        u"一連の項目（マスク範囲の項目）を移動します。左右矢印キーで、移動点項目を指定して下さい。"
        u"今の移動点項目にある項目は、移動された項目の後に、連なり、移動後の空白になった部分は、詰められます。"
        u"CRキーで項目の移動が実行。中止の場合はESCを。"};
    return words;
}

const PointerWords& recordWords() {
    static const PointerWords words = {
        u"記録の移動", u"記録移動実行CR",
        u"一連の記録を移動します。上下矢印キーで、記録移動点を指定して下さい。"
        u"今の移動点にある記録は、移動された記録の後に、連なり、移動後の空白になった部分は、詰められます。"
        u"CRキーで記録の移動が実行。中止の場合はESCを。"};
    return words;
}

Text itemLine(const Selection& range) {
    return u"移動項目：項目" + plainNumber(range.selItemFrom) + u"～　項目" + plainNumber(range.selItemTo) +
           u" を　項目" + plainNumber(range.moveAnchor) + u"の前に";
}

Text recordLine(const Selection& range) {
    return u"移動記録：記録" + plainNumber(range.selRecordFrom) + u"～" + plainNumber(range.selRecordTo) +
           u" を　記録" + plainNumber(range.moveAnchor) + u"の前に";
}

Text blockLine(const ZORMOD& zormod, PointerLine which) {
    const Selection& range = zormod.selection;
    Text line = isCopy(zormod) ? u"ﾃﾞｰﾀｺﾋﾟｰ：行/列:" : u"ﾃﾞｰﾀ移動：行/列:";
    line += plainNumber(range.selRecordFrom) + u"・" + plainNumber(range.selItemFrom) + u"を";
    line += plainNumber(zormod.position.curRecord) + u"・" + plainNumber(zormod.position.curItem);
    if (!isCopy(zormod)) {
        return line + u"に移動";
    }
    return line + (which == PointerLine::first ? u"にｺﾋﾟ-" : u"にｺﾋﾟｰ");
}

} // namespace

PointerWords pointerWords(const ZORMOD& zormod, PointerStart start) {
    if (start == PointerStart::byMenu) {
        return menuWords(zormod);
    }
    if (zormod.taskWord == u"moveitem") {
        return itemWords();
    }
    return zormod.taskWord == u"moverecord" ? recordWords() : blockWords(zormod);
}

Text pointerLine(const ZORMOD& zormod, PointerLine which) {
    if (zormod.taskWord == u"moveitem") {
        return itemLine(zormod.selection);
    }
    return zormod.taskWord == u"moverecord" ? recordLine(zormod.selection) : blockLine(zormod, which);
}

TextView carryingOutText(TextView taskWord) {
    if (taskWord == u"moveitem") {
        return u"項目の移動実行中．．．．";
    }
    if (taskWord == u"moverecord") {
        return u"記録の移動実行中．．．．";
    }
    return taskWord == u"copy" ? u"ｺﾋﾟｰ実行中．．．．" : u"ﾃﾞｰﾀ移動実行中．．．．";
}

Text pointerStateReading(ZORMOD& zormod) {
    Text text = fullPath(zormod.file.fileDrive, zormod.file.fileName);
    text += u"。ｷﾛｸｽｳ" + plainNumber(recordCount(zormod));
    text += u"。ｺｳﾓｸ" + plainNumber(zormod.position.curItem) + u"。";
    // What an item move would say of itself is asked for under a word that nobody sets.
    if (isCopy(zormod)) {
        text += u"ｺﾋﾟｰ点を指定してください";
    } else if (zormod.taskWord == u"moveiten") {
        text += u"移動します、項目移動点を指定してください";
    } else {
        text += u"移動します、記録移動点を指定してください";
    }
    return text + u"CRを叩くと実行されます。";
}
