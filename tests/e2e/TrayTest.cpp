// SPDX-License-Identifier: MIT
// The icon in the tray of a desktop that has one, as the tray itself meets it.
#include <systemd/sd-bus.h>

#include <algorithm>

#include "support/DesktopTest.h"

namespace vtx::e2e {
namespace {

constexpr auto watcherName = "org.kde.StatusNotifierWatcher";
constexpr auto itemPath = "/StatusNotifierItem";
constexpr auto itemInterface = "org.kde.StatusNotifierItem";

/// A tray on the session bus: watcher and host in one.
class Tray {
public:
    explicit Tray(const std::string& address) {
        EXPECT_GE(sd_bus_new(&bus_), 0);
        sd_bus_set_address(bus_, address.c_str());
        sd_bus_set_bus_client(bus_, 1);
        EXPECT_GE(sd_bus_start(bus_), 0);
        EXPECT_GE(sd_bus_add_object(bus_, nullptr, "/StatusNotifierWatcher", &Tray::onCall, this),
                  0);
        EXPECT_GE(sd_bus_request_name(bus_, watcherName, 0), 0);
    }
    ~Tray() { sd_bus_flush_close_unref(bus_); }
    Tray(const Tray&) = delete;
    Tray& operator=(const Tray&) = delete;

    /// Answers what has come; whether an item is registered.
    bool hasItem() {
        while (sd_bus_process(bus_, nullptr) > 0) continue;
        return !item_.empty();
    }

    /// Width of the smallest picture and whether any of its pixels shows; 0 for none.
    std::pair<int, bool> picture() {
        sd_bus_message* reply = nullptr;
        std::pair<int, bool> told{0, false};
        if (sd_bus_get_property(bus_, item_.c_str(), itemPath, itemInterface, "IconPixmap", nullptr,
                                &reply, "a(iiay)") < 0) {
            return told;
        }
        std::int32_t width = 0, height = 0;
        const void* bytes = nullptr;
        std::size_t count = 0;
        if (sd_bus_message_enter_container(reply, 'a', "(iiay)") > 0 &&
            sd_bus_message_enter_container(reply, 'r', "iiay") > 0 &&
            sd_bus_message_read(reply, "ii", &width, &height) > 0 &&
            sd_bus_message_read_array(reply, 'y', &bytes, &count) > 0 &&
            count == static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4) {
            const auto* first = static_cast<const std::uint8_t*>(bytes);
            told = {width, std::any_of(first, first + count, [](auto byte) { return byte != 0; })};
        }
        sd_bus_message_unref(reply);
        return told;
    }

    void click(const char* method, int x, int y) {
        sd_bus_call_method_async(bus_, nullptr, item_.c_str(), itemPath, itemInterface, method,
                                 nullptr, nullptr, "ii", x, y);
        sd_bus_flush(bus_);
    }

private:
    static int onCall(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
        if (sd_bus_message_is_method_call(message, nullptr, "Get") > 0)
            return sd_bus_reply_method_return(message, "v", "b", 1);
        static_cast<Tray*>(self)->item_ = sd_bus_message_get_sender(message);
        return sd_bus_reply_method_return(message, "");
    }

    sd_bus* bus_ = nullptr;
    std::string item_;
};

class TrayE2E : public DesktopTest {
protected:
    void startWithTray() {
        tray = std::make_unique<Tray>(desktop.sessionBusAddress());
        startVantrix();
        ASSERT_TRUE(eventually([this] { return tray->hasItem(); })) << "nobody registered";
    }

    std::unique_ptr<Tray> tray;
};

TEST_F(TrayE2E, the_critical_metric_stands_in_the_tray) {
    startWithTray();
    EXPECT_EQ(tray->picture(), std::pair(22, true));
}

TEST_F(TrayE2E, a_click_in_the_tray_opens_the_popover_at_the_strip) {
    startWithTray();
    tray->click("Activate", 0, 0);
    ASSERT_TRUE(eventually([this] { return isPopoverOpen(); }));
    const Place window = display().place(display().clientOfType("UTILITY"));
    EXPECT_GE(window.y, stripPlace().y + stripPlace().height);
}

TEST_F(TrayE2E, the_menu_opens_where_the_tray_was_clicked) {
    startWithTray();
    tray->click("ContextMenu", 300, 400);
    ASSERT_TRUE(eventually([this] { return isMenuOpen(); }));
    const Place menu = display().place(display().popupOf(applicationName));
    EXPECT_EQ(menu.x, 300);
}

}  // namespace
}  // namespace vtx::e2e
