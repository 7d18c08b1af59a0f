#include "voice/message_texts.h"

#include "voice/announcement.h"
#include "voice/speech_channel.h"

Text okOpeningText(TextView message) {
    // The sentence brings a pause of its own, so two stand side by side.
    return Text(message).append(periodPause).append(u"。OKならCRを叩いてください。");
}

Text okDescription(TextView title, TextView message) {
    return Text(title).append(periodPause).append(message).append(u"。okならCRを叩いてください。");
}

Text okButtonReading(TextView message, TextView caption) {
    return Text(message).append(commaPause).append(caption).append(u"コマンドﾎﾞﾀﾝ");
}

Text yesNoOpeningText(TextView message) {
    return Text(message).append(u"。はい､はＹ、いいえ、はＮ、ｷｬﾝｾﾙ　わ　esc　を　叩きます");
}

Text yesNoKeyHint(TextView message) {
    return Text(message).append(u"。はい､わＹ、いいえ、わＮ、ｷｬﾝｾﾙ　わ　esc　を　叩きます");
}

Text answerReading(TextView message, TextView focusText) {
    return Text(message).append(commaPause).append(focusText);
}

Text yesButtonFocus() {
    return Text(u"[はい](Y)").append(buttonWord);
}
