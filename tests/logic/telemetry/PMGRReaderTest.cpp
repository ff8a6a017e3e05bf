// SPDX-License-Identifier: MIT
#include "telemetry/PMGRReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/RegistryBench.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Keys = PMGRReader::ClusterKeys;

// A table as the firmware writes it: each frequency followed by a voltage that nobody reads.
Data tableOf(std::initializer_list<std::uint32_t> frequencies) {
    Data table;
    for (const std::uint32_t frequency : frequencies) {
        for (const std::uint32_t word : {frequency, 0xdeadbeefU}) {
            const Data bytes = encodeDeviceTreeNumber(word);
            table.insert(table.end(), bytes.begin(), bytes.end());
        }
    }
    return table;
}

Data clustersOf(std::initializer_list<ClusterRecord> clusters) {
    return encodeClusters(std::span(clusters.begin(), clusters.size()));
}

std::vector<double> stepsOf(Property table) {
    return PMGRReader::decodeSteps("t", {{"t", std::move(table)}});
}

std::optional<Keys> keysOf(Property clusters) {
    return PMGRReader::clusterKeys({{"acc-clusters", std::move(clusters)}});
}

struct Magnitude {
    std::uint32_t raw;
    double mhz;
};

class RawSteps : public testing::TestWithParam<Magnitude> {};

TEST_P(RawSteps, are_read_in_the_unit_that_their_magnitude_tells) {
    EXPECT_THAT(stepsOf(tableOf({GetParam().raw})), ElementsAre(GetParam().mhz));
}

INSTANTIATE_TEST_SUITE_P(magnitudes, RawSteps,
                         testing::Values(Magnitude{0, 0.0}, Magnitude{1, 1.0},
                                         Magnitude{600, 600.0}, Magnitude{99'999, 99'999.0},
                                         Magnitude{100'000, 100.0}, Magnitude{2'424'000, 2424.0},
                                         Magnitude{99'999'999, 99'999.999},
                                         Magnitude{100'000'000, 100.0},
                                         Magnitude{3'696'000'000, 3696.0},
                                         Magnitude{0xffffffff, 4294.967295}));

TEST(PMGRReader, a_partial_record_at_the_end_of_a_table_is_dropped) {
    Data table = tableOf({600, 912, 1284});
    table.resize(20);
    EXPECT_THAT(stepsOf(table), ElementsAre(600, 912));
}

TEST(PMGRReader, a_table_shorter_than_a_record_has_no_steps) {
    EXPECT_THAT(stepsOf(Data(7)), IsEmpty());
    EXPECT_THAT(stepsOf(Data{}), IsEmpty());
}

TEST(PMGRReader, steps_are_neither_sorted_nor_filtered) {
    EXPECT_THAT(stepsOf(tableOf({912, 0, 600, 600})), ElementsAre(912, 0, 600, 600));
}

TEST(PMGRReader, a_table_that_is_missing_or_no_bytes_has_no_steps) {
    EXPECT_THAT(PMGRReader::decodeSteps("t", {}), IsEmpty());
    EXPECT_THAT(stepsOf("600 MHz!"), IsEmpty());
    EXPECT_THAT(stepsOf(600), IsEmpty());
    EXPECT_THAT(stepsOf(PropertyList{600}), IsEmpty());
}

TEST(PMGRReader, the_highest_tier_is_performance_and_the_next_one_efficiency) {
    EXPECT_EQ(keysOf(clustersOf({{7, 1}, {3, 0}, {9, 2}})),
              (Keys{"voltage-states7-sram", "voltage-states9-sram"}));
}

TEST(PMGRReader, of_equal_tiers_the_later_one_is_performance) {
    EXPECT_EQ(keysOf(clustersOf({{1, 0}, {5, 0}})),
              (Keys{"voltage-states1-sram", "voltage-states5-sram"}));
}

TEST(PMGRReader, many_clusters_of_equal_tiers_keep_their_order) {
    std::vector<ClusterRecord> clusters;
    for (std::uint8_t table = 0; table < 100; ++table)
        clusters.push_back({table, static_cast<std::uint8_t>(1 - table % 2)});
    EXPECT_EQ(keysOf(encodeClusters(clusters)),
              (Keys{"voltage-states96-sram", "voltage-states98-sram"}));
}

TEST(PMGRReader, fewer_than_two_whole_cluster_records_name_no_tables) {
    EXPECT_EQ(keysOf(clustersOf({{1, 0}})), std::nullopt);
    EXPECT_EQ(keysOf(Data{}), std::nullopt);
    EXPECT_EQ(keysOf(Data(15, std::byte{1})), std::nullopt);
    EXPECT_EQ(keysOf("acc-clusters, 16"), std::nullopt);
    EXPECT_EQ(PMGRReader::clusterKeys({}), std::nullopt);
}

TEST(PMGRReader, table_numbers_and_tiers_are_unsigned_bytes) {
    EXPECT_EQ(keysOf(clustersOf({{255, 128}, {200, 127}})),
              (Keys{"voltage-states200-sram", "voltage-states255-sram"}));
}

// A machine's registry, and the process's log.
struct Detection : RegistryBench {
    TestBench bench;

    std::optional<ClusterFrequencyTables> detect() {
        return PMGRReader::detectFrequencyTables(port);
    }
    [[nodiscard]] bool saidUndecodable() const {
        return bench.log.contains(LogLevel::standard, "PMGRReader",
                                  "pmgr present but no DVFS tables were decoded");
    }
};

TEST(PMGRReader, the_tables_that_the_clusters_name_are_taken) {
    Detection d;
    d.addPowerManager({{"acc-clusters", clustersOf({{2, 0}, {4, 1}})},
                       {"voltage-states2-sram", tableOf({600, 2424})},
                       {"voltage-states4-sram", tableOf({600'000, 3'696'000})},
                       {"voltage-states1-sram", tableOf({1})},
                       {"voltage-states5-sram", tableOf({5})}});
    EXPECT_EQ(d.detect(), (ClusterFrequencyTables{{600, 3696}, {600, 2424}}));
}

TEST(PMGRReader, without_clusters_the_default_names_are_used) {
    Detection d;
    const auto pmgr = d.addPowerManager({{"voltage-states1-sram", tableOf({600, 2064})},
                                         {"voltage-states5-sram", tableOf({600, 3204})}});
    EXPECT_EQ(d.detect(), (ClusterFrequencyTables{{600, 3204}, {600, 2064}}));
    d.registry.set(pmgr, "acc-clusters", clustersOf({{9, 0}}));
    EXPECT_EQ(d.detect(), (ClusterFrequencyTables{{600, 3204}, {600, 2064}}));
}

TEST(PMGRReader, one_table_is_enough) {
    Detection d;
    d.addPowerManager({{"voltage-states5-sram", tableOf({600, 3204})}});
    EXPECT_EQ(d.detect(), (ClusterFrequencyTables{{600, 3204}, {}}));
    EXPECT_FALSE(d.saidUndecodable());
}

TEST(PMGRReader, a_power_manager_without_any_table_is_told) {
    Detection d;
    d.addPowerManager({{"voltage-states5-sram", Data(7)}});
    EXPECT_EQ(d.detect(), std::nullopt);
    EXPECT_TRUE(d.saidUndecodable());
}

TEST(PMGRReader, a_machine_without_a_power_manager_has_no_tables_and_nothing_is_said) {
    Detection d;
    d.registry.add(d.services, "aic", "AppleARMIODevice");
    EXPECT_EQ(d.detect(), std::nullopt);
    EXPECT_TRUE(d.bench.log.lines("PMGRReader").empty());
}

TEST(PMGRReader, the_power_manager_is_found_among_other_devices_of_its_class) {
    Detection d;
    d.registry.add(d.services, "aic", "AppleARMIODevice");
    d.registry.add(d.services, "pmgr", "SomethingElse");
    d.registry.add(d.services, "pmgr2", "AppleARMIODevice");
    d.registry.add(d.services, "PMGR", "AppleARMIODevice");
    d.addPowerManager({{"voltage-states5-sram", tableOf({600})}});
    EXPECT_TRUE(d.detect());
}

TEST(PMGRReader, properties_that_are_no_dictionary_are_none) {
    Detection d;
    const auto pmgr = d.addPowerManager({{"voltage-states5-sram", tableOf({600})}});
    d.registry.setWhole(pmgr, Property("text"));
    EXPECT_EQ(d.detect(), std::nullopt);
    d.registry.setWhole(pmgr, std::nullopt);
    EXPECT_EQ(d.detect(), std::nullopt);
    EXPECT_FALSE(d.saidUndecodable());
}

TEST(PMGRReader, whatever_fails_there_are_no_tables_and_nothing_stays_held) {
    for (const auto operation :
         {operations::serviceMatching, operations::getMatchingServices,
          operations::getMatchingServicesNull, operations::iteratorNext, operations::getName,
          operations::createCFProperties, operations::createCFPropertiesNull}) {
        Detection d;
        d.addPowerManager({{"voltage-states5-sram", tableOf({600})}});
        d.instruments.failures.failNext(operation);
        EXPECT_EQ(d.detect(), std::nullopt) << operation;
        EXPECT_FALSE(d.instruments.failures.hasUnused()) << operation;
        EXPECT_EQ(d.instruments.handles.outstanding(), 0U) << operation;
        EXPECT_TRUE(d.detect()) << operation;
        EXPECT_EQ(d.instruments.handles.outstanding(), 0U) << operation;
    }
}

}  // namespace
}  // namespace vtx
