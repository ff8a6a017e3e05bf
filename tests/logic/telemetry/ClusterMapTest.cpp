// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/RegistryBench.h"
#include "telemetry/CoreLayout.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum ClusterType;

struct Cpus : RegistryBench {
    Node cpus = addCpus();

    Node add(std::uint32_t number, std::string_view type) { return addCpu(cpus, number, type); }
    std::vector<ClusterType> map() { return CoreLayout::detectCpuClusterMap(port); }
};

TEST(ClusterMap, a_hole_between_the_processors_takes_performance) {
    Cpus c;
    c.add(0, "E");
    c.add(1, "E");
    c.add(3, "P");
    EXPECT_THAT(c.map(), ElementsAre(efficiency, efficiency, performance, performance));
}

TEST(ClusterMap, the_first_letter_of_the_type_decides_whatever_follows) {
    Cpus c;
    c.add(0, "Efficiency");
    c.add(1, std::string_view("P\0", 2));
    EXPECT_THAT(c.map(), ElementsAre(efficiency, performance));
}

TEST(ClusterMap, any_other_letter_takes_the_processor_out) {
    Cpus c;
    c.add(0, "E");
    c.add(1, "M");
    c.add(2, "p");
    c.add(3, "");
    EXPECT_THAT(c.map(), ElementsAre(efficiency));
    c.add(4, "E");
    EXPECT_THAT(c.map(),
                ElementsAre(efficiency, performance, performance, performance, efficiency));
}

TEST(ClusterMap, the_order_of_the_nodes_does_not_matter) {
    Cpus c;
    c.add(2, "E");
    c.add(0, "P");
    EXPECT_THAT(c.map(), ElementsAre(performance, performance, efficiency));
}

TEST(ClusterMap, a_later_node_with_the_same_number_replaces_the_earlier_one) {
    Cpus c;
    c.add(0, "E");
    c.add(0, "P");
    EXPECT_THAT(c.map(), ElementsAre(performance));
}

TEST(ClusterMap, numbers_are_the_first_four_bytes_lowest_first) {
    Cpus c;
    const auto cpu = c.add(0, "E");
    c.registry.set(cpu, "cpu-id", Data{std::byte{2}, {}, {}, {}, std::byte{9}});
    EXPECT_THAT(c.map(), ElementsAre(performance, performance, efficiency));
}

TEST(ClusterMap, nodes_with_wrong_or_missing_properties_are_passed_over) {
    Cpus c;
    c.add(0, "E");
    for (const auto& id : {Property(1), Property("1234"), Property(Data(3))})
        c.registry.set(c.add(7, "P"), "cpu-id", id);
    for (const auto& type : {Property("E"), Property(69), Property(true)})
        c.registry.set(c.add(7, "P"), "cluster-type", type);
    c.registry.unset(c.add(7, "P"), "cpu-id");
    c.registry.unset(c.add(7, "P"), "cluster-type");
    c.registry.setWhole(c.add(7, "P"), Property("no dictionary"));
    c.registry.setWhole(c.add(7, "P"), std::nullopt);
    EXPECT_THAT(c.map(), ElementsAre(efficiency));
}

TEST(ClusterMap, a_number_beyond_any_machine_leaves_no_map) {
    Cpus c;
    c.add(0, "E");
    c.add(0xffffffff, "P");
    EXPECT_THAT(c.map(), IsEmpty());
}

TEST(ClusterMap, without_processors_in_the_tree_there_is_no_map) {
    EXPECT_THAT(Cpus().map(), IsEmpty());
    RegistryBench bare;
    EXPECT_THAT(CoreLayout::detectCpuClusterMap(bare.port), IsEmpty());
}

TEST(ClusterMap, a_processor_that_cannot_be_read_is_passed_over) {
    Cpus c;
    c.add(0, "E");
    c.add(1, "E");
    c.instruments.failures.failNext(operations::createCFProperties);
    EXPECT_THAT(c.map(), ElementsAre(performance, efficiency));
    EXPECT_EQ(c.instruments.handles.outstanding(), 0U);
}

TEST(ClusterMap, processors_that_go_during_the_walk_are_passed_over) {
    Cpus c;
    const auto first = c.add(0, "E");
    const auto leaving = c.add(1, "E");
    c.registry.setSource(first, "leaves", [&c, leaving] {
        if (c.registry.exists(leaving)) c.registry.remove(leaving);
        return Property(true);
    });
    EXPECT_THAT(c.map(), ElementsAre(efficiency));
    EXPECT_EQ(c.instruments.handles.outstanding(), 0U);
}

TEST(ClusterMap, whatever_fails_nothing_stays_held) {
    for (const auto operation : {operations::registryEntryFromPath, operations::getChildIterator,
                                 operations::getChildIteratorNull, operations::iteratorNext}) {
        Cpus c;
        c.add(0, "E");
        c.instruments.failures.failNext(operation);
        EXPECT_THAT(c.map(), IsEmpty()) << operation;
        EXPECT_FALSE(c.instruments.failures.hasUnused()) << operation;
        EXPECT_EQ(c.instruments.handles.outstanding(), 0U) << operation;
        EXPECT_THAT(c.map(), ElementsAre(efficiency)) << operation;
    }
}

}  // namespace
}  // namespace vtx
