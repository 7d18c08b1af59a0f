#include "output/forms/print_talk.h"

#include "output/pdf_target.h"
#include "voice/announcement.h"
#include "voice/forms/modal_runner.h"

#include <QDialog>

PrintTalk printTalk(const FormContext& context) {
    ZORMOD& zormod = context.zormod;
    const auto runDialog = [&context, &zormod](QDialog& dialog) {
        // The desktop's dialog has no voice of ours.
        talkS(zormod, u"印刷ダイアログです。CRで印刷、escで中止します");
        return context.modals.run(dialog) == QDialog::Accepted;
    };
    return {.runDialog = runDialog,
            .askPdfPath = [&zormod] { return askPdfPath(zormod); },
            .keepPdf = [&zormod](const Text& path, BytesView bytes) { keepPdf(zormod, path, bytes); }};
}
