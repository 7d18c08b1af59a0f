#pragma once
// The reference list of the design form: `Drive1`, `Dir1` and `File1`, in which other tables are found by their K files.
// Arrow keys and typing move and each line says itself; Enter or Space goes into a drive or folder, or takes the design of
// a file. What is taken is decided in core.

#include "voice/forms/SpokenForm.h"

#include <QWidget>

#include <vector>

class QLabel;
class QListWidget;
struct TableDesign;

/// The three boxes; hidden until they are asked for.
class ReferenceList : public QWidget {
    Q_OBJECT
public:
    /// Takes the boxes into `form`. `taken` runs when a file's design has gone into the grid.
    ReferenceList(const FormContext& context, SpokenForm& form, TableDesign& design, std::function<void()> taken,
                  QWidget* parent);

    /// Reads the folder and gives the focus to the files.
    void start();

private:
    QListWidget* addBox(const char16_t* name, TextView label, std::function<void()> rule, std::function<Text()> reading);
    void showFolder(const Text& folder);
    void fill(QListWidget& box, const std::vector<Text>& lines);
    Text fileReading() const;
    void changeDrive();
    void changeFolder();
    void takeFile();

    FormContext context_;
    SpokenForm& form_;
    TableDesign& design_;
    std::function<void()> taken_;
    QLabel* path_ = nullptr;
    QListWidget* Drive1 = nullptr;
    QListWidget* Dir1 = nullptr;
    QListWidget* File1 = nullptr;
};
