// SPDX-License-Identifier: MIT
#include "ui/shell/linux/X11Connection.h"

#include <QGuiApplication>
#include <utility>

namespace vtx {

std::unique_ptr<X11Connection> X11Connection::ofToolkit() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection()) return nullptr;
    return std::make_unique<X11Connection>(x11->connection());
}

X11Connection::X11Connection(xcb_connection_t* connection)
    : connection_(connection), screen_(xcb_setup_roots_iterator(xcb_get_setup(connection)).data) {}

xcb_atom_t X11Connection::atom(const std::string& name) {
    const auto known = atoms_.find(name);
    if (known != atoms_.end()) return known->second;
    const auto cookie =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const XcbReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection_, cookie, nullptr));
    return atoms_.emplace(name, reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE}).first->second;
}

xcb_window_t X11Connection::selectionOwner(const std::string& name) {
    const auto cookie = xcb_get_selection_owner(connection_, atom(name));
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_, cookie, nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

void X11Connection::setAtoms(xcb_window_t window, const std::string& property,
                             const std::vector<std::string>& names) {
    std::vector<std::uint32_t> atoms;
    for (const auto& name : names) atoms.push_back(atom(name));
    set(window, property, XCB_ATOM_ATOM, atoms);
}

void X11Connection::setNumbers(xcb_window_t window, const std::string& property,
                               std::span<const std::uint32_t> numbers) {
    set(window, property, XCB_ATOM_CARDINAL, numbers);
}

void X11Connection::set(xcb_window_t window, const std::string& property, xcb_atom_t type,
                        std::span<const std::uint32_t> items) {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(property), type, 32,
                        static_cast<std::uint32_t>(items.size()), items.data());
}

void X11Connection::remove(xcb_window_t window, const std::string& property) {
    xcb_delete_property(connection_, window, atom(property));
}

void X11Connection::askManager(xcb_window_t window, const std::string& property,
                               std::uint32_t value) {
    constexpr std::uint32_t fromAnApplication = 1;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(property);
    message.data.data32[0] = value;
    message.data.data32[1] = fromAnApplication;
    xcb_send_event(connection_, 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
}

XcbReply<xcb_get_property_reply_t> X11Connection::get(xcb_window_t window,
                                                      const std::string& property, int itemBits) {
    constexpr std::uint32_t mostWords = 4096;
    const auto cookie = xcb_get_property(connection_, 0, window, atom(property),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, mostWords);
    XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, cookie, nullptr));
    return reply && reply->format == itemBits ? std::move(reply) : nullptr;
}

std::vector<std::uint32_t> X11Connection::numbers(xcb_window_t window,
                                                  const std::string& property) {
    const auto reply = get(window, property, 32);
    if (!reply) return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

std::string X11Connection::text(xcb_window_t window, const std::string& property) {
    const auto reply = get(window, property, 8);
    if (!reply) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
}

}  // namespace vtx
