#pragma once
// The edit screen's window: the menus, the panel with the input box, and beneath it the view in force. It shows what
// the logic tells it and hands every event on; it decides nothing. main makes one and connects it as the program's
// Screen.

#include "edit/edit_screen.h"
#include "edit/forms/views.h"
#include "edit/input_box.h"
#include "edit/menu_table.h"
#include "platform/screen.h"

#include <QMainWindow>

#include <memory>

class Panel;
class PanelBinding;
class QStackedWidget;
enum class PanelLabel;

/// Form1.
class Form1 : public QMainWindow, public Screen {
    Q_OBJECT
public:
    /// `edit` and `inputBox` outlive the form. The form is not shown yet.
    Form1(const FormContext& context, EditScreen& edit, InputBox& inputBox, const MenuTable& menus);
    ~Form1() override;

    /// The views, for the masks of a range.
    const Views& views() const { return views_; }

    void setTitle(const Text& title) override;
    void showField(PanelField field, const Text& text) override;
    void colourLabel(PanelField field, LabelGround ground) override;
    void focusField(PanelField field) override;
    void setInputBoxWidth(int bytes) override;
    void showCurrentCell() override;
    void redrawView() override;
    void redrawCurrentRow() override;
    void showEcho(const Text& text) override;
    void showCellInEcho() override;
    void paintMask(MaskKind kind, const CellRange& range) override;
    void hideMask() override;
    void showReadingMode(int speechMode) override;
    void showSpeek(bool visible) override;
    void showPinnedAutoRead(bool on) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    ViewActions viewActions();
    View& viewInForce();
    void switchView(int viewMode);
    void labelUsed(PanelLabel label);
    void mark(TextView entry, bool checked);

    FormContext context_;
    EditScreen& edit_;
    SpokenForm* spoken_;
    Panel* panel_;
    std::unique_ptr<PanelBinding> binding_;
    ViewActions actions_;
    QStackedWidget* stack_;
    Views views_;
};
