// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopAppearance.h"

#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include "linux/PrivateBus.h"
#include "platform/linux/PollRunLoop.h"

namespace vtx::test {
namespace {

using Preference = DesktopAppearance::Preference;

constexpr Duration longEnough = std::chrono::seconds(60);
constexpr auto portal = "org.freedesktop.portal.Desktop";
constexpr auto settings = "org.freedesktop.portal.Settings";

/// The settings portal of a desktop; `wraps` variants stand around its answer.
class FakePortal {
public:
    FakePortal(RunLoop& loop, const std::string& address, std::uint32_t scheme, int wraps = 2)
        : scheme_(scheme),
          wraps_(wraps),
          service_(loop, address, portal, "/org/freedesktop/portal/desktop",
                   [this](sd_bus_message* message) { return answer(message); }) {}

    void change(std::uint32_t scheme) {
        scheme_ = scheme;
        service_.emit(settings, "SettingChanged", std::string("org.freedesktop.appearance"));
    }

private:
    int answer(sd_bus_message* message) {
        const char *scope = nullptr, *name = nullptr;
        sd_bus_message_read(message, "ss", &scope, &name);
        EXPECT_STREQ(scope, "org.freedesktop.appearance");
        EXPECT_STREQ(name, "color-scheme");
        if (wraps_ == 0) return sd_bus_reply_method_return(message, "v", "s", "dark");
        if (wraps_ == 1) return sd_bus_reply_method_return(message, "v", "u", scheme_);
        return sd_bus_reply_method_return(message, "v", "v", "u", scheme_);
    }

    std::uint32_t scheme_;
    int wraps_;
    FakeService service_;
};

struct DesktopAppearanceTest : testing::Test {
    void SetUp() override {
        if (!daemon.isRunning()) GTEST_SKIP() << "this machine has no dbus-daemon";
    }
    [[nodiscard]] bool becomes(DesktopAppearance& desktop, std::optional<Preference> expected) {
        return loop.runUntil([&] { return desktop.preference() == expected; }, longEnough);
    }

    PrivateBus daemon;
    PollRunLoop loop;
    SystemBus bus{loop, loop.executor(), daemon.address()};
};

TEST_F(DesktopAppearanceTest, the_portal_says_dark_or_light) {
    for (const int wraps : {1, 2}) {
        const FakePortal fake(loop, daemon.address(), 1, wraps);
        DesktopAppearance desktop(bus);
        EXPECT_TRUE(becomes(desktop, Preference::dark)) << wraps;
    }
}

TEST_F(DesktopAppearanceTest, a_change_on_the_desktop_is_followed_and_told_once) {
    FakePortal fake(loop, daemon.address(), 1);
    DesktopAppearance desktop(bus);
    ASSERT_TRUE(becomes(desktop, Preference::dark));
    int told = 0;
    const auto token = desktop.changed.subscribe([&told] { ++told; });
    fake.change(2);
    EXPECT_TRUE(becomes(desktop, Preference::light));
    EXPECT_EQ(told, 1);
    fake.change(0);
    EXPECT_TRUE(becomes(desktop, std::nullopt));
}

TEST_F(DesktopAppearanceTest, a_portal_that_comes_later_is_asked_then) {
    DesktopAppearance desktop(bus);
    EXPECT_EQ(desktop.preference(), std::nullopt);
    const FakePortal fake(loop, daemon.address(), 2);
    EXPECT_TRUE(becomes(desktop, Preference::light));
}

TEST_F(DesktopAppearanceTest, an_unknown_number_is_no_preference) {
    FakePortal fake(loop, daemon.address(), 1, 2);
    DesktopAppearance desktop(bus);
    ASSERT_TRUE(becomes(desktop, Preference::dark));
    fake.change(77);
    EXPECT_TRUE(becomes(desktop, std::nullopt));
}

TEST_F(DesktopAppearanceTest, a_text_where_a_number_is_due_is_no_preference) {
    const FakePortal fake(loop, daemon.address(), 1, 0);
    bool answered = false;
    const auto token =
        bus.call({portal, "/org/freedesktop/portal/desktop", settings}, "Read",
                 {"org.freedesktop.appearance", "color-scheme"}, [&answered](BusMessage& answer) {
                     EXPECT_FALSE(answer.isFailure());
                     EXPECT_EQ(answer.variantUnsigned(), std::nullopt);
                     answered = true;
                 });
    EXPECT_TRUE(loop.runUntil([&] { return answered; }, longEnough));
}

TEST(DesktopAppearance, without_a_bus_there_is_no_preference) {
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "none");
    const DesktopAppearance desktop(bus);
    EXPECT_EQ(desktop.preference(), std::nullopt);
}

}  // namespace
}  // namespace vtx::test
