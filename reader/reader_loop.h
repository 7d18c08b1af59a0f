#pragma once
// The loops of the reading program: watching until the desktop or a signal ends it, and speaking one text to its end.
// Called by main and by the check. Everything happens on one thread, and nothing in it waits but the poll here.

#include "reader/clipboard_watch.h"
#include "reader/event_log.h"
#include "reader/speaker.h"

#include <functional>

/// Watches the clipboard and has its texts spoken until SIGTERM, SIGINT or SIGHUP comes or the X server is gone.
/// `ready` is called once it is known that texts will be spoken. False if no engine is there at all.
bool watchClipboard(ClipboardWatch& clipboard, Speaker& speaker, EventLog& log, const std::function<void()>& ready);

/// Speaks a text to its end. False if no engine could, or no sound device.
bool speakToTheEnd(Speaker& speaker, const std::string& text);

/// Waits until one of `watched` has news or `deadline` comes, if there is one.
void waitForNews(std::vector<pollfd>& watched, std::optional<TimePoint> deadline);
