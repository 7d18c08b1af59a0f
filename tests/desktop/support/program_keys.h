#pragma once
// Keys for the real program that lead through its windows: after a key that opens or closes one, the next is pressed
// only when the desktop has given the keyboard to the other window.

#include <string>
#include <vector>

/// Presses the keys of each step, which are separated by blanks, such as "alt+Down" or "Down Down Return". A step that
/// ends in ">" waits until another window has the keyboard; one that begins with "=" types the rest. False if a window
/// did not come.
bool pressOnTheWay(const std::vector<std::string>& steps);

/// Waits until the program takes keys, which is a little later than its window has the keyboard: presses `opens`, which
/// opens a window of its own, until that comes, and closes it by Escape. False if it doesn't come or stays.
bool takesKeys(const std::string& opens);

/// Waits until a window has the keyboard whose title contains `part`; false after ten seconds.
bool windowComesUp(const std::string& part);
