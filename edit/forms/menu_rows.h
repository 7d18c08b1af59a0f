#pragma once
// The further rows of the menus. The toolkit's menu bar folds what finds no place in its row behind a button that no key
// reaches; here those menus stand in rows of their own beneath it, and Left and Right go through all rows as through
// one. Made by Form1, above its panel; it takes no room while the first row has place for all.

#include "edit/forms/menu_voice.h"
#include "platform/qt/focus_watch.h"

#include <QWidget>

class QMenuBar;
class QVBoxLayout;

/// The rows below `first`.
class MenuRows : public QWidget {
    Q_OBJECT
public:
    /// Follows the width of `first` from now on; `voice` speaks for the further rows too.
    MenuRows(QMenuBar& first, MenuVoice& voice, QWidget* parent);

    /// The first row and those below it, the unused ones too.
    const std::vector<QMenuBar*>& rows() const { return rows_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void arrange();
    QMenuBar& row(std::size_t number);
    bool goesOver(QMenuBar& from, int key);
    void focusMoved(QWidget* from, QWidget* to);
    bool isRow(const QWidget* widget) const;

    MenuVoice& voice_;
    QVBoxLayout* layout_;
    std::vector<QMenuBar*> rows_;
    QPointer<QWidget> focus_; ///< where the keyboard was before it went to the menus
    FocusWatch focusWatch_;
};
