#pragma once
// The data file: records of 256 bytes without a header, read and written in place by number. Bytes 1 to 254 are data,
// 255 and 256 are CR and LF. The number of records is the length divided by 256, truncated, and is never stored; a
// tail that is no whole record is read by nobody. The file is never read whole.

#include "sheet/zormod.h"

/// Records in file 1, asked of the file at every call. Without a table a RuntimeFailure of kind file.
std::int32_t recordCount(ZORMOD& zormod);

/// Reads record `recordNo` (from 1) of file `fileNo` (1..4) into `rec`: recordLength bytes. Past the end of the file
/// the bytes of the record read last come back, so callers ask recordCount first. 0 or less is a subscript failure.
void readRecord(ZORMOD& zormod, int fileNo, std::int32_t recordNo, Bytes& rec);

/// Writes `rec` as record `recordNo` of file `fileNo` and returns when it is safely on the disk. Bytes that `rec`
/// lacks are written as NUL. 0 or less is a subscript failure.
void writeRecord(ZORMOD& zormod, int fileNo, std::int32_t recordNo, BytesView rec);

/// The first 254 bytes of `row`, filled up with blanks, then CR, LF: every record goes to a file like this.
Bytes endedRecord(BytesView row);
/// The same into a store that long loops use again and again.
void endRecord(BytesView row, Bytes& into);

/// Closes file `fileNo` (1..4); closing a closed file does nothing.
void closeFile(ZORMOD& zormod, int fileNo);
/// Closes all files, the table's included. The claim on the table stays.
void closeAllFiles(ZORMOD& zormod);

/// A RuntimeFailure of kind file if the table's name no longer leads to the file that is open, or no table is. Whoever
/// reads the whole table by its name asks this first: another file, or a new empty one, must not be taken for it.
void expectTableInPlace(ZORMOD& zormod);

/// drive + ":" + name.
Text fullPath(TextView drive, TextView name);
