// SPDX-License-Identifier: MIT
#include "support/XDisplay.h"

#include <QImage>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <stdexcept>

namespace vtx::e2e {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using Reply = std::unique_ptr<T, Free>;

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;

}  // namespace

XDisplay::XDisplay(const std::string& display)
    : connection_(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(connection_) != 0)
        throw std::runtime_error("no connection to the display " + display);
    const xcb_screen_t* first = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    root_ = first->root;
    screen_ = {0, 0, first->width_in_pixels, first->height_in_pixels};
}

XDisplay::~XDisplay() { xcb_disconnect(connection_); }

xcb_atom_t XDisplay::atom(const std::string& name) const {
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection_,
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : 0;
}

std::vector<std::uint8_t> XDisplay::property(xcb_window_t window, const std::string& name) const {
    constexpr std::uint32_t mostWords = 4096;
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_,
                               xcb_get_property(connection_, 0, window, atom(name),
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, mostWords),
                               nullptr));
    if (!reply) return {};
    const auto* bytes = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
    return {bytes, bytes + xcb_get_property_value_length(reply.get())};
}

std::vector<std::uint32_t> XDisplay::numbers(xcb_window_t window, const std::string& name) const {
    const auto bytes = property(window, name);
    std::vector<std::uint32_t> found(bytes.size() / sizeof(std::uint32_t));
    if (!found.empty()) std::memcpy(found.data(), bytes.data(), found.size() * sizeof(found[0]));
    return found;
}

std::vector<xcb_window_t> XDisplay::clients() const { return numbers(root_, "_NET_CLIENT_LIST"); }

xcb_window_t XDisplay::clientOfType(const std::string& type) const {
    const xcb_atom_t wanted = atom("_NET_WM_WINDOW_TYPE_" + type);
    for (const xcb_window_t client : clients()) {
        const auto types = numbers(client, "_NET_WM_WINDOW_TYPE");
        if (!types.empty() && types.front() == wanted) return client;
    }
    return 0;
}

xcb_window_t XDisplay::popupOf(const std::string& program) const {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr));
    if (!tree) return 0;
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    for (const xcb_window_t window : std::span(first, tree->children_len)) {
        if (!showsUnmanaged(window)) continue;
        const auto name = property(window, "WM_CLASS");  // the program's, a zero byte, its class
        if (std::string(name.begin(), std::ranges::find(name, 0)) == program) return window;
    }
    return 0;
}

bool XDisplay::showsUnmanaged(xcb_window_t window) const {
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window), nullptr));
    return reply && reply->override_redirect && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::string XDisplay::title(xcb_window_t window) const {
    const auto bytes = property(window, "_NET_WM_NAME");
    return {bytes.begin(), bytes.end()};
}

Place XDisplay::place(xcb_window_t window) const {
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
    const Reply<xcb_translate_coordinates_reply_t> at(xcb_translate_coordinates_reply(
        connection_, xcb_translate_coordinates(connection_, window, root_, 0, 0), nullptr));
    if (!size || !at) return {};
    return {at->dst_x, at->dst_y, size->width, size->height};
}

xcb_window_t XDisplay::activeWindow() const {
    const auto active = numbers(root_, "_NET_ACTIVE_WINDOW");
    return active.empty() ? 0 : active.front();
}

bool XDisplay::isShown(xcb_window_t window) const {
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

void XDisplay::goToDesktop(std::uint32_t desktop) const {
    askManager(root_, "_NET_CURRENT_DESKTOP", desktop);
}

void XDisplay::putOnEveryDesktop(xcb_window_t window) const {
    askManager(window, "_NET_WM_DESKTOP", everyDesktop);
}

bool XDisplay::isOnEveryDesktop(xcb_window_t window) const {
    return numbers(window, "_NET_WM_DESKTOP") == std::vector{everyDesktop};
}

void XDisplay::askManager(xcb_window_t window, const std::string& property,
                          std::uint32_t value) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(property);
    message.data.data32[0] = value;
    xcb_send_event(connection_, 0, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection_);
}

void XDisplay::giveKeyboardTo(xcb_window_t window) const {
    xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_NONE, window, XCB_CURRENT_TIME);
    xcb_flush(connection_);
}

bool XDisplay::savePicture(const std::filesystem::path& file) const {
    const auto width = static_cast<std::uint16_t>(screen_.width);
    const auto height = static_cast<std::uint16_t>(screen_.height);
    const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(
        connection_,
        xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_, 0, 0, width, height, ~0U),
        nullptr));
    if (!image || xcb_get_image_data_length(image.get()) < screen_.width * screen_.height * 4)
        return false;
    std::filesystem::create_directories(file.parent_path());
    const QImage picture(xcb_get_image_data(image.get()), screen_.width, screen_.height,
                         QImage::Format_RGB32);
    return picture.save(QString::fromStdString(file.string()), "PNG");
}

}  // namespace vtx::e2e
