// SPDX-License-Identifier: MIT
#include "platform/linux/StatusNotifierItem.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <systemd/sd-bus.h>

#include <string_view>

#include "linux/PrivateBus.h"
#include "platform/linux/PollRunLoop.h"

namespace vtx::test {
namespace {

constexpr Duration longEnough = std::chrono::seconds(60);
constexpr auto watcherName = "org.kde.StatusNotifierWatcher";
constexpr auto itemInterface = "org.kde.StatusNotifierItem";

/// The watcher of a desktop, with a tray or without.
class FakeWatcher {
public:
    FakeWatcher(RunLoop& loop, const std::string& address, bool hasHost)
        : hasHost_(hasHost),
          service_(loop, address, watcherName, "/StatusNotifierWatcher",
                   [this](sd_bus_message* message) { return answer(message); }) {}

    void setHost(bool hasHost) {
        hasHost_ = hasHost;
        service_.emit(watcherName,
                      hasHost ? "StatusNotifierHostRegistered" : "StatusNotifierHostUnregistered",
                      std::string());
    }

    std::vector<std::string> registered;  ///< the sender of each registration

private:
    int answer(sd_bus_message* message) {
        if (sd_bus_message_is_method_call(message, nullptr, "Get") > 0)
            return sd_bus_reply_method_return(message, "v", "b", static_cast<int>(hasHost_));
        const char* item = nullptr;
        sd_bus_message_read(message, "s", &item);
        EXPECT_STREQ(item, "/StatusNotifierItem");
        registered.emplace_back(sd_bus_message_get_sender(message));
        return sd_bus_reply_method_return(message, "");
    }

    bool hasHost_;
    FakeService service_;
};

struct StatusNotifierItemTest : testing::Test {
    void SetUp() override {
        if (!daemon.isRunning()) GTEST_SKIP() << "this machine has no dbus-daemon";
    }
    bool until(const std::function<bool()>& done) { return loop.runUntil(done, longEnough); }
    BusObject itemOf(const FakeWatcher& watcher) const {
        return {watcher.registered.back(), "/StatusNotifierItem", itemInterface};
    }

    PrivateBus daemon;
    PollRunLoop loop;
    SystemBus session{loop, loop.executor(), daemon.address()};
    SystemBus tray{loop, loop.executor(), daemon.address()};
};

TEST_F(StatusNotifierItemTest, offers_itself_to_a_tray_that_is_there) {
    FakeWatcher watcher(loop, daemon.address(), true);
    StatusNotifierItem item(session, "vantrix", "Vantrix");
    EXPECT_TRUE(until([&] { return item.isHosted() && watcher.registered.size() == 1; }));
}

TEST_F(StatusNotifierItemTest,
       without_a_tray_it_is_not_hosted_and_follows_one_that_comes_and_goes) {
    FakeWatcher watcher(loop, daemon.address(), false);
    StatusNotifierItem item(session, "vantrix", "Vantrix");
    int changes = 0;
    item.onHostedChange = [&changes] { ++changes; };
    watcher.setHost(true);
    ASSERT_TRUE(until([&] { return item.isHosted() && !watcher.registered.empty(); }));
    watcher.setHost(false);
    EXPECT_TRUE(until([&] { return !item.isHosted(); }));
    EXPECT_EQ(changes, 2);
}

TEST_F(StatusNotifierItemTest, offers_itself_again_to_a_watcher_that_comes_back) {
    StatusNotifierItem item(session, "vantrix", "Vantrix");
    {
        FakeWatcher first(loop, daemon.address(), true);
        ASSERT_TRUE(until([&] { return !first.registered.empty(); }));
    }
    ASSERT_TRUE(until([&] { return !item.isHosted(); }));
    FakeWatcher second(loop, daemon.address(), true);
    EXPECT_TRUE(until([&] { return item.isHosted() && !second.registered.empty(); }));
}

TEST_F(StatusNotifierItemTest, tells_who_it_is) {
    FakeWatcher watcher(loop, daemon.address(), true);
    StatusNotifierItem item(session, "vantrix", "Vantrix");
    ASSERT_TRUE(until([&] { return !watcher.registered.empty(); }));
    std::vector<std::string> told;
    Subscriptions questions;
    for (const char* name : {"Id", "Title", "Status", "IconName"})
        questions.push_back(tray.getProperty(itemOf(watcher), name, [&told](BusMessage& answer) {
            told.push_back(answer.variantText().value_or("no text"));
        }));
    ASSERT_TRUE(until([&] { return told.size() == 4; }));
    EXPECT_EQ(told, (std::vector<std::string>{"vantrix", "Vantrix", "Active", ""}));
}

/// A tray's own connection, which asks an item for its properties whole.
class Tray {
public:
    Tray(RunLoop& loop, const std::string& address) {
        EXPECT_GE(sd_bus_new(&bus_), 0);
        sd_bus_set_address(bus_, address.c_str());
        sd_bus_set_bus_client(bus_, 1);
        EXPECT_GE(sd_bus_start(bus_), 0);
        reading_ = loop.watch(sd_bus_get_fd(bus_), POLLIN | POLLOUT, [this] {
            while (sd_bus_process(bus_, nullptr) > 0) continue;
        });
    }
    Tray(const Tray&) = delete;
    Tray& operator=(const Tray&) = delete;
    ~Tray() {
        for (auto* answer : answers) sd_bus_message_unref(answer);
        sd_bus_close_unref(bus_);
    }

    void ask(const std::string& item, const char* property) {
        sd_bus_call_method_async(bus_, nullptr, item.c_str(), "/StatusNotifierItem",
                                 "org.freedesktop.DBus.Properties", "Get", &Tray::onAnswer, this,
                                 "ss", itemInterface, property);
    }

    std::vector<sd_bus_message*> answers;

private:
    static int onAnswer(sd_bus_message* answer, void* self, sd_bus_error*) {
        static_cast<Tray*>(self)->answers.push_back(sd_bus_message_ref(answer));
        return 0;
    }

    sd_bus* bus_ = nullptr;
    Subscription reading_;
};

/// The pictures that come next in an answer.
std::vector<std::tuple<int, int, std::string>> takePictures(sd_bus_message* answer) {
    std::vector<std::tuple<int, int, std::string>> pictures;
    EXPECT_GT(sd_bus_message_enter_container(answer, 'a', "(iiay)"), 0);
    while (sd_bus_message_enter_container(answer, 'r', "iiay") > 0) {
        std::int32_t width = 0;
        std::int32_t height = 0;
        const void* bytes = nullptr;
        std::size_t size = 0;
        EXPECT_GT(sd_bus_message_read(answer, "ii", &width, &height), 0);
        EXPECT_GT(sd_bus_message_read_array(answer, 'y', &bytes, &size), 0);
        pictures.emplace_back(width, height, std::string(static_cast<const char*>(bytes), size));
        EXPECT_GE(sd_bus_message_exit_container(answer), 0);
    }
    EXPECT_GE(sd_bus_message_exit_container(answer), 0);
    return pictures;
}

TEST_F(StatusNotifierItemTest, shows_the_tray_its_pictures_and_its_words) {
    FakeWatcher watcher(loop, daemon.address(), true);
    StatusNotifierItem item(session, "vantrix", "Vantrix");
    ASSERT_TRUE(until([&] { return !watcher.registered.empty(); }));
    item.setPictures({{1, 1, {255, 1, 2, 3}}, {2, 1, {0, 0, 0, 0, 9, 8, 7, 6}}});
    item.setToolTip("CPU 12 percent");
    Tray host(loop, daemon.address());
    for (const char* property :
         {"IconPixmap", "OverlayIconPixmap", "ToolTip", "Category", "WindowId", "ItemIsMenu"})
        host.ask(watcher.registered.back(), property);
    ASSERT_TRUE(until([&] { return host.answers.size() == 6; }));

    ASSERT_GT(sd_bus_message_enter_container(host.answers[0], 'v', "a(iiay)"), 0);
    const auto pictures = takePictures(host.answers[0]);
    ASSERT_EQ(pictures.size(), 2U);
    EXPECT_EQ(pictures[0], std::tuple(1, 1, std::string("\xff\1\2\3")));
    EXPECT_EQ(pictures[1], std::tuple(2, 1, std::string("\0\0\0\0\x9\x8\x7\x6", 8)));

    ASSERT_GT(sd_bus_message_enter_container(host.answers[1], 'v', "a(iiay)"), 0);
    EXPECT_TRUE(takePictures(host.answers[1]).empty());

    const char* icon = nullptr;
    const char* title = nullptr;
    const char* words = nullptr;
    ASSERT_GT(sd_bus_message_enter_container(host.answers[2], 'v', "(sa(iiay)ss)"), 0);
    ASSERT_GT(sd_bus_message_enter_container(host.answers[2], 'r', "sa(iiay)ss"), 0);
    ASSERT_GT(sd_bus_message_read(host.answers[2], "s", &icon), 0);
    EXPECT_TRUE(takePictures(host.answers[2]).empty());
    ASSERT_GT(sd_bus_message_read(host.answers[2], "ss", &title, &words), 0);
    EXPECT_STREQ(icon, "");
    EXPECT_STREQ(title, "Vantrix");
    EXPECT_STREQ(words, "CPU 12 percent");

    const char* category = nullptr;
    std::int32_t window = -1;
    int isMenu = -1;
    EXPECT_GT(sd_bus_message_read(host.answers[3], "v", "s", &category), 0);
    EXPECT_GT(sd_bus_message_read(host.answers[4], "v", "i", &window), 0);
    EXPECT_GT(sd_bus_message_read(host.answers[5], "v", "b", &isMenu), 0);
    EXPECT_STREQ(category, "Hardware");
    EXPECT_EQ(window, 0);
    EXPECT_EQ(isMenu, 0);
}

TEST_F(StatusNotifierItemTest, a_click_on_the_tray_is_passed_on_with_its_place) {
    FakeWatcher watcher(loop, daemon.address(), true);
    StatusNotifierItem item(session, "vantrix", "Vantrix");
    ASSERT_TRUE(until([&] { return !watcher.registered.empty(); }));
    std::vector<std::tuple<StatusNotifierItem::Click, int, int>> clicks;
    item.onClick = [&clicks](auto click, int x, int y) { clicks.emplace_back(click, x, y); };

    sd_bus* host = nullptr;
    ASSERT_GE(sd_bus_new(&host), 0);
    sd_bus_set_address(host, daemon.address().c_str());
    sd_bus_set_bus_client(host, 1);
    ASSERT_GE(sd_bus_start(host), 0);
    for (const char* method : {"Activate", "SecondaryActivate", "ContextMenu"})
        sd_bus_call_method_async(host, nullptr, watcher.registered.back().c_str(),
                                 "/StatusNotifierItem", itemInterface, method, nullptr, nullptr,
                                 "ii", 1910, 12);
    const auto reading = loop.watch(sd_bus_get_fd(host), POLLIN | POLLOUT, [host] {
        while (sd_bus_process(host, nullptr) > 0) continue;
    });
    EXPECT_TRUE(until([&] { return clicks.size() == 3; }));
    using Click = StatusNotifierItem::Click;
    EXPECT_EQ(clicks.at(0), std::tuple(Click::primary, 1910, 12));
    EXPECT_EQ(std::get<0>(clicks.at(1)), Click::secondary);
    EXPECT_EQ(std::get<0>(clicks.at(2)), Click::menu);
    sd_bus_close_unref(host);
}

TEST_F(StatusNotifierItemTest, a_new_picture_and_new_words_are_announced) {
    FakeWatcher watcher(loop, daemon.address(), true);
    StatusNotifierItem item(session, "vantrix", "Vantrix");
    ASSERT_TRUE(until([&] { return !watcher.registered.empty(); }));
    int icons = 0, words = 0, ready = 0;
    const auto icon = tray.onSignal(itemOf(watcher), "NewIcon", [&](BusMessage&) { ++icons; });
    const auto tip = tray.onSignal(itemOf(watcher), "NewToolTip", [&](BusMessage&) { ++words; });
    // Answered after the matches before it are in force.
    const auto asked = tray.getProperty(itemOf(watcher), "Id", [&](BusMessage&) { ++ready; });
    ASSERT_TRUE(until([&] { return ready == 1; }));
    item.setPictures({{1, 1, {255, 1, 2, 3}}});
    item.setToolTip("CPU 12 percent");
    EXPECT_TRUE(until([&] { return icons == 1 && words == 1; }));
}

TEST(StatusNotifierItem, without_a_bus_it_is_never_hosted) {
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "none");
    StatusNotifierItem item(bus, "vantrix", "Vantrix");
    item.setPictures({});
    item.setToolTip("nobody hears it");
    EXPECT_FALSE(item.isHosted());
}

}  // namespace
}  // namespace vtx::test
