#pragma once
// A small client of the X server for tests: it asks for selections in every way that real programs do, and can own
// one and answer as it is told, also badly. It shares no code with the keeper.

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>
#include <xcb/xcb.h>

/// One connection with one window.
class XClient {
public:
    XClient();
    ~XClient();
    XClient(const XClient &) = delete;
    XClient &operator=(const XClient &) = delete;

    using Event = std::unique_ptr<xcb_generic_event_t, decltype(&std::free)>;
    struct Answer {
        std::string type; ///< name of the type's atom
        std::string bytes;
    };

    xcb_connection_t *raw() const { return connection_; }
    xcb_window_t window() const { return window_; }
    xcb_atom_t atom(const std::string &name) const;
    std::string nameOf(xcb_atom_t atom) const;
    xcb_window_t owner(const std::string &selection) const;
    /// Makes our window the owner; true if the server did so.
    bool own(const std::string &selection);
    /// The next event; nothing if none comes within five seconds.
    Event waitForEvent();

    /// Asks for the clipboard in one form; fetches nothing yet.
    void ask(const std::string &target, const std::string &property = "TEST_ANSWER");
    /// Waits for the notification of a question: the property of the answer, XCB_ATOM_NONE if refused or silent.
    xcb_atom_t waitForNotice();
    /// Takes an answer out of its property, piece by piece if it comes so.
    std::optional<Answer> take(xcb_atom_t property);
    /// Asks, waits and takes; nothing if refused.
    std::optional<Answer> fetch(const std::string &target);
    /// The atoms in an answer's bytes, by name.
    std::vector<std::string> names(const std::string &bytes) const;
    /// The property of our window as it stands; it stays there.
    Answer property(xcb_atom_t name, bool remove = false) const;
    /// True if a window, of whatever program, has the property.
    bool hasProperty(xcb_window_t window, xcb_atom_t name) const;

private:
    xcb_connection_t *connection_;
    xcb_window_t window_ = XCB_WINDOW_NONE;
};

/// Owns a selection on a thread of its own until it goes out of scope, which ends its connection.
class ForeignOwner {
public:
    using Behaviour = std::function<void(ForeignOwner &, const xcb_selection_request_event_t &)>;
    ForeignOwner(const std::string &selection, Behaviour behaviour);
    ~ForeignOwner();

    /// Answers a request with text in UTF-8.
    void answer(const xcb_selection_request_event_t &request, const std::string &text,
                const std::string &type = "UTF8_STRING");
    void refuse(const xcb_selection_request_event_t &request);
    XClient &client() { return client_; }

private:
    void notify(const xcb_selection_request_event_t &request, xcb_atom_t property);
    void serve();

    XClient client_;
    Behaviour behaviour_;
    std::atomic<bool> over_ = false;
    std::thread thread_;
};
