// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxProcessInfo.h"

#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include <algorithm>
#include <memory>

#include "linux/PrivateBus.h"
#include "platform/linux/PollRunLoop.h"

namespace vtx::test {
namespace {

constexpr Duration longEnough = std::chrono::seconds(60);
constexpr auto newName = "org.freedesktop.UPower.PowerProfiles";
constexpr auto oldName = "net.hadess.PowerProfiles";

std::string versionOf(const std::string& folder) {
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "none");
    return LinuxProcessInfo(LinuxRoot(folder), {}, bus).operatingSystemVersionString();
}

TEST(LinuxProcessInfo, the_system_is_called_as_its_release_file_says) {
    EXPECT_EQ(versionOf(fixture("virtual-server-6.18")), "Debian GNU/Linux 12 (bookworm)");
    EXPECT_EQ(versionOf(fixture("intel-hybrid-laptop-6.12")), "Example \"Hybrid\" Linux 13");
    EXPECT_EQ(versionOf(fixture("arm-big-little-board-6.6")), "Board");
}

TEST(LinuxProcessInfo, without_such_a_file_or_name_it_is_called_by_its_kernel) {
    EXPECT_EQ(versionOf(fixture("arm-three-tier-6.10")), "Linux 6.10.2");
    const TemporaryTree tree;
    EXPECT_EQ(versionOf(tree.path()), "Linux");
}

TEST(LinuxProcessInfo, the_name_is_read_as_a_shell_would) {
    const auto name = [](const char* text) { return LinuxProcessInfo::prettyName(text); };
    EXPECT_EQ(name("PRETTY_NAME='A \"b\"'\n"), "A \"b\"");
    EXPECT_EQ(name("X=1\r\n  PRETTY_NAME=Plain\r\n"), "Plain");
    EXPECT_EQ(name("PRETTY_NAME=\"open"), "open");
    EXPECT_EQ(name("PRETTY_NAME=\"\\"), "\\");
    EXPECT_EQ(name("PRETTY_NAME=\"\"\n"), std::nullopt);
    EXPECT_EQ(name("PRETTY_NAME=\n"), std::nullopt);
    EXPECT_EQ(name("MY_PRETTY_NAME=x"), std::nullopt);
    EXPECT_EQ(name(""), std::nullopt);
}

TEST(LinuxProcessInfo, variables_are_those_of_the_environment) {
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "none");
    const LinuxProcessInfo info(
        LinuxRoot(fixture("virtual-server-6.18")),
        [](std::string_view name) -> std::optional<std::string> {
            if (name == "HOME") return "/home/me";
            return std::nullopt;
        },
        bus);
    EXPECT_EQ(info.environment("HOME"), "/home/me");
    EXPECT_EQ(info.environment("SHELL"), std::nullopt);
}

TEST(LinuxProcessInfo, activities_are_counted_and_end_once) {
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "none");
    LinuxProcessInfo info(LinuxRoot(fixture("virtual-server-6.18")), {}, bus);
    const auto first = info.beginActivity(0x00EFFFFF, "work");
    const auto second = info.beginActivity(0x00EFFFFF, "work");
    EXPECT_NE(first, 0u);
    EXPECT_NE(first, second);
    info.endActivity(first);
    info.endActivity(first);
    info.endActivity(0);
    EXPECT_EQ(info.activityCount(), 1u);
    EXPECT_TRUE(info.loadedBundlePaths().empty());
}

/// The service of power profiles under one of its names.
class FakeProfiles {
public:
    FakeProfiles(RunLoop& loop, const std::string& address, const std::string& name,
                 std::string profile)
        : name_(name),
          profile_(std::move(profile)),
          service_(loop, address, name, pathOf(name),
                   [this](sd_bus_message* message) { return answer(message); }) {}

    void change(std::string profile) {
        profile_ = std::move(profile);
        service_.emitPropertiesChanged(name_);
    }

private:
    static std::string pathOf(std::string name) {
        std::ranges::replace(name, '.', '/');
        return "/" + name;
    }
    int answer(sd_bus_message* message) {
        const char *interface = nullptr, *property = nullptr;
        sd_bus_message_read(message, "ss", &interface, &property);
        EXPECT_EQ(std::string(interface), name_);
        EXPECT_STREQ(property, "ActiveProfile");
        if (profile_ == "a number") return sd_bus_reply_method_return(message, "v", "u", 1u);
        return sd_bus_reply_method_return(message, "v", "s", profile_.c_str());
    }

    std::string name_;
    std::string profile_;
    FakeService service_;
};

struct LowPowerModeTest : testing::Test {
    void SetUp() override {
        if (!daemon.isRunning()) GTEST_SKIP() << "this machine has no dbus-daemon";
    }
    [[nodiscard]] std::unique_ptr<FakeProfiles> service(const std::string& name,
                                                        const std::string& profile) {
        return std::make_unique<FakeProfiles>(loop, daemon.address(), name, profile);
    }
    [[nodiscard]] bool becomes(bool enabled) {
        return loop.runUntil([&] { return info.isLowPowerModeEnabled() == enabled; }, longEnough);
    }

    PrivateBus daemon;
    PollRunLoop loop;
    SystemBus bus{loop, loop.executor(), daemon.address()};
    LinuxProcessInfo info{LinuxRoot(fixture("virtual-server-6.18")), {}, bus};
    int changes = 0;
    Subscription token;
    void count() {
        token = info.onPowerStateDidChange([this] { ++changes; });
    }
};

TEST_F(LowPowerModeTest, the_saving_profile_is_seen_under_either_name) {
    for (const auto* name : {newName, oldName}) {
        SystemBus own(loop, loop.executor(), daemon.address());
        LinuxProcessInfo asking(LinuxRoot(fixture("virtual-server-6.18")), {}, own);
        const auto profiles = service(name, "power-saver");
        EXPECT_FALSE(asking.isLowPowerModeEnabled());
        EXPECT_TRUE(loop.runUntil([&] { return asking.isLowPowerModeEnabled(); }, longEnough))
            << name;
    }
}

TEST_F(LowPowerModeTest, each_switch_is_told_after_it_is_in_force) {
    const auto profiles = service(newName, "power-saver");
    std::string seen;
    const auto watch =
        info.onPowerStateDidChange([&] { seen += info.isLowPowerModeEnabled() ? "on " : "off "; });
    ASSERT_TRUE(becomes(true));
    profiles->change("balanced");
    ASSERT_TRUE(becomes(false));
    profiles->change("performance");
    profiles->change("power-saver");
    ASSERT_TRUE(becomes(true));
    EXPECT_EQ(seen, "on off on ");
}

TEST_F(LowPowerModeTest, both_names_at_once_are_one_mode) {
    count();
    const auto old = service(oldName, "power-saver");
    const auto renamed = service(newName, "power-saver");
    ASSERT_TRUE(becomes(true));
    old->change("balanced");
    renamed->change("balanced");
    ASSERT_TRUE(becomes(false));
    EXPECT_EQ(changes, 2);
}

TEST_F(LowPowerModeTest, a_service_that_comes_later_and_goes_again_is_followed) {
    count();
    EXPECT_FALSE(info.isLowPowerModeEnabled());
    auto profiles = service(oldName, "power-saver");
    ASSERT_TRUE(becomes(true));
    profiles.reset();
    ASSERT_TRUE(becomes(false));
    EXPECT_EQ(changes, 2);
}

TEST_F(LowPowerModeTest, a_profile_that_is_no_text_is_no_saving) {
    count();
    const auto profiles = service(newName, "power-saver");
    ASSERT_TRUE(becomes(true));
    profiles->change("a number");
    ASSERT_TRUE(becomes(false));
}

}  // namespace
}  // namespace vtx::test
