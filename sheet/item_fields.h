#pragma once
// The fields of a K file one by one, as all its readers take them (sheet/item_file.h has the form of the file). Called
// by the readers of the item table and of the design form; nothing here looks at what a field means.

#include "sheet/zormod.h"

/// Characters ahead of the text of a line: the label, a blank and the apostrophe.
inline constexpr std::size_t itemTextOffset = 6;

/// The decoded text of the K file at `path`. A file that can't be read, or that is much larger than any table could
/// need, is a RuntimeFailure of kind file.
Text itemFileContents(ZORMOD& zormod, const Text& path);

/// Takes fields from the front. Reading past the end is a RuntimeFailure of kind file.
class ItemFields {
public:
    explicit ItemFields(Text text) : text_(std::move(text)) {}
    /// The next field: up to a comma or a line end, without the blanks ahead of it.
    Text next();
    /// True when there is no field left.
    bool atEnd() const { return at_ >= text_.size(); }

private:
    Text text_;
    std::size_t at_ = 0;
};

/// The item name in the first field of an item line: characters 7 to 254, nothing where the field is shorter.
Text nameField(const Text& field);
/// The five characters of a width line that are looked at, 7 to 11.
Text widthField(const Text& field);
