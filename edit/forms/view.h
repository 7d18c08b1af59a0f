#pragma once
// What the three views of the table have in common. A view stands beneath the panel in Form1's window, shows the record
// window and holds no data of its own. It is reached by the mouse only: it stands outside the Tab order, and a key on
// it goes back to the input box. Form1 owns the views and calls them; a view knows Form1 only as a few routines.

#include "platform/qt/form_context.h"
#include "platform/screen.h"
#include "platform/text.h"
#include "voice/forms/SpokenForm.h"

#include <QColor>
#include <QWidget>

#include <functional>

class QLabel;
class QVBoxLayout;

/// What a view asks of the edit screen. Every routine is called inside the guard.
struct ViewActions {
    std::function<void()> backToInput;                                ///< the input box gets the focus
    std::function<void(int viewMode)> switchView;                     ///< another view is to be in force
    std::function<void(std::int32_t record, std::int16_t item)> pick; ///< a cell was clicked
    std::function<void(std::int16_t rows)> rowsChanged; ///< the room there is, told at each change of size
    std::function<void()> cancelRange;                  ///< what was selected no longer holds
};

/// The colour of a mask. The letters on it are black in every palette.
QColor maskColour(MaskKind kind);

/// A view.
class View : public QWidget {
    Q_OBJECT
public:
    /// `name` is the object name, `caption` the heading and the accessible name, `voice` what Ctrl+Shift+A says.
    View(const QString& name, TextView caption, FormVoice voice, const FormContext& context, const ViewActions& actions,
         QWidget* parent);

    /// Shows the window and the current cell anew.
    virtual void redraw() = 0;
    /// Shows the current row anew.
    virtual void redrawCurrentRow() = 0;
    /// Shows what is being typed; a view without an echo leaves it.
    virtual void showEcho(const Text& typed);
    /// The echo shows the stored cell again.
    virtual void showCellInEcho();
    /// Puts a mask over a range, as far as it is in the window. The card view has none.
    virtual void paintMask(MaskKind kind, const CellRange& range);
    /// Takes the masks of a range away.
    virtual void hideMask();

protected:
    void changeEvent(QEvent* event) override;
    /// The letters of the desktop have become larger or smaller; called inside the guard.
    virtual void followLetters() = 0;
    /// A caption that tells where the user is.
    void setHeading(TextView caption);
    /// Takes in a widget that the mouse can give the focus; it says nothing by itself.
    void addFocusable(QWidget& widget, const QString& name, TextView accessibleName);
    /// A label in the bar behind the heading; data in it is never taken for markup.
    QLabel* addLabel(const QString& name);
    /// A button of the view in the bar behind the heading.
    void addButton(const QString& name, TextView caption, std::function<void()> rule);

    FormContext context_;
    const ViewActions& actions_;

private:
    KeyOutcome keyDown(const KeyStroke& stroke);

    SpokenForm* spoken_;
    QLabel* heading_;
    QLayout* bar_;

protected:
    QVBoxLayout* body_; ///< the bar, and what the view adds below it
};
