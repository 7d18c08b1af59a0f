#include "platform/posix/native_names.h"

#include "platform/failure.h"
#include "platform/utf8.h"

namespace {

constexpr char16_t carrier = 0xDC00;
constexpr std::size_t longestCharacter = 4;

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
bool carriesByte(char16_t unit) { return unit == carriedBackslash || (unit >= 0xDC80 && unit <= 0xDCFF); }

bool isWellFormed(std::string_view utf8) { return toUtf8(fromUtf8(utf8)) == utf8; }

/// Bytes of the character at the beginning of `native`, 0 if none begins there.
std::size_t characterLength(std::string_view native) {
    for (std::size_t length = 1; length <= longestCharacter && length <= native.size(); ++length) {
        if (isWellFormed(native.substr(0, length))) {
            return length;
        }
    }
    return 0;
}

} // namespace

Text textFromNative(std::string_view native) {
    Text text = fromUtf8(native);
    if (toUtf8(text) == native) {
        return text;
    }
    text.clear();
    while (!native.empty()) {
        const std::size_t length = characterLength(native);
        if (length == 0) {
            text += static_cast<char16_t>(carrier + static_cast<unsigned char>(native.front()));
            native.remove_prefix(1);
        } else {
            text += fromUtf8(native.substr(0, length));
            native.remove_prefix(length);
        }
    }
    return text;
}

std::string nativeFromText(TextView text) {
    std::string native;
    std::size_t from = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (isHighSurrogate(unit) && at + 1 < text.size() && isLowSurrogate(text[at + 1])) {
            ++at;
        } else if (carriesByte(unit)) {
            native += toUtf8(text.substr(from, at - from));
            native += static_cast<char>(unit - carrier);
            from = at + 1;
        } else if (unit == 0 || isHighSurrogate(unit) || isLowSurrogate(unit)) {
            throw RuntimeFailure{FailureKind::file};
        }
    }
    return native + toUtf8(text.substr(from));
}
