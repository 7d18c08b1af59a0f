#include "start/item_list.h"

#include "platform/number_text.h"

namespace {

constexpr std::size_t numberColumns = 5;

} // namespace

Text itemLine(const ItemTable& items, int item) {
    Text line = padRight(plainNumber(item), numberColumns);
    line += u':';
    line += trimmed(items.itemName[item]);
    line += u'(';
    line += plainNumber(items.itemWidth[item]);
    line += u'/';
    line += items.itemAlign[item];
    line += u')';
    return line;
}

Text itemCountLabel(const ItemTable& items) {
    return u"項目数" + plainNumber(items.itemCount);
}

Text itemListEntrance(const ItemTable& items) {
    Text text = u"ｺｳﾓｸｲﾁﾗﾝﾌｫｰﾑがﾋｮｳｼﾞｻﾚﾏｼﾀ｡";
    text += u"ｺｳﾓｸ数";
    text += plainNumber(items.itemCount);
    text += u"ﾔｼﾞﾙｼｷ-ﾃﾞ ｺｳﾓｸﾘｽﾄｦ ｲﾄﾞｳｽﾙﾄ ｺｳﾓｸﾒｲ､ﾊｲﾁ､ｺｳﾓｸﾊﾊﾞ､ｶﾞ､ﾖﾐｱｹﾞﾗﾚﾏｽ";
    return text;
}
