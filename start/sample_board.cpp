#include "start/sample_board.h"

void copy000(ZORMOD& zormod) {
    const Text& folder = zormod.file.programFolder;
    try {
        zormod.platform.files.copy(folder + u"サンプル試験結果.0__", folder + u"サンプル試験結果.000");
    } catch (const RuntimeFailure&) {
        return;
    }
}
