// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSMCUserClient.h"

#include <gtest/gtest.h>

namespace vtx {
namespace {

TEST(LinuxSMCUserClient, a_search_finds_no_service) {
    LinuxSMCUserClient client;
    const auto match = client.serviceMatching("AppleSMC");
    ASSERT_TRUE(match);
    const auto walk = client.getMatchingServices(*match);
    EXPECT_EQ(walk.result, kernSuccess);
    EXPECT_FALSE(client.iteratorNext(walk.iterator));
}

TEST(LinuxSMCUserClient, nothing_can_be_opened_or_asked) {
    LinuxSMCUserClient client;
    const auto opened = client.serviceOpen({}, 0);
    EXPECT_EQ(opened.result, ioReturnNoDevice);
    EXPECT_FALSE(opened.connection);
    std::size_t size = 0;
    EXPECT_EQ(client.connectCallStructMethod(opened.connection, 2, {}, {}, size), ioReturnNotOpen);
}

}  // namespace
}  // namespace vtx
