#pragma once
// The clip file and the backup of the last paste as the pastes read them: opened as file 3, field by field, whatever
// their length. A number that isn't one is 0; a file that ends too early is a RuntimeFailure of kind file.

#include "sheet/quoted_fields.h"
#include "sheet/zormod.h"

#include <optional>

/// The backup of the last paste, in the current folder. Two spellings of it are in use and mean one file.
inline constexpr TextView clipBackupName = u"ZORCLip.bak";

/// A clip file or a backup that is being read; file 3 is closed with the object.
class ClipSource {
public:
    /// Opens `name`. Empty if there is no such file or it can't be opened; the user has been told then.
    static std::unique_ptr<ClipSource> open(ZORMOD& zormod, TextView name);
    ~ClipSource();
    ClipSource(const ClipSource&) = delete;
    ClipSource& operator=(const ClipSource&) = delete;

    /// The next field as text.
    Text text();
    /// The next field as a number of 32 bits; one that is too large is a failure of kind overflow.
    std::int32_t number();
    /// The text of the next line, cut at a double quote in it.
    Text line();
    void skipLine() { fields_->nextOfLine(); }
    void skip(std::int64_t count) { fields_->skip(count); }
    bool atEnd() { return fields_->atEnd(); }
    /// Goes back to the front.
    void rewind();

private:
    Text whole(const Bytes& field) const;

    explicit ClipSource(ZORMOD& zormod) : zormod_(zormod) { rewind(); }

    ZORMOD& zormod_;
    std::optional<QuotedFields> fields_;
};
