#pragma once
// The desktop's bell behind the interface Beeper. main makes one; tests count beeps with a double.

#include "platform/beeper.h"

/// Beeps with the bell of the desktop, as loud and long as its user has set it.
class DesktopBeeper : public Beeper {
public:
    void beep() override;
};
