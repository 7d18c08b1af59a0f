#include "edit/forms/Form5.h"

#include "platform/qt/guard.h"
#include "platform/qt/key_button.h"
#include "voice/forms/message_label.h"
#include "voice/forms/spoken_list.h"

#include <QVBoxLayout>

Form5::Form5(const FormContext& context, EditScreen& edit, QWidget* parent)
    : SpokenDialog(context, {.description = ItemsToInput::openingText, .opening = ItemsToInput::openingText}, parent),
      choice_(edit), Grid1(nullptr) {
    setObjectName(u"Form5");
    setWindowTitle(QStringLiteral("記入項目の指定"));
    Grid1 = new SpokenList(context, {.count = [this] { return choice_.count(); },
                                     .line = [this](int item) { return choice_.line(item); },
                                     .spoken = [this](int item) { return choice_.spokenLine(item); },
                                     .typed =
                                         [this](char16_t) {
                                             toggle(Grid1->row());
                                             return std::optional<int>();
                                         },
                                     .space = [this] { toggle(Grid1->row()); }});
    auto* ok = new KeyButton(QStringLiteral("OK"), context);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new MessageLabel(u"Label1", ItemsToInput::instruction()));
    layout->addWidget(Grid1, 1);
    layout->addWidget(ok);
    resize(480, 480);

    spoken().add(*Grid1, u"Grid1",
                 {.accessibleName = u"記入項目の指定", .reading = [this] { return Grid1->spokenLine(); }});
    spoken().add(*ok, u"Command1");
    spoken().onKeyDown([this](const KeyStroke& stroke) { return keyDown(stroke); });
    connect(Grid1, &QListView::clicked, this,
            [this](const QModelIndex& line) { Form5::context().guard.run([&] { toggle(line.row()); }); });
    // Whatever ends the form but OK gives up, its close box too.
    connect(this, &QDialog::rejected, this, [this] { choice_.cancel(); });
    ok->onClick([this] {
        choice_.accept();
        accept();
    });
    Grid1->setFocus();
}

KeyOutcome Form5::keyDown(const KeyStroke& stroke) {
    if (stroke == plainKey(Key::escape)) {
        reject();
        return KeyOutcome::taken;
    }
    if (stroke == plainKey(Key::enter) && Grid1->hasFocus()) {
        toggle(Grid1->row());
        return KeyOutcome::taken;
    }
    return KeyOutcome::goesOn;
}

void Form5::toggle(int item) {
    choice_.toggle(item);
    Grid1->update(Grid1->currentIndex());
}
