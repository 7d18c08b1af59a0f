#include "data/tools/guide_source.h"

#include <gtest/gtest.h>

TEST(GuideSource, BecomesShiftJisWithCrLf) {
    const CodePage codePage;
    EXPECT_EQ(guideFileOf(codePage, "案内\n\nｱ Ctrl+J\n"), codePage.encode(u"案内\r\n\r\nｱ Ctrl+J\r\n"));
}

TEST(GuideSource, ALineHasFortyColumnsAtMost) {
    std::string twenty;
    for (int i = 0; i < 20; ++i) {
        twenty += "あ";
    }
    EXPECT_NO_THROW(guideFileOf(CodePage(), twenty + "\n"));
    EXPECT_THROW(guideFileOf(CodePage(), twenty + "a\n"), SourceError);
}

TEST(GuideSource, ABlankAtTheEndOfALineIsRefused) {
    EXPECT_THROW(guideFileOf(CodePage(), "案内 \n"), SourceError);
    EXPECT_THROW(guideFileOf(CodePage(), "案内\u3000\n"), SourceError);
}
