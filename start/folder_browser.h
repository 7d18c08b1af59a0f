#pragma once
// Where the user stands in the drives and folders: the drives, the folders of the current one, its files by a pattern,
// and what is selected in each list. Every form with a drive box, a folder box and a file box has one. It reads a folder
// once when it is entered, opens no file and changes nothing on the disk. Paths are in drive-letter form without "\" at
// the end, unless it is a drive's root.

#include "sheet/zormod.h"

#include <vector>

/// The line of the folder box that leads one folder up; the first one, except in a drive's root.
inline constexpr TextView folderAbove = u"..";

/// The three lists. Lines are numbered from 0; -1 means that nothing is selected.
class FolderBrowser {
public:
    /// Lists the files that fit `pattern`; nothing is read before start().
    FolderBrowser(ZORMOD& zormod, TextView pattern) : zormod_(zormod), pattern_(pattern) {}

    /// Goes to `path`, or where that can't be read to the program's folder, or else to the root of its drive.
    void start(const Text& path);
    /// The drives as shown: small letter and ":".
    const std::vector<Text>& drives() const { return drives_; }
    /// The line of the drive in force.
    int currentDrive() const;
    /// Looks for drives that have come or gone.
    void findDrives();
    const Text& path() const { return path_; }
    const std::vector<Text>& folders() const { return folders_; }
    const std::vector<Text>& files() const { return files_; }
    const Text& pattern() const { return pattern_; }

    /// Each of these reads a folder. False: it can't be read, the user has been told, and all stays as it was.
    bool changeDrive(int line);
    bool changeFolder(int line);
    /// Reads the current folder again; the selected file stays selected if it is still there.
    bool refresh();
    /// Lists other files of the same folder.
    void setPattern(TextView pattern);

    void selectFile(int line) { selectedFile_ = line; }
    int selectedFile() const { return selectedFile_; }
    /// The name of the selected file; empty if none is.
    Text selectedName() const;
    /// The line at which the folder box stands after a change: the folder that was left by going up, else the first.
    int startFolder() const { return startFolder_; }
    /// Changes whenever a list does, so that its box knows when to show it anew.
    int revision() const { return revision_; }

    /// What is said after a change of folder.
    Text changedText() const;

private:
    bool enter(const Text& path, const Text& from);
    void show(FolderContents contents);
    void pickFiles();
    Text firstFolderOf(const Text& drive);

    ZORMOD& zormod_;
    Text pattern_;
    Text path_;
    std::vector<Text> drives_;
    std::vector<Text> folders_;
    std::vector<Text> allFiles_;
    std::vector<Text> files_;
    int selectedFile_ = -1;
    int startFolder_ = 0;
    int revision_ = 0;
};
