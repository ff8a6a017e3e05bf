// SPDX-License-Identifier: MIT
#include "smc/SMCClient.h"

#include <gtest/gtest.h>

#include "smc/SMCCode.h"
#include "support/SMCBench.h"

namespace vtx {
namespace {

Data bytesUpTo(std::size_t count) {
    Data data;
    for (std::size_t i = 0; i < count; ++i) data.push_back(static_cast<std::byte>(i + 1));
    return data;
}

Data bytesOf(const std::optional<SMCClient::Value>& value) {
    return value ? Data(value->bytes().begin(), value->bytes().end()) : Data{std::byte{0xEE}};
}

// Whether a connection came about; whatever was held on the way must be back.
bool opens(SMCBench& b) {
    const bool isOpen = static_cast<bool>(SMCClient::openConnection(b.platform.smc));
    EXPECT_EQ(b.platform.outstanding(), 0U);
    return isOpen;
}

TEST(SMCConnection, opens_the_service_that_holds_the_keys_and_closes_with_its_owner) {
    SMCBench b;
    {
        const auto connection = SMCClient::openConnection(b.platform.smc);
        EXPECT_TRUE(connection);
        EXPECT_EQ(b.platform.instruments.handles.outstanding(handles::smcConnection), 1U);
        EXPECT_EQ(b.platform.outstanding(), 1U);
    }
    EXPECT_EQ(b.platform.outstanding(), 0U);
}

TEST(SMCConnection, one_that_moved_closes_once) {
    SMCBench b;
    auto first = SMCClient::openConnection(b.platform.smc);
    SMCConnection second = std::move(first);
    second = SMCClient::openConnection(b.platform.smc);
    EXPECT_EQ(b.platform.calls(operations::serviceClose), 1U);
    second.reset();
    EXPECT_EQ(b.platform.calls(operations::serviceClose), 2U);
}

TEST(SMCConnection, without_the_service_of_that_very_name_there_is_none) {
    SMCBench b;
    for (const std::vector<std::string>& services :
         {std::vector<std::string>{},
          {"AppleSMC"},
          {"AppleSMCKeysEndpoint2", "applesmckeysendpoint"}}) {
        b.smc.services = services;
        EXPECT_FALSE(opens(b));
    }
    b.smc.services = {"A", "B", "AppleSMCKeysEndpoint", "C"};
    EXPECT_TRUE(opens(b));
}

TEST(SMCConnection, a_name_that_cannot_be_read_skips_the_service) {
    SMCBench b;
    b.smc.services = {"AppleSMCKeysEndpoint", "AppleSMCKeysEndpoint"};
    b.failures.failNext(operations::getName);
    EXPECT_TRUE(opens(b));
    b.failures.failNext(operations::getName, 2);
    EXPECT_FALSE(opens(b));
}

TEST(SMCConnection, each_step_that_fails_leaves_none_behind) {
    for (const auto step : {operations::serviceMatching, operations::getMatchingServices,
                            operations::getMatchingServicesNull, operations::serviceOpen}) {
        SMCBench b;
        b.failures.failNext(step);
        EXPECT_FALSE(opens(b)) << step;
        EXPECT_FALSE(b.failures.hasUnused());
    }
}

TEST(SMCClient, of_a_long_value_it_reads_32_bytes) {
    SMCBench b;
    b.add("JSON", "{jst", bytesUpTo(40));
    auto client = b.client();
    const auto value = client.readValue("JSON");
    EXPECT_EQ(bytesOf(value), bytesUpTo(32));
    EXPECT_EQ(value->info.dataSize, 40U);
}

TEST(SMCClient, a_value_without_bytes_reads_as_none) {
    SMCBench b;
    b.add("VOID", "flt ", {});
    auto client = b.client();
    EXPECT_EQ(bytesOf(client.readValue("VOID")), Data{});
}

TEST(SMCClient, a_size_that_lies_gives_as_many_bytes_as_it_says_up_to_32) {
    SMCBench b;
    b.smc.add("LIE4", {.type = "flt ", .value = bytesUpTo(2), .claimedSize = 4});
    b.smc.add("LIEb", {.type = "flt ", .value = bytesUpTo(4), .claimedSize = 4'000'000'000U});
    b.smc.add("LIE1", {.type = "flt ", .value = bytesUpTo(4), .claimedSize = 1});
    auto client = b.client();
    EXPECT_EQ(client.readValue("LIE4")->count, 4U);
    EXPECT_EQ(client.readValue("LIEb")->count, 32U);
    EXPECT_EQ(client.readValue("LIE1")->count, 1U);
}

TEST(SMCClient, an_output_that_is_too_short_is_no_value_though_the_call_succeeded) {
    SMCBench b;
    b.addFloat("Tp01", 50.0F);
    auto client = b.client();
    ASSERT_TRUE(client.readValue("Tp01"));
    for (const int size : {0, 1, 47}) {
        b.failures.failNext(operations::connectCallStructMethodOutputSize, 1, size);
        EXPECT_FALSE(client.readValue("Tp01")) << size;
    }
    b.failures.failNext(operations::connectCallStructMethodOutputSize, 1, 48);
    EXPECT_TRUE(client.readValue("Tp01"));
}

TEST(SMCClient, a_call_that_fails_and_a_result_that_is_no_success_are_no_value) {
    SMCBench b;
    b.addFloat("Tp01", 50.0F);
    auto client = b.client();
    EXPECT_FALSE(client.readValue("Tp99"));
    EXPECT_FALSE(client.keyAtIndex(999));
    b.failures.failNext(operations::connectCallStructMethod, 1, ioReturnNotPrivileged);
    EXPECT_FALSE(client.readValue("Tp01"));
    EXPECT_TRUE(client.readValue("Tp01"));
}

TEST(SMCClient, what_is_known_of_a_key_is_not_asked_again) {
    SMCBench b;
    b.addFloat("Tp01", 50.0F);
    auto client = b.client();
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(client.readValue("Tp01"));
    EXPECT_EQ(b.smc.key("Tp01").questions, 1U);
    EXPECT_EQ(b.smc.key("Tp01").reads, 5U);
}

TEST(SMCClient, a_failed_question_is_asked_again_with_the_next_use) {
    SMCBench b;
    b.addFloat("Tp01", 50.0F);
    b.smc.change("Tp01", [](auto& key) { key.hidesInformation = true; });
    auto client = b.client();
    EXPECT_FALSE(client.readKeyInfo(smcCode("Tp01")));
    EXPECT_FALSE(client.readValue("Tp01"));
    b.smc.change("Tp01", [](auto& key) { key.hidesInformation = false; });
    EXPECT_TRUE(client.readValue("Tp01"));
    EXPECT_EQ(b.smc.key("Tp01").questions, 3U);
}

TEST(SMCClient, a_type_that_changes_later_stays_unseen) {
    SMCBench b;
    b.addFloat("Tp01", 50.0F);
    auto client = b.client();
    ASSERT_TRUE(client.readValue("Tp01"));
    b.smc.change("Tp01", [](auto& key) {
        key.type = "ui16";
        key.value = encodeSMCUnsigned16(7);
    });
    EXPECT_EQ(client.readValue("Tp01")->info, (KeyInfo{4, smcTypes::flt, 0x80}));
}

TEST(SMCClient, keys_come_in_the_stores_order_until_its_end) {
    SMCBench b;
    b.addFloats({{"Tp02", 1.0F}, {"Tp01", 1.0F}});
    auto client = b.client();
    EXPECT_EQ(client.keyAtIndex(0), smcCode("#KEY"));
    EXPECT_EQ(client.keyAtIndex(1), smcCode("Tp01"));
    EXPECT_EQ(client.keyAtIndex(2), smcCode("Tp02"));
    EXPECT_EQ(client.keyAtIndex(3), std::nullopt);
}

TEST(SMCClient, without_a_connection_every_read_is_no_value) {
    SMCBench b;
    b.addFloat("Tp01", 50.0F);
    SMCClient client(b.platform.smc, SMCConnection{});
    EXPECT_FALSE(client.readValue("Tp01"));
    EXPECT_FALSE(client.keyAtIndex(0));
}

}  // namespace
}  // namespace vtx
