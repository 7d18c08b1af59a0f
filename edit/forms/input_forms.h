#pragma once
// The forms of the input helpers for the table of forms. main calls it, and the desk tests do.

#include "platform/qt/form_context.h"

class FormTable;
struct EditScreen;

/// Adds FrmBROCK, Form5 and frmSPITEM. All references outlive the table.
void addInputForms(FormTable& forms, const FormContext& context, EditScreen& edit);
