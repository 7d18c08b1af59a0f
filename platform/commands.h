#pragma once
// Commands by name. Keys and menu entries name what is to be done; one table binds each name to its routine. So a
// lower room starts an operation of a higher one without knowing it.

#include "platform/text.h"

/// Starts operations by the name of their menu entry, such as u"mnuJUMP".
class Commands {
public:
    virtual ~Commands() = default;
    /// Runs the operation `name`. A name that is bound to nothing beeps and says that it can't be used yet.
    virtual void run(TextView name) = 0;
};
