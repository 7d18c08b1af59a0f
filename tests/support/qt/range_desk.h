#pragma once
// The view desk with short names for what the tests of ranges look at.

#include "support/qt/view_desk.h"

#include <QLineEdit>

#include <string>
#include <vector>

struct RangeDesk : ViewDesk {
    bool isDrawing() { return formTable.isLoaded(u"frmHANI"); }
    /// Kind and ends of the selection.
    std::vector<int> range() const {
        const Selection& s = zormod.selection;
        return {s.selectionKind, s.selRecordFrom, s.selRecordTo, s.selItemFrom, s.selItemTo};
    }
    std::string field(const char* name) {
        return static_cast<QLineEdit*>(control(QLatin1StringView(name)))->text().toStdString();
    }
    std::vector<std::string> fields() { return {field("Text1"), field("Text2"), field("Text3"), field("Text4")}; }
    void keysDown(std::initializer_list<KeyStroke> strokes) {
        for (const KeyStroke& stroke : strokes) {
            key(stroke);
        }
    }
    /// Draws with these keys and fixes the range.
    void fix(std::initializer_list<KeyStroke> strokes) {
        keysDown(strokes);
        key(plainKey(Key::enter));
        spoken();
    }
};

/// What range() gives, and what is said.
using Ends = std::vector<int>;
using Said = std::vector<std::string>;
