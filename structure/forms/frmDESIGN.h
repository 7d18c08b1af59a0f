#pragma once
// The form in which a table gets its items: `text3` file name, `text2` memo, `text1` item count, `itemin` through which
// the cells of the grid are typed, the buttons, and the list of other tables. Opened by name with the task word set
// (structure/table_design.h); everything it decides is in core.

#include "structure/design_accept.h"
#include "voice/forms/spoken_dialog.h"

class CellBox;
class DesignGrid;
class FileBoxes;
class KeyButton;
class KeyLineEdit;
class QVBoxLayout;

/// The design form. Closing it by its close box is giving up.
class frmDESIGN : public SpokenDialog {
    Q_OBJECT
public:
    frmDESIGN(const FormContext& context, QWidget* parent);

    void reject() override;

private:
    KeyLineEdit* addTextBox(QVBoxLayout& layout, const char16_t* name, TextView label, Text& text);
    void addGrid(QVBoxLayout& layout);
    void addButtons(QVBoxLayout& layout);
    KeyButton* makeButton(const char16_t* name, TextView caption, std::function<void()> rule);
    void addReferences(QVBoxLayout& layout);
    void setBoxRules();
    void refresh();
    void follow(DesignOutcome outcome);
    void toggleReferences();

    TableDesign design_;
    KeyLineEdit* text1 = nullptr;
    KeyLineEdit* text2 = nullptr;
    KeyLineEdit* text3 = nullptr;
    CellBox* cellBox_ = nullptr;
    DesignGrid* grid_ = nullptr;
    KeyButton* Command3 = nullptr;
    FileBoxes* references_ = nullptr;
};
