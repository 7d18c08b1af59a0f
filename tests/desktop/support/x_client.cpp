#include "tests/desktop/support/x_client.h"

#include <array>
#include <chrono>
#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <utility>

namespace {

template <class T> std::unique_ptr<T, decltype(&std::free)> owned(T *answer) {
    return {answer, &std::free};
}

} // namespace

XClient::XClient() : connection_(xcb_connect(nullptr, nullptr)) {
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    window_ = xcb_generate_id(connection_);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection_);
}

XClient::~XClient() {
    xcb_disconnect(connection_);
}

xcb_atom_t XClient::atom(const std::string &name) const {
    const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    return owned(xcb_intern_atom_reply(connection_, cookie, nullptr))->atom;
}

std::string XClient::nameOf(xcb_atom_t atom) const {
    const auto answer = owned(xcb_get_atom_name_reply(connection_, xcb_get_atom_name(connection_, atom), nullptr));
    if (!answer)
        return {};
    return {xcb_get_atom_name_name(answer.get()),
            static_cast<std::size_t>(xcb_get_atom_name_name_length(answer.get()))};
}

xcb_window_t XClient::owner(const std::string &selection) const {
    const auto cookie = xcb_get_selection_owner(connection_, atom(selection));
    return owned(xcb_get_selection_owner_reply(connection_, cookie, nullptr))->owner;
}

bool XClient::own(const std::string &selection) {
    xcb_set_selection_owner(connection_, window_, atom(selection), XCB_CURRENT_TIME);
    return owner(selection) == window_;
}

XClient::Event XClient::waitForEvent() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    xcb_flush(connection_);
    while (std::chrono::steady_clock::now() < deadline && xcb_connection_has_error(connection_) == 0) {
        if (Event event = owned(xcb_poll_for_event(connection_)))
            return event;
        pollfd watched{xcb_get_file_descriptor(connection_), POLLIN, 0};
        poll(&watched, 1, 50);
    }
    return owned<xcb_generic_event_t>(nullptr);
}

void XClient::ask(const std::string &target, const std::string &property) {
    xcb_convert_selection(connection_, window_, atom("CLIPBOARD"), atom(target), atom(property), XCB_CURRENT_TIME);
    xcb_flush(connection_);
}

xcb_atom_t XClient::waitForNotice() {
    while (const Event event = waitForEvent()) {
        if ((event->response_type & 0x7f) == XCB_SELECTION_NOTIFY)
            return reinterpret_cast<const xcb_selection_notify_event_t &>(*event).property;
    }
    return XCB_ATOM_NONE;
}

XClient::Answer XClient::property(xcb_atom_t name, bool remove) const {
    const auto cookie =
        xcb_get_property(connection_, remove ? 1 : 0, window_, name, XCB_GET_PROPERTY_TYPE_ANY, 0, 1u << 24);
    const auto answer = owned(xcb_get_property_reply(connection_, cookie, nullptr));
    return {nameOf(answer->type), std::string(static_cast<const char *>(xcb_get_property_value(answer.get())),
                                              static_cast<std::size_t>(xcb_get_property_value_length(answer.get())))};
}

bool XClient::hasProperty(xcb_window_t window, xcb_atom_t name) const {
    const auto cookie = xcb_get_property(connection_, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    const auto answer = owned(xcb_get_property_reply(connection_, cookie, nullptr));
    return answer && answer->type != XCB_ATOM_NONE;
}

std::optional<XClient::Answer> XClient::take(xcb_atom_t name) {
    Answer answer = property(name, true);
    if (answer.type != "INCR")
        return answer;
    answer.bytes.clear();
    xcb_flush(connection_);
    while (const Event event = waitForEvent()) {
        const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(*event);
        if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY || change.atom != name ||
            change.state != XCB_PROPERTY_NEW_VALUE)
            continue;
        const Answer piece = property(name, true);
        // The announcement itself is seen as a change too, and has been taken away already.
        if (piece.type.empty())
            continue;
        answer.type = piece.type;
        if (piece.bytes.empty())
            return answer;
        answer.bytes += piece.bytes;
    }
    return std::nullopt;
}

std::optional<XClient::Answer> XClient::fetch(const std::string &target) {
    ask(target);
    const xcb_atom_t answered = waitForNotice();
    return answered == XCB_ATOM_NONE ? std::nullopt : take(answered);
}

std::vector<std::string> XClient::names(const std::string &bytes) const {
    std::vector<std::uint32_t> atoms(bytes.size() / 4);
    std::memcpy(atoms.data(), bytes.data(), atoms.size() * 4);
    std::vector<std::string> found;
    for (const std::uint32_t each : atoms)
        found.push_back(nameOf(each));
    return found;
}

ForeignOwner::ForeignOwner(const std::string &selection, Behaviour behaviour) : behaviour_(std::move(behaviour)) {
    if (!client_.own(selection))
        throw std::runtime_error("the selection could not be owned");
    thread_ = std::thread([this] { serve(); });
}

ForeignOwner::~ForeignOwner() {
    over_ = true;
    thread_.join();
}

void ForeignOwner::serve() {
    xcb_connection_t *connection = client_.raw();
    while (!over_) {
        while (const XClient::Event event = owned(xcb_poll_for_event(connection))) {
            if ((event->response_type & 0x7f) == XCB_SELECTION_REQUEST)
                behaviour_(*this, reinterpret_cast<const xcb_selection_request_event_t &>(*event));
        }
        xcb_flush(connection);
        pollfd watched{xcb_get_file_descriptor(connection), POLLIN, 0};
        poll(&watched, 1, 5);
    }
}

void ForeignOwner::answer(const xcb_selection_request_event_t &request, const std::string &text,
                          const std::string &type) {
    xcb_change_property(client_.raw(), XCB_PROP_MODE_REPLACE, request.requestor, request.property, client_.atom(type),
                        8, static_cast<std::uint32_t>(text.size()), text.data());
    notify(request, request.property);
}

void ForeignOwner::refuse(const xcb_selection_request_event_t &request) {
    notify(request, XCB_ATOM_NONE);
}

void ForeignOwner::notify(const xcb_selection_request_event_t &request, xcb_atom_t property) {
    std::array<char, 32> bytes{};
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = request.time;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.property = property;
    std::memcpy(bytes.data(), &notice, sizeof notice);
    xcb_send_event(client_.raw(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, bytes.data());
    xcb_flush(client_.raw());
}
