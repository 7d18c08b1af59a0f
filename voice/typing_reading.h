#pragma once
// How a change of a text box is put into words. Texts are compared, not keys: what is told is what really became of
// the text.

#include "sheet/zormod.h"

/// What was inserted, removed or replaced between `before` and `now`: the characters with " 挿入", " 削除" or
/// " うわがき"; an addition at the very end has no word.
Text describeTextChange(TextView before, TextView now);

/// describeTextChange and the bytes left in the current item: " ざん", bytes, "バイト".
Text describeInputChange(const ZORMOD& zormod, TextView before, TextView now);

/// " ざん", the bytes of the current item that `boxText` leaves free, "バイト". May be negative.
Text remainingBytes(const ZORMOD& zormod, TextView boxText);

/// `reading` with its first character replaced by that character's name if `before` and `now` differ in length by
/// exactly one; otherwise `reading` as it is.
Text withCharacterName(Text reading, TextView before, TextView now);

/// The change event of any text box other than the input box: says the change through the throttle. Equal texts say
/// nothing.
void sayTextChange(ZORMOD& zormod, TextView before, TextView now);
