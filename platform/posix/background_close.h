#pragma once
// Closes files that take the system long to close.

#include "platform/posix/descriptor.h"

/// Closes `file` on a thread of its own and returns at once. The descriptor that is the last hold on a deleted file makes
/// the system free all of it, and the user isn't to wait for that.
void closeInBackground(Descriptor file);
