#include "voice/message_texts.h"

#include "voice/announcement.h"
#include "voice/speech_channel.h"

namespace {

/// `message` with a sentence behind it. The sentences below bring a pause of their own.
Text followedBy(TextView message, TextView sentence) {
    return Text(message).append(sentence);
}

} // namespace

Text okOpeningText(TextView message) {
    return followedBy(message, periodPause).append(u"。OKならCRを叩いてください。");
}

Text okDescription(TextView title, TextView message) {
    return followedBy(title, periodPause).append(message).append(u"。okならCRを叩いてください。");
}

Text okButtonReading(TextView message, TextView caption) {
    return followedBy(message, commaPause).append(caption).append(u"コマンドﾎﾞﾀﾝ");
}

Text yesNoOpeningText(TextView message) {
    return followedBy(message, u"。はい､はＹ、いいえ、はＮ、ｷｬﾝｾﾙ　わ　esc　を　叩きます");
}

Text yesNoKeyHint(TextView message) {
    return followedBy(message, u"。はい､わＹ、いいえ、わＮ、ｷｬﾝｾﾙ　わ　esc　を　叩きます");
}

Text yesButtonFocus() {
    return followedBy(u"[はい](Y)", buttonWord);
}
