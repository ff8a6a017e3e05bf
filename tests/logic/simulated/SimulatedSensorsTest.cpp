// SPDX-License-Identifier: MIT
// The warmth of the simulated machine, and its SMC.
#include "platform/simulated/SimulatedSensors.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "platform/simulated/ManualClock.h"
#include "platform/simulated/SimulatedProcessors.h"
#include "smc/SMCCode.h"
#include "smc/SMCParameterBlock.h"
#include "support/SMCBench.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

struct Warm {
    ManualClock clock;
    SimulatedProcessors processors{clock, MacShape::standard()};
    SimulatedThermals thermals{clock, processors};
};

TEST(SimulatedThermals, an_idle_machine_stays_as_warm_as_it_was) {
    Warm w;
    const double before = w.thermals.coreC(0);
    w.clock.advanceBy(24h);
    EXPECT_NEAR(w.thermals.coreC(0), before, 0.01);
    EXPECT_NEAR(w.thermals.packageC(), 38, 0.01);
}

TEST(SimulatedThermals, a_load_warms_with_inertia_and_its_own_core_first) {
    Warm w;
    w.processors.setLoad(5, {1, 0, 0});
    w.clock.advanceBy(2s);
    const double own = w.thermals.coreC(5) - w.thermals.coreC(6);
    EXPECT_GT(own, 3);
    const double package = w.thermals.packageC();
    w.clock.advanceBy(60s);
    EXPECT_GT(w.thermals.packageC(), package + 1);
    EXPECT_LT(w.thermals.packageC(), 45) << "one core of twelve";
}

TEST(SimulatedThermals, asking_often_or_once_comes_to_the_same) {
    Warm often;
    Warm once;
    for (Warm* w : {&often, &once}) w->processors.setLoadOfAll({0.7, 0, 0});
    for (int i = 0; i < 40; ++i) {
        often.clock.advanceBy(500ms);
        (void)often.thermals.coreC(1);
    }
    once.clock.advanceBy(20s);
    EXPECT_NEAR(often.thermals.coreC(1), once.thermals.coreC(1), 0.05);
    EXPECT_NEAR(often.thermals.fan(0).currentRPM, once.thermals.fan(0).currentRPM, 5);
}

TEST(SimulatedThermals, it_cools_while_the_machine_sleeps) {
    Warm w;
    w.processors.setLoadOfAll({1, 0, 0});
    w.clock.advanceBy(60s);
    EXPECT_GT(w.thermals.packageC(), 70);
    w.processors.setAsleep(true);
    w.clock.advanceBy(600s);
    EXPECT_NEAR(w.thermals.packageC(), 38, 1);
}

TEST(SimulatedThermals, fans_follow_the_warmth_with_inertia_and_keep_their_range) {
    Warm w;
    w.processors.setLoadOfAll({1, 0, 0});
    w.clock.advanceBy(20s);
    const SimulatedFan rising = w.thermals.fan(0);
    EXPECT_GT(rising.targetRPM, rising.currentRPM);
    EXPECT_GT(rising.currentRPM, rising.minRPM);
    w.thermals.setAmbientC(80);
    w.clock.advanceBy(600s);
    EXPECT_NEAR(w.thermals.fan(0).currentRPM, w.thermals.fan(0).maxRPM, 1);
    w.thermals.setAmbientC(-20);
    w.clock.advanceBy(600s);
    EXPECT_NEAR(w.thermals.fan(0).currentRPM, w.thermals.fan(0).minRPM, 1);
}

TEST(SimulatedSensors, the_machine_has_keys_of_every_type_and_size) {
    TestBench b;
    SMCClient client(b.platform.smc, SMCClient::openConnection(b.platform.smc));
    std::set<std::uint32_t> types;
    std::set<std::uint32_t> sizes;
    for (std::uint32_t i = 0; i < 300; ++i) {
        const auto info = client.readKeyInfo(*client.keyAtIndex(i));
        types.insert(info->dataType);
        sizes.insert(info->dataSize);
    }
    for (const char* type : {"flt ", "ui8 ", "ui16", "ui32", "sp78", "fpe2", "fp2e", "ch8*"})
        EXPECT_TRUE(types.contains(smcCode(type))) << type;
    EXPECT_EQ(sizes, (std::set<std::uint32_t>{0, 1, 2, 4, 8, 16, 32, 40}));
    EXPECT_EQ(client.keyAtIndex(300), std::nullopt);
}

TEST(SimulatedSensors, the_hot_spots_stand_above_every_other_sensor) {
    TestBench b;
    SMCClient client(b.platform.smc, SMCClient::openConnection(b.platform.smc));
    const auto celsiusOf = [&client](std::string_view key) {
        const auto read = client.readValue(key);
        float value = 0;
        std::memcpy(&value, read->bytes().data(), sizeof value);
        return value;
    };
    const auto coolestHotSpot = std::min(celsiusOf("Tp0H"), celsiusOf("Tp0n"));
    for (const auto& key : sensors::cpuKeys(MacShape::standard())) {
        if (key == "Tp0H" || key == "Tp0n") continue;
        EXPECT_LT(celsiusOf(key) + 10, coolestHotSpot) << key;
    }
}

TEST(SimulatedSMC, writing_needs_the_right_to_do_so) {
    SMCBench b;
    b.addFloat("F0Tg", 2000);
    const auto connection = SMCClient::openConnection(b.platform.smc);
    const auto write = [&](std::string_view key) {
        SMCParameterBlock question;
        SMCParameterBlock answer;
        question.setKey(smcCode(key));
        question.setInfo({4, smcTypes::flt, 0});
        question.setCommand(SMCParameterBlock::Command::writeValue);
        question.setValue(encodeSMCFloat(3000));
        std::size_t size = SMCParameterBlock::size;
        const auto result = b.platform.smc.connectCallStructMethod(connection, 2, question.raw(),
                                                                   answer.raw(), size);
        return std::pair(result, static_cast<int>(answer.result()));
    };
    EXPECT_EQ(write("F0Tg"), std::pair(ioReturnNotPrivileged, 0));
    b.smc.mayWrite = true;
    EXPECT_EQ(write("F0Tg"), std::pair(kernSuccess, 0));
    EXPECT_EQ(b.smc.key("F0Tg").value, encodeSMCFloat(3000));
    EXPECT_EQ(write("F9Tg"), std::pair(kernSuccess, 0x84));
}

TEST(SimulatedSMC, a_call_that_is_not_understood_is_refused) {
    SMCBench b;
    const auto connection = SMCClient::openConnection(b.platform.smc);
    SMCParameterBlock block;
    std::size_t size = SMCParameterBlock::size;
    const auto call = [&](std::uint32_t selector, std::span<const std::byte> input) {
        return b.platform.smc.connectCallStructMethod(connection, selector, input, block.raw(),
                                                      size);
    };
    EXPECT_EQ(call(3, block.raw()), ioReturnBadArgument);
    EXPECT_EQ(call(2, block.raw().first(79)), ioReturnBadArgument);
    EXPECT_EQ(call(2, block.raw()), kernSuccess);
    EXPECT_NE(block.result(), 0) << "command 0 is none";
}

}  // namespace
}  // namespace vtx
