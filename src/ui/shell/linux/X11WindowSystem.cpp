// SPDX-License-Identifier: MIT
#include "ui/shell/linux/X11WindowSystem.h"

#include <xcb/shape.h>

#include <QPainterPath>
#include <QTransform>
#include <QWidget>
#include <QtMath>
#include <algorithm>
#include <limits>
#include <string_view>

#include "ui/kit/Paint.h"
#include "ui/shell/NativeWindowSystem.h"
#include "ui/shell/linux/X11PressWatcher.h"

namespace vtx {

namespace {

/// What `_NET_WM_DESKTOP` says of a window that is on all of them.
constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;

xcb_window_t handle(const QWidget& window) {
    return static_cast<xcb_window_t>(window.internalWinId());
}

/// The older property has no ranges: it means the whole side.
Strut widened(const std::vector<std::uint32_t>& sides) {
    Strut strut{};
    std::ranges::copy_n(sides.begin(), 4, strut.begin());
    for (const std::size_t last : {5U, 7U, 9U, 11U}) strut[last] = std::numeric_limits<int>::max();
    return strut;
}

}  // namespace

std::unique_ptr<WindowSystem> nativeWindowSystem() {
    if (auto x11 = X11Connection::ofToolkit())
        return std::make_unique<X11WindowSystem>(std::move(x11));
    return std::make_unique<WindowSystem>();
}

X11WindowSystem::X11WindowSystem(std::unique_ptr<X11Connection> connection)
    : x11_(std::move(connection)), presses_(std::make_unique<X11PressWatcher>(*x11_)) {}

X11WindowSystem::~X11WindowSystem() = default;

bool X11WindowSystem::blendsWindows() const {
    return x11_->selectionOwner("_NET_WM_CM_S0") != XCB_WINDOW_NONE;
}

void X11WindowSystem::makeStrip(QWidget& window) {
    const xcb_window_t id = handle(window);
    x11_->setAtoms(id, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
    x11_->setNumbers(id, "_NET_WM_DESKTOP", {&everyDesktop, 1});
    x11_->setAtoms(id, "_NET_WM_STATE",
                   {"_NET_WM_STATE_STICKY", "_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR",
                    "_NET_WM_STATE_SKIP_PAGER"});
}

void X11WindowSystem::stripShown(QWidget& window) {
    // The toolkit asks for the focus at every click unless it believes that the window takes none.
    // The window manager may give it nevertheless, when the user goes there by keyboard.
    constexpr std::uint32_t inputHint = 1, takesInput = 1;
    const xcb_window_t id = handle(window);
    auto hints = x11_->numbers(id, "WM_HINTS");
    hints.resize(9);
    hints[0] |= inputHint;
    hints[1] = takesInput;
    xcb_change_property(x11_->get(), XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_HINTS,
                        XCB_ATOM_WM_HINTS, 32, static_cast<std::uint32_t>(hints.size()),
                        hints.data());
    x11_->flush();
}

void X11WindowSystem::makePopover(QWidget& window) {
    const xcb_window_t id = handle(window);
    x11_->setAtoms(id, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_UTILITY"});
    x11_->setAtoms(
        id, "_NET_WM_STATE",
        {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"});
}

void X11WindowSystem::bringHere(QWidget& window) {
    const auto desktop = x11_->numbers(x11_->root(), "_NET_CURRENT_DESKTOP");
    const xcb_window_t id = handle(window);
    if (desktop.empty() || id == XCB_WINDOW_NONE) return;
    if (!window.isVisible())
        x11_->setNumbers(id, "_NET_WM_DESKTOP", std::span(desktop).first(1));
    else if (isElsewhere(id))
        x11_->askManager(id, "_NET_WM_DESKTOP", desktop.front());
}

bool X11WindowSystem::isElsewhere(xcb_window_t window) const {
    const auto current = x11_->numbers(x11_->root(), "_NET_CURRENT_DESKTOP");
    const auto its = x11_->numbers(window, "_NET_WM_DESKTOP");
    return !current.empty() && !its.empty() && its.front() != everyDesktop &&
           its.front() != current.front();
}

bool X11WindowSystem::knowsAllWindows() const {
    constexpr std::string_view compositor = "XWAYLAND";
    const XcbReply<xcb_query_extension_reply_t> behind(xcb_query_extension_reply(
        x11_->get(), xcb_query_extension(x11_->get(), compositor.size(), compositor.data()),
        nullptr));
    return !(behind && behind->present) && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

void X11WindowSystem::makeFloating(QWidget& window) {
    makeStrip(window);
    x11_->setAtoms(handle(window), "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_UTILITY"});
}

void X11WindowSystem::cutOut(QWidget& window, const QPainterPath& path) {
    const xcb_window_t id = handle(window);
    if (id == XCB_WINDOW_NONE) return WindowSystem::cutOut(window, path);
    const qreal scale = window.devicePixelRatioF();
    const QSize size(qCeil(window.width() * scale), qCeil(window.height() * scale));
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect& part : paint::maskOf(QTransform::fromScale(scale, scale).map(path), size)) {
        rectangles.push_back(
            {static_cast<std::int16_t>(part.x()), static_cast<std::int16_t>(part.y()),
             static_cast<std::uint16_t>(part.width()), static_cast<std::uint16_t>(part.height())});
    }
    xcb_shape_rectangles(x11_->get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                         XCB_CLIP_ORDERING_YX_BANDED, id, 0, 0,
                         static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
    x11_->flush();
}

void X11WindowSystem::reserve(QWidget& window, const std::optional<Strut>& strut) {
    const xcb_window_t id = handle(window);
    if (id == XCB_WINDOW_NONE) return;
    if (strut) {
        x11_->setNumbers(id, "_NET_WM_STRUT_PARTIAL", *strut);
        x11_->setNumbers(id, "_NET_WM_STRUT", std::span(*strut).first(4));
    } else {
        x11_->remove(id, "_NET_WM_STRUT_PARTIAL");
        x11_->remove(id, "_NET_WM_STRUT");
    }
    x11_->flush();
}

std::vector<Strut> X11WindowSystem::reservations(const QWidget& except) const {
    std::vector<Strut> all;
    for (const xcb_window_t id : x11_->numbers(x11_->root(), "_NET_CLIENT_LIST")) {
        if (id == handle(except)) continue;
        const auto partial = x11_->numbers(id, "_NET_WM_STRUT_PARTIAL");
        if (partial.size() >= 12) {
            std::ranges::copy_n(partial.begin(), 12, all.emplace_back().begin());
            continue;
        }
        const auto sides = x11_->numbers(id, "_NET_WM_STRUT");
        if (sides.size() >= 4) all.push_back(widened(sides));
    }
    return all;
}

bool X11WindowSystem::worksElsewhere(const QWidget& ours) const {
    const auto active = x11_->numbers(x11_->root(), "_NET_ACTIVE_WINDOW");
    if (active.empty()) return true;
    if (active.front() != XCB_WINDOW_NONE) return active.front() != handle(ours);
    // An empty desktop, too, is a place to turn to.
    return isElsewhere(handle(ours)) || !knowsAllWindows();
}

Subscription X11WindowSystem::watchPresses(std::function<void(QPoint)> pressed) {
    return presses_->watch(std::move(pressed));
}

}  // namespace vtx
