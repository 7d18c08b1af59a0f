#pragma once
// The only crossing between the toolkit's strings and ours. Both are UTF-16, so nothing is lost either way.

#include "platform/text.h"

#include <QString>

/// A text as the toolkit takes it.
inline QString toQt(TextView text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

/// A string of the toolkit as our text.
inline Text fromQt(const QString& string) {
    return string.toStdU16String();
}
