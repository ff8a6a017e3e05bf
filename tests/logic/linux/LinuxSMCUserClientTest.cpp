// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSMCUserClient.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "linux/SensorMachine.h"
#include "linux/TemporaryTree.h"
#include "smc/SMCCode.h"
#include "smc/SMCParameterBlock.h"

namespace vtx::test {
namespace {

struct UserClient : SensorBench {
    explicit UserClient(const std::string& machine) : root(fixture(machine)) {}

    [[nodiscard]] RegistryEntry service() {
        const auto walk = client.getMatchingServices({"AppleSMC"});
        return client.iteratorNext(walk.iterator);
    }
    [[nodiscard]] SMCConnection open() {
        auto opened = client.serviceOpen(service(), 0);
        EXPECT_EQ(opened.result, kernSuccess);
        return std::move(opened.connection);
    }
    KernReturn call(const SMCConnection& connection, SMCParameterBlock& block) {
        SMCParameterBlock answer;
        filled = SMCParameterBlock::size;
        const auto result = client.connectCallStructMethod(
            connection, 2, std::as_const(block).raw(), answer.raw(), filled);
        block = answer;
        return result;
    }

    LinuxRoot root;
    LinuxSMCUserClient client{root, tools()};
    std::size_t filled = 0;
};

SMCParameterBlock ask(SMCParameterBlock::Command command, std::string_view key) {
    SMCParameterBlock block;
    block.setKey(smcCode(key));
    block.setCommand(command);
    return block;
}
using enum SMCParameterBlock::Command;

TEST(LinuxSMCUserClient, a_machine_without_sensors_has_no_service) {
    UserClient server("virtual-server-6.18");
    const auto walk = server.client.getMatchingServices({"AppleSMC"});
    EXPECT_EQ(walk.result, kernSuccess);
    EXPECT_FALSE(walk.iterator);
    EXPECT_FALSE(server.client.iteratorNext(walk.iterator));
    EXPECT_EQ(server.client.serviceOpen({}, 0).result, ioReturnNoDevice);
}

TEST(LinuxSMCUserClient, a_machine_with_sensors_has_one_service_of_one_class) {
    UserClient laptop("dell-laptop-6.1");
    EXPECT_FALSE(laptop.client.getMatchingServices({"AppleSmartBattery"}).iterator);
    const auto walk = laptop.client.getMatchingServices(*laptop.client.serviceMatching("AppleSMC"));
    const auto service = laptop.client.iteratorNext(walk.iterator);
    EXPECT_EQ(laptop.client.entryGetName(service), "AppleSMCKeysEndpoint");
    EXPECT_FALSE(laptop.client.iteratorNext(walk.iterator));
}

TEST(LinuxSMCUserClient, everything_given_out_comes_back) {
    UserClient laptop("dell-laptop-6.1");
    {
        const auto first = laptop.open();
        const auto second = laptop.open();
        EXPECT_NE(first.get(), second.get());
        EXPECT_EQ(laptop.client.outstanding(), 2u);
    }
    EXPECT_EQ(laptop.client.outstanding(), 0u);
}

TEST(LinuxSMCUserClient, a_value_is_told_on_the_block) {
    UserClient laptop("dell-laptop-6.1");
    const auto connection = laptop.open();
    auto information = ask(keyInformation, "F0Ac");
    ASSERT_EQ(laptop.call(connection, information), kernSuccess);
    EXPECT_EQ(laptop.filled, SMCParameterBlock::size);
    EXPECT_EQ(information.info(), (KeyInfo{4, smcTypes::flt, 0}));
    auto value = ask(readValue, "F0Ac");
    value.setInfo(information.info());
    ASSERT_EQ(laptop.call(connection, value), kernSuccess);
    EXPECT_EQ(value.result(), 0);
    EXPECT_EQ(decodeNumeric(value.value(4), smcTypes::flt, 4), 3187.0);
}

TEST(LinuxSMCUserClient, a_key_is_told_by_its_index_and_none_beyond_the_last) {
    UserClient laptop("dell-laptop-6.1");
    const auto connection = laptop.open();
    auto block = ask(keyAtIndex, "");
    ASSERT_EQ(laptop.call(connection, block), kernSuccess);
    EXPECT_EQ(block.key(), smcCode("#KEY"));
    block = ask(keyAtIndex, "");
    block.setIndex(0xffffffff);
    EXPECT_EQ(laptop.call(connection, block), kernSuccess);
    EXPECT_NE(block.result(), 0);
}

TEST(LinuxSMCUserClient, writing_is_not_permitted) {
    UserClient laptop("dell-laptop-6.1");
    const auto connection = laptop.open();
    auto block = ask(writeValue, "F0Tg");
    EXPECT_EQ(laptop.call(connection, block), ioReturnNotPrivileged);
}

TEST(LinuxSMCUserClient, the_number_of_fans_is_told_in_the_short_form_too) {
    UserClient laptop("dell-laptop-6.1");
    const auto connection = laptop.open();
    SMCParameterBlock block;
    std::ranges::copy(toData("FNum"), block.raw().begin());
    block.raw()[22] = std::byte{5};
    ASSERT_EQ(laptop.call(connection, block), kernSuccess);
    EXPECT_EQ(block.result(), 0);
    EXPECT_EQ(block.value(1)[0], std::byte{1});
}

TEST(LinuxSMCUserClient, a_call_that_is_none_is_refused) {
    UserClient laptop("dell-laptop-6.1");
    const auto connection = laptop.open();
    std::array<std::byte, 80> room{};
    std::size_t size = room.size();
    auto& client = laptop.client;
    EXPECT_EQ(client.connectCallStructMethod(connection, 1, room, room, size), ioReturnBadArgument);
    for (const std::size_t length : {0u, 79u}) {
        EXPECT_EQ(client.connectCallStructMethod(connection, 2, std::span(room).first(length), room,
                                                 size),
                  ioReturnBadArgument);
    }
    EXPECT_EQ(client.connectCallStructMethod({}, 2, room, room, size), ioReturnNotOpen);
}

TEST(LinuxSMCUserClient, no_more_is_filled_than_there_is_room) {
    UserClient laptop("dell-laptop-6.1");
    const auto connection = laptop.open();
    const auto block = ask(keyInformation, "FNum");
    std::array<std::byte, 80> room{};
    std::size_t size = 500;
    auto& client = laptop.client;
    EXPECT_EQ(
        client.connectCallStructMethod(connection, 2, block.raw(), std::span(room).first(40), size),
        kernSuccess);
    EXPECT_EQ(size, 40u);
    EXPECT_TRUE(std::ranges::all_of(std::span(room).subspan(40),
                                    [](std::byte byte) { return byte == std::byte{0}; }));
}

}  // namespace
}  // namespace vtx::test
