#pragma once
// The cells of a record as the rules compare them. Called by the rules of rows, records and items; nothing here knows
// of an operation.

#include "platform/code_page.h"
#include "sheet/zormod.h"

#include <functional>
#include <optional>
#include <string_view>

/// The bytes of an item's cell.
std::string_view cellIn(const ItemTable& items, std::string_view record, int item);

/// Its text without the blanks round it.
Text valueIn(const CodePage& codePage, const ItemTable& items, std::string_view record, int item);

/// True if some byte of the cells forms no character, so that a cut elsewhere may join it with a neighbour.
bool holdsHalves(const CodePage& codePage, const ItemTable& items, std::string_view record);

/// The first item whose text differs between two records without being one that `mayDiffer`. Records with halves aren't
/// looked at: what is written beside a half may join it, and the text behind it falls into other characters then.
std::optional<int> changedCell(const CodePage& codePage, const ItemTable& items, std::string_view old,
                               std::string_view now, const std::function<bool(int)>& mayDiffer);
