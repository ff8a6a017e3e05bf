// SPDX-License-Identifier: MIT
#include "ui/shell/linux/X11PressWatcher.h"

#include <sys/uio.h>
#include <xcb/xcbext.h>

#include <QCoreApplication>
#include <QCursor>
#include <utility>

#include "ui/shell/linux/X11Connection.h"

namespace vtx {

namespace {

xcb_extension_t inputExtension{"XInputExtension", 0};

constexpr std::uint8_t selectEventsRequest = 46;
constexpr std::uint16_t rawButtonPress = 15;
constexpr std::uint16_t allMasterDevices = 1;
/// Buttons above these are turns of a wheel.
constexpr std::uint32_t lastClickButton = 3;

/// The request that says which events of a window are wanted, with one mask of one word.
struct SelectEvents {
    std::uint8_t majorOpcode = 0;  // filled in by the library, as is the length
    std::uint8_t minorOpcode = selectEventsRequest;
    std::uint16_t length = 0;
    std::uint32_t window = 0;
    std::uint16_t maskCount = 1;
    std::uint16_t padding = 0;
    std::uint16_t device = allMasterDevices;
    std::uint16_t maskWords = 1;
    std::uint32_t mask = 0;
};
static_assert(sizeof(SelectEvents) == 20);

/// The start of a raw button event.
struct RawPress {
    std::uint8_t responseType;
    std::uint8_t extension;
    std::uint16_t sequence;
    std::uint32_t length;
    std::uint16_t eventType;
    std::uint16_t device;
    std::uint32_t time;
    std::uint32_t button;
};

}  // namespace

X11PressWatcher::X11PressWatcher(X11Connection& x11)
    : x11_(x11), self_(std::make_shared<X11PressWatcher*>(this)) {
    const auto* extension = xcb_get_extension_data(x11_.get(), &inputExtension);
    if (extension && extension->present) opcode_ = extension->major_opcode;
}

X11PressWatcher::~X11PressWatcher() {
    *self_ = nullptr;
    if (pressed_) listen(false);
}

Subscription X11PressWatcher::watch(std::function<void(QPoint)> pressed) {
    if (opcode_ == 0) return {};
    if (!pressed_) listen(true);
    pressed_ = std::make_shared<std::function<void(QPoint)>>(std::move(pressed));
    return Subscription([self = self_, mine = pressed_] {
        X11PressWatcher* watcher = *self;
        if (!watcher || watcher->pressed_ != mine) return;
        watcher->pressed_.reset();
        watcher->listen(false);
    });
}

void X11PressWatcher::listen(bool on) {
    if (on) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    } else {
        QCoreApplication::instance()->removeNativeEventFilter(this);
    }
    SelectEvents request;
    request.window = x11_.root();
    request.mask = on ? 1U << rawButtonPress : 0;
    // The library writes the opcode and length into the first part, and uses two parts before it.
    iovec parts[3] = {{}, {}, {&request, sizeof(request)}};
    const xcb_protocol_request_t protocol{1, &inputExtension, selectEventsRequest, 1};
    xcb_send_request(x11_.get(), 0, &parts[2], &protocol);
    x11_.flush();
}

bool X11PressWatcher::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr*) {
    const auto* event = static_cast<const RawPress*>(message);
    if ((event->responseType & 0x7F) != XCB_GE_GENERIC || event->extension != opcode_) return false;
    if (event->eventType != rawButtonPress || event->button > lastClickButton) return false;
    if (const auto pressed = pressed_) (*pressed)(QCursor::pos());
    return false;
}

}  // namespace vtx
