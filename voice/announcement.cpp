#include "voice/announcement.h"

#include "voice/speech_channel.h"

Text controlAnnouncement(const SpokenControl& control, TextView label) {
    if (contains(label, textBoxWord)) {
        return control.text + Text(commaPause).append(label);
    }
    if (contains(label, buttonWord)) {
        return control.caption + Text(commaPause).append(label);
    }
    if (contains(label, checkBoxWord)) {
        const TextView state = control.value == 1 ? u"チェック" : u"ノーチェック";
        return control.caption + Text(label).append(commaPause).append(state);
    }
    return Text(label);
}

void talkS(ZORMOD& zormod, const SpokenControl& control, TextView label) {
    if (throttlePasses(zormod)) {
        sayText(zormod, controlAnnouncement(control, label));
    }
}

void talkS(ZORMOD& zormod, TextView sentence) {
    if (throttlePasses(zormod)) {
        sayText(zormod, Text(sentence));
    }
}
