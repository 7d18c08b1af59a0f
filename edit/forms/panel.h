#pragma once
// The panel of the edit screen: the boxes and labels that show the current cell, and the input box below them. It flows
// to the width of the window and scrolls, so that the box with the focus is wholly in view at any size of letters. It
// only lays out and shows; what the boxes do is bound in panel_binding.

#include "platform/qt/focus_watch.h"
#include "platform/qt/form_context.h"
#include "platform/screen.h"

#include <QScrollArea>

#include <functional>
#include <map>

class KeyLineEdit;
class QLabel;

/// A label that a mouse can be used on.
enum class PanelLabel { Label2, Label3, Label4, Label6, lblJITEM, lblWIDTH };

/// The panel.
class Panel : public QScrollArea {
    Q_OBJECT
public:
    Panel(const FormContext& context, QWidget* parent);

    /// The box of a field; null for a field that is a label.
    KeyLineEdit* box(PanelField field) const;
    /// The fields that are boxes, in the order in which Tab goes through them.
    static const std::vector<PanelField>& boxOrder();
    /// Shows a text in a box or label.
    void showText(PanelField field, TextView text);
    /// Gives a label a ground; nothing for a field that is a box.
    void colourLabel(PanelField field, LabelGround ground);
    /// Makes the input box as wide as `bytes` half-width characters, or as wide as the window.
    void setInputBoxWidth(int bytes);
    /// Shows or hides "Speek!".
    void showSpeek(bool visible);
    /// What a click, or a double click on `Label3`, on a label does; runs inside the guard.
    void onLabel(std::function<void(PanelLabel)> rule) { labelRule_ = std::move(rule); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void addPair(QLabel* label, PanelField field);
    KeyLineEdit* addBox(PanelField field);
    QLabel* addLabel(const char* name, TextView text);
    QLabel* addMouseLabel(PanelLabel kind, const char* name, TextView text);
    void fitBoxes();
    void settleSoon();
    void keepInView(const QWidget* control);

    FormContext context_;
    QWidget* content_;
    std::map<PanelField, KeyLineEdit*> boxes_;
    std::map<PanelField, QLabel*> labels_;
    std::map<const QObject*, PanelLabel> mouseLabels_;
    std::function<void(PanelLabel)> labelRule_;
    QLabel* lblSpeek;
    int inputBytes_ = 20;
    int askedHeight_ = 0; ///< the height that the window has been asked for
    FocusWatch focusWatch_;
};
