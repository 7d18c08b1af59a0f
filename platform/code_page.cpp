#include "platform/code_page.h"

#include "platform/failure.h"

#include <iconv.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <type_traits>
#include <utility>

namespace {

constexpr char16_t carriedBase = 0xF700;

/// Signs that other tables decode to a unit which the page lacks, with the unit that the page has in its place.
constexpr std::array<std::pair<char16_t, char16_t>, 8> nearPartners{{
    {0x301C, 0xFF5E}, // wave dash
    {0x2212, 0xFF0D}, // minus
    {0x2016, 0x2225}, // double vertical line
    {0x00A2, 0xFFE0}, // cent
    {0x00A3, 0xFFE1}, // pound
    {0x00AC, 0xFFE2}, // not
    {0x2014, 0x2015}, // em dash
    {0x00A5, 0x005C}, // yen
}};

/// One direction of the system's converter, for single characters.
class Converter {
public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {
        if (handle_ == invalid()) {
            throw FatalFailure{FailureKind::impossible};
        }
    }
    ~Converter() { iconv_close(handle_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    /// The two or fewer bytes that the character's bytes convert to, nothing if they are no character.
    std::optional<Bytes> convert(Bytes character) {
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        std::array<char, 4> room{};
        char* in = character.data();
        char* out = room.data();
        std::size_t inLeft = character.size();
        std::size_t outLeft = room.size();
        if (iconv(handle_, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1) || room.size() - outLeft > 2) {
            return std::nullopt;
        }
        return Bytes(room.data(), room.size() - outLeft);
    }

private:
    static iconv_t invalid() { return reinterpret_cast<iconv_t>(static_cast<std::intptr_t>(-1)); }
    iconv_t handle_;
};

std::uint16_t bigEndian(const Bytes& bytes) {
    std::uint16_t value = 0;
    for (const char byte : bytes) {
        value = static_cast<std::uint16_t>(value << 8 | static_cast<unsigned char>(byte));
    }
    return value;
}

/// So many units or bytes make one step where all of them are ASCII, which is most of a table: numbers and blanks. What is
/// left at the end of a cell is taken in a short step.
constexpr std::size_t asciiStep = 8;
constexpr std::size_t shortStep = 4;

template <typename Number, typename Character> Number numberAt(const Character* from) {
    Number number = 0;
    std::memcpy(&number, from, sizeof number);
    return number;
}
template <std::size_t step> bool isAscii(const char* from) {
    using Number = std::conditional_t<step == asciiStep, std::uint64_t, std::uint32_t>;
    static_assert(sizeof(Number) == step);
    return (numberAt<Number>(from) & static_cast<Number>(0x8080808080808080)) == 0;
}
template <std::size_t step> bool isAscii(const char16_t* from) {
    std::uint64_t units = 0;
    for (std::size_t i = 0; i < step; i += sizeof units / sizeof *from) {
        units |= numberAt<std::uint64_t>(from + i);
    }
    return (units & 0xFF80FF80FF80FF80) == 0;
}

/// Passes over what `text` has of whole ASCII steps from `at` on: `handOn` is told of each step's position.
template <typename View, typename HandOn> void passAscii(const View& text, std::size_t& at, const HandOn& handOn) {
    for (; at + asciiStep <= text.size() && isAscii<asciiStep>(text.data() + at); at += asciiStep) {
        handOn(at, asciiStep);
    }
    if (at + shortStep <= text.size() && isAscii<shortStep>(text.data() + at)) {
        handOn(at, shortStep);
        at += shortStep;
    }
}

/// The same; bytes and units have the same numbers there, so they are written to `into` from `to` on, and that position
/// goes on by as much.
template <typename View, typename Whole> void copyAscii(const View& text, std::size_t& at, Whole& into, std::size_t& to) {
    passAscii(text, at, [&](std::size_t from, std::size_t step) {
        std::copy_n(text.data() + from, step, into.data() + to);
        to += step;
    });
}

Bytes pairOf(unsigned value) { return {static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)}; }

} // namespace

CodePage::CodePage() : singles_{}, pairs_(0x10000, u'\0'), codes_(0x10000, '?') {
    Converter toText("UTF-16BE", "CP932");
    Converter toBytes("CP932", "UTF-16BE");
    // The converter's own way back knows look-alikes; asking it only for units that the page decodes keeps them out.
    const auto assignCode = [&](char16_t unit, std::uint16_t code) {
        if (codes_[unit] == '?') {
            const auto canonical = toBytes.convert(pairOf(unit));
            codes_[unit] = canonical ? bigEndian(*canonical) : code;
        }
    };
    for (unsigned byte = 0; byte <= 0xFF; ++byte) {
        const auto unit = toText.convert(Bytes(1, static_cast<char>(byte)));
        const bool isCharacter = unit && unit->size() == 2 && !isLeadByte(static_cast<unsigned char>(byte));
        singles_[byte] = isCharacter ? bigEndian(*unit) : static_cast<char16_t>(carriedBase + byte);
        if (isCharacter) {
            assignCode(singles_[byte], static_cast<std::uint16_t>(byte));
        } else {
            codes_[singles_[byte]] = static_cast<std::uint16_t>(byte);
        }
    }
    for (unsigned code = 0x8100; code <= 0xFCFF; ++code) {
        if (!isLeadByte(static_cast<unsigned char>(code >> 8))) {
            continue;
        }
        if (const auto unit = toText.convert(pairOf(code)); unit && unit->size() == 2) {
            pairs_[code] = bigEndian(*unit);
            assignCode(pairs_[code], static_cast<std::uint16_t>(code));
        }
    }
    for (const auto& [unit, partner] : nearPartners) {
        if (codes_[unit] == '?') {
            codes_[unit] = codes_[partner];
        }
    }
}

Text CodePage::decode(BytesView bytes) const {
    Text text;
    appendDecoded(text, bytes);
    return text;
}

void CodePage::appendDecoded(Text& text, BytesView bytes) const {
    std::size_t length = text.size();
    text.resize(length + bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        copyAscii(bytes, i, text, length);
        if (i == bytes.size()) {
            break;
        }
        const char16_t pair = pairAt(bytes, i);
        text[length++] = pair != 0 ? pair : singles_[static_cast<unsigned char>(bytes[i])];
        i += pair != 0 ? 1 : 0;
    }
    text.resize(length);
}

Bytes CodePage::encode(TextView text) const {
    Bytes bytes;
    appendEncoded(bytes, text);
    return bytes;
}

void CodePage::appendEncoded(Bytes& bytes, TextView text) const {
    std::size_t length = bytes.size();
    bytes.resize(length + text.size() * 2);
    for (std::size_t i = 0; i < text.size(); ++i) {
        copyAscii(text, i, bytes, length);
        if (i == text.size()) {
            break;
        }
        const std::uint16_t code = codes_[text[i]];
        if (code > 0xFF) {
            bytes[length++] = static_cast<char>(code >> 8);
        }
        bytes[length++] = static_cast<char>(code & 0xFF);
    }
    bytes.resize(length);
}

void CodePage::canonicalize(std::span<char> bytes) const {
    const BytesView view(bytes.data(), bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        passAscii(view, i, [](std::size_t, std::size_t) {});
        if (i == bytes.size()) {
            break;
        }
        // Only pairs are there twice; a single byte has one code, and what forms no character is carried as it is.
        if (const char16_t pair = pairAt(view, i); pair != 0) {
            const std::uint16_t code = codes_[pair];
            bytes[i] = static_cast<char>(code >> 8);
            bytes[++i] = static_cast<char>(code & 0xFF);
        }
    }
}

std::size_t CodePage::byteLength(TextView text) const {
    std::size_t length = 0;
    for (const char16_t unit : text) {
        length += static_cast<std::size_t>(bytesOf(unit));
    }
    return length;
}
