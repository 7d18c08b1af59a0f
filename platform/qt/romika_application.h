#pragma once
// The toolkit's application as this program uses it: the fixed-pitch Japanese font, key repeats that can be told from
// releases, and the last net under the handlers.

#include <QApplication>

class EventGuard;

/// The one application object; main and the desk tests make it first of all.
class RomikaApplication : public QApplication {
    Q_OBJECT
public:
    /// Makes the application with its font.
    RomikaApplication(int& argc, char** argv);

    /// Sets the guard that catches what a handler let through; null: nothing is caught.
    void setGuard(EventGuard* guard) { guard_ = guard; }
    bool notify(QObject* receiver, QEvent* event) override;

private:
    EventGuard* guard_ = nullptr;
};
