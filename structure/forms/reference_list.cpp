#include "structure/forms/reference_list.h"

#include "platform/letter_case.h"
#include "platform/name_pattern.h"
#include "platform/qt/guard.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/qt_text.h"
#include "structure/design_reference.h"
#include "structure/table_design.h"
#include "voice/speech_channel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

constexpr TextView folderAbove = u"..";

Text currentLine(const QListWidget& box) {
    return box.currentItem() == nullptr ? Text() : fromQt(box.currentItem()->text());
}

/// `folder` and the folder `name` in it, or the folder above.
Text walked(const Text& folder, const Text& name) {
    const bool isRoot = folder.back() == u'\\';
    if (name != folderAbove) {
        return folder + (isRoot ? u"" : u"\\") + name;
    }
    const Text above = folder.substr(0, folder.rfind(u'\\'));
    return above.size() == 2 ? above + u"\\" : above;
}

} // namespace

ReferenceList::ReferenceList(const FormContext& context, SpokenForm& form, TableDesign& design,
                             std::function<void()> taken, QWidget* parent)
    : QWidget(parent), context_(context), form_(form), design_(design), taken_(std::move(taken)),
      path_(new QLabel(this)) {
    const auto line = [](QListWidget* const& box) { return [&box] { return currentLine(*box); }; };
    Drive1 = addBox(u"Drive1", u"ﾄﾞﾗｲﾌﾞ", [this] { changeDrive(); }, line(Drive1));
    Dir1 = addBox(u"Dir1", u"ﾌｫﾙﾀﾞ", [this] { changeFolder(); }, line(Dir1));
    File1 = addBox(u"File1", u"ﾌｧｲﾙ", [this] { takeFile(); }, [this] { return fileReading(); });
    auto* boxes = new QHBoxLayout;
    boxes->addWidget(Drive1, 1);
    boxes->addWidget(Dir1, 2);
    boxes->addWidget(File1, 3);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(path_);
    layout->addLayout(boxes);
    hide();
}

void ReferenceList::start() {
    std::vector<Text> drives = context_.zormod.platform.files.drives();
    for (Text& drive : drives) {
        drive = lowerCase(drive) + u":";
    }
    fill(*Drive1, drives);
    showFolder(design_.dir1);
    form_.giveFocus(*File1);
}

QListWidget* ReferenceList::addBox(const char16_t* name, TextView label, std::function<void()> rule,
                                   std::function<Text()> reading) {
    auto* box = new QListWidget(this);
    form_.add(*box, name, {.label = Text(label), .accessibleName = Text(label), .reading = std::move(reading)});
    KeyTap::of(*box, context_).onKeyDown([rule](const KeyStroke& stroke) {
        if (stroke != plainKey(Key::enter) && stroke != plainKey(Key::space)) {
            return KeyOutcome::goesOn;
        }
        rule();
        return KeyOutcome::taken;
    });
    connect(box, &QListWidget::currentRowChanged, this,
            [this, box] { context_.guard.run([&] { form_.announce(*box); }); });
    connect(box, &QListWidget::itemDoubleClicked, this, context_.guard.wrap(std::move(rule)));
    return box;
}

void ReferenceList::showFolder(const Text& folder) {
    FolderContents contents = context_.zormod.platform.files.folderContents(folder);
    std::erase_if(contents.files, [](const Text& name) { return !fitsPattern(name, referencePattern); });
    if (folder.back() != u'\\') {
        contents.folders.insert(contents.folders.begin(), Text(folderAbove));
    }
    design_.dir1 = folder;
    path_->setText(toQt(folder));
    fill(*Dir1, contents.folders);
    fill(*File1, contents.files);
}

void ReferenceList::fill(QListWidget& box, const std::vector<Text>& lines) {
    const QSignalBlocker silent(box);
    box.clear();
    for (const Text& line : lines) {
        box.addItem(toQt(line));
    }
    box.setCurrentRow(0);
}

Text ReferenceList::fileReading() const {
    const Text name = currentLine(*File1);
    return name.empty() ? Text(noReferences) : referenceReading(context_.zormod, design_.dir1, name);
}

void ReferenceList::changeDrive() {
    const Text drive = currentLine(*Drive1).substr(0, 1);
    if (!drive.empty()) {
        showFolder(drive + u":\\");
        design_.drive1 = drive + u":";
        form_.announce(*File1);
    }
}

void ReferenceList::changeFolder() {
    const Text name = currentLine(*Dir1);
    if (!name.empty()) {
        showFolder(walked(design_.dir1, name));
        sayThrottled(context_.zormod, design_.dir1);
    }
}

void ReferenceList::takeFile() {
    const Text name = currentLine(*File1);
    if (name.empty()) {
        sayThrottled(context_.zormod, Text(noReferences));
        return;
    }
    takeReference(design_, name);
    taken_();
}
