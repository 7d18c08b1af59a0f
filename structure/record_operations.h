#pragma once
// The operations that change which records the table has and in what order. Each copies the table through the bulk
// rewrite. Called by the record commands, and by the paste that inserts; what the user is asked before is not here. The
// caller has committed the row.

#include "sheet/bulk_rewrite.h"

/// Puts `count` blank records in front of the current one and says so. The numbering of IDs ends.
BulkEnd insertRecords(ZORMOD& zormod, std::int32_t count);

/// The same with records that the caller makes: `make` gives the time-th one, from 1.
BulkEnd insertMadeRecords(ZORMOD& zormod, std::int32_t count, const std::function<BytesView(std::int32_t time)>& make);

/// Takes the records from..to out, in either order and all of them in the table, and makes the clip file of them first.
/// Without the clip file nothing is taken out: BulkEnd::stopped.
BulkEnd deleteRecords(ZORMOD& zormod, std::int32_t from, std::int32_t to);

/// Puts the records from..to, in either order and all of them in the table, in front of the record `pointer`, which may be
/// one behind the last. A pointer inside the range does nothing. While the table is copied the task word is "work".
BulkEnd moveRecords(ZORMOD& zormod, std::int32_t from, std::int32_t to, std::int32_t pointer);
