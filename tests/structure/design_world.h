#pragma once
// A world with a table for tests of the design form's logic, and short hands for its keys.

#include "structure/design_accept.h"
#include "structure/design_checks.h"
#include "structure/design_reference.h"
#include "structure/design_typing.h"
#include "structure/only_message.h"
#include "support/test_world.h"

#include <gmock/gmock.h>

/// A world in which a design is opened.
struct DesignWorld : TestWorld {
    /// The design of a new table.
    TableDesign& newDesign() { return open(u""); }
    /// The design of the open table.
    TableDesign& change() { return open(u"tdesign"); }
    TableDesign& open(TextView taskWord) {
        zormod.taskWord = Text(taskWord);
        design = std::make_unique<TableDesign>(zormod);
        return *design;
    }

    /// Puts `text` into `itemin` and presses a key with the caret at its end.
    KeyOutcome type(const Text& text, const KeyStroke& stroke = plainKey(Key::enter)) {
        design->itemin = text;
        return key(stroke);
    }
    KeyOutcome key(const KeyStroke& stroke) {
        later();
        const int length = static_cast<int>(design->itemin.size());
        return itemInKeyDown(*design, stroke, {design->itemin, length, length, 0});
    }
    /// The text and the title of the only message since the last call.
    std::pair<std::string, std::string> message() { return takeOnlyMessage(dialogs); }
    void expectMessage() { dialogs.expectedMessages = 1; }

    std::unique_ptr<TableDesign> design;
};

/// A full grid from name, alignment and width.
inline void fill(TableDesign& design, const std::vector<DesignRow>& rows) {
    design.rows = rows;
    designRowsChanged(design);
    standOnDesignCell(design, 0, DesignColumn::name);
}
