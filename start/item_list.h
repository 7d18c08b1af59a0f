#pragma once
// The lines in which a list of items is shown and read, one item a line, and what the list form says when it is
// entered. frmItemList shows them; nothing here knows which table it is.

#include "sheet/zormod.h"

/// "    3:氏名(20/L)": number in five columns, trimmed name, width, alignment.
Text itemLine(const ItemTable& items, int item);
/// The label with the count of items.
Text itemCountLabel(const ItemTable& items);
/// What the form says when the list is entered.
Text itemListEntrance(const ItemTable& items);

/// The word behind each line that is read.
inline constexpr TextView itemListWord = u"項目ﾘｽﾄﾎﾞｯｸｽ";
