#pragma once
// A scoring board that comes with the program, from its readable source to the file that the scoring form loads:
//
//     board: サンプル試験結果.000     the board's name
//     raw: 素点                        the items that take the results, named as in the board's table
//     t: T得点
//     z: z得点
//     five: 5段階値
//     question: 問1 | ア | 5           item, right answer, points; a second right answer is a second line
//
// Called by the build alone. The file has one value a line: name, four item numbers, then three lines a question. Its
// reader takes a comma and a quotation mark for signs of its own, so no value may hold one.

#include "data/tools/table_source.h"

/// The board file, for a board on `table`. Throws SourceError for an item that the table does not have, one item in two
/// roles, and values that the scoring form would refuse.
Bytes boardFileOf(const CodePage& codePage, const TableSource& table, BytesView utf8);
