#include "platform/posix/background_close.h"

#include <system_error>
#include <thread>
#include <utility>

void closeInBackground(Descriptor file) {
    try {
        std::thread([held = std::move(file)] {}).detach();
    } catch (const std::system_error&) {
        // No thread to be had: the file has been closed here.
    }
}
