#pragma once
// A list that is walked with the arrow keys and says its lines. It asks for each line when it needs it, so a list of
// ten thousand is as quick as one of ten. Nothing is selected until the user moves, so that no key acts on a line that
// was never heard. Forms with lists hold one for each and say what its lines are.

#include "platform/keys.h"
#include "platform/qt/form_context.h"
#include "platform/text.h"

#include <QListView>

#include <functional>
#include <optional>

/// A list box with a voice.
class SpokenList : public QListView {
    Q_OBJECT
public:
    /// What the list holds and does; each rule runs inside the guard. Lines are numbered from 0.
    struct Rules {
        std::function<int()> count;
        std::function<Text(int)> line;     ///< as shown
        std::function<Text(int)> spoken{}; ///< as said; without it as shown
        Text emptyText{};                  ///< said on a key that moves where there is no line
        std::function<void(int)> moved{};  ///< the user came to a line
        /// A character was typed: the line to go to.
        std::function<std::optional<int>(char16_t)> typed{};
        std::function<void()> enter{};     ///< Enter or a double click
        std::function<void()> space{};
        std::function<void()> click{};
    };

    SpokenList(const FormContext& context, Rules rules, QWidget* parent = nullptr);

    /// The line in force; -1: none.
    int row() const;
    /// The lines have changed; `row` is in force now. Nothing is said.
    void refill(int row);
    /// What is said of the line in force.
    Text spokenLine() const;

private:
    class Lines;
    KeyOutcome keyDown(const KeyStroke& stroke);
    KeyOutcome press(char16_t unit);
    void keyUp(const KeyStroke& stroke);
    void goTo(int row);
    int rowsOfAPage() const;

    FormContext context_;
    Rules rules_;
    Lines* lines_;
    bool movedByKey_ = false; ///< a key has moved; its key up says where to
    bool moving_ = false;     ///< the program or a key moves the line, not the mouse
};
