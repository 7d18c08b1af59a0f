#include "edit/box_labels.h"

#include "voice/announcement.h"

namespace {

TextView nameOf(PanelField field) {
    switch (field) {
    case PanelField::txtREC:
        return u"行番号";
    case PanelField::txtItemnum:
        return u"こうもく番号";
    case PanelField::txtWIDTH:
        return u"項目幅";
    case PanelField::txtLR:
        return u"さゆう配置";
    case PanelField::Text1:
        return u"項目数";
    case PanelField::RichTextBox1:
        return u"項目名";
    case PanelField::RichTextBox2:
        return u"表メモ";
    case PanelField::txtinputbox:
        return u"データ入力";
    default:
        return {};
    }
}

} // namespace

Text sideBoxLabel(PanelField field) {
    return Text(nameOf(field)) += textBoxWord;
}

TextView readingKeyName(PanelField field) {
    switch (field) {
    case PanelField::txtREC:
        return u"記録番号テキストボックス";
    case PanelField::txtItemnum:
        return u"項目番号テキストボックス";
    default:
        return {};
    }
}
