#include "edit/forms/frmSPITEM.h"

#include "edit/pinned_item.h"
#include "platform/qt/guard.h"
#include "platform/qt/qt_text.h"

#include <QCloseEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr QSize startSize(360, 80);
constexpr int margin = 48; // for the window's frame

} // namespace

frmSPITEM::frmSPITEM(const FormContext& context, EditScreen& edit, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::WindowDoesNotAcceptFocus),
      context_(context), edit_(edit), Label1(new QLabel(this)) {
    setObjectName(u"frmSPITEM");
    setAttribute(Qt::WA_ShowWithoutActivating);
    Label1->setObjectName(u"Label1");
    Label1->setTextFormat(Qt::PlainText);
    Label1->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    edit_.pinnedCaption.onChange([this] { showCaption(); });
    edit_.pinnedCell.onChange([this] { showCell(); });
    showCaption();
    showCell();
    resize(startSize);
    if (owner != nullptr) {
        // Clear of the menus and the panel, in the corner that the records reach last.
        move(owner->geometry().bottomRight() - QPoint(startSize.width() + margin, startSize.height() + margin));
    }
}

frmSPITEM::~frmSPITEM() {
    edit_.pinnedCaption.onChange({});
    edit_.pinnedCell.onChange({});
}

void frmSPITEM::showCaption() {
    setWindowTitle(toQt(edit_.pinnedCaption.text()));
}

void frmSPITEM::showCell() {
    Label1->setText(toQt(edit_.pinnedCell.text()));
    // Who works by eye alone, with a key held down, is to see each record's data, not only the last one's.
    if (context_.zormod.speech.speechMode == 0) {
        Label1->repaint();
    }
}

void frmSPITEM::closeEvent(QCloseEvent* event) {
    QDialog::closeEvent(event);
    context_.guard.run([this] { pinnedFormClosed(edit_); });
}
