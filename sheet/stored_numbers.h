#pragma once
// Numbers and fingerprints in the hidden files that the program leaves beside a table for the time of a change. Used by
// their writers and readers alone; nothing here touches a file.

#include "platform/text.h"

#include <cstdint>

/// Bytes of a stored number.
inline constexpr std::size_t numberLength = 8;

/// Puts a number behind `bytes`: eight bytes, the lowest first.
void appendNumber(Bytes& bytes, std::uint64_t number);
/// The number at the 0-based byte `offset` of `bytes`, which has all of it.
std::uint64_t numberAt(BytesView bytes, std::size_t offset);

/// What the fingerprint of no bytes is.
inline constexpr std::uint64_t emptyFingerprint = 0xCBF29CE484222325;
/// A number that differs, but for a chance of one in 2 to the 64th, for different bytes. A long row of bytes is taken
/// piece by piece, each of a length that is a multiple of eight but the last, with the fingerprint of those `before`.
std::uint64_t fingerprintOf(BytesView bytes, std::uint64_t before = emptyFingerprint);
