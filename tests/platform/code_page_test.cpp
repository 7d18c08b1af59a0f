#include "platform/code_page.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <map>
#include <random>
#include <set>
#include <utility>

namespace {

/// What the system's converter makes of one character; empty if it refuses.
std::string converted(const char* to, const char* from, std::string in) {
    const iconv_t handle = iconv_open(to, from);
    EXPECT_NE(handle, reinterpret_cast<iconv_t>(-1));
    char out[16];
    char* inAt = in.data();
    char* outAt = out;
    std::size_t inLeft = in.size();
    std::size_t outLeft = sizeof out;
    const bool ok = iconv(handle, &inAt, &inLeft, &outAt, &outLeft) != static_cast<std::size_t>(-1);
    iconv_close(handle);
    return ok ? std::string(out, outAt) : std::string();
}

std::u16string unitOf(std::string utf16) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < utf16.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(utf16[i]) |
                                      static_cast<unsigned char>(utf16[i + 1]) << 8);
    }
    return text;
}

Bytes pairOf(unsigned code) { return {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)}; }

struct CodePageTable : testing::Test {
    CodePage page;
};

} // namespace

TEST_F(CodePageTable, MapsTheSignsOnWhichTablesDisagreeAsTheMakersTableDoes) {
    EXPECT_EQ(page.decode("\x81\x5C"), u"\u2015");
    EXPECT_EQ(page.decode("\x81\x60"), u"\uFF5E");
    EXPECT_EQ(page.decode("\x81\x61"), u"\u2225");
    EXPECT_EQ(page.decode("\x81\x7C"), u"\uFF0D");
    EXPECT_EQ(page.decode("\x81\x91"), u"\uFFE0");
    EXPECT_EQ(page.decode("\x81\x92"), u"\uFFE1");
    EXPECT_EQ(page.decode("\x81\xCA"), u"\uFFE2");
    EXPECT_EQ(page.decode("\x5C"), u"\\");
    EXPECT_EQ(page.decode("\x7E"), u"~");
    EXPECT_EQ(page.decode("\xF0\x40\xF9\xFC"), u"\uE000\uE757");
}

TEST_F(CodePageTable, KeepsTheLowerHalfAsItIsIncludingZeroAndControls) {
    for (unsigned byte = 0; byte < 0x80; ++byte) {
        const Bytes one(1, static_cast<char>(byte));
        EXPECT_EQ(page.decode(one), Text(1, static_cast<char16_t>(byte)));
        EXPECT_EQ(page.encode(Text(1, static_cast<char16_t>(byte))), one);
    }
}

TEST_F(CodePageTable, DecodesHalfWidthKanaFromSingleBytes) {
    for (unsigned byte = 0xA1; byte <= 0xDF; ++byte) {
        const Text kana(1, static_cast<char16_t>(0xFF61 + byte - 0xA1));
        EXPECT_EQ(page.decode(Bytes(1, static_cast<char>(byte))), kana);
        EXPECT_EQ(page.encode(kana), Bytes(1, static_cast<char>(byte)));
        EXPECT_EQ(page.bytesOf(kana[0]), 1);
    }
}

TEST_F(CodePageTable, NamesTheLeadBytes) {
    for (unsigned byte = 0; byte <= 0xFF; ++byte) {
        const bool expected = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        EXPECT_EQ(isLeadByte(static_cast<unsigned char>(byte)), expected) << byte;
    }
}

TEST_F(CodePageTable, AgreesWithTheSystemOnEveryPairAndStaysPutOnTheSecondPass) {
    std::size_t assigned = 0;
    std::size_t notCanonical = 0;
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const Bytes pair = pairOf(code);
        const Text text = page.decode(pair);
        const Bytes back = page.encode(text);
        ASSERT_EQ(page.decode(back), text) << code;
        ASSERT_EQ(page.byteLength(text), back.size()) << code;
        if (!isLeadByte(static_cast<unsigned char>(code >> 8))) {
            ASSERT_EQ(back, pair) << code;
            continue;
        }
        const Text expected = unitOf(converted("UTF-16LE", "CP932", pair));
        if (expected.size() != 1) {
            ASSERT_EQ(back, pair) << code;
            ASSERT_EQ(text[0], 0xF700 + (code >> 8)) << code;
            ASSERT_EQ(text.size(), 2u) << code;
            continue;
        }
        ++assigned;
        ASSERT_EQ(text, expected) << code;
        ASSERT_EQ(page.bytesOf(text[0]), 2) << code;
        ASSERT_TRUE(page.canEncode(text[0])) << code;
        notCanonical += back != pair;
    }
    EXPECT_EQ(assigned, 9604u);
    EXPECT_EQ(notCanonical, 398u);
}

TEST_F(CodePageTable, EncodesEachCharacterInItsCanonicalCode) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const std::u16string text(1, static_cast<char16_t>(unit));
        if (!page.canEncode(text[0]) || isCarriedByte(text[0]) || page.decode(page.encode(text)) != text) {
            continue;
        }
        const std::string utf16{static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
        ASSERT_EQ(page.encode(text), converted("CP932", "UTF-16LE", utf16)) << unit;
    }
}

TEST_F(CodePageTable, TurnsDuplicateCodesIntoTheCanonicalOne) {
    EXPECT_EQ(page.encode(page.decode("\xEE\xEF")), "\xFA\x40"); // small roman one
    EXPECT_EQ(page.encode(page.decode("\xED\x40")), "\xFA\x5C");
    EXPECT_EQ(page.encode(page.decode("\x81\xE0")), "\x81\xE0"); // nearly equal
    EXPECT_EQ(page.encode(page.decode("\x87\x90")), "\x81\xE0");
    EXPECT_EQ(page.encode(page.decode("\x87\x9C")), "\x81\xBE"); // union
    EXPECT_EQ(page.encode(page.decode("\xFA\x4A")), "\x87\x54"); // capital roman one
    EXPECT_EQ(page.encode(page.decode("\xFA\x5B")), "\x81\xE6"); // because
}

TEST_F(CodePageTable, CarriesBytesThatFormNoCharacter) {
    EXPECT_EQ(page.decode("\x80\xA0\xFD\xFE\xFF"), u"\uF780\uF7A0\uF7FD\uF7FE\uF7FF");
    EXPECT_EQ(page.encode(u"\uF780\uF7A0\uF7FD\uF7FE\uF7FF"), "\x80\xA0\xFD\xFE\xFF");
    EXPECT_EQ(page.decode("a\x81"), u"a\uF781");
    EXPECT_EQ(page.decode("\x81 b"), u"\uF781 b");
    EXPECT_EQ(page.decode("\x81\r\n"), u"\uF781\r\n");
    EXPECT_EQ(page.decode(BytesView("\x81\0", 2)), Text(u"\uF781\0", 2));
}

TEST_F(CodePageTable, ReadsOnAtTheByteAfterTheLeadOfAnUnassignedPair) {
    EXPECT_EQ(page.decode("\x85\x40\x41"), u"\uF785@A");
    EXPECT_EQ(page.decode("\x81\xAD"), u"\uF781\uFF6D");
    EXPECT_EQ(page.decode("\x85\x82\xA0"), u"\uF785\u3042");
    EXPECT_EQ(page.decode("\xFC\x4C"), u"\uF7FCL");
}

TEST_F(CodePageTable, AHalfCharacterJoinsItsNeighbourWhereTheTwoFormACharacter) {
    EXPECT_EQ(page.decode("\x82\xA0"), u"\u3042");
    EXPECT_EQ(page.decode("\xA0"), u"\uF7A0");
    EXPECT_EQ(page.encode(u"\uF782\uF7A0"), "\x82\xA0");
}

TEST_F(CodePageTable, AsciiOfAnyLengthStandsRoundACharacter) {
    for (std::size_t before = 0; before <= 20; ++before) {
        for (std::size_t behind = 0; behind <= 20; ++behind) {
            // The second byte of this character is ASCII by itself.
            const Bytes bytes = Bytes(before, 'a') + "\x83\x5C" + Bytes(behind, '~');
            const Text text = Text(before, u'a') + u"ソ" + Text(behind, u'~');
            EXPECT_EQ(page.decode(bytes), text) << before << " " << behind;
            EXPECT_EQ(page.encode(text), bytes) << before << " " << behind;
        }
    }
}

TEST_F(CodePageTable, KnowsWhichUnitsAreCarriedBytes) {
    std::set<char16_t> carried;
    for (unsigned byte = 0; byte <= 0xFF; ++byte) {
        const Text text = page.decode(Bytes(1, static_cast<char>(byte)));
        ASSERT_EQ(text.size(), 1u);
        if (text[0] >= 0xF700 && text[0] <= 0xF7FF) {
            carried.insert(text[0]);
        }
    }
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        ASSERT_EQ(isCarriedByte(static_cast<char16_t>(unit)), carried.count(static_cast<char16_t>(unit)) == 1) << unit;
    }
    EXPECT_EQ(carried.size(), 65u);
    EXPECT_EQ(page.encode(u"\uF741\uF7B1"), "??");
}

TEST_F(CodePageTable, StoresWhatThePageLacksAsItsAcceptedPartner) {
    const std::map<char16_t, Bytes> partners{
        {0x301C, "\x81\x60"}, {0x2212, "\x81\x7C"}, {0x2016, "\x81\x61"}, {0x00A2, "\x81\x91"},
        {0x00A3, "\x81\x92"}, {0x00AC, "\x81\xCA"}, {0x2014, "\x81\x5C"}, {0x00A5, "\\"},
    };
    for (const auto& [unit, bytes] : partners) {
        EXPECT_EQ(page.encode(Text(1, unit)), bytes) << static_cast<unsigned>(unit);
        EXPECT_EQ(page.bytesOf(unit), static_cast<int>(bytes.size()));
        EXPECT_TRUE(page.canEncode(unit));
    }
}

TEST_F(CodePageTable, WritesAQuestionMarkForEverythingElse) {
    EXPECT_EQ(page.encode(u"\u203E"), "?"); // overline, for which other converters know a look-alike
    EXPECT_EQ(page.encode(u"\u00E9\u2603\u00A0"), "???");
    EXPECT_FALSE(page.canEncode(u'\u00E9'));
    EXPECT_TRUE(page.canEncode(u'?'));
    EXPECT_EQ(page.byteLength(u"\u00E9"), 1u);
    EXPECT_EQ(page.encode(u"\U0001F600x"), "??x") << "each half of a surrogate pair is a character of its own";
}

TEST_F(CodePageTable, OnlyThePageItsPartnersAndCarriedBytesCanBeEncoded) {
    std::set<char16_t> known{0x301C, 0x2212, 0x2016, 0x00A2, 0x00A3, 0x00AC, 0x2014, 0x00A5};
    for (unsigned byte = 0; byte <= 0xFF; ++byte) {
        known.insert(page.decode(Bytes(1, static_cast<char>(byte)))[0]);
    }
    for (unsigned code = 0x8100; code <= 0xFFFF; ++code) {
        if (const Text text = page.decode(pairOf(code)); text.size() == 1) {
            known.insert(text[0]);
        }
    }
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        ASSERT_EQ(page.canEncode(static_cast<char16_t>(unit)), known.count(static_cast<char16_t>(unit)) == 1) << unit;
    }
}

TEST_F(CodePageTable, EveryByteStringWithoutDuplicateCodesComesBackUnchanged) {
    std::mt19937 random(932);
    std::set<unsigned> duplicates;
    for (unsigned code = 0x8100; code <= 0xFCFF; ++code) {
        if (page.encode(page.decode(pairOf(code))) != pairOf(code)) {
            duplicates.insert(code);
        }
    }
    EXPECT_EQ(duplicates.size(), 398u);
    int compared = 0;
    for (int run = 0; run < 20000; ++run) {
        Bytes bytes(random() % 64, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random());
        }
        bool hasDuplicate = false;
        for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
            const auto lead = static_cast<unsigned char>(bytes[i]);
            const auto trail = static_cast<unsigned char>(bytes[i + 1]);
            hasDuplicate = hasDuplicate || duplicates.count(lead * 0x100u + trail) == 1;
        }
        if (hasDuplicate) {
            continue;
        }
        ++compared;
        const Text text = page.decode(bytes);
        ASSERT_EQ(page.encode(text), bytes);
        ASSERT_EQ(page.byteLength(text), bytes.size());
    }
    EXPECT_GT(compared, 10000);
}

TEST_F(CodePageTable, MakesBytesCanonicalAsTheirTextWould) {
    const auto canonical = [&](Bytes bytes) {
        page.canonicalize(bytes);
        return bytes;
    };
    int changed = 0;
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const Bytes expected = page.encode(page.decode(pairOf(code)));
        ASSERT_EQ(canonical(pairOf(code)), expected) << code;
        changed += expected != pairOf(code);
    }
    EXPECT_EQ(changed, 398);
    std::mt19937 random(9320);
    int changedRows = 0;
    for (int run = 0; run < 20000; ++run) {
        Bytes bytes(random() % 64, '\0');
        for (char& byte : bytes) {
            // Stretches of ASCII, and lead bytes of the rows that hold the duplicates more often than the others.
            const unsigned kind = random() % 8;
            byte = static_cast<char>(kind < 4 ? 0x20 + random() % 0x5F : kind == 4 ? 0xED + random() % 16 : random());
        }
        const Bytes whole = page.encode(page.decode(bytes));
        ASSERT_EQ(canonical(bytes), whole);
        changedRows += whole != bytes;
    }
    EXPECT_GT(changedRows, 1000);
}

TEST_F(CodePageTable, EmptyGivesEmpty) {
    EXPECT_EQ(page.decode(""), u"");
    EXPECT_EQ(page.encode(u""), "");
    EXPECT_EQ(page.byteLength(u""), 0u);
}
