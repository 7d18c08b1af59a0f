#include "platform/qt/focus_watch.h"

#include <QApplication>
#include <QWidget>

FocusWatch::FocusWatch(Rule rule)
    : connection_(QObject::connect(qApp, &QApplication::focusChanged, std::move(rule))) {}

FocusWatch::~FocusWatch() {
    QObject::disconnect(connection_);
}
