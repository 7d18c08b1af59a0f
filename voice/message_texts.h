#pragma once
// What the message forms say. The forms show and wait; their words are here.

#include "platform/text.h"

/// FrmOK: on opening, with Ctrl+Shift+A, and on its button with the reading keys.
Text okOpeningText(TextView message);
Text okDescription(TextView title, TextView message);
Text okButtonReading(TextView message, TextView caption);
/// The reading keys on a button of the questions: the question, then what the focus on the button says.
Text answerReading(TextView message, TextView focusText);

/// frmCMSG: on opening and with Ctrl+Shift+A, and on a key that is no answer.
Text yesNoOpeningText(TextView message);
Text yesNoKeyHint(TextView message);

/// The focus of a button of frmOKCAN.
inline constexpr TextView okButtonFocus = u"OKコマンドボタン";
inline constexpr TextView cancelButtonFocus = u"キャンセルコマンドボタン";
/// The focus of `cmdYES` of frmCMSG.
Text yesButtonFocus();

/// The title of frmCMSG when the caller gives none.
inline constexpr TextView yesNoTitle = u"はい／いいえ／ｷｬﾝｾﾙ";
