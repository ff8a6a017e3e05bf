// SPDX-License-Identifier: MIT
#include "platform/linux/DeviceChanges.h"

#include <gtest/gtest.h>

#include <string>

namespace vtx::test {
namespace {

TEST(DeviceChanges, are_devices_and_drivers_that_come_and_go) {
    using namespace std::string_literals;
    const auto rest = "@/devices/pci0000:00/0000:03:00.0/drm/card0\0ACTION=x\0SUBSYSTEM=drm\0"s;
    for (const auto* action : {"add", "remove", "bind", "unbind", "move"})
        EXPECT_TRUE(announcesDeviceChange(action + rest)) << action;
    for (const auto* action : {"change", "online", "offline", "", "added", "ad", " add", "ADD"})
        EXPECT_FALSE(announcesDeviceChange(action + rest)) << action;
}

TEST(DeviceChanges, are_not_read_from_damaged_announcements) {
    for (const auto* text : {"", "add", "@", "add ", "libudev", "\n"})
        EXPECT_FALSE(announcesDeviceChange(text)) << text;
    EXPECT_FALSE(announcesDeviceChange(std::string(4096, 'a')));
}

TEST(DeviceChanges, begin_with_a_first_generation_and_never_go_back) {
    KernelDeviceChanges changes;
    const auto first = changes.generation();
    EXPECT_EQ(first, 1u);
    EXPECT_GE(changes.generation(), first);
}

}  // namespace
}  // namespace vtx::test
