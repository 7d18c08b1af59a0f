#pragma once
// The toolkit's application as this program uses it: the fixed-pitch Japanese font, key repeats that can be told from
// releases, and the last net under the handlers.

#include <QApplication>

class EventGuard;

/// Height of the program's letters in pixels where those of the desktop are `desktop` high: never smaller than is easily
/// read, and even, because half-width characters are exactly half as wide as full-width ones at even heights only.
constexpr int letterPixels(int desktop) {
    constexpr int least = 16;
    return desktop <= least ? least : (desktop + 1) / 2 * 2;
}

/// The one application object; main and the desk tests make it first of all.
class RomikaApplication : public QApplication {
    Q_OBJECT
public:
    /// Makes the application with its font, as large as the desktop's.
    RomikaApplication(int& argc, char** argv);

    /// Sets the guard that catches what a handler let through; null: nothing is caught.
    void setGuard(EventGuard* guard) { guard_ = guard; }
    bool notify(QObject* receiver, QEvent* event) override;

private:
    EventGuard* guard_ = nullptr;
};
