#pragma once
// The start screen: the first form of a run without a file. It shows the buttons and pictures and says its guidance;
// each of them runs the command of its menu entry. main opens it by name, and what leads into a table closes it.

#include "platform/qt/focus_watch.h"
#include "voice/forms/SpokenForm.h"

#include <QMainWindow>

#include <vector>

class KeyButton;
class QCheckBox;
class QGridLayout;
class QLabel;
class QTimer;

/// `FrmLunch`.
class FrmLunch : public QMainWindow {
    Q_OBJECT
public:
    FrmLunch(const FormContext& context, QWidget* parent);
    ~FrmLunch() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// A hint that is seen while one of its buttons has the focus.
    struct Hint {
        std::vector<const QWidget*> buttons;
        QLabel* label;
    };
    void addButtons(QGridLayout& layout);
    void addPictures(QGridLayout& layout);
    void addCheckBox(QGridLayout& layout);
    QLabel* addHint(QAnyStringView name, const QString& text, std::vector<const QWidget*> buttons);
    void addControl(QWidget& control, QAnyStringView name, ControlVoice voice);
    KeyOutcome keyDown(const KeyStroke& stroke);
    void showHints();
    void runCommand(TextView name);
    void sayGuidance();

    FormContext context_;
    SpokenForm* spoken_;
    QCheckBox* Check2 = nullptr;
    QTimer* Timer1;
    std::vector<Hint> hints_;
    FocusWatch focusWatch_;
};
