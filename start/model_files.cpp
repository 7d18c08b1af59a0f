#include "start/model_files.h"

#include "platform/beeper.h"
#include "platform/forms.h"
#include "start/table_opening.h"

namespace {

/// Copies the data file first: were the K file there without it, the next opening would take the pair for complete.
void copyFromSources(ZORMOD& zormod, const Model& model, const Text& itemFile, const Text& dataFile) {
    Files& files = zormod.platform.files;
    const Text& folder = zormod.file.programFolder;
    if (!files.exists(dataFile)) {
        files.copy(folder + Text(model.dataSource), dataFile);
    }
    files.copy(folder + Text(model.itemSource), itemFile);
}

} // namespace

const std::vector<Model>& models() {
    static const std::vector<Model> all = {
        {1, u"Picture1", u"mnuKAKEI", u"家計簿", u"家計簿.txt", u"km1.___", u"m1.___"},
        {2, u"Picture2", u"mnuad", u"アドレス帖", u"アドレス帖.txt", u"km2.___", u"m2.___"},
        {3, u"Picture3", u"mnuS10", u"20バイト10項目集計表", u"20バイト10項目集計表.txt", u"ks10.___", u"s10.___"},
        {4, u"Picture4", u"mnuS50", u"4バイト50項目集計表", u"4バイト50項目集計表.txt", u"ks50.___", u"s50.___"},
        {5, u"Picture5", u"mnuS100", u"2バイト100項目集計表", u"2バイト100項目集計表.txt", u"ks100.___", u"s100.___"},
        {6, u"Picture6", u"mnuG1", u"1行40バイト原稿用紙", u"1行40バイト原稿用紙.txt", u"kg40.___", u"g40.___"},
        {100, u"", u"mnuE1", u"サンプル住所録", u"サンプル住所録.txt", u"kサンプル住所録.___", u"サンプル住所録.___"},
        {101, u"", u"mnuE2", u"サンプル試験結果", u"サンプル試験結果.txt", u"kサンプル試験結果.___", u"サンプル試験結果.___"},
    };
    return all;
}

const Model& modelOf(int number) {
    for (const Model& model : models()) {
        if (model.number == number) {
            return model;
        }
    }
    throw RuntimeFailure{FailureKind::subscript};
}

Result openModel(ZORMOD& zormod, int number) {
    const Model& model = modelOf(number);
    const Text& folder = zormod.file.programFolder;
    const Text dataFile = folder + Text(model.dataFile);
    const Text itemFile = folder + u"k" + Text(model.dataFile);
    if (!zormod.platform.files.exists(itemFile)) {
        try {
            copyFromSources(zormod, model, itemFile, dataFile);
        } catch (const RuntimeFailure&) {
            return u"雛型なし";
        }
    }
    const std::size_t colon = dataFile.find(u':');
    if (!openInsteadOfOld(zormod, dataFile.substr(colon + 1), dataFile.substr(0, colon))) {
        zormod.platform.beeper.beep();
        return {};
    }
    zormod.platform.forms.close(u"FrmLunch");
    showTableOnScreen(zormod);
    return {};
}
