#pragma once
// The drive, folder and file boxes of a form. Arrow keys and typing move, Enter confirms a drive or a folder, and each
// box says what it stands at and what has become of the folder. Where the user stands is kept in the form's
// FolderBrowser; the boxes show it.

#include "start/folder_browser.h"
#include "start/type_ahead.h"
#include "voice/forms/SpokenForm.h"

#include <QWidget>

class QLabel;
class SpokenList;

/// `Drive1`, `Dir1` and `File1`.
class FileBoxes : public QWidget {
    Q_OBJECT
public:
    /// What the form does besides; any may be missing.
    struct Rules {
        std::function<void()> fileEnter{}; ///< Enter or a double click on a file
        std::function<void()> fileSpace{};
        std::function<void()> fileClick{};     ///< the mouse has come to a file
        std::function<void()> fileMoved{};     ///< another file is selected
        std::function<void()> folderChanged{}; ///< another folder is shown
        /// All names share their first letter, so that typing may leave it out.
        std::function<bool()> sharesFirstLetter{};
        /// What is said of a file, ending in a pause; without it its name and what it is a line of.
        std::function<Text(const Text&)> fileReading{};
    };
    /// Takes the boxes into `form`. `browser` outlives them and has been started.
    FileBoxes(const FormContext& context, SpokenForm& form, FolderBrowser& browser, Rules rules, QWidget* parent);

    SpokenList& files() { return *File1; }
    /// Shows what the browser says now; lists that haven't changed keep their place.
    void refresh();

private:
    void addDrives(SpokenForm& form);
    void addFolders(SpokenForm& form);
    void addFiles(SpokenForm& form);
    std::function<std::optional<int>(char16_t)> typing(TypeAhead& ahead, const std::vector<Text>& lines,
                                                       SpokenList* const& list);
    void confirm(bool changed);

    FormContext context_;
    FolderBrowser& browser_;
    Rules rules_;
    TypeAhead driveAhead_;
    TypeAhead folderAhead_;
    TypeAhead fileAhead_;
    SpokenList* Drive1 = nullptr;
    SpokenList* Dir1 = nullptr;
    SpokenList* File1 = nullptr;
    QLabel* path_ = nullptr;
    int shownRevision_ = -1;
};
