#pragma once
// The record of a swap in progress. Data file and K file are two files, and no rename puts two files in place at once;
// so that a kill between the two leaves no mixture, a small record lies beside the table from before the first rename
// until after the second step. Who opens the table next finishes the swap by it. Written by the bulk rewrite, read at
// the opening of a table; nothing else knows it.
//
// Format of ".swap-NAME": the eight bytes "ROMSWAP2"; five numbers of eight bytes, lowest byte first: length and
// fingerprint of the new data file, length and sample of the old one, length of the old K file; the whole old K file; the
// whole new K file to the end. The whole K files, because then it needs no work file and works wherever the program is
// started next. Of the old data file only its ends, because reading all of it once more takes the user's time.
//
// A table that was brought back from a backup, replaced or edited between the kill and the opening is never written
// to: the K file is replaced only if it is byte for byte the old one and the data file is the new one. If the data file is
// neither that nor, by its sample, the old one, nobody can say which K file fits it: the record gets another name and the
// user is told. Files are known by what they hold, not by their place on the disk, which a restart may change on some
// media.

#include "sheet/zormod.h"

/// What the swap puts in place.
struct SwapRecord {
    std::uint64_t newLength = 0;      ///< bytes of the new data file
    std::uint64_t newFingerprint = 0; ///< fingerprintOf the new data file
    std::uint64_t oldLength = 0;      ///< bytes of the data file before the swap
    std::uint64_t oldSample = 0;      ///< sampleOf it
    Bytes oldItems{};                 ///< the K file before the swap
    Bytes newItems{};                 ///< and after it
};

/// A number that differs, but for a chance of one in 2 to the 64th, for files of different contents. Reads all of the
/// file.
std::uint64_t fingerprintOf(RandomFile& file);
/// The same for the first and the last 64 KiB of a file.
std::uint64_t sampleOf(RandomFile& file);

/// Puts the record of the table beside it. A RuntimeFailure of kind file if that fails.
void writeSwapRecord(ZORMOD& zormod, const Text& fileName, const Text& drive, const SwapRecord& record);
/// Takes it away again: the swap is done.
void removeSwapRecord(ZORMOD& zormod, const Text& fileName, const Text& drive);

/// Finishes what a killed or failed swap of the table left between its two steps. Afterwards the pair is the old one or
/// the new one, or what somebody else has made of it and the user has been told, and there is no record. Nothing happens
/// without a record. The caller holds the claim on the table. A RuntimeFailure of kind file if the K file can't be put in
/// place: the table must not be opened then.
void finishSwap(ZORMOD& zormod, const Text& fileName, const Text& drive);

/// finishSwap, and the same for a change in place (sheet/change_recovery.h): whoever is about to work on the table calls it.
void finishInterrupted(ZORMOD& zormod, const Text& fileName, const Text& drive);

/// Takes back or finishes what a killed or failed rewrite left, of this table and of the work files of its drive, and
/// deletes what killed programs left half written in the table's folder and in the program's. Called
/// once at every opening of a table, behind its claim and before its K file is read. Fails as finishSwap does; leftovers
/// that can't be deleted now, or that another running copy is at work on, stay for the next time.
void recoverTable(ZORMOD& zormod, const Text& fileName, const Text& drive);
