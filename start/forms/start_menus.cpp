#include "start/forms/start_menus.h"

#include "start/model_files.h"

MenuTable startMenus() {
    MenuGroup empty{u"menuMODEL", u"モデルファイル", {}};
    MenuGroup filled{u"menuSAMPLE", u"記入済みファイル例", {}};
    for (const Model& model : models()) {
        MenuGroup& group = isSample(model.number) ? filled : empty;
        group.entries.push_back({Text(model.entry), Text(model.caption), {}});
    }
    return {
        {u"mnuSINKI", u"新規作成", {}}, {u"mnuKiSON", u"既存ファイル", {}}, {u"mnuSYURYOU", u"終了", {}},
        std::move(empty),               std::move(filled),                  {u"mnuH", u"ヘルプ", {}},
    };
}
