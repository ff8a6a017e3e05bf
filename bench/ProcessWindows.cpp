// SPDX-License-Identifier: MIT
#include "ProcessWindows.h"

#include <sys/socket.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <span>
#include <stdexcept>

namespace vtx::bench {
namespace {

constexpr std::uint32_t longestProperty = 64;

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class T>
std::unique_ptr<T, Free> owned(T* reply) {
    return std::unique_ptr<T, Free>(reply);
}

xcb_connection_t* connected() {
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        throw std::runtime_error("no display answers");
    }
    return connection;
}

}  // namespace

ProcessWindows::ProcessWindows(pid_t process)
    : process_(process),
      x_(connected()),
      screen_(xcb_setup_roots_iterator(xcb_get_setup(x_)).data),
      root_(screen_->root) {}

ProcessWindows::~ProcessWindows() { xcb_disconnect(x_); }

std::optional<pid_t> ProcessWindows::server() const {
    ucred peer{};
    socklen_t size = sizeof peer;
    const int socket = xcb_get_file_descriptor(x_);
    if (getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0 || peer.pid <= 0)
        return std::nullopt;
    return peer.pid;
}

ProcessWindows::Windows ProcessWindows::shown() {
    Windows found;
    collect(root_, found);
    return found;
}

ProcessWindows::Windows ProcessWindows::surfaces() {
    Windows found = shown();
    std::erase_if(found, [this](auto one) { return isOfType(one, "_NET_WM_WINDOW_TYPE_TOOLTIP"); });
    return found;
}

std::optional<xcb_window_t> ProcessWindows::strip() {
    for (const auto window : shown()) {
        if (isOfType(window, "_NET_WM_WINDOW_TYPE_DOCK")) return window;
    }
    return std::nullopt;
}

bool ProcessWindows::isOfType(xcb_window_t window, std::string_view type) {
    const auto types = words(window, "_NET_WM_WINDOW_TYPE");
    return std::ranges::find(types, atom(std::string(type))) != types.end();
}

int ProcessWindows::width(xcb_window_t window) {
    const auto size = owned(xcb_get_geometry_reply(x_, xcb_get_geometry(x_, window), nullptr));
    return size ? size->width : 0;
}

std::optional<std::size_t> ProcessWindows::picture(xcb_window_t window, std::uint16_t columns) {
    const auto size = owned(xcb_get_geometry_reply(x_, xcb_get_geometry(x_, window), nullptr));
    if (!size) return std::nullopt;
    const auto image =
        owned(xcb_get_image_reply(x_,
                                  xcb_get_image(x_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0,
                                                std::min(size->width, columns), size->height, ~0U),
                                  nullptr));
    if (!image) return std::nullopt;
    const auto* first = reinterpret_cast<const char*>(xcb_get_image_data(image.get()));
    const auto length = static_cast<std::size_t>(xcb_get_image_data_length(image.get()));
    return std::hash<std::string_view>()({first, length});
}

void ProcessWindows::click(xcb_window_t window, std::uint8_t button) {
    constexpr double half = 0.5;
    pointAt(window, half, half);
    clickHere(button);
}

void ProcessWindows::pointAt(xcb_window_t window, double across, double down) {
    const auto size = owned(xcb_get_geometry_reply(x_, xcb_get_geometry(x_, window), nullptr));
    if (!size) throw std::runtime_error("a window went before it could be pointed at");
    const auto x = static_cast<std::int16_t>(size->width * across);
    const auto y = static_cast<std::int16_t>(size->height * down);
    const auto place = owned(xcb_translate_coordinates_reply(
        x_, xcb_translate_coordinates(x_, window, root_, x, y), nullptr));
    if (!place) throw std::runtime_error("a window went before it could be pointed at");
    input(XCB_MOTION_NOTIFY, 0, place->dst_x, place->dst_y);
}

void ProcessWindows::clickHere(std::uint8_t button) {
    input(XCB_BUTTON_PRESS, button);
    input(XCB_BUTTON_RELEASE, button);
}

void ProcessWindows::pointAway() {
    const auto bottom = static_cast<std::int16_t>(screen_->height_in_pixels - 1);
    input(XCB_MOTION_NOTIFY, 0, 1, bottom);
}

void ProcessWindows::press(std::uint32_t key) {
    const auto code = keyCode(key);
    input(XCB_KEY_PRESS, code);
    input(XCB_KEY_RELEASE, code);
}

void ProcessWindows::requestClose(xcb_window_t window) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom("WM_PROTOCOLS");
    event.data.data32[0] = atom("WM_DELETE_WINDOW");
    xcb_send_event(x_, 0, window, 0, reinterpret_cast<const char*>(&event));
    xcb_flush(x_);
}

xcb_atom_t ProcessWindows::atom(const std::string& name) {
    const auto length = static_cast<std::uint16_t>(name.size());
    const auto reply =
        owned(xcb_intern_atom_reply(x_, xcb_intern_atom(x_, 0, length, name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::vector<std::uint32_t> ProcessWindows::words(xcb_window_t window, std::string_view property) {
    const auto reply = owned(
        xcb_get_property_reply(x_,
                               xcb_get_property(x_, 0, window, atom(std::string(property)),
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty),
                               nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

bool ProcessWindows::isSeen(xcb_window_t window) {
    const auto attributes =
        owned(xcb_get_window_attributes_reply(x_, xcb_get_window_attributes(x_, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

/// A window manager may have put frames around them.
void ProcessWindows::collect(xcb_window_t parent, Windows& found) {
    const auto tree = owned(xcb_query_tree_reply(x_, xcb_query_tree(x_, parent), nullptr));
    if (!tree) return;
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    for (const auto child : children) {
        if (!isSeen(child)) continue;
        const auto owner = words(child, "_NET_WM_PID");
        if (owner.empty()) {
            collect(child, found);
        } else if (owner.front() == static_cast<std::uint32_t>(process_)) {
            found.insert(child);
        }
    }
}

std::uint8_t ProcessWindows::keyCode(std::uint32_t symbol) {
    const auto* setup = xcb_get_setup(x_);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto map = owned(xcb_get_keyboard_mapping_reply(
        x_, xcb_get_keyboard_mapping(x_, setup->min_keycode, count), nullptr));
    if (!map) throw std::runtime_error("the display told no keyboard");
    const std::span symbols(
        xcb_get_keyboard_mapping_keysyms(map.get()),
        static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(map.get())));
    const auto at = std::ranges::find(symbols, symbol);
    if (at == symbols.end()) throw std::runtime_error("the keyboard lacks a key");
    return static_cast<std::uint8_t>(setup->min_keycode +
                                     (at - symbols.begin()) / map->keysyms_per_keycode);
}

void ProcessWindows::input(std::uint8_t type, std::uint8_t detail, std::int16_t x, std::int16_t y) {
    xcb_test_fake_input(x_, type, detail, XCB_CURRENT_TIME, root_, x, y, 0);
    xcb_flush(x_);
}

}  // namespace vtx::bench
