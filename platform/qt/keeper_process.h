#pragma once
// Starting the keeper of the clipboard. Called by KeeperLink alone. The keeper becomes nobody's child, so it leaves no
// zombie behind, and a session of its own, so that what ends the program from the terminal does not end the keeper.

#include <string>

/// Starts the program at `path` with one end of a new stream socket as its standard input and without any other
/// descriptor of ours. Returns our end, which is non-blocking and closed on exec, or -1 if no process could be made.
/// A path that cannot be run shows itself as the end of the stream.
int startKeeper(const std::string &path);
