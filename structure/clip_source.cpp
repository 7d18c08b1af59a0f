#include "structure/clip_source.h"

#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "sheet/record_file.h"

namespace {

std::unique_ptr<RandomFile> openIfThere(ZORMOD& zormod, const Text& path) {
    try {
        return zormod.platform.files.exists(path) ? zormod.platform.files.openRandom(path) : nullptr;
    } catch (const RuntimeFailure&) {
        return nullptr; // a folder of that name, or a file that may not be read: for the user there is none
    }
}

} // namespace

std::unique_ptr<ClipSource> ClipSource::open(ZORMOD& zormod, TextView name) {
    auto file = openIfThere(zormod, Text(name));
    if (!file) {
        zormod.platform.dialogs.showMessage(u"張り付けるべきｸﾘｯﾌﾟﾌｧｲﾙがありません", u"クリップファイルなし");
        return nullptr;
    }
    zormod.files.byNumber[3] = std::move(file);
    return std::unique_ptr<ClipSource>(new ClipSource(zormod));
}

ClipSource::~ClipSource() { closeFile(zormod_, 3); }

Text ClipSource::text() { return whole(fields_->next()); }

Text ClipSource::line() { return whole(fields_->nextOfLine()); }

Text ClipSource::whole(const Bytes& field) const {
    if (fields_->isCut()) {
        throw RuntimeFailure{FailureKind::file};
    }
    return zormod_.platform.codePage.decode(field);
}

std::int32_t ClipSource::number() { return roundTo32(Val(text())); }

void ClipSource::rewind() { fields_.emplace(*zormod_.files.byNumber[3]); }
