#pragma once
// Switching speech on and off and the settings of speech, as the edit screen's menu `mnuDTK` and its keys do it, and
// the small file that remembers the mode from one run to the next.

#include "sheet/zormod.h"

/// `mnuDTKN` (F11): data only.
void mnuDTKN(ZORMOD& zormod);
/// `mnuDTKEX` (Ctrl+F11): data with row and item numbers.
void mnuDTKEX(ZORMOD& zormod);
/// `mnuDTKOFF` (Ctrl+F12): the confirmation is spoken while speech is still on.
void mnuDTKOFF(ZORMOD& zormod);
/// `mnuJY`: cell readings add the pinned item or not.
void mnuJY(ZORMOD& zormod);
/// `mnuINH`: asks for the inhibit time; 0.1 to 1 second.
void mnuINH(ZORMOD& zormod);

/// Reads `speechMode` from "zorTalk" in `programFolder`: the number in its first line, by the rules of Val. A file that
/// can't be read, or that is empty, gives 2: a first run speaks. A number other than 0, 1 and 2 means that speech is on
/// and gives 2 as well.
void readZorTalk(ZORMOD& zormod);
/// Writes `speechMode` to "zorTalk". Throws RuntimeFailure if that fails.
void writeZorTalk(ZORMOD& zormod);
