// SPDX-License-Identifier: MIT
// An alert, from the load of the machine to the notification server of the desktop.
#include <systemd/sd-bus.h>

#include <cstdlib>
#include <fstream>
#include <list>
#include <thread>

#include "support/ProcStat.h"
#include "support/SectionDesktopTest.h"

namespace vtx::e2e {
namespace {

using namespace std::chrono_literals;

/// The notification server of the session.
class NotificationServer {
public:
    struct Note {
        SteadyTime when;
        std::uint32_t replaces = 0;
        std::string title;
        std::string body;
    };

    explicit NotificationServer(const std::string& address) {
        EXPECT_GE(sd_bus_new(&bus_), 0);
        sd_bus_set_address(bus_, address.c_str());
        sd_bus_set_bus_client(bus_, 1);
        EXPECT_GE(sd_bus_start(bus_), 0);
        EXPECT_GE(sd_bus_add_object(bus_, nullptr, "/org/freedesktop/Notifications",
                                    &NotificationServer::onCall, this),
                  0);
        EXPECT_GE(sd_bus_request_name(bus_, "org.freedesktop.Notifications", 0), 0);
    }
    ~NotificationServer() { sd_bus_flush_close_unref(bus_); }
    NotificationServer(const NotificationServer&) = delete;
    NotificationServer& operator=(const NotificationServer&) = delete;

    /// Answers what has come; what was to be shown so far.
    const std::vector<Note>& notes() {
        while (sd_bus_process(bus_, nullptr) > 0) continue;
        return notes_;
    }

private:
    static int onCall(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
        if (sd_bus_message_is_method_call(message, nullptr, "GetCapabilities") > 0)
            return sd_bus_reply_method_return(message, "as", 2, "body", "body-markup");
        if (sd_bus_message_is_method_call(message, nullptr, "Notify") <= 0) return 0;
        const char *application = "", *icon = "", *title = "", *body = "";
        std::uint32_t replaces = 0;
        sd_bus_message_read(message, "susss", &application, &replaces, &icon, &title, &body);
        auto& notes = static_cast<NotificationServer*>(self)->notes_;
        notes.push_back({std::chrono::steady_clock::now(), replaces, title, body});
        constexpr std::uint32_t firstNumber = 41;
        return sd_bus_reply_method_return(message, "u",
                                          firstNumber + static_cast<std::uint32_t>(notes.size()));
    }

    sd_bus* bus_ = nullptr;
    std::vector<Note> notes_;
};

/// A notification server that is not the test's, as desktops without one of their own have it.
class Dunst {
public:
    [[nodiscard]] static bool isInstalled() {
        return std::system("command -v dunst >/dev/null 2>&1") == 0;
    }

    explicit Dunst(const Desktop& desktop) {
        const auto settings = desktop.folder().path() / "dunstrc";
        std::ofstream(settings) << "[global]\n    markup = full\n    history_length = 20\n";
        program_ = desktop.start({"dunst", "-conf", settings.string()});
        EXPECT_GE(sd_bus_new(&bus_), 0);
        sd_bus_set_address(bus_, desktop.sessionBusAddress().c_str());
        sd_bus_set_bus_client(bus_, 1);
        EXPECT_GE(sd_bus_start(bus_), 0);
    }
    ~Dunst() { sd_bus_flush_close_unref(bus_); }
    Dunst(const Dunst&) = delete;
    Dunst& operator=(const Dunst&) = delete;

    [[nodiscard]] bool answers() { return call("Ping", own); }
    /// On the screen; absent while it does not answer.
    [[nodiscard]] std::optional<std::uint32_t> shown() {
        std::uint32_t count = 0;
        sd_bus_error error{};
        const int got = sd_bus_get_property_trivial(bus_, service, object, own, "displayedLength",
                                                    &error, 'u', &count);
        sd_bus_error_free(&error);
        return got < 0 ? std::nullopt : std::optional(count);
    }
    /// What stood there when all were taken away, as "summary: body".
    [[nodiscard]] std::vector<std::string> takeAway() {
        EXPECT_TRUE(call("NotificationCloseAll", own));
        std::vector<std::string> texts;
        sd_bus_message* reply = nullptr;
        sd_bus_call_method(bus_, service, object, own, "NotificationListHistory", nullptr, &reply,
                           "");
        if (reply && sd_bus_message_enter_container(reply, 'a', "a{sv}") > 0)
            while (sd_bus_message_enter_container(reply, 'a', "{sv}") > 0) {
                texts.push_back(textOf(reply));
                sd_bus_message_exit_container(reply);
            }
        sd_bus_message_unref(reply);
        return texts;
    }

private:
    static constexpr auto service = "org.freedesktop.Notifications";
    static constexpr auto object = "/org/freedesktop/Notifications";
    static constexpr auto own = "org.dunstproject.cmd0";

    bool call(const char* method, const char* interface) {
        sd_bus_error error{};
        const int done =
            sd_bus_call_method(bus_, service, object, interface, method, &error, nullptr, "");
        sd_bus_error_free(&error);
        return done >= 0;
    }
    static std::string textOf(sd_bus_message* entries) {
        std::string summary, body;
        while (sd_bus_message_enter_container(entries, 'e', "sv") > 0) {
            const char *name = "", *value = "";
            sd_bus_message_read(entries, "s", &name);
            if (sd_bus_message_read(entries, "v", "s", &value) <= 0)
                sd_bus_message_skip(entries, "v");
            else if (name == std::string_view("summary"))
                summary = value;
            else if (name == std::string_view("body"))
                body = value;
            sd_bus_message_exit_container(entries);
        }
        return summary + ": " + body;
    }

    std::unique_ptr<ChildProcess> program_;
    sd_bus* bus_ = nullptr;
};

class AlertE2E : public SectionDesktopTest {
protected:
    static constexpr auto busyProcessor =
        R"({"alertCPUEnabled": true, "alertCPUThreshold": 0.05, "languageCode": "en", )"
        R"("hasCompletedFirstRunLanguage": true, "refreshIntervalSeconds": 0.5})";

    [[nodiscard]] static bool isWithin(const Accessible& one, const std::string& group) {
        constexpr int mostLevels = 8;
        std::optional<Accessible> around = one;
        for (int level = 0; level < mostLevels && around; ++level) {
            if (around->name() == group) return true;
            around = around->parent();
        }
        return false;
    }
    /// Writes what the user has set, before the program starts.
    void store(const std::string& preferences) {
        std::string quoted;
        for (const char c : preferences) quoted += c == '"' ? std::string("\\\"") : std::string{c};
        std::ofstream file(desktop.folder().sub("config/vantrix") + "/defaults.json");
        file << R"({"displayPreferences.v3": ")" << quoted << "\"}\n";
    }
};

TEST_F(AlertE2E, a_busy_processor_is_told_of_once_after_ten_seconds) {
    store(busyProcessor);
    NotificationServer server(desktop.sessionBusAddress());
    BusyCore core;
    const SteadyTime started = std::chrono::steady_clock::now();
    startVantrix();
    ASSERT_TRUE(eventually([&] { return !server.notes().empty(); }, 15s)) << "nothing was told";
    EXPECT_GE(server.notes()[0].when - started, 10s);
    EXPECT_EQ(server.notes()[0].title, "CPU usage high");
    EXPECT_NE(server.notes()[0].body.find("% (threshold: 5%)"), std::string::npos)
        << server.notes()[0].body;
    watchFor(2s, [&] { (void)server.notes(); });
    EXPECT_EQ(server.notes().size(), 1U);
}

TEST_F(AlertE2E, what_the_user_sets_by_the_keyboard_is_told_of_once_after_its_time) {
    NotificationServer server(desktop.sessionBusAddress());
    std::list<BusyCore> cores(std::thread::hardware_concurrency());
    ASSERT_NO_FATAL_FAILURE(startVantrix());
    ASSERT_NO_FATAL_FAILURE(openPopover());
    ASSERT_NO_FATAL_FAILURE(chooseSection("Settings"));
    const auto toggle = tabTo([](const Accessible& one) {
        return one.name() == "CPU" && isWithin(one, "Notifications");
    });
    ASSERT_TRUE(toggle) << drawing();
    const SteadyTime switchedOn = std::chrono::steady_clock::now();
    user().press(key::space);
    const auto slider = tabTo([](const Accessible& one) { return one.role() == "slider"; });
    ASSERT_TRUE(slider) << drawing();
    EXPECT_EQ(slider->description(), "90%");
    user().press(key::home);
    ASSERT_TRUE(eventually([&] { return slider->description() == "50%"; }));
    ASSERT_TRUE(eventually([&] { return !server.notes().empty(); }, 20s)) << "nothing was told";
    EXPECT_GE(server.notes()[0].when - switchedOn, 10s);
    EXPECT_EQ(server.notes()[0].title, "CPU usage high");
    watchFor(3s, [&] { (void)server.notes(); });
    EXPECT_EQ(server.notes().size(), 1U);
}

TEST_F(AlertE2E, a_server_that_the_desktop_brings_shows_it_once) {
    if (!Dunst::isInstalled()) GTEST_SKIP() << "this machine has no dunst";
    store(busyProcessor);
    Dunst dunst(desktop);
    ASSERT_TRUE(eventually([&] { return dunst.answers(); })) << "dunst does not start";
    BusyCore core;
    startVantrix();
    ASSERT_TRUE(eventually([&] { return dunst.shown() == 1U; }, 20s)) << "nothing was shown";
    watchFor(2s, [] {});
    EXPECT_EQ(dunst.shown(), 1U);
    const auto texts = dunst.takeAway();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_TRUE(texts[0].starts_with("CPU usage high: CPU at ")) << texts[0];
    EXPECT_TRUE(texts[0].ends_with("% (threshold: 5%)")) << texts[0];
}

}  // namespace
}  // namespace vtx::e2e
