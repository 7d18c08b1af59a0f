#include "structure/design_checks.h"

#include "platform/dialogs.h"
#include "platform/letter_case.h"
#include "platform/number_text.h"
#include "transform/width_conversion.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

/// Widths of a record's items together, and the widest single one.
constexpr int widest = recordLength - 2;

/// The part of a path behind folder and drive.
Text namePart(const Text& path) {
    const std::size_t end = std::max(lastPosition(path, u"\\"), lastPosition(path, u":"));
    return path.substr(end);
}

/// A number that may be far outside every limit, narrowed without failing.
int clampedCount(double typed) {
    return roundTo16(std::clamp<double>(typed, std::numeric_limits<std::int16_t>::min(),
                                        std::numeric_limits<std::int16_t>::max()));
}

/// What is wrong with item `row`; empty if nothing is.
TextView rowFault(const DesignRow& row) {
    if (row.align.empty()) {
        return u"L/Rが未定義です";
    }
    if (row.align != u"L" && row.align != u"R") {
        return u"R/Lを入力して下さい";
    }
    const std::int16_t width = designWidth(row);
    if (width == 0) {
        return u"項目幅がが未定義です";
    }
    if (width < 0 || width > widest) {
        return u"フィ－ルド幅が不正";
    }
    return contains(row.name, u",") ? TextView(u"文中に｢,｣があってはいけません") : TextView();
}

Text atItem(TextView fault, int item) {
    return Text(fault) + plainNumber(item) + u"項目";
}

} // namespace

TextView columnHeader(int column) {
    static constexpr std::array<TextView, 4> headers = {u"項目番号", u"項目名", u"左/右詰", u"項目幅"};
    return headers.at(static_cast<std::size_t>(column));
}

void tellTooManyItems(ZORMOD& zormod) {
    zormod.platform.dialogs.showMessage(u"項目数は" + plainNumber(highestItem) + u"以下でなければいけません。",
                                        u"項目数多すぎる");
}

bool leaveItemCountBox(TableDesign& design) {
    const double count = typedNumber(design.text1);
    if (count > recordLength - 2) {
        tellTooManyItems(design.zormod);
        return false;
    }
    if (count < 0) {
        design.zormod.platform.dialogs.showMessage(u"項目数は0以上でなければいけません。", u"項目数不適当");
        return false;
    }
    resizeDesign(design, roundTo16(count));
    return true;
}

bool leaveFileNameBox(TableDesign& design) {
    const Text name = namePart(trimmed(design.text3));
    Dialogs& dialogs = design.zormod.platform.dialogs;
    if (name.empty()) {
        dialogs.showMessage(u"ﾌｧｲﾙ名を入力してください", u"ﾌｧｲﾙ名入力エラー");
        return false;
    }
    const std::size_t point = name.rfind(u'.');
    if (point != Text::npos && lowerCase(TextView(name).substr(point)) != u".txt") {
        dialogs.showMessage(u"拡張子ははＴＸＴ以外許されません", u"拡張子エラー");
        return false;
    }
    return true;
}

Text designFault(const TableDesign& design) {
    const int count = clampedCount(typedNumber(design.text1));
    if (count < 0) {
        return atItem(u"項目数が未定義です", 0);
    }
    if (count > highestItem) {
        return atItem(u"項目数が不正(1-254)", 0);
    }
    int total = 0;
    for (int item = 0; item <= lastDesignItem(design); ++item) {
        const DesignRow& row = design.rows[static_cast<std::size_t>(item)];
        const TextView fault = rowFault(row);
        if (!fault.empty()) {
            return atItem(fault, item);
        }
        total += designWidth(row);
    }
    return total > widest ? Text(u"総フィ－ルド長が長すぎます.") : Text();
}

std::int16_t designWidth(const DesignRow& row) {
    return static_cast<std::int16_t>(clampedCount(typedNumber(row.width)));
}
