#include "voice/forms/spoken_dialog.h"

#include <QKeyEvent>

SpokenDialog::SpokenDialog(const FormContext& context, FormVoice voice, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      context_(context), spoken_(*new SpokenForm(*this, context, std::move(voice))) {}

void SpokenDialog::keyPressEvent(QKeyEvent* event) {
    event->ignore();
}
