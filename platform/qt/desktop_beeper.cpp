#include "platform/qt/desktop_beeper.h"

#include <QApplication>

void DesktopBeeper::beep() { QApplication::beep(); }
