#pragma once
// What the desktop's printer says and asks, bound to the routines that decide it. main hands it to the printer.

#include "platform/qt/form_context.h"
#include "platform/qt/qt_printer.h"

/// The words round a printed document; `context` outlives them.
PrintTalk printTalk(const FormContext& context);
