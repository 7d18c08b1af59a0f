#pragma once
// The targets that meet what an interrupted operation has left beside a table. No bytes that chance makes up get past the
// fingerprints in such files; so these targets make, of a fuzzer's bytes, a table, an operation on it and the moment at
// which it was killed, and write what it leaves by the program's own means, whole or with a byte spoilt. An input that
// begins with "raw:" is the file itself.

#include "platform/text.h"

/// What an opening of the table has made of it.
enum class Recovered {
    asFound,  ///< nothing was to be done, or what lay there was not whole
    finished, ///< the table was put right
    setAside, ///< the table was another one by then: left alone, and the user told
};

/// A journal of a change in place (sheet/change_frames.h).
Recovered recoverByJournal(BytesView bytes);
/// A record of a swap of data file and K file (sheet/swap_record.h).
Recovered recoverBySwapRecord(BytesView bytes);
