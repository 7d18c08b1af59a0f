#include "platform/keeper/selection_keeper.h"

#include "platform/utf8.h"

#include <array>
#include <cstring>
#include <utility>
#include <vector>

bool SelectionKeeper::take(std::string utf8) {
    const auto time = x_.serverTime();
    if (!time)
        return false;
    xcb_set_selection_owner(x_.raw(), x_.window(), x_.atoms().clipboard, *time);
    text_ = std::make_shared<const std::string>(std::move(utf8));
    ownedSince_ = *time;
    return isOwner();
}

bool SelectionKeeper::empty() {
    const auto time = x_.serverTime();
    if (!time)
        return false;
    text_.reset();
    xcb_set_selection_owner(x_.raw(), XCB_WINDOW_NONE, x_.atoms().clipboard, *time);
    return x_.selectionOwner(x_.atoms().clipboard) == xcb_window_t{XCB_WINDOW_NONE};
}

bool SelectionKeeper::isOwner() {
    if (text_ && x_.selectionOwner(x_.atoms().clipboard) != x_.window())
        text_.reset();
    return text_ != nullptr;
}

void SelectionKeeper::answer(const xcb_selection_request_event_t &request, TimePoint now) {
    // The request's time is not compared with the time of our ownership: who asks with the time of an earlier key
    // gets the present text, while a refusal would let a paste or a spoken text silently come to nothing.
    const Atoms &atoms = x_.atoms();
    const xcb_atom_t property = request.property != XCB_ATOM_NONE ? request.property : request.target;
    bool done = text_ != nullptr && request.selection == atoms.clipboard && request.requestor != x_.window();
    if (done && request.target == atoms.multiple)
        done = request.property != XCB_ATOM_NONE && provideMany(request.requestor, property, now);
    else if (done)
        done = provide(request.requestor, request.target, property, now);

    // The server reads 32 bytes of every event, more than this one has.
    std::array<char, 32> bytes{};
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.time = request.time;
    notice.requestor = request.requestor;
    notice.selection = request.selection;
    notice.target = request.target;
    notice.property = done ? property : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    std::memcpy(bytes.data(), &notice, sizeof notice);
    xcb_send_event(x_.raw(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, bytes.data());
}

bool SelectionKeeper::provide(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property, TimePoint now) {
    const Atoms &atoms = x_.atoms();
    if (target == atoms.targets) {
        const std::array<std::uint32_t, 9> targets{atoms.targets,     atoms.timestamp,  atoms.multiple,
                                                   atoms.saveTargets, atoms.utf8String, atoms.plainUtf8,
                                                   atoms.plain,       XCB_ATOM_STRING,  atoms.text};
        x_.setProperty(requestor, property, XCB_ATOM_ATOM, targets);
        return true;
    }
    if (target == atoms.timestamp) {
        x_.setProperty(requestor, property, XCB_ATOM_INTEGER, {&ownedSince_, 1});
        return true;
    }
    if (target == atoms.saveTargets) {
        x_.setProperty(requestor, property, atoms.null, {});
        return true;
    }
    if (target == atoms.utf8String || target == atoms.plainUtf8 || target == atoms.plain)
        return provideText(requestor, target, property, text_, now);
    if (target == atoms.text)
        return provideText(requestor, atoms.utf8String, property, text_, now);
    if (target == XCB_ATOM_STRING) {
        return provideText(requestor, XCB_ATOM_STRING, property,
                           std::make_shared<const std::string>(latin1FromUtf8(*text_)), now);
    }
    return false;
}

bool SelectionKeeper::provideMany(xcb_window_t requestor, xcb_atom_t property, TimePoint now) {
    constexpr std::size_t mostBytes = 4096;
    const auto wanted = x_.property(requestor, property, mostBytes, false);
    if (!wanted || !wanted->isWhole || wanted->format != 32 || wanted->bytes.size() % 8 != 0)
        return false;
    std::vector<std::uint32_t> atoms(wanted->bytes.size() / 4);
    std::memcpy(atoms.data(), wanted->bytes.data(), wanted->bytes.size());
    for (std::size_t i = 0; i + 1 < atoms.size(); i += 2) {
        if (atoms[i + 1] == XCB_ATOM_NONE || !provide(requestor, atoms[i], atoms[i + 1], now))
            atoms[i + 1] = XCB_ATOM_NONE;
    }
    x_.setProperty(requestor, property, x_.atoms().atomPair, atoms);
    return true;
}

bool SelectionKeeper::provideText(xcb_window_t requestor, xcb_atom_t type, xcb_atom_t property, SharedBytes bytes,
                                  TimePoint now) {
    if (bytes->size() > x_.chunkBytes())
        return transfers_.start(requestor, property, type, std::move(bytes), now);
    xcb_change_property(x_.raw(), XCB_PROP_MODE_REPLACE, requestor, property, type, 8,
                        static_cast<std::uint32_t>(bytes->size()), bytes->data());
    return true;
}

bool SelectionKeeper::offerToManager() {
    const Atoms &atoms = x_.atoms();
    const auto manager = x_.selectionOwner(atoms.clipboardManager);
    const auto time = x_.serverTime();
    if (!manager || *manager == XCB_WINDOW_NONE || !time)
        return false;
    const std::array<std::uint32_t, 2> worthSaving{atoms.utf8String, XCB_ATOM_STRING};
    x_.setProperty(x_.window(), atoms.handover, XCB_ATOM_ATOM, worthSaving);
    xcb_convert_selection(x_.raw(), x_.window(), atoms.clipboardManager, atoms.saveTargets, atoms.handover, *time);
    return true;
}
