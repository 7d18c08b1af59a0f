#include "edit/table_memo.h"

#include "sheet/item_file.h"

#include <utility>

void keepTypedMemo(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (!edit.typedMemo || zormod.file.tableMemo == *edit.typedMemo) {
        edit.typedMemo.reset();
        return;
    }
    const Text old = std::exchange(zormod.file.tableMemo, *edit.typedMemo);
    edit.RichTextBox2 = *edit.typedMemo;
    writeItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive);
    if (zormod.writeFlag.empty()) {
        edit.typedMemo.reset();
    } else {
        zormod.file.tableMemo = old; // what was typed stays in the box, and leaving it again writes it
    }
}
