// SPDX-License-Identifier: MIT
#include "ui/models/SystemSectionModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SpokenIn.h"
#include "telemetry/SystemInfo.h"
#include "ui/models/ANESectionModel.h"

namespace vtx {
namespace {

using Rows = std::vector<KeyValueModel>;

SystemInfo laptop() {
    SystemInfo machine;
    machine.chipName = "Apple M2 Max";
    machine.architecture = SystemInfo::Architecture::appleSilicon;
    machine.pCoreCount = 8;
    machine.eCoreCount = 4;
    machine.pClusterMaxMHz = 3700;
    machine.eClusterMaxMHz = 2420;
    machine.totalRAMBytes = std::uint64_t{32} << 30;
    machine.ramType = "LPDDR5";
    machine.ramSpeedMTps = 6400;
    machine.gpuName = "Apple M2 Max";
    machine.gpuCoreCount = 38;
    machine.batteryDesignCapacityMAh = 8694;
    machine.batteryCycleCount = 184;
    machine.fanCount = 2;
    machine.modelFamily = "MacBook Pro";
    machine.modelIdentifier = "Mac14,6";
    return machine;
}

TEST(SystemSectionModel, tells_all_that_is_known_of_the_machine) {
    const test::SpokenIn texts;
    const std::vector<KeyValueCardModel> expected{
        {"Chip",
         {{"Model", "Apple M2 Max"},
          {"Architecture", "Apple Silicon"},
          {"Cores", "8 P · 4 E"},
          {"P-cluster max", "3.70 GHz"},
          {"E-cluster max", "2.42 GHz"}}},
        {"Memory", {{"Size", "32 GB"}, {"Type", "LPDDR5"}, {"Speed", "6400 MT/s"}}},
        {"GPU", {{"Model", "Apple M2 Max"}, {"Cores", "38"}}},
        {"Battery",
         {{"Design capacity", "8694 mAh"}, {"Cycle count", "184"}, {"Temperature", "31 °C"}}},
        {"Cooling", {{"Fans", "2"}}},
        {"Model", {{"Family", "MacBook Pro"}, {"Identifier", "Mac14,6"}}}};
    EXPECT_EQ(describeSystemSection(laptop(), 31.2, texts), expected);
}

TEST(SystemSectionModel, what_the_machine_does_not_tell_is_a_dash) {
    const test::SpokenIn texts;
    const auto cards = describeSystemSection({}, std::nullopt, texts);
    EXPECT_EQ(cards.at(0).rows.at(1).value, "Unknown");
    EXPECT_EQ(cards.at(0).rows.at(3).value, "—");
    EXPECT_EQ(cards.at(1).rows, (Rows{{"Size", "—"}, {"Type", "—"}, {"Speed", "—"}}));
    EXPECT_EQ(cards.at(2).rows, (Rows{{"Model", "—"}, {"Cores", "—"}}));
    EXPECT_EQ(cards.at(3).rows,
              (Rows{{"Design capacity", "—"}, {"Cycle count", "—"}, {"Temperature", "—"}}));
    EXPECT_EQ(cards.at(4).rows, (Rows{{"Fans", "0"}}));
}

TEST(SystemSectionModel, names_each_architecture) {
    const test::SpokenIn texts;
    SystemInfo machine;
    machine.architecture = SystemInfo::Architecture::intel;
    const auto cards = describeSystemSection(machine, std::nullopt, texts);
    EXPECT_EQ(cards.at(0).rows.at(1).value, "Intel");
}

TEST(SystemSectionModel, speaks_the_language_in_force) {
    const test::SpokenIn texts(Language::de);
    const auto cards = describeSystemSection(laptop(), std::nullopt, texts);
    EXPECT_EQ(cards.at(0).rows.at(2).title, "Kerne");
    EXPECT_EQ(cards.at(4).rows.at(0).title, "Lüfter");
}

TEST(ANESectionModel, says_that_nothing_tells_its_load) {
    const test::SpokenIn texts;
    EXPECT_EQ(
        describeANESection(texts),
        (PlaceholderModel{"brain.head.profile", "Neural Engine not available",
                          "Either the host has no ANE, or macOS gated access this session."}));
}

}  // namespace
}  // namespace vtx
