#include "start/make_folder.h"

#include "platform/dialogs.h"
#include "voice/announcement.h"
#include "voice/speech_channel.h"

namespace {

/// Seconds in which the confirmation is heard before the form goes on.
constexpr double confirmationSeconds = 2;

} // namespace

bool makeFolder(ZORMOD& zormod, const Text& folder) {
    const Text name =
        trimmed(zormod.platform.dialogs.askText(u"フォルダ名を入力してください", u"フォルダの作成", {}));
    if (name.empty()) {
        return false;
    }
    zormod.platform.files.makeFolder(pathInFolder(folder, name));
    if (zormod.speech.speechMode != 0) {
        waitSeconds(zormod, zormod.speech.inhibitSeconds); // what was typed last must not take its place
    }
    talkS(zormod, u"フォルダ作成作成されました");
    if (zormod.speech.speechMode != 0) {
        waitSeconds(zormod, confirmationSeconds);
    }
    return true;
}

Text pathInFolder(const Text& folder, TextView name) {
    Text path = folder;
    if (!path.ends_with(u'\\')) {
        path += u'\\';
    }
    return path.append(name);
}
