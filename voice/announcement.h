#pragma once
// What a control says of itself when it gets the focus or is asked. Every form speaks through these; a form only knows
// its labels.

#include "sheet/zormod.h"

/// The words by which a label names the kind of its control. Only these three are recognised; any other spelling makes
/// the label a plain sentence.
inline constexpr TextView textBoxWord = u"ﾃｷｽﾄﾎﾞｯｸｽ";
inline constexpr TextView buttonWord = u"ｺﾏﾝﾄﾞﾎﾞﾀﾝ";
inline constexpr TextView checkBoxWord = u"ﾁｪｯｸﾎﾞｯｸｽ";

/// The focused control as an announcement sees it.
struct SpokenControl {
    Text text{};    ///< contents of a text box
    Text caption{}; ///< caption of a button or check box, access key marks left out
    int value = 0;  ///< value of a check box: 1 checked; 0 and 2 (grey) are both told as not checked
};

/// The announcement of a control under `label`: contents, caption or state with the label, by the kind that the label
/// names; a label that names no kind is the whole text.
Text controlAnnouncement(const SpokenControl& control, TextView label);

/// Says controlAnnouncement through the throttle.
void talkS(ZORMOD& zormod, const SpokenControl& control, TextView label);

/// Says a plain sentence through the throttle; for labels without a control.
void talkS(ZORMOD& zormod, TextView sentence);
