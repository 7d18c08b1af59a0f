#include "platform/keeper/x_connection.h"

#include <algorithm>
#include <utility>

namespace {

template <class T> std::unique_ptr<T, FreeDeleter> owned(T *answer) {
    return std::unique_ptr<T, FreeDeleter>(answer);
}

const xcb_screen_t *screenAt(xcb_connection_t *connection, int number) {
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}

} // namespace

std::unique_ptr<XConnection> XConnection::open() {
    int screenNumber = 0;
    std::unique_ptr<XConnection> x(new XConnection(xcb_connect(nullptr, &screenNumber)));
    if (x->isBroken())
        return nullptr;
    const xcb_screen_t *screen = screenAt(x->connection_, screenNumber);
    if (screen == nullptr)
        return nullptr;
    x->makeWindow(*screen);
    x->findAtoms();
    // A chunk and the head of its request must fit into one request; larger chunks than this gain nothing.
    const std::size_t requestBytes = std::size_t{xcb_get_maximum_request_length(x->connection_)} * 4;
    x->chunkBytes_ = std::min<std::size_t>(requestBytes - 1024, 1u << 20);
    return x->isBroken() ? nullptr : std::move(x);
}

XConnection::~XConnection() {
    xcb_disconnect(connection_);
}

void XConnection::makeWindow(const xcb_screen_t &screen) {
    window_ = xcb_generate_id(connection_);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen.root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
}

void XConnection::findAtoms() {
    atoms_.clipboard = atom("CLIPBOARD");
    atoms_.clipboardManager = atom("CLIPBOARD_MANAGER");
    atoms_.targets = atom("TARGETS");
    atoms_.timestamp = atom("TIMESTAMP");
    atoms_.multiple = atom("MULTIPLE");
    atoms_.saveTargets = atom("SAVE_TARGETS");
    atoms_.incr = atom("INCR");
    atoms_.atomPair = atom("ATOM_PAIR");
    atoms_.null = atom("NULL");
    atoms_.utf8String = atom("UTF8_STRING");
    atoms_.text = atom("TEXT");
    atoms_.plainUtf8 = atom("text/plain;charset=utf-8");
    atoms_.plain = atom("text/plain");
    atoms_.time = atom("ROMIKA_TIME");
    atoms_.handover = atom("ROMIKA_HANDOVER");
}

xcb_atom_t XConnection::atom(const std::string &name) const {
    const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const auto answer = owned(xcb_intern_atom_reply(connection_, cookie, nullptr));
    return answer ? answer->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

XEvent XConnection::nextEvent() {
    if (waiting_.empty())
        return XEvent(xcb_poll_for_event(connection_));
    XEvent event = std::move(waiting_.front());
    waiting_.pop_front();
    return event;
}

bool XConnection::settle() {
    // Any request with an answer does; this is the smallest.
    return owned(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr)) != nullptr;
}

std::optional<xcb_timestamp_t> XConnection::serverTime() {
    // Appending nothing to a property of ours is the way to be told the time; the round trip behind it makes sure
    // that the telling has arrived.
    xcb_change_property(connection_, XCB_PROP_MODE_APPEND, window_, atoms_.time, XCB_ATOM_INTEGER, 32, 0, nullptr);
    const bool lives = settle();
    std::optional<xcb_timestamp_t> time;
    while (XEvent event{xcb_poll_for_queued_event(connection_)}) {
        const auto &change = as<xcb_property_notify_event_t>(*event);
        if (kindOf(*event) == XCB_PROPERTY_NOTIFY && change.window == window_ && change.atom == atoms_.time)
            time = change.time;
        else
            waiting_.push_back(std::move(event));
    }
    return lives ? time : std::nullopt;
}

std::optional<xcb_window_t> XConnection::selectionOwner(xcb_atom_t selection) {
    const auto cookie = xcb_get_selection_owner(connection_, selection);
    const auto answer = owned(xcb_get_selection_owner_reply(connection_, cookie, nullptr));
    return answer ? std::optional(answer->owner) : std::nullopt;
}

std::optional<Property> XConnection::property(xcb_window_t window, xcb_atom_t name, std::size_t limit, bool remove) {
    const auto cookie = xcb_get_property(connection_, remove ? 1 : 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0,
                                         static_cast<std::uint32_t>((limit + 3) / 4));
    const auto answer = owned(xcb_get_property_reply(connection_, cookie, nullptr));
    if (!answer)
        return std::nullopt;
    const auto *bytes = static_cast<const char *>(xcb_get_property_value(answer.get()));
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(answer.get()));
    return Property{answer->type, answer->format, std::string(bytes, length), answer->bytes_after == 0};
}

void XConnection::setProperty(xcb_window_t window, xcb_atom_t name, xcb_atom_t type,
                              std::span<const std::uint32_t> elements) {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, name, type, 32,
                        static_cast<std::uint32_t>(elements.size()), elements.data());
}
