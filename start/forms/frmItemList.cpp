#include "start/forms/frmItemList.h"

#include "platform/qt/key_button.h"
#include "platform/qt/qt_text.h"
#include "start/item_list.h"
#include "voice/forms/spoken_list.h"
#include "voice/speech_channel.h"

#include <QLabel>
#include <QVBoxLayout>

frmItemList::frmItemList(const FormContext& context, QWidget* parent)
    : SpokenDialog(context, {.description = [&context] { return itemListEntrance(context.zormod.items); },
                             .opening = [] { return Text(); }},
                   parent) {
    const ItemTable& items = context.zormod.items;
    setObjectName(u"frmItemList");
    setWindowTitle(QStringLiteral("項目一覧"));
    auto* list = new SpokenList(
        context, {.count = [&items] { return items.itemCount + 1; },
                  .line = [&items](int line) { return itemLine(items, line); },
                  .spoken = [&items](int line) { return itemLine(items, line) + Text(commaPause).append(itemListWord); }});
    auto* count = new QLabel(toQt(itemCountLabel(items)));
    count->setObjectName(u"Label1");
    auto* back = new KeyButton(QStringLiteral("消去戻る(esc)"), context);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list);
    layout->addWidget(count);
    layout->addWidget(back);
    resize(480, 480);

    // Entering the list says the whole sentence, on opening too: the form has no opening text besides.
    spoken().add(*list, u"List1", {.accessibleName = u"項目一覧", .reading = [&items] { return itemListEntrance(items); }});
    spoken().add(*back, u"Command1");
    spoken().onKeyDown([this](const KeyStroke& stroke) {
        if (stroke == plainKey(Key::escape)) {
            reject();
            return KeyOutcome::taken;
        }
        return KeyOutcome::goesOn;
    });
    back->onClick([this] { accept(); });
    list->setFocus();
}
