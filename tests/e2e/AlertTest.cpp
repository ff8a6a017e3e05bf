// SPDX-License-Identifier: MIT
// An alert, from the load of the machine to the notification server of the desktop.
#include <systemd/sd-bus.h>

#include <fstream>

#include "support/DesktopTest.h"
#include "support/ProcStat.h"

namespace vtx::e2e {
namespace {

using namespace std::chrono_literals;

/// The notification server of the session.
class NotificationServer {
public:
    struct Note {
        SteadyTime when;
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
        notes.push_back({std::chrono::steady_clock::now(), title, body});
        return sd_bus_reply_method_return(message, "u", 1);
    }

    sd_bus* bus_ = nullptr;
    std::vector<Note> notes_;
};

class AlertE2E : public DesktopTest {
protected:
    /// Writes what the user has set, before the program starts.
    void store(const std::string& preferences) {
        std::string quoted;
        for (const char c : preferences) quoted += c == '"' ? std::string("\\\"") : std::string{c};
        std::ofstream file(desktop.folder().sub("config/vantrix") + "/defaults.json");
        file << "{\"displayPreferences.v3\": \"" << quoted << "\"}\n";
    }
};

TEST_F(AlertE2E, a_busy_processor_is_told_of_once_after_ten_seconds) {
    store(R"({"alertCPUEnabled": true, "alertCPUThreshold": 0.05, "languageCode": "en", )"
          R"("hasCompletedFirstRunLanguage": true, "refreshIntervalSeconds": 0.5})");
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

}  // namespace
}  // namespace vtx::e2e
