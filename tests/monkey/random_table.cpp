#include "tests/monkey/random_table.h"

#include "sheet/item_file.h"

namespace {

constexpr TextView plainCharacters = u"0123456789 abcXYZ-,/\"'+=*()<>ｱｲｶﾞﾊﾟ｡､";
constexpr TextView wideCharacters = u"山田東京あいうアイウ　ー、。１２ＡＢ－～①髙ソ表能";
constexpr TextView strangeCharacters = u"é\u3099\u00A5\uE000\t";

Text words(Dice& dice, int characters) {
    Text text;
    for (int i = 0; i < characters; ++i) {
        text += dice.oneIn(40) ? dice.oneOf(strangeCharacters)
                               : dice.oneOf(dice.oneIn(2) ? plainCharacters : wideCharacters);
    }
    return text;
}

void makeItems(Dice& dice, ItemTable& items) {
    items.itemCount = static_cast<std::int16_t>(dice.oneIn(3) ? dice.between(0, 30) : dice.between(0, 6));
    int left = dataLength;
    for (std::int16_t i = 0; i <= items.itemCount; ++i) {
        const int others = items.itemCount - i;
        const int widest = std::max(1, std::min(left - others, dice.oneIn(8) ? 120 : 16));
        const int width = dice.oneIn(4) ? 1 : dice.between(1, widest);
        left -= width;
        items.itemName[i] =
            i == 0 ? Text(u"ID") : Text(1, dice.oneOf(wideCharacters)) + Text(1, dice.oneOf(wideCharacters));
        items.itemAlign[i] = dice.oneIn(2) ? u"L" : u"R";
        items.itemWidth[i] = static_cast<std::int16_t>(width);
    }
    computeItemStart(items);
}

/// A cell of `width` bytes. Now and then it begins or ends with half a character.
Bytes cell(Dice& dice, const CodePage& codePage, std::size_t width, bool toRight) {
    const int kind = dice.below(8);
    if (kind == 0) {
        return Bytes(width, ' ');
    }
    if (kind == 1) {
        Bytes cut = codePage.encode(words(dice, static_cast<int>(width) + 2));
        return cut.substr(static_cast<std::size_t>(dice.below(2)), width);
    }
    Bytes bytes = codePage.encode(words(dice, dice.between(1, static_cast<int>(width + 1) / 2)));
    bytes.resize(std::min(bytes.size(), width));
    const Bytes blanks(width - bytes.size(), ' ');
    return toRight ? blanks + bytes : bytes + blanks;
}

int recordsFor(Dice& dice) {
    switch (dice.below(20)) {
    case 0:
        return 0;
    case 1:
        return 1;
    case 2:
        return dice.between(300, 3000);
    case 3:
    case 4:
    case 5:
        return dice.between(30, 300);
    default:
        return dice.between(2, 30);
    }
}

} // namespace

RandomTable randomTable(const CodePage& codePage, std::uint64_t number) {
    Dice dice(number);
    ItemTable items;
    makeItems(dice, items);
    RandomTable table{codePage.encode(itemFileText(items, items.itemCount, words(dice, 0) + u"memo")), {}};
    const int records = recordsFor(dice);
    for (int record = 0; record < records; ++record) {
        Bytes row;
        for (std::int16_t i = 0; i <= items.itemCount; ++i) {
            row += cell(dice, codePage, static_cast<std::size_t>(items.itemWidth[i]), items.itemAlign[i] == u"R");
        }
        row = canonical(codePage, row);
        row.resize(dataLength, ' ');
        table.records += row + "\r\n";
    }
    return table;
}

Text randomText(Dice& dice, int longest) {
    return words(dice, dice.between(1, longest));
}
