#pragma once
// A window with two boxes for the tests of the text box; the first one writes down its events.

#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "support/qt/desk.h"

#include <QMainWindow>
#include <QVBoxLayout>

#include <memory>
#include <string>
#include <vector>

/// A window with two boxes; the first one writes down its events.
struct BoxWindow : Desk {
    BoxWindow() {
        window = std::make_unique<QMainWindow>();
        auto* middle = new QWidget;
        auto* layout = new QVBoxLayout(middle);
        box = new KeyLineEdit(context);
        box->setObjectName(u"box");
        other = new KeyLineEdit(context);
        other->setObjectName(u"other");
        layout->addWidget(box);
        layout->addWidget(other);
        window->setCentralWidget(middle);
        box->keys().onKeyDown([this](const KeyStroke& stroke) {
            events.push_back("down");
            downs.push_back(stroke);
            return takenDown;
        });
        box->keys().onKeyPress([this](char16_t unit) {
            events.push_back("press " + std::to_string(static_cast<int>(unit)));
            return takenPress;
        });
        box->onChange([this](const Text& before, const Text& now) {
            events.push_back("change " + utf8(before) + ">" + utf8(now));
        });
        box->keys().onKeyUp([this](const KeyStroke& stroke) {
            events.push_back("up");
            ups.push_back(stroke);
        });
        box->onOtherKey([this] { events.push_back("other key"); });
        box->setFocus();
        open(*window);
    }
    std::string text() const { return utf8(box->view().text); }
    void forget() {
        events.clear();
        downs.clear();
        ups.clear();
    }

    std::unique_ptr<QMainWindow> window;
    KeyLineEdit* box;
    KeyLineEdit* other;
    std::vector<std::string> events;
    std::vector<KeyStroke> downs;
    std::vector<KeyStroke> ups;
    KeyOutcome takenDown = KeyOutcome::goesOn;
    KeyOutcome takenPress = KeyOutcome::goesOn;
};
