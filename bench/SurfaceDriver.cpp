// SPDX-License-Identifier: MIT
#include "SurfaceDriver.h"

#include <fmt/format.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <limits>
#include <optional>
#include <set>
#include <span>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <vector>

namespace vtx::bench {
namespace {

constexpr auto patience = std::chrono::seconds(10);
constexpr auto glance = std::chrono::milliseconds(20);
/// How long a surface is looked at: a second's reading arrives meanwhile.
constexpr auto look = std::chrono::seconds(2);
/// Between two looks at what is to be timed.
constexpr auto blink = std::chrono::milliseconds(1);
/// A picture that stays for so long is whole.
constexpr auto still = std::chrono::milliseconds(120);
/// The left edge of a popover in pixels: every card begins in it, and no figure or chart changes
/// it.
constexpr std::uint16_t steadyEdge = 25;
constexpr std::uint32_t longestProperty = 64;
constexpr std::uint8_t leftButton = 1;
constexpr std::uint8_t rightButton = 3;
constexpr std::uint32_t escapeKey = 0xFF1B;
constexpr std::uint32_t returnKey = 0xFF0D;
constexpr std::uint32_t downKey = 0xFF54;
constexpr std::uint32_t digitZeroKey = 0x30;
/// Steps from no entry of the strip's menu to those that open the dashboard and show the widget.
constexpr int stepsToDashboard = 3;
constexpr int stepsToWidget = 5;
/// A section is looked at for so long before the next one.
constexpr auto section = std::chrono::milliseconds(600);

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class T>
std::unique_ptr<T, Free> owned(T* reply) {
    return std::unique_ptr<T, Free>(reply);
}

void await(std::string_view what, const std::function<bool()>& happened) {
    const auto limit = std::chrono::steady_clock::now() + patience;
    while (!happened()) {
        if (std::chrono::steady_clock::now() > limit) {
            throw std::runtime_error(fmt::format("{} within {} s", what, patience.count()));
        }
        std::this_thread::sleep_for(glance);
    }
}

}  // namespace

/// The display as one process's windows on it.
class SurfaceDriver::Display {
public:
    using Windows = std::set<xcb_window_t>;

    explicit Display(pid_t process) : process_(process), x_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(x_) != 0) {
            xcb_disconnect(x_);
            throw std::runtime_error("no display answers");
        }
        root_ = xcb_setup_roots_iterator(xcb_get_setup(x_)).data->root;
    }
    ~Display() { xcb_disconnect(x_); }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// The windows of the process that can be seen.
    [[nodiscard]] Windows shown() {
        Windows found;
        collect(root_, found);
        return found;
    }

    [[nodiscard]] std::optional<xcb_window_t> strip() {
        const auto dock = atom("_NET_WM_WINDOW_TYPE_DOCK");
        for (const auto window : shown()) {
            const auto types = words(window, "_NET_WM_WINDOW_TYPE");
            if (std::ranges::find(types, dock) != types.end()) return window;
        }
        return std::nullopt;
    }

    /// A digest of the window's picture, or of the first `columns` of it.
    [[nodiscard]] std::optional<std::size_t> picture(
        xcb_window_t window, std::uint16_t columns = std::numeric_limits<std::uint16_t>::max()) {
        const auto size = owned(xcb_get_geometry_reply(x_, xcb_get_geometry(x_, window), nullptr));
        if (!size) return std::nullopt;
        const auto image = owned(
            xcb_get_image_reply(x_,
                                xcb_get_image(x_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0,
                                              std::min(size->width, columns), size->height, ~0U),
                                nullptr));
        if (!image) return std::nullopt;
        const auto* first = reinterpret_cast<const char*>(xcb_get_image_data(image.get()));
        const auto length = static_cast<std::size_t>(xcb_get_image_data_length(image.get()));
        return std::hash<std::string_view>()({first, length});
    }

    /// Whether it is of more than one colour.
    [[nodiscard]] bool isPainted(xcb_window_t window) {
        const auto size = owned(xcb_get_geometry_reply(x_, xcb_get_geometry(x_, window), nullptr));
        if (!size) return false;
        const auto image =
            owned(xcb_get_image_reply(x_,
                                      xcb_get_image(x_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0,
                                                    size->width, size->height, ~0U),
                                      nullptr));
        if (!image) return false;
        const auto* first = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
        const std::span pixels(
            first,
            static_cast<std::size_t>(xcb_get_image_data_length(image.get())) / sizeof *first);
        return std::ranges::adjacent_find(pixels, std::not_equal_to()) != pixels.end();
    }

    /// The left edge of the one window that is shown besides those.
    [[nodiscard]] std::optional<std::size_t> edgeBesides(const Windows& others) {
        for (const auto window : shown())
            if (!others.contains(window)) return picture(window, steadyEdge);
        return std::nullopt;
    }

    /// In the window's middle.
    void click(xcb_window_t window, std::uint8_t button) {
        const auto size = owned(xcb_get_geometry_reply(x_, xcb_get_geometry(x_, window), nullptr));
        if (!size) throw std::runtime_error("a window went before it could be clicked");
        const auto middle = owned(xcb_translate_coordinates_reply(
            x_,
            xcb_translate_coordinates(x_, window, root_, static_cast<std::int16_t>(size->width / 2),
                                      static_cast<std::int16_t>(size->height / 2)),
            nullptr));
        if (!middle) throw std::runtime_error("a window went before it could be clicked");
        input(XCB_MOTION_NOTIFY, 0, middle->dst_x, middle->dst_y);
        input(XCB_BUTTON_PRESS, button);
        input(XCB_BUTTON_RELEASE, button);
    }

    void press(std::uint32_t symbol) {
        const auto code = keyCode(symbol);
        input(XCB_KEY_PRESS, code);
        input(XCB_KEY_RELEASE, code);
    }

    /// As the window manager's close button does.
    void requestClose(xcb_window_t window) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = atom("WM_PROTOCOLS");
        event.data.data32[0] = atom("WM_DELETE_WINDOW");
        xcb_send_event(x_, 0, window, 0, reinterpret_cast<const char*>(&event));
        xcb_flush(x_);
    }

    /// When the window that comes besides those was first seen as it stays.
    std::chrono::steady_clock::time_point awaitPainted(std::chrono::steady_clock::time_point since,
                                                       const Windows& before) {
        using Clock = std::chrono::steady_clock;
        const auto limit = since + patience;
        std::optional<std::size_t> seen;
        while (!seen || Clock::now() - since < still) {
            if (Clock::now() > limit) throw std::runtime_error("the popover did not open");
            std::this_thread::sleep_for(blink);
            const auto now = shown();
            const auto popover =
                std::ranges::find_if(now, [&](auto one) { return !before.contains(one); });
            if (popover == now.end()) continue;
            const auto image = picture(*popover, steadyEdge);
            if (!image || image == seen) continue;
            seen = image;
            since = Clock::now();
        }
        return since;
    }

private:
    xcb_atom_t atom(std::string_view name) {
        const auto length = static_cast<std::uint16_t>(name.size());
        const auto reply =
            owned(xcb_intern_atom_reply(x_, xcb_intern_atom(x_, 0, length, name.data()), nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    std::vector<std::uint32_t> words(xcb_window_t window, std::string_view property) {
        const auto reply = owned(
            xcb_get_property_reply(x_,
                                   xcb_get_property(x_, 0, window, atom(property),
                                                    XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty),
                                   nullptr));
        if (!reply || reply->format != 32) return {};
        const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
        return {first, first + reply->value_len};
    }

    bool isSeen(xcb_window_t window) {
        const auto attributes = owned(
            xcb_get_window_attributes_reply(x_, xcb_get_window_attributes(x_, window), nullptr));
        return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    /// A window manager may have put frames around them.
    void collect(xcb_window_t parent, Windows& found) {
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

    std::uint8_t keyCode(std::uint32_t symbol) {
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

    void input(std::uint8_t type, std::uint8_t detail, std::int16_t x = 0, std::int16_t y = 0) {
        xcb_test_fake_input(x_, type, detail, XCB_CURRENT_TIME, root_, x, y, 0);
        xcb_flush(x_);
    }

    pid_t process_;
    xcb_connection_t* x_;
    xcb_window_t root_ = 0;
};

SurfaceDriver::SurfaceDriver(pid_t process) : display_(std::make_unique<Display>(process)) {}

SurfaceDriver::~SurfaceDriver() = default;

void SurfaceDriver::awaitStrip() {
    await("no strip was shown", [this] { return display_->strip().has_value(); });
}

std::chrono::steady_clock::time_point SurfaceDriver::awaitPaintedStrip() {
    using Clock = std::chrono::steady_clock;
    for (const auto limit = Clock::now() + patience; Clock::now() < limit;) {
        const auto strip = display_->strip();
        if (strip && display_->isPainted(*strip)) return Clock::now();
        std::this_thread::sleep_for(blink);
    }
    throw std::runtime_error("no strip was painted");
}

std::optional<std::size_t> SurfaceDriver::stripPicture() {
    const auto strip = display_->strip();
    return strip ? display_->picture(*strip) : std::nullopt;
}

std::chrono::duration<double> SurfaceDriver::openPopover() {
    awaitStrip();
    const auto before = display_->shown();
    const auto strip = *display_->strip();
    const auto clicked = std::chrono::steady_clock::now();
    display_->click(strip, leftButton);
    return display_->awaitPainted(clicked, before) - clicked;
}

void SurfaceDriver::closePopover() {
    const auto opened = display_->shown().size();
    display_->press(escapeKey);
    await("the popover did not close", [&] { return display_->shown().size() < opened; });
}

void SurfaceDriver::openAndClosePopover() {
    (void)openPopover();
    std::this_thread::sleep_for(look);
    closePopover();
}

void SurfaceDriver::showSection(int number) {
    Display::Windows strip;
    if (const auto window = display_->strip()) strip.insert(*window);
    const auto before = display_->edgeBesides(strip);
    display_->press(digitZeroKey + static_cast<std::uint32_t>(number));
    await("the popover did not show its section", [&] {
        const auto now = display_->edgeBesides(strip);
        return now && now != before;
    });
}

void SurfaceDriver::chooseInMenu(int steps) {
    awaitStrip();
    const auto before = display_->shown().size();
    display_->click(*display_->strip(), rightButton);
    await("the menu did not open", [&] { return display_->shown().size() > before; });
    for (int step = 0; step < steps; ++step) display_->press(downKey);
    display_->press(returnKey);
}

void SurfaceDriver::openAndCloseDashboard() {
    awaitStrip();
    const auto before = display_->shown();
    chooseInMenu(stepsToDashboard);
    const auto withMenu = display_->shown();
    std::optional<xcb_window_t> dashboard;
    await("the dashboard did not open", [&] {
        for (const auto window : display_->shown()) {
            if (!withMenu.contains(window)) dashboard = window;
        }
        return dashboard.has_value();
    });
    std::this_thread::sleep_for(look);
    display_->requestClose(*dashboard);
    await("the dashboard did not close", [&] { return display_->shown() == before; });
}

void SurfaceDriver::openAndCloseWidget() {
    awaitStrip();
    const auto before = display_->shown();
    chooseInMenu(stepsToWidget);
    // The menu goes, the widget comes: one of those that were not there stays.
    std::this_thread::sleep_for(look);
    await("the mini widget did not open",
          [&] { return display_->shown().size() == before.size() + 1; });
    chooseInMenu(stepsToWidget);
    await("the mini widget did not close", [&] { return display_->shown() == before; });
}

void SurfaceDriver::useEverySurface(std::span<const int> sections) {
    (void)openPopover();
    for (const int number : sections) {
        display_->press(digitZeroKey + static_cast<std::uint32_t>(number));
        std::this_thread::sleep_for(section);
    }
    closePopover();
    openAndCloseDashboard();
    openAndCloseWidget();
}

}  // namespace vtx::bench
