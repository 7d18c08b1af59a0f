#include "output/forms/frmHelp.h"

#include "platform/qt/key_button.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/key_text_edit.h"
#include "platform/qt/owner_window.h"
#include "platform/qt/qt_text.h"
#include "voice/forms/form_table.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace {

Text describe() {
    return u"リッチテキストボックスにヘルプファイルを読み込み、閲覧するWindowです。検索したい文字列を書き検索ボタンを押すとカーソルが該当個所に移動します。上下矢印キーでテキスト内のキャレットを移動すると、各行が読まれます。";
}

} // namespace

frmHelp::frmHelp(const FormContext& context, TextViewer& viewer, QWidget* owner)
    : SpokenDialog(context, {.description = describe}, owner), viewer_(viewer), box_(new KeyTextEdit(context)),
      word_(new KeyLineEdit(context)) {
    setObjectName(u"frmHelp");
    box_->switchEditingOff();
    // A line of the text is a line of the box, so that each step down is a step to another line.
    box_->setLineWrapMode(QPlainTextEdit::NoWrap);
    addControls();
    viewer_.onShown([this] { showContents(); });
    showContents();
    box_->setFocus();
    resize(QSize(960, 720).boundedTo(screen()->availableSize()));
}

frmHelp::~frmHelp() { viewer_.onShown({}); }

void frmHelp::addControls() {
    auto* find = new KeyButton(QStringLiteral("検索"), context());
    auto* print = new KeyButton(QStringLiteral("印刷"), context());
    auto* cancel = new KeyButton(QStringLiteral("ｷｬﾝｾﾙ"), context());
    auto* back = new KeyButton(QStringLiteral("戻る(esc)"), context());
    auto* hint = new QLabel(QStringLiteral("選択範囲がある場合は選択範囲を印刷"));
    hint->setObjectName(u"Label2");
    auto* row = new QHBoxLayout;
    row->addWidget(word_, 1);
    for (KeyButton* button : {find, print, cancel, back}) {
        row->addWidget(button);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(box_, 1);
    layout->addLayout(row);
    layout->addWidget(hint);

    spoken().add(*box_, u"RichTextBox1", {.label = u"ヘルプ表示リッチテキストボックス"});
    spoken().add(*word_, u"Text1",
                 {.label = u"検索文字列をいれてください、カーソル行以降のテキストが検索対象になります",
                  .accessibleName = u"検索文字列"});
    spoken().add(*find, u"Command1", {.label = u"検索コマンドボタン"});
    spoken().add(*print, u"Command2", {.label = u"印刷コマンドボタン"});
    spoken().add(*cancel, u"Command3", {.label = u"ｷｬﾝｾﾙ(esc)コマンドボタン"});
    spoken().add(*back, u"Command4", {.label = u"戻るコマンドボタン"});
    word_->keys().onKeyPress([this](char16_t unit) {
        if (unit != u'\r') {
            return KeyOutcome::goesOn;
        }
        this->find();
        return KeyOutcome::taken;
    });
    find->onClick([this] { this->find(); });
    print->onClick([this] { viewer_.print(box_->view()); });
    cancel->onClick([this] {
        close();
        viewer_.cancelled();
    });
    back->onClick([this] { close(); });
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke == plainKey(Key::escape)) {
            close();
            return KeyOutcome::taken;
        }
        return KeyOutcome::goesOn;
    });
}

void frmHelp::showContents() {
    setWindowTitle(toQt(viewer_.caption()));
    box_->setProgramText(viewer_.text());
}

void frmHelp::find() {
    const Text word = word_->view().text;
    if (word.empty()) {
        spoken().giveFocus(*word_);
    } else if (const auto found = viewer_.find(word, box_->view())) {
        box_->select(found->start, found->length);
    }
}

void frmHelp::closeEvent(QCloseEvent* event) {
    event->accept();
    activateOwner(*this, context().heldKeys);
}

void addTextViewer(FormTable& forms, const FormContext& context, TextViewer& viewer) {
    forms.addModeless(u"frmHelp", [&context, &viewer](QWidget* owner) { return new frmHelp(context, viewer, owner); }, true);
}
