#include "start/forms/FrmLunch.h"

#include "edit/forms/form1_menus.h"
#include "edit/forms/menu_voice.h"
#include "platform/commands.h"
#include "platform/qt/guard.h"
#include "platform/qt/held_keys.h"
#include "platform/qt/key_button.h"
#include "platform/qt/qt_text.h"
#include "start/forms/start_menus.h"
#include "start/model_files.h"
#include "start/start_screen.h"
#include "voice/speech_channel.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMenuBar>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int guidanceDelay = 1000; // milliseconds

/// Grey, and white with the focus; the same in every palette of the desktop, so the letters are always black.
constexpr auto pictureStyle = "QPushButton { background-color: #c0c0c0; color: black; border: 3px solid #808080;"
                              " padding: 16px; }"
                              "QPushButton:focus { background-color: white; border-color: black; }";

} // namespace

FrmLunch::FrmLunch(const FormContext& context, QWidget* parent)
    : QMainWindow(parent), context_(context),
      spoken_(new SpokenForm(*this, context, {.description = guidanceText, .opening = [] { return Text(); }})),
      Timer1(new QTimer(this)), focusWatch_([this](QWidget*, QWidget*) { showHints(); }) {
    setObjectName(u"FrmLunch");
    setWindowTitle(toQt(startScreenCaption));
    auto* body = new QWidget(this);
    auto* layout = new QGridLayout(body);
    setCentralWidget(body);
    addButtons(*layout);
    addCheckBox(*layout);
    addPictures(*layout);
    buildMenus(*menuBar(), startMenus(), context);
    new MenuVoice(*menuBar(), context);
    spoken_->onKeyDown([this](const KeyStroke& stroke) { return keyDown(stroke); });

    Timer1->setObjectName(u"Timer1");
    Timer1->setInterval(guidanceDelay);
    connect(Timer1, &QTimer::timeout, this, context.guard.wrap([this] { sayGuidance(); }));
    findChild<QWidget*>(QStringLiteral("Command1"))->setFocus();
}

// The focus leaves the controls as they are destroyed, and their rules must not run any more.
FrmLunch::~FrmLunch() {
    delete spoken_;
}

void FrmLunch::addButtons(QGridLayout& layout) {
    struct Button {
        const char16_t* name;
        const char16_t* caption;
        const char16_t* command;
        const char16_t* hintName;
        const char16_t* hint;
    };
    static constexpr Button all[] = {
        {u"Command1", u"新規作成(Y)", u"mnuSINKI", u"Text1", u"新規作成です！！"},
        {u"Command2", u"既存ファイル(N)", u"mnuKiSON", u"Text2", u"既存ファイルを開きます！！"},
        {u"Command3", u"終了(ESC)", u"mnuSYURYOU", u"Text3", u"終了します！！"},
    };
    int column = 0;
    for (const Button& each : all) {
        auto* button = new KeyButton(toQt(each.caption), context_, this);
        addControl(*button, each.name, {.reading = [&each] { return startButtonReading(each.caption); }});
        button->onClick([this, &each] { runCommand(each.command); });
        layout.addWidget(button, 0, column);
        layout.addWidget(addHint(each.hintName, toQt(each.hint), {button}), 1, column++);
    }
}

void FrmLunch::addPictures(QGridLayout& layout) {
    std::vector<const QWidget*> pictures;
    for (const Model& model : models()) {
        if (model.button.empty()) {
            continue;
        }
        auto* picture = new KeyButton(toQt(model.caption), context_, this);
        picture->setStyleSheet(QLatin1StringView(pictureStyle));
        addControl(*picture, toQt(model.button), {.reading = [&model] { return pictureReading(model.caption); }});
        picture->onClick([this, &model] { runCommand(model.entry); });
        const int place = static_cast<int>(pictures.size());
        layout.addWidget(picture, 3 + place / 3, place % 3);
        pictures.push_back(picture);
    }
    layout.addWidget(addHint(u"Text4", QStringLiteral("モデルファイルを開きます！！"), pictures), 5, 0, 1, 3);
}

void FrmLunch::addCheckBox(QGridLayout& layout) {
    Check2 = new QCheckBox(QStringLiteral("読み上げ機能を使う"), this);
    Check2->setChecked(context_.zormod.speech.speechMode != 0);
    Check2->setAttribute(Qt::WA_InputMethodEnabled, false);
    addControl(*Check2, u"Check2", {});
    KeyTap::of(*Check2, context_).onKeyPress([this](char16_t unit) {
        if (unit != u'\r') {
            return KeyOutcome::goesOn;
        }
        if (!context_.heldKeys.isRepeat()) {
            Check2->click();
        }
        return KeyOutcome::taken;
    });
    connect(Check2, &QCheckBox::clicked, this, [this](bool ticked) {
        context_.guard.run([&] {
            // Its new state is heard in both directions: with the speech that it switches on, or before it switches it off.
            if (!ticked) {
                spoken_->announce(*Check2);
            }
            switchSpeechByCheck(context_.zormod, ticked);
            if (ticked) {
                spoken_->announce(*Check2);
            }
        });
    });
    layout.addWidget(Check2, 2, 0, 1, 3);
}

QLabel* FrmLunch::addHint(QAnyStringView name, const QString& text, std::vector<const QWidget*> buttons) {
    auto* label = new QLabel(text, this);
    label->setObjectName(name);
    QSizePolicy policy = label->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    label->setSizePolicy(policy);
    label->hide();
    hints_.push_back({std::move(buttons), label});
    return label;
}

void FrmLunch::addControl(QWidget& control, QAnyStringView name, ControlVoice voice) {
    voice.onFocus = [this, &control] {
        waitBeforeControl(context_.zormod);
        spoken_->announce(control);
    };
    spoken_->add(control, name, std::move(voice));
    KeyTap::of(control, context_).onKeyUp([this](const KeyStroke& stroke) {
        if (startScreenKeyUp(context_.zormod, stroke)) {
            Check2->setChecked(context_.zormod.speech.speechMode != 0);
        }
    });
}

KeyOutcome FrmLunch::keyDown(const KeyStroke& stroke) {
    if (stroke == plainKey(Key::y)) {
        runCommand(u"mnuSINKI");
    } else if (stroke == plainKey(Key::n)) {
        runCommand(u"mnuKiSON");
    } else if (stroke == plainKey(Key::escape)) {
        runCommand(u"mnuSYURYOU");
    } else {
        return KeyOutcome::goesOn;
    }
    return KeyOutcome::taken;
}

void FrmLunch::showHints() {
    const QWidget* focused = focusWidget();
    for (const Hint& hint : hints_) {
        hint.label->setVisible(std::find(hint.buttons.begin(), hint.buttons.end(), focused) != hint.buttons.end());
    }
}

void FrmLunch::runCommand(TextView name) {
    context_.zormod.platform.commands.run(name);
}

void FrmLunch::sayGuidance() {
    Timer1->stop();
    sayThrottled(context_.zormod, spoken_->description());
}

void FrmLunch::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    showHints();
    if (!event->spontaneous()) {
        Timer1->start();
    }
}

// The close box gives up; a close from inside is a road into a table. Both may happen while a key is held, and no other
// form is to hear that key let go.
void FrmLunch::closeEvent(QCloseEvent* event) {
    if (event->spontaneous()) {
        event->ignore();
        context_.guard.run([this] { runCommand(u"mnuSYURYOU"); });
        return;
    }
    Timer1->stop();
    context_.heldKeys.muteHeld();
    QMainWindow::closeEvent(event);
}
