#pragma once
// Tables as nobody would make them on purpose: any number of items, narrow and wide, and in their cells double-byte
// text that is cut in the middle of a character.

#include "platform/code_page.h"
#include "sheet/zormod.h"

#include <random>
#include <string>

/// The monkey's dice. Its draws are the same on every machine, which the distributions of the library do not promise.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}
    /// 0 to `end` - 1.
    int below(int end) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(end)); }
    /// `from` to `to`, both included.
    int between(int from, int to) { return from + below(to - from + 1); }
    /// True once in `n` draws.
    bool oneIn(int n) { return below(n) == 0; }
    std::uint64_t number() { return engine_(); }
    /// One of several.
    template <typename List> const auto& oneOf(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
    }

private:
    std::mt19937_64 engine_;
};

/// The two files of a table.
struct RandomTable {
    std::string items;   ///< the K file
    std::string records; ///< the data file
};

/// A table of 1 to 31 items and 0 to 3000 records, most of them short ones. The same number gives the same table.
RandomTable randomTable(const CodePage& codePage, std::uint64_t number);

/// A text of some characters of all kinds: half and full width, signs that files give a meaning, and now and then a
/// character that the code page lacks. No path of the program's can be made of it.
Text randomText(Dice& dice, int longest);

/// The bytes with each character in its one right code: what reading and writing a row makes of them.
inline Bytes canonical(const CodePage& codePage, BytesView bytes) {
    return codePage.encode(codePage.decode(bytes));
}
