#pragma once
// A form with one box, above which the tests let the message forms come up.

#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "support/qt/desk.h"
#include "voice/forms/SpokenForm.h"

#include <QVBoxLayout>
#include <QWidget>

#include <gtest/gtest.h>

#include <vector>

/// A form of the program with one box, above which the message forms come up.
struct MessageDesk : Desk {
    MessageDesk() {
        form.setWindowTitle(QStringLiteral("Owner"));
        auto* layout = new QVBoxLayout(&form);
        box = new KeyLineEdit(context);
        layout->addWidget(box);
        voice = new SpokenForm(form, context, {.opening = [] { return Text(); }});
        voice->add(*box, u"box", {.label = u"ﾃｷｽﾄﾎﾞｯｸｽ", .onFocus = [this] { ++focusRules; }});
        box->keys().onKeyUp([this](const KeyStroke&) { ++ups; });
        box->setFocus();
        open(form);
        focusRules = 0;
        zormod.speech.speechMode = 2;
    }
    /// Runs `ask` inside the guard, as handlers do.
    void asking(const std::function<void()>& ask) {
        EXPECT_TRUE(guard.run(ask));
        settle();
    }

    QWidget form;
    KeyLineEdit* box;
    SpokenForm* voice;
    int focusRules = 0;
    int ups = 0;
};

/// Each control is visible and has a name for screen readers.
inline void expectNamed(const Desk& desk, const std::vector<const char16_t*>& controls) {
    for (const char16_t* name : controls) {
        EXPECT_NE(desk.control(name)->accessibleName(), QString()) << QString::fromUtf16(name).toStdString();
        EXPECT_TRUE(desk.control(name)->isVisible());
    }
}
