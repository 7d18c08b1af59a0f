#include "output/forms/print_talk.h"

#include "output/pdf_target.h"
#include "voice/announcement.h"

PrintTalk printTalk(ZORMOD& zormod) {
    return {.announceDialog = [&zormod] { talkS(zormod, u"印刷ダイアログです。CRで印刷、escで中止します"); },
            .askPdfPath = [&zormod] { return askPdfPath(zormod); },
            .pdfWritten = [&zormod](const Text& path) { tellPdfWritten(zormod, path); }};
}
