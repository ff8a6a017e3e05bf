// SPDX-License-Identifier: MIT
// Which keys of the SMC become sensors of the processor.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/SimulatedSensors.h"
#include "smc/SMCCode.h"
#include "support/SMCBench.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> discovered(SMCBench& b) {
    auto client = b.client();
    const auto keys = SMCBridge::discoverSensorKeys(client);
    EXPECT_THAT(keys.gpu, IsEmpty());
    return keys.cpu;
}

TEST(SensorDiscovery, a_name_of_the_processor_makes_a_sensor) {
    for (const char* name : {"Tp01", "Te05", "Tf0A", "TC0F", "TCxyz", "TC"})
        EXPECT_TRUE(SMCBridge::isCPUSensor(name)) << name;
    for (const char* name : {"Tg0f", "Tp0", "Tp012", "Te012", "Tf", "tp01", "TB0T", "xTC0", ""})
        EXPECT_FALSE(SMCBridge::isCPUSensor(name)) << name;
}

TEST(SensorDiscovery, takes_floats_of_that_name_in_the_order_of_the_store) {
    SMCBench b;
    b.addFloats({{"Tp0D", 50}, {"TC0F", 50}, {"Te05", 50}, {"Tg0f", 50}, {"Tf04", 50}});
    EXPECT_THAT(discovered(b), ElementsAre("TC0F", "Te05", "Tf04", "Tp0D"));
}

TEST(SensorDiscovery, no_other_type_or_size_is_ever_taken) {
    SMCBench b;
    b.add("Tp01", "sp78", encodeSMCSigned256ths(50));
    b.add("Tp02", "flt ", encodeSMCUnsigned16(50));
    b.add("Tp03", "ui32", encodeSMCUnsigned32(50));
    b.smc.add("Tp04", {.type = "flt ", .value = encodeSMCFloat(50), .claimedSize = 8});
    b.add("Tp05", "flt", encodeSMCFloat(50));
    b.addFloat("Tp06", 50);
    EXPECT_THAT(discovered(b), ElementsAre("Tp06"));
}

TEST(SensorDiscovery, what_a_sensor_says_does_not_matter_but_that_it_answers) {
    SMCBench b;
    b.addFloats({{"Tp01", -500}, {"Tp02", 50}, {"Tp03", 50}});
    b.smc.change("Tp02", [](auto& key) { key.failsEvery = 1; });
    b.smc.change("Tp03", [](auto& key) { key.hidesInformation = true; });
    EXPECT_THAT(discovered(b), ElementsAre("Tp01"));
}

TEST(SensorDiscovery, an_index_that_fails_is_passed_over) {
    SMCBench b;
    b.addFloats({{"Tp01", 50}, {"Tp02", 50}});
    auto client = b.client();
    // The number of keys takes two calls, the first index one.
    b.failures.failAfter(operations::connectCallStructMethod, 3);
    EXPECT_THAT(SMCBridge::discoverSensorKeys(client).cpu, ElementsAre("Tp02"));
    EXPECT_FALSE(b.failures.hasUnused());
}

TEST(SensorDiscovery, a_name_that_is_no_ascii_is_passed_over) {
    SMCBench b;
    b.addFloat("TC\xC3\xA9", 50);
    b.addFloat("Tp01", 50);
    EXPECT_THAT(discovered(b), ElementsAre("Tp01"));
}

TEST(SensorDiscovery, without_a_number_of_keys_there_are_none) {
    SMCBench b;
    b.addFloat("Tp01", 50);
    b.smc.remove("#KEY");
    EXPECT_THAT(discovered(b), IsEmpty());
    b.add("#KEY", "ui16", encodeSMCUnsigned16(3));
    EXPECT_THAT(discovered(b), IsEmpty());
    b.add("#KEY", "ui32", encodeSMCUnsigned32(2));
    EXPECT_THAT(discovered(b), ElementsAre("Tp01"));
}

TEST(SensorDiscovery, each_key_costs_one_call_and_each_float_two_more) {
    SMCBench b;
    b.addFloats({{"Tp01", 50}, {"Tg0f", 50}});
    b.add("BNum", "ui8 ", encodeSMCUnsigned8(1));
    b.platform.resetCalls();
    (void)discovered(b);
    EXPECT_EQ(b.platform.calls(operations::smcKeyAtIndex), 4U);
    EXPECT_EQ(b.platform.calls(operations::smcKeyInformation), 4U);
    EXPECT_EQ(b.platform.calls(operations::smcReadValue), 1U + 2U);
}

TEST(SensorDiscovery, four_billion_keys_do_not_keep_the_start_waiting) {
    SMCBench b;
    b.addFloat("Tp01", 50);
    b.add("#KEY", "ui32", encodeSMCUnsigned32(0xFFFFFFFFU));
    b.platform.resetCalls();
    EXPECT_THAT(discovered(b), ElementsAre("Tp01"));
    EXPECT_LE(b.platform.calls(operations::smcKeyAtIndex), 65'536U);
}

TEST(SensorDiscovery, a_store_that_shrinks_meanwhile_gives_what_is_left) {
    SMCBench b;
    b.addFloats({{"Tp01", 50}, {"Tp02", 50}, {"Tp03", 50}, {"Tp04", 50}});
    b.smc.onIndex([&b](std::uint32_t index) {
        if (index == 2 && b.smc.has("Tp03")) b.smc.remove("Tp03");
    });
    EXPECT_THAT(discovered(b), ElementsAre("Tp01", "Tp02", "Tp04"));
}

TEST(SensorDiscovery, a_store_that_empties_meanwhile_gives_what_was_seen) {
    SMCBench b;
    b.addFloats({{"Tp01", 50}, {"Tp02", 50}});
    b.smc.onIndex([&b](std::uint32_t index) {
        if (index == 2) b.smc.clear();
    });
    EXPECT_THAT(discovered(b), ElementsAre("Tp01"));
}

TEST(SensorDiscovery, a_key_that_moves_on_meanwhile_is_taken_once) {
    SMCBench b;
    b.addFloats({{"Tp02", 50}, {"Tp03", 50}});
    b.smc.onIndex([&b](std::uint32_t index) {
        if (index == 2) b.addFloat("Tp01", 50);
    });
    EXPECT_THAT(discovered(b), ElementsAre("Tp02"));
}

TEST(SensorDiscovery, nonsense_is_survived_and_leads_to_no_more_calls_than_keys) {
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        SMCBench b;
        b.smc.talkNonsense(seed);
        const auto keys = discovered(b);
        EXPECT_LE(keys.size(), 64U);
        EXPECT_LE(b.platform.calls(operations::smcKeyAtIndex), 65'536U);
    }
}

TEST(SensorDiscovery, finds_the_sensors_of_the_simulated_machine_and_nothing_else) {
    for (const std::size_t keys : {300U, 2000U}) {
        MacShape shape = MacShape::standard();
        shape.smcKeyCount = keys;
        TestBench b(shape);
        EXPECT_EQ(b.mac.smc.keyCount(), keys);
        const auto bridge = SMCBridge::open(b.ports());
        EXPECT_EQ(bridge->cpuKeys(), sensors::cpuKeys(shape));
    }
}

}  // namespace
}  // namespace vtx
