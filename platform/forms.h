#pragma once
// Forms by name. A routine that opens a form knows its name and nothing else; what the form is, and whether it is
// modal, is known to one table of factories.

#include "platform/text.h"

/// Opens and closes forms by the names they have in the program, such as u"frmDISK".
class Forms {
public:
    virtual ~Forms() = default;
    /// Opens a form. Of a modal form the call returns when it has been closed; any other form is shown and the call
    /// returns at once. A form that is open already comes to the front.
    virtual void open(TextView name) = 0;
    /// Closes a form that is open; nothing otherwise.
    virtual void close(TextView name) = 0;
    /// True while the form is open.
    virtual bool isLoaded(TextView name) const = 0;
};
