#pragma once
// Keys for the real program that lead through its windows: after a key that opens or closes one, the next is pressed
// only when the desktop has given the keyboard to the other window.

#include <string>
#include <vector>

/// Presses the keys of each step, which are separated by blanks, such as "alt+Down" or "Down Down Return". A step that
/// ends in ">" waits until another window has the keyboard; one that begins with "=" types the rest. False if a window
/// did not come.
bool pressOnTheWay(const std::vector<std::string>& steps);

/// Waits until a window has the keyboard whose title contains `part`; false after ten seconds.
bool windowComesUp(const std::string& part);
