#pragma once
// The choice of a file: the logic of frmDISK. It opens a table, deletes one, or shows the items of one; what it lists
// are item definition files, since a table is known by its own. The form makes one object each time it opens and shows
// what it says. The table that was open stays whole through every refusal.

#include "start/folder_browser.h"

#include <functional>

/// `taskWord` while the form is open; without one it was opened from the start screen.
inline constexpr TextView openFileWord = u"YOMIKOMI";
inline constexpr TextView deleteFileWord = u"delfile";
inline constexpr TextView convertFileWord = u"CVZORF";

/// The commands behind the parts of the form that lie in higher rooms: the conversion of the chosen text file, and the
/// reading of a CSV file.
inline constexpr TextView convertChosenFileCommand = u"convertChosenFile";
inline constexpr TextView readCsvCommand = u"csvREAD";

/// What the user does in the form.
class FileChoice {
public:
    /// Takes the task word as the form's mode and goes to the folder of the open table, or the program's folder.
    explicit FileChoice(ZORMOD& zormod);
    FileChoice(const FileChoice&) = delete;
    FileChoice& operator=(const FileChoice&) = delete;

    FolderBrowser& folders() { return folders_; }
    Text caption() const;
    /// Caption of `Command1`; it keeps that of the word with which the form was opened.
    Text carryOutCaption() const;
    /// `Label2`.
    Text hint() const;
    /// What the form says of itself.
    Text description() const;
    /// True while item definition files are listed, false while all files are.
    bool listsTables() const { return word_ != convertFileWord; }
    /// True once a routine has closed the form.
    bool isClosed() const { return isClosed_; }

    // While one of the next three is at work, each of them beeps and does nothing: a form or a message above may have
    // closed already, and the next key may come before the work behind it is done.

    /// `Command1`, Enter in the list: opens, deletes or converts the selected file. Nothing without one.
    void carryOut();
    /// Space in the list: the items of the selected file; a beep without one. The open table stays open.
    void dispItem();
    /// `Command2`.
    void readCsv();
    /// `Command3`, Esc, the close box. Ends the program where there is no table to go back to.
    void giveUp();
    /// `Command4`.
    void makeFolderHere();
    /// `cmdNOTZOR`: all files, and back to table files.
    void toggleAllFiles();

private:
    struct Name {
        Text fileName;
        Text fileDrive;
    };
    bool hasChoice() const { return !folders_.selectedName().empty(); }
    /// Giving up ends the program: there is no table to go back to.
    bool endsProgram() const;
    Name chosenName() const;
    void setWord(TextView word);
    void showItems();
    void openChosen();
    void deleteChosen();
    void close();
    /// Does `work`, or beeps while other work is done.
    void runAlone(const std::function<void()>& work);

    ZORMOD& zormod_;
    const Text openedWith_;
    Text word_; ///< held here too: a failure empties the task word, but not what the form is for
    FolderBrowser folders_;
    bool isClosed_ = false;
    bool isAtWork_ = false;
};
