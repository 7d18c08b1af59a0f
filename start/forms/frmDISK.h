#pragma once
// The form in which a file is chosen, to be opened, deleted or converted. It shows a FileChoice and hands it every key;
// opened by name, with the task word telling what the file is for.

#include "start/file_choice.h"
#include "voice/forms/spoken_dialog.h"

class FileBoxes;
class KeyButton;
class QLabel;

/// `frmDISK`.
class frmDISK : public SpokenDialog {
    Q_OBJECT
public:
    frmDISK(const FormContext& context, QWidget* parent);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    KeyButton* addButton(QAnyStringView name, const QString& caption, void (FileChoice::*routine)());
    void run(void (FileChoice::*routine)());
    void refresh();

    FormContext context_;
    FileChoice choice_;
    FileBoxes* boxes_;
    QLabel* Label2;
};
