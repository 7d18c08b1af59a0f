#pragma once
// The choice of the items that take input: Enter then goes from one to the next of them only. Form5 shows the choice,
// one line an item; the panel's labels and two menu entries start it and lead back to all items.

#include "edit/edit_screen.h"
#include "platform/checked_array.h"

/// The choice, from the opening of Form5 to its end. Items count from 0, the ID item.
class ItemsToInput {
public:
    /// From now on the marked items alone take input.
    explicit ItemsToInput(EditScreen& edit);

    int count() const;
    /// The item's line as shown: "Y" or a blank, the number in five columns, the name.
    Text line(int item) const;
    /// What is said when the user comes to the item.
    Text spokenLine(int item) const;
    /// Marks the item or takes its mark away, and says so through the throttle. Beeps at -1, no line.
    void toggle(int item);

    /// OK: the marks are in force. A current item without a mark gives way to the first marked one, what is typed going
    /// into its cell first. Without any mark all items take input again.
    void accept();
    /// Everything is as it was before the form.
    void cancel();

    /// The label of the form.
    static TextView instruction();
    /// What the form says when it opens.
    static Text openingText();

private:
    bool isMarked(int item) const;
    Text name(int item) const;

    EditScreen& edit_;
    std::int16_t allBefore_;
    CheckedArray<std::int16_t, itemEntries> marksBefore_;
};

/// All items take input if none of the table's items is marked any more: Enter must find one to go to.
void takeAllIfNoneIsMarked(ZORMOD& zormod);

/// The menu entry: opens Form5.
void mnuItem(EditScreen& edit);
/// The menu entry: all items take input.
void mnuWHOLE(EditScreen& edit);
/// A click on Label6: from all items to Form5, or back to all items. While a task runs it only beeps.
void toggleItemsToInput(EditScreen& edit);
