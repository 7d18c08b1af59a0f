#pragma once
// The one message that a test expects.

#include "support/doubles.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

/// Text and title of the only message since the last call. None, or more than one, fails the test.
inline std::pair<std::string, std::string> takeOnlyMessage(ScriptedDialogs& dialogs) {
    EXPECT_EQ(dialogs.messages.size(), 1U);
    if (dialogs.messages.empty()) {
        return {};
    }
    const auto last = dialogs.messages.back();
    dialogs.messages.clear();
    return {utf8(last.text), utf8(last.title)};
}
