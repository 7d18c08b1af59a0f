#pragma once
// What the progress form says and what its stop button does. The form itself only shows two labels, a timer and a button
// and calls these; who runs a long loop talks to Dialogs and knows nothing of this.

#include "sheet/zormod.h"

/// The caption of the form unless the operation brings its own.
inline constexpr TextView progressCaption = u"作業中．．．";
/// The text that stands in the form whatever the operation is; its wording fits one of them only, and stays.
inline constexpr TextView progressStandingText = u"指定の記録を削除中。中止したい場合は、ESC又は下のボタンをクリックして下さい。";
/// The caption of the stop button, with two kinds of brackets.
inline constexpr TextView stopCaption = u"中止（ESC)";
/// Milliseconds between two readings of the labels.
inline constexpr int progressInterval = 4000;

/// The form has come up: `answers(0)` becomes 0, and with data reading on (`speechMode` 1) the labels are said. True if
/// the form's timer has to run.
bool loadProgress(ZORMOD& zormod, const Text& name, const Text& progress);
/// A tick of the timer: says the operation's name and the progress label.
void sayProgress(ZORMOD& zormod, const Text& name, const Text& progress);
/// The stop button: sets `answers(0)` to 1, closes the form and says so, in the order and with the words of the
/// operation in `taskWord`. The form has stopped its timer.
void stopWork(ZORMOD& zormod);
