#pragma once
// A table that comes with the program, from its readable source to the two files of a table:
//
//     memo: 名簿                   the table memo, once
//     item: ID | L | 6             name, alignment and width in bytes of the next item; the first is the ID item
//     items: 10 | 項目 | R | 4     so many items at once, named 項目1, 項目2 ...
//     record: 1 | 山田             the cells of the next record, one for each item
//
// Called by the build alone. What a user could not make in the table design is refused: a cell that does not fit its
// item, widths that sum to more than a record holds, a comma in a name.

#include "data/tools/source_lines.h"
#include "sheet/zormod.h"

/// A table as its source describes it.
struct TableSource {
    Text memo;
    ItemTable items; ///< with `itemStart`
    Bytes records;   ///< the data file

    /// Number of the item `name`; throws SourceError at `line` if the table has none.
    int itemNamed(const Text& name, std::size_t line) const;
};

/// Reads a source. Throws SourceError.
TableSource readTableSource(const CodePage& codePage, BytesView utf8);

/// The item definition file of the table.
Bytes itemFileOf(const CodePage& codePage, const TableSource& table);
