// SPDX-License-Identifier: MIT
#include "support/ClientWindow.h"

#include "support/Eventually.h"

namespace vtx::e2e {

ClientWindow::ClientWindow(const XDisplay& display)
    : display_(display), id_(xcb_generate_id(display.connection())) {
    constexpr std::int16_t at = 40;
    constexpr std::uint16_t width = 200, height = 100;
    xcb_create_window(display_.connection(), XCB_COPY_FROM_PARENT, id_, display_.root(), at, at,
                      width, height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0,
                      nullptr);
}

ClientWindow::~ClientWindow() {
    xcb_destroy_window(display_.connection(), id_);
    xcb_flush(display_.connection());
}

void ClientWindow::belongTo(std::uint32_t pid) const {
    xcb_change_property(display_.connection(), XCB_PROP_MODE_REPLACE, id_,
                        display_.atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1, &pid);
}

void ClientWindow::runOn(const std::string& machine) const {
    xcb_change_property(display_.connection(), XCB_PROP_MODE_REPLACE, id_,
                        XCB_ATOM_WM_CLIENT_MACHINE, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(machine.size()), machine.data());
}

void ClientWindow::askForFront() const {
    constexpr std::uint32_t asThePanel = 2;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = id_;
    event.type = display_.atom("_NET_ACTIVE_WINDOW");
    event.data.data32[0] = asThePanel;
    xcb_send_event(display_.connection(), 0, display_.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(display_.connection());
}

bool ClientWindow::comesToFront() const {
    xcb_map_window(display_.connection(), id_);
    // Again if need be: one that shows while the window manager starts is not brought to the front.
    constexpr Span untilAgain{500};
    return eventually([this, untilAgain] {
        askForFront();
        return eventually([this] { return display_.activeWindow() == id_; }, untilAgain);
    });
}

}  // namespace vtx::e2e
