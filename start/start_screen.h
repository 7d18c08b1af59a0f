#pragma once
// The start screen's logic: what its buttons do, what its controls and its guidance say, and its speech keys. FrmLunch
// shows it; the buttons and menu entries of the screen run these routines as commands. The screen is there before any
// table and never comes back: each road into a table closes it.

#include "platform/keys.h"
#include "sheet/zormod.h"

inline constexpr TextView startScreenCaption = u"ようこそロミカ";

/// What the program is and how it is worked, in four sentences; said once by itself and on demand.
Text guidanceText();
/// What a button, and a picture button, say of themselves.
Text startButtonReading(TextView caption);
Text pictureReading(TextView caption);
/// The pause before each control says itself, so that every step from one to the next is heard. None with speech off.
void waitBeforeControl(ZORMOD& zormod);

/// `Command1`, `mnuSINKI`: the edit screen without a table, and on it the design of a new one.
void startNewTable(ZORMOD& zormod);
/// `Command2`, `mnuKiSON`: the choice of a file. Returns when that has been closed.
void startFromFile(ZORMOD& zormod);
/// `Command3`, `mnuSYURYOU`: farewell and end; a reading mode that was only tried out is not remembered.
[[noreturn]] void endFromStart(ZORMOD& zormod);
/// A picture or an entry of a model or sample: opens it, or tells that it isn't installed.
void startWithModel(ZORMOD& zormod, int number);

/// The user has ticked or cleared `Check2`.
void switchSpeechByCheck(ZORMOD& zormod, bool ticked);
/// The speech keys of the screen, on key up: F11, Ctrl+F11, Ctrl+F12. `Check2` is ticked afterwards exactly if
/// `speechMode` isn't 0; ticking it so doesn't run switchSpeechByCheck. True if the key was one of them.
bool startScreenKeyUp(ZORMOD& zormod, const KeyStroke& stroke);
