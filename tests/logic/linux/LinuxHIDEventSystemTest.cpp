// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxHIDEventSystem.h"

#include <gtest/gtest.h>

namespace vtx {
namespace {

TEST(LinuxHIDEventSystem, the_process_has_none_of_its_symbols) {
    LinuxHIDEventSystem system;
    const auto functions = system.open(10);
    ASSERT_TRUE(functions);
    for (const char* symbol : {"IOHIDEventSystemClientCreate", "IOHIDEventGetFloatValue", ""})
        EXPECT_FALSE(functions->resolve(symbol));
}

}  // namespace
}  // namespace vtx
