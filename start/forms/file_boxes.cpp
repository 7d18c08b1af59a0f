#include "start/forms/file_boxes.h"

#include "platform/clock.h"
#include "platform/qt/qt_text.h"
#include "voice/forms/spoken_list.h"
#include "voice/speech_channel.h"

#include <QGridLayout>
#include <QLabel>

namespace {

constexpr TextView driveSentence = u"矢印ｷｰでﾄﾞﾗｲﾌﾞ変更 CRで確定します";
constexpr TextView folderSentence = u"矢印ｷｰでﾌｫﾙﾀﾞを選択し、CRｷｰを叩くとﾌｫﾙﾀﾞが変更されます";
constexpr TextView fileSentence = u"矢印ｷｰでﾌｧｲﾙを選択します";
constexpr TextView fileWord = u"ﾌｧｲﾙﾘｽﾄﾎﾞｯｸｽ";
constexpr TextView noFileText = u"現在のﾌｫﾙﾀﾞには該当ﾌｧｲﾙはありませんﾌｫﾙﾀﾞを変更してください";
/// What ".." is called; a reading program passes over points.
constexpr TextView folderAboveName = u"上のﾌｫﾙﾀﾞ";

/// A list as text functions.
int countOf(const std::vector<Text>& lines) {
    return static_cast<int>(lines.size());
}

/// Empty where there is no such line: a box may be painted before it has been told of a change.
Text lineOf(const std::vector<Text>& lines, int line) {
    return line >= 0 && line < countOf(lines) ? lines[static_cast<std::size_t>(line)] : Text();
}

} // namespace

FileBoxes::FileBoxes(const FormContext& context, SpokenForm& form, FolderBrowser& browser, Rules rules,
                     QWidget* parent)
    : QWidget(parent), context_(context), browser_(browser), rules_(std::move(rules)), path_(new QLabel(this)) {
    path_->setTextFormat(Qt::PlainText);
    path_->setWordWrap(true);
    addDrives(form);
    addFolders(form);
    addFiles(form);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(path_, 0, 0, 1, 2);
    layout->addWidget(Drive1, 1, 0);
    layout->addWidget(Dir1, 2, 0);
    layout->addWidget(File1, 1, 1, 2, 1);
    layout->setRowStretch(2, 1);
    layout->setColumnStretch(1, 1);
    Drive1->setMaximumHeight(4 * fontMetrics().lineSpacing());
    refresh();
    Drive1->refill(browser_.currentDrive());
}

void FileBoxes::addDrives(SpokenForm& form) {
    const auto& drives = browser_.drives();
    Drive1 = new SpokenList(context_,
                            {.count = [&drives] { return countOf(drives); },
                             .line = [&drives](int line) { return lineOf(drives, line); },
                             .typed = typing(driveAhead_, drives, Drive1),
                             .enter = [this] { confirm(browser_.changeDrive(Drive1->row())); }},
                            this);
    form.add(*Drive1, u"Drive1",
             {.label = Text(driveSentence),
              .accessibleName = u"ﾄﾞﾗｲﾌﾞ",
              .onFocus = [this, &form] {
                  // A medium may have been put in since the form was opened.
                  browser_.findDrives();
                  refresh();
                  form.announce(*Drive1);
              }});
}

void FileBoxes::addFolders(SpokenForm& form) {
    const auto& folders = browser_.folders();
    const auto spoken = [&folders](int line) {
        const Text name = lineOf(folders, line);
        return name == folderAbove ? name + Text(commaPause).append(folderAboveName) : name;
    };
    Dir1 = new SpokenList(context_,
                          {.count = [&folders] { return countOf(folders); },
                           .line = [&folders](int line) { return lineOf(folders, line); },
                           .spoken = spoken,
                           .typed = typing(folderAhead_, folders, Dir1),
                           .enter = [this] { confirm(browser_.changeFolder(Dir1->row())); }},
                          this);
    form.add(*Dir1, u"Dir1", {.label = Text(folderSentence), .accessibleName = u"ﾌｫﾙﾀﾞ"});
}

void FileBoxes::addFiles(SpokenForm& form) {
    const auto& files = browser_.files();
    const auto typed = [this, &files](char16_t unit) {
        const bool shared = rules_.sharesFirstLetter && rules_.sharesFirstLetter();
        return fileAhead_.type(unit, context_.zormod.platform.clock.secondsSinceMidnight(), files, File1->row(),
                               shared);
    };
    File1 = new SpokenList(context_,
                           {.count = [&files] { return countOf(files); },
                            .line = [&files](int line) { return lineOf(files, line); },
                            .spoken = [this, &files](int line) {
                                const Text name = lineOf(files, line);
                                return rules_.fileReading ? rules_.fileReading(name)
                                                          : name + Text(commaPause).append(fileWord);
                            },
                            .emptyText = Text(noFileText),
                            .moved = [this](int line) {
                                browser_.selectFile(line);
                                if (rules_.fileMoved) {
                                    rules_.fileMoved();
                                }
                            },
                            .typed = typed,
                            .enter = rules_.fileEnter,
                            .space = rules_.fileSpace,
                            .click = rules_.fileClick},
                           this);
    const auto reading = [this, &files] {
        if (files.empty()) {
            return Text(noFileText);
        }
        const Text name = browser_.selectedName();
        Text text;
        if (!name.empty()) {
            text = rules_.fileReading ? rules_.fileReading(name) : name + Text(commaPause);
        }
        return text.append(fileSentence);
    };
    form.add(*File1, u"File1", {.accessibleName = u"ﾌｧｲﾙ", .reading = reading});
}

std::function<std::optional<int>(char16_t)> FileBoxes::typing(TypeAhead& ahead, const std::vector<Text>& lines,
                                                              SpokenList* const& list) {
    return [this, &ahead, &lines, &list](char16_t unit) {
        return ahead.type(unit, context_.zormod.platform.clock.secondsSinceMidnight(), lines, list->row());
    };
}

void FileBoxes::confirm(bool changed) {
    refresh();
    if (!changed) {
        return;
    }
    sayThrottled(context_.zormod, browser_.changedText());
    if (rules_.folderChanged) {
        rules_.folderChanged();
    }
}

void FileBoxes::refresh() {
    if (shownRevision_ == browser_.revision()) {
        return;
    }
    shownRevision_ = browser_.revision();
    path_->setText(toQt(browser_.path()));
    Drive1->refill(browser_.currentDrive());
    Dir1->refill(browser_.folders().empty() ? -1 : browser_.startFolder());
    File1->refill(browser_.selectedFile());
}
