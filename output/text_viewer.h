#pragma once
// The text viewer `frmHelp` without its window: which text it shows and under which caption, finding a word in it, and
// printing it. The guides of the system are text files in the program's folder; whatever else is to be shown as running
// text (the results of a statistic) comes through show(). main makes one; the form and the commands share it.

#include "platform/keys.h"
#include "sheet/zormod.h"

#include <functional>
#include <optional>
#include <span>

/// A guide of the help menu.
struct HelpFile {
    TextView command; ///< its menu entry
    TextView file;    ///< its name in the program's folder
    TextView caption;
};

/// The guides in the order of the menu.
std::span<const HelpFile> helpFiles();

/// The most bytes of a file that the viewer shows.
inline constexpr std::size_t viewerLimit = 4 * 1024 * 1024;

/// What a search ended with: characters that are to be selected, counted from 0.
struct FoundWord {
    int start = 0;
    int length = 0;
};

/// The viewer's contents and work.
class TextViewer {
public:
    explicit TextViewer(ZORMOD& zormod) : zormod_(zormod) {}
    TextViewer(const TextViewer&) = delete;
    TextViewer& operator=(const TextViewer&) = delete;

    /// Loads the guide of a menu entry and shows it. A file that is missing or can't be read leaves the box empty and is
    /// not reported; of one above the limit the beginning is shown, and the user is told.
    void showHelp(const HelpFile& help);
    /// Shows `text`, whose lines end in CR, under `caption`, whether the form is open or not.
    void show(Text text, Text caption);

    const Text& text() const { return text_; }
    const Text& caption() const { return caption_; }
    /// What the form does when other contents are shown while it is open; an empty rule when it goes.
    void onShown(std::function<void()> rule) { shown_ = std::move(rule); }

    /// Looks for `word` from the caret of `box` on, behind the selection if there is one: as it stands, then without
    /// regard to case. Not found there, the user is told and it is looked for once more from the start of the text. A
    /// word that was found has its line said. None if it stands nowhere, or if the word is empty.
    std::optional<FoundWord> find(TextView word, const BoxView& box);
    /// Prints the selection of `box`, or all of its text if nothing is selected.
    void print(const BoxView& box);
    /// What "ｷｬﾝｾﾙ" does besides closing the form: the sheet is redrawn behind a statistic.
    void cancelled();

private:
    Text readFile(const Text& path, const Text& caption);

    ZORMOD& zormod_;
    Text text_;
    Text caption_;
    std::function<void()> shown_;
};
