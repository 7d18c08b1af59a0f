#include "platform/utf8.h"

#include <cstddef>

namespace {

constexpr char32_t replacement = 0xFFFD;

void appendUtf8(std::string &out, char32_t c) {
    const auto put = [&out](char32_t byte) { out += static_cast<char>(byte); };
    if (c < 0x80) {
        put(c);
        return;
    }
    if (c < 0x800) {
        put(0xC0 | c >> 6);
    } else {
        if (c < 0x10000) {
            put(0xE0 | c >> 12);
        } else {
            put(0xF0 | c >> 18);
            put(0x80 | (c >> 12 & 0x3F));
        }
        put(0x80 | (c >> 6 & 0x3F));
    }
    put(0x80 | (c & 0x3F));
}

bool isHighSurrogate(char32_t c) {
    return c >= 0xD800 && c < 0xDC00;
}
bool isLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c < 0xE000;
}

// What a first byte allows for the second one decides overlong forms, surrogates and the end of Unicode all at once.
struct Shape {
    int trailing = 0;
    unsigned char secondFrom = 0x80;
    unsigned char secondTo = 0xBF;
    char32_t bits = 0;
};

Shape shapeOf(unsigned char first) {
    if (first >= 0xC2 && first <= 0xDF)
        return {1, 0x80, 0xBF, static_cast<char32_t>(first & 0x1F)};
    if (first >= 0xE0 && first <= 0xEF)
        return {2, static_cast<unsigned char>(first == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(first == 0xED ? 0x9F : 0xBF), static_cast<char32_t>(first & 0x0F)};
    if (first >= 0xF0 && first <= 0xF4)
        return {3, static_cast<unsigned char>(first == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(first == 0xF4 ? 0x8F : 0xBF), static_cast<char32_t>(first & 0x07)};
    return {};
}

/// Decodes the character at `at` (0-based) and moves `at` behind it.
char32_t nextCharacter(std::string_view utf8, std::size_t &at) {
    const auto first = static_cast<unsigned char>(utf8[at++]);
    if (first < 0x80)
        return first;
    const Shape shape = shapeOf(first);
    if (shape.trailing == 0)
        return replacement;
    char32_t c = shape.bits;
    for (int i = 0; i < shape.trailing; ++i) {
        const unsigned char from = i == 0 ? shape.secondFrom : 0x80;
        const unsigned char to = i == 0 ? shape.secondTo : 0xBF;
        if (at == utf8.size())
            return replacement;
        const auto byte = static_cast<unsigned char>(utf8[at]);
        if (byte < from || byte > to)
            return replacement;
        c = c << 6 | (byte & 0x3F);
        ++at;
    }
    return c;
}

} // namespace

std::string toUtf8(TextView text) {
    std::string out;
    out.reserve(text.size() * 3);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1]))
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
        else if (isHighSurrogate(c) || isLowSurrogate(c))
            c = replacement;
        appendUtf8(out, c);
    }
    return out;
}

Text fromUtf8(std::string_view utf8) {
    Text out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t c = nextCharacter(utf8, at);
        if (c < 0x10000) {
            out += static_cast<char16_t>(c);
        } else {
            out += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        }
    }
    return out;
}

std::string latin1FromUtf8(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t c = nextCharacter(utf8, at);
        out += c < 0x100 ? static_cast<char>(c) : '?';
    }
    return out;
}

std::string utf8FromLatin1(std::string_view latin1) {
    std::string out;
    out.reserve(latin1.size());
    for (const char byte : latin1)
        appendUtf8(out, static_cast<unsigned char>(byte));
    return out;
}
