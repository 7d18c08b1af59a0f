#pragma once
// What a widget holds, as its announcement needs it. The one place that knows which kinds of widget there are.

#include "voice/announcement.h"
#include "voice/line_reading.h"

class KeyTextEdit;
class QString;
class QWidget;

/// Contents, caption and state of a text box, a button, a check box or a label.
SpokenControl spokenControl(const QWidget& control);

/// A caption as it is heard: without the marks before access keys.
Text spokenCaption(const QString& caption);

/// The word for the kind of a widget, by which a label without words of its own is made; empty for a plain label.
TextView kindWord(const QWidget& control);

/// Where the caret of a box of several lines stands, as its readings need it.
LinePlace linePlace(const KeyTextEdit& box);

/// True if the user types text into this kind of control.
bool takesText(const QWidget& control);
