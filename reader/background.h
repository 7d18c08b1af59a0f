#pragma once
// Going into the background in the way that a starting script needs: the command comes back when the reader is ready,
// with its messages printed and a status that tells how it went. Called by main alone.

#include "platform/posix/descriptor.h"

/// The background half of the program.
class Background {
public:
    /// Splits the program in two. The foreground half waits here for the other's report and ends with it; only the
    /// background half, in a session of its own, returns.
    static Background enter();

    /// Lets the foreground half end with `status`, and lets go of its streams and its folder. A second report does
    /// nothing.
    void report(int status);

private:
    explicit Background(Descriptor foreground) : foreground_(std::move(foreground)) {}

    Descriptor foreground_;
};
