#pragma once
// Tells a widget of each move of the focus. The toolkit takes the focus from what is being destroyed and tells of that as
// well, when the widget's own part has gone already; as a member of the widget the watch has ended by then.

#include <QMetaObject>

#include <functional>

class QWidget;

/// Runs a rule at each move of the focus in the program, as long as it lives.
class FocusWatch {
public:
    /// `from` and `to` are null where the focus comes from outside the program or goes there.
    using Rule = std::function<void(QWidget* from, QWidget* to)>;
    explicit FocusWatch(Rule rule);
    ~FocusWatch();
    FocusWatch(const FocusWatch&) = delete;
    FocusWatch& operator=(const FocusWatch&) = delete;

private:
    QMetaObject::Connection connection_;
};
