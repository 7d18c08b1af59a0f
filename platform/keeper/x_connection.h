#pragma once
// A helper program's own connection to the X server: one window that is never shown, the atoms, the events in their
// order, and the few requests that need an answer at once. Used by the keeper and the reading program. It knows nothing
// of texts.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <xcb/xcb.h>

/// An event or an answer of the X server; libxcb allocates them with malloc.
struct FreeDeleter {
    void operator()(void *memory) const { std::free(memory); }
};
using XEvent = std::unique_ptr<xcb_generic_event_t, FreeDeleter>;

/// The atoms that are not predefined.
struct Atoms {
    xcb_atom_t clipboard, clipboardManager, targets, timestamp, multiple, saveTargets, incr, atomPair, null;
    xcb_atom_t utf8String, text, plainUtf8, plain;
    xcb_atom_t time, handover; ///< properties of our own window
};

/// The contents of a property.
struct Property {
    xcb_atom_t type = XCB_ATOM_NONE;
    std::uint8_t format = 0; ///< bits of one element: 8, 16 or 32
    std::string bytes{};     ///< elements of 32 bits stand in the machine's order
    bool isWhole = true;     ///< false: it was longer than the limit, is cut, and was not removed
};

/// A connection to the X server that DISPLAY names.
class XConnection {
public:
    /// Connects and makes the window; nullptr if there is no X server.
    static std::unique_ptr<XConnection> open();

    ~XConnection();
    XConnection(const XConnection &) = delete;
    XConnection &operator=(const XConnection &) = delete;

    xcb_connection_t *raw() const { return connection_; }
    xcb_window_t window() const { return window_; }
    const Atoms &atoms() const { return atoms_; }
    /// The descriptor that becomes readable when the server has something to say.
    int descriptor() const { return xcb_get_file_descriptor(connection_); }
    /// True once the server is gone; every call is harmless then.
    bool isBroken() const { return xcb_connection_has_error(connection_) != 0; }
    /// The most bytes that are put into a property at once.
    std::size_t chunkBytes() const { return chunkBytes_; }

    /// The atom of a name; XCB_ATOM_NONE if the server is gone.
    xcb_atom_t atom(const std::string &name) const;
    /// The oldest event that was not yet handed out; nullptr if there is none. Never waits.
    XEvent nextEvent();
    /// Sends what is waiting to be sent.
    void flush() { xcb_flush(connection_); }
    /// Sends what is waiting and returns when the server has carried everything out. False if the server is gone.
    bool settle();

    /// The server's present time, as selections must be stamped with; nothing if the server is gone.
    std::optional<xcb_timestamp_t> serverTime();
    /// The window that owns a selection, XCB_WINDOW_NONE if nobody does; nothing if the server is gone.
    std::optional<xcb_window_t> selectionOwner(xcb_atom_t selection);
    /// Reads at most `limit` bytes of a property; with `remove` it is removed if it was read whole. Nothing if the
    /// window or the server is gone. A property that does not exist reads as type XCB_ATOM_NONE.
    std::optional<Property> property(xcb_window_t window, xcb_atom_t name, std::size_t limit, bool remove);
    /// Sets a property of 32-bit elements.
    void setProperty(xcb_window_t window, xcb_atom_t name, xcb_atom_t type, std::span<const std::uint32_t> elements);

private:
    explicit XConnection(xcb_connection_t *connection) : connection_(connection) {}
    void makeWindow(const xcb_screen_t &screen);
    void findAtoms();

    xcb_connection_t *connection_;
    xcb_window_t window_ = XCB_WINDOW_NONE;
    Atoms atoms_{};
    std::size_t chunkBytes_ = 0;
    std::deque<XEvent> waiting_;
};

/// The event's kind, whether the server or another program sent it.
inline int kindOf(const xcb_generic_event_t &event) {
    return event.response_type & 0x7f;
}

/// The event as what its kind says it is.
template <class Event> const Event &as(const xcb_generic_event_t &event) {
    return reinterpret_cast<const Event &>(event);
}
