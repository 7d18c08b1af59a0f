#pragma once
// The text viewer's window. What it shows, finds and prints is decided by the viewer it is made for.

#include "output/text_viewer.h"
#include "voice/forms/spoken_dialog.h"

class FormTable;
class KeyLineEdit;
class KeyTextEdit;

/// `frmHelp`: the text `RichTextBox1`, the word to find `Text1`, the buttons `Command1` (find), `Command2` (print),
/// `Command3` (cancel) and `Command4` (back), and the label `Label2`.
class frmHelp : public SpokenDialog {
    Q_OBJECT
public:
    frmHelp(const FormContext& context, TextViewer& viewer, QWidget* owner);
    ~frmHelp() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addControls();
    void showContents();
    void find();

    TextViewer& viewer_;
    KeyTextEdit* box_;
    KeyLineEdit* word_;
};

/// Enters the viewer in the table of forms; both references outlive it.
void addTextViewer(FormTable& forms, const FormContext& context, TextViewer& viewer);
