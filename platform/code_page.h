#pragma once
// Code page 932 (Microsoft's Shift-JIS) both ways: the one place where bytes become text and text becomes bytes.
// main makes one object and hands it down; everything that reads or writes a cell, a file or a path calls it.
//
// A record is cut at plain byte positions, so halves of characters occur in every table. Every byte that forms no
// character (80, A0, FD, FE, FF, a lead byte without its trail, the lead byte of an unassigned pair) is decoded alone to
// U+F700 + byte and encoded back to that byte, so nothing that is read and written again changes or moves its
// neighbours. The range lies clear of the page's own private characters (E000-E757, and F8F0-F8F3 of other tables).
// The 398 codes that stand for a character a second time decode like the first and are encoded as the canonical one.

#include "platform/text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// True if `byte` may be the first of a two-byte character: 81-9F and E0-FC.
constexpr bool isLeadByte(unsigned char byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

/// True if `unit` is a byte that formed no character, carried through the text. A typed or pasted text must not hold
/// such a unit: replace it by "?" first, else it would be stored as a bare byte.
constexpr bool isCarriedByte(char16_t unit) {
    return (unit >= 0xF780 && unit <= 0xF7A0) || (unit >= 0xF7E0 && unit <= 0xF7FF);
}

/// The tables of the page. Immutable after construction; safe to share between threads.
class CodePage {
public:
    /// Fills the tables (some milliseconds). Throws FatalFailure `impossible` on a system that doesn't know the page.
    CodePage();

    /// Text of any bytes. Each character of one or two bytes gives one unit, each byte that forms none a carried one.
    /// After the lead byte of an unassigned pair the reading goes on at the next byte.
    Text decode(BytesView bytes) const;

    /// The same behind what `text` holds, for loops over many pieces.
    void appendDecoded(Text& text, BytesView bytes) const;

    /// Bytes of a text. A unit that the page lacks becomes its accepted partner (the wave dash, the minus and the other
    /// signs that tables of other makers decode differently), else "?"; so a surrogate pair gives two "?".
    Bytes encode(TextView text) const;

    /// The same behind what `bytes` holds.
    void appendEncoded(Bytes& bytes, TextView text) const;

    /// Turns bytes into what `encode(decode())` of them gives, in place and without a text: duplicates become the canonical
    /// code, everything else stays. No byte is added or taken away.
    void canonicalize(std::span<char> bytes) const;

    /// Number of bytes that `encode(text)` gives, without making them.
    std::size_t byteLength(TextView text) const;

    /// Number of bytes, 1 or 2, that `encode` gives for this unit. One table look-up.
    int bytesOf(char16_t unit) const { return codes_[unit] > 0xFF ? 2 : 1; }

    /// False if `encode` can only write "?" for a unit that is none.
    bool canEncode(char16_t unit) const { return unit == u'?' || codes_[unit] != '?'; }

private:
    /// Unit of the pair that begins at byte `at`; 0 if none does.
    char16_t pairAt(BytesView bytes, std::size_t at) const {
        const auto lead = static_cast<unsigned char>(bytes[at]);
        return isLeadByte(lead) && at + 1 < bytes.size()
                   ? pairs_[lead * 0x100u + static_cast<unsigned char>(bytes[at + 1])]
                   : u'\0';
    }

    /// Unit of a single byte; of lead bytes the carried unit.
    std::array<char16_t, 0x100> singles_;
    /// Unit of lead byte * 256 + trail byte, 0 where the pair is unassigned.
    std::vector<char16_t> pairs_;
    /// Code of each unit: a byte, or lead byte * 256 + trail byte.
    std::vector<std::uint16_t> codes_;
};
