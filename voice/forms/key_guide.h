#pragma once
// A key guide on the screen: a column of buttons, one a key, that say what the key does when the focus comes to them
// and do nothing when they are pressed. One class serves all four guides; they differ in their data alone.

#include "platform/qt/focus_watch.h"
#include "voice/forms/spoken_dialog.h"
#include "voice/key_guides.h"

class FormTable;
class QGridLayout;
class QScrollArea;

/// `frmALT`, `frmCTRLK`, `frmFUNC` or `frmSFUNC`: buttons `Command1`.. with labels `Label1`.., and the two that leave,
/// `cmdBack` and `cmdUnload`. Both give the keyboard back to the input box.
class KeyGuideForm : public SpokenDialog {
    Q_OBJECT
public:
    KeyGuideForm(const FormContext& context, const KeyGuide& guide, QWidget* owner);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addKey(QGridLayout& grid, int row, const GuideKey& key);
    void keepInView(QWidget* control);
    void giveBack();

    QScrollArea* scroll_;
    FocusWatch focusWatch_;
};

/// Enters the four guides in the table of forms; `context` outlives it.
void addKeyGuides(FormTable& forms, const FormContext& context);
