#pragma once
// The pinned item on the screen: its number and name in the title, its data in the one label. It never takes the
// keyboard, so that typing goes on beside it; only the mouse closes it. Opened by name from edit/pinned_item.

#include "edit/edit_screen.h"
#include "platform/qt/form_context.h"

#include <QDialog>

class QLabel;

/// `frmSPITEM`.
class frmSPITEM : public QDialog {
    Q_OBJECT
public:
    /// `edit` outlives the form.
    frmSPITEM(const FormContext& context, EditScreen& edit, QWidget* owner);
    ~frmSPITEM() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void showCaption();
    void showCell();

    FormContext context_;
    EditScreen& edit_;
    QLabel* Label1;
};
