#include "reader/marked_text.h"

#include "platform/utf8.h"

#include <utility>

namespace {

constexpr TextView speechMark = u"。｡.";
constexpr int speedCount = 10;

std::string speedMark(int speed) {
    const auto step = static_cast<char16_t>(speed);
    return toUtf8(Text(u"＜速さ") + static_cast<char16_t>(u'０' + step) + u"＞速度調整" +
                  static_cast<char16_t>(u'0' + step));
}

} // namespace

ClipboardRequest requestIn(std::string utf8) {
    const std::string mark = toUtf8(speechMark);
    if (!utf8.ends_with(mark))
        return {};
    utf8.resize(utf8.size() - mark.size());
    if (utf8.empty())
        return {ClipboardRequest::Kind::silence};
    for (int speed = 0; speed < speedCount; ++speed) {
        if (utf8 == speedMark(speed))
            return {ClipboardRequest::Kind::speed, speed};
    }
    return {ClipboardRequest::Kind::speech, 0, std::move(utf8)};
}
