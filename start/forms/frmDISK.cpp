#include "start/forms/frmDISK.h"

#include "platform/qt/guard.h"
#include "platform/qt/key_button.h"
#include "platform/qt/qt_text.h"
#include "start/forms/file_boxes.h"
#include "voice/forms/spoken_list.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <functional>

frmDISK::frmDISK(const FormContext& context, QWidget* parent)
    : SpokenDialog(context, {.description = [this] { return choice_.description(); }}, parent), context_(context),
      choice_(context.zormod), Label2(new QLabel(this)) {
    setObjectName(u"frmDISK");
    Label2->setObjectName(u"Label2");
    boxes_ = new FileBoxes(context, spoken(), choice_.folders(),
                           {.fileEnter = [this] { run(&FileChoice::carryOut); },
                            .fileSpace = [this] { run(&FileChoice::dispItem); },
                            .sharesFirstLetter = [this] { return choice_.listsTables(); }},
                           this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(addButton(u"Command1", toQt(choice_.carryOutCaption()), &FileChoice::carryOut));
    buttons->addWidget(addButton(u"Command2", QStringLiteral("CSVファイルの読み込み"), &FileChoice::readCsv));
    buttons->addWidget(addButton(u"Command3", QStringLiteral("中止(ESC)"), &FileChoice::giveUp));
    buttons->addWidget(addButton(u"Command4", QStringLiteral("フォルダ作成(&F)"), &FileChoice::makeFolderHere));
    buttons->addWidget(
        addButton(u"cmdNOTZOR", QStringLiteral("すべてのファイルを表示する"), &FileChoice::toggleAllFiles));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(boxes_, 1);
    layout->addWidget(Label2);
    layout->addLayout(buttons);
    resize(720, 480);

    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke == plainKey(Key::escape)) {
            run(&FileChoice::giveUp);
            return KeyOutcome::taken;
        }
        return KeyOutcome::goesOn;
    });
    refresh();
    boxes_->files().setFocus();
}

KeyButton* frmDISK::addButton(QAnyStringView name, const QString& caption, void (FileChoice::*routine)()) {
    auto* button = new KeyButton(caption, context_, this);
    spoken().add(*button, name);
    button->onClick([this, routine] { run(routine); });
    return button;
}

/// Runs a routine and shows what has become of the choice, also where the routine failed.
void frmDISK::run(void (FileChoice::*routine)()) {
    context_.guard.run([this, routine] { std::invoke(routine, choice_); });
    refresh();
}

void frmDISK::refresh() {
    setWindowTitle(toQt(choice_.caption()));
    Label2->setText(toQt(choice_.hint()));
    boxes_->refresh();
}

// The close box gives up; once the choice is over, whoever ended it, the form really closes.
void frmDISK::closeEvent(QCloseEvent* event) {
    if (!choice_.isClosed()) {
        run(&FileChoice::giveUp);
    }
    if (choice_.isClosed()) {
        SpokenDialog::closeEvent(event);
    } else {
        event->ignore();
    }
}
