// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxIORegistry.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "linux/SteadyMemory.h"
#include "linux/TemporaryTree.h"
#include "platform/linux/LinuxSysctl.h"
#include "telemetry/CoreLayout.h"
#include "telemetry/PMGRReader.h"

namespace vtx::test {
namespace {

struct Machine {
    explicit Machine(const std::string& folder, LinuxIORegistry::Sources sources = {})
        : root(folder),
          processors(root),
          cpuFreq(root, processors),
          registry(processors, cpuFreq, std::move(sources)),
          memory(root),
          sysctl(root, processors, memory.reader) {}

    /// The cluster map as letters.
    [[nodiscard]] std::string clusters() {
        std::string letters;
        for (const auto type : CoreLayout::detectCpuClusterMap(registry))
            letters += type == ClusterType::efficiency ? 'E' : 'P';
        return letters;
    }

    LinuxRoot root;
    LinuxProcessors processors;
    CpuFreq cpuFreq;
    LinuxIORegistry registry;
    SteadyMemory memory;
    LinuxSysctl sysctl;
};

/// A device that a test takes away.
class RemovableNode final : public RegistryNode {
public:
    explicit RemovableNode(std::string name) : RegistryNode(planes::service, std::move(name)) {}

    bool isThere() override { return isPresent; }
    std::optional<PropertyMap> properties() override {
        if (!isPresent) return std::nullopt;
        ++reads;
        return PropertyMap{{"reads", reads}};
    }

    bool isPresent = true;
    int reads = 0;
};

class RemovableDevices final : public RegistrySource {
public:
    explicit RemovableDevices(RegistryNodes nodes) : nodes_(std::move(nodes)) {}
    std::string_view className() const override { return "IOThing"; }
    RegistryNodes services() override { return nodes_; }

private:
    RegistryNodes nodes_;
};

struct LinuxIORegistryWalk : testing::Test {
    static LinuxIORegistry::Sources sourcesOf(RegistryNodes nodes) {
        LinuxIORegistry::Sources sources;
        sources.push_back(std::make_unique<RemovableDevices>(std::move(nodes)));
        return sources;
    }

    std::shared_ptr<RemovableNode> a = std::make_shared<RemovableNode>("a");
    std::shared_ptr<RemovableNode> b = std::make_shared<RemovableNode>("b");
    TemporaryTree tree;
    Machine machine{tree.path(), sourcesOf({a, b})};
    LinuxIORegistry& registry = machine.registry;
};

TEST(LinuxIORegistry, hybrid_machines_tell_the_cluster_of_each_processor) {
    EXPECT_EQ(Machine(fixture("intel-hybrid-laptop-6.12")).clusters(), "PPPPPPPPEEEEEEEE");
    EXPECT_EQ(Machine(fixture("arm-big-little-board-6.6")).clusters(), "EEEEPP");
    EXPECT_EQ(Machine(fixture("arm-three-tier-6.10")).clusters(), "EEEEPPPP");
}

TEST(LinuxIORegistry, a_machine_of_one_level_tells_no_clusters) {
    Machine server(fixture("virtual-server-6.18"));
    EXPECT_FALSE(server.registry.entryFromPath("IODeviceTree:/cpus"));
    EXPECT_EQ(server.clusters(), "");
}

TEST(LinuxIORegistry, clusters_go_by_place_where_the_kernel_leaves_gaps) {
    const TemporaryTree tree;
    tree.write("/sys/devices/system/cpu/present", "0,2,5-6\n");
    tree.write("/sys/devices/cpu_core/cpus", "0,2\n");
    tree.write("/sys/devices/cpu_atom/cpus", "5-6\n");
    EXPECT_EQ(Machine(tree.path()).clusters(), "PPEE");
}

TEST(LinuxIORegistry, the_power_manager_has_the_clocks_of_both_clusters) {
    Machine board(fixture("arm-big-little-board-6.6"));
    const auto tables = PMGRReader::detectFrequencyTables(board.registry);
    ASSERT_TRUE(tables);
    EXPECT_EQ(tables->efficiencyStepsMHz, (std::vector<double>{408, 600, 816, 1008, 1200, 1416}));
    EXPECT_EQ(tables->performanceStepsMHz,
              (std::vector<double>{408, 600, 816, 1008, 1200, 1416, 1608, 1800}));
}

TEST(LinuxIORegistry, a_machine_of_one_level_has_the_clocks_of_its_fast_cluster_alone) {
    const TemporaryTree tree;
    tree.write("/sys/devices/system/cpu/present", "0\n");
    const std::string policy = "/sys/devices/system/cpu/cpufreq/policy0/";
    tree.write(policy + "related_cpus", "0\n");
    tree.write(policy + "scaling_available_frequencies", "48000 99500 1200500 99999000\n");
    Machine machine(tree.path());
    const auto tables = PMGRReader::detectFrequencyTables(machine.registry);
    ASSERT_TRUE(tables);
    EXPECT_TRUE(tables->efficiencyStepsMHz.empty());
    // Below 100 MHz the form has whole numbers only.
    EXPECT_EQ(tables->performanceStepsMHz, (std::vector<double>{48, 100, 1200.5, 99999}));
}

TEST(LinuxIORegistry, a_recorded_machine_of_one_level_has_its_highest_clock_last) {
    Machine laptop(fixture("amd-two-gpus-laptop-6.15"));
    const auto layout = CoreLayout::detect(laptop.sysctl, laptop.registry);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->pCoreMaxMHz, 5137.0);
    EXPECT_EQ(layout->pCoreFrequencyStepsMHz.front(), 400.0);
    EXPECT_TRUE(layout->eCoreFrequencyStepsMHz.empty());
    EXPECT_TRUE(layout->clusterMap.empty());
}

TEST(LinuxIORegistry, a_machine_without_cpufreq_has_no_power_manager) {
    Machine server(fixture("virtual-server-6.18"));
    const auto walk = server.registry.getMatchingServices({"AppleARMIODevice"});
    EXPECT_EQ(walk.result, kernSuccess);
    EXPECT_FALSE(walk.iterator);
    EXPECT_FALSE(PMGRReader::detectFrequencyTables(server.registry));
}

TEST(LinuxIORegistry, top_clocks_are_the_kernels_own) {
    Machine laptop(fixture("intel-hybrid-laptop-6.12"));
    const auto layout = CoreLayout::detect(laptop.sysctl, laptop.registry);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->pCoreMaxMHz, 4700.0);
    EXPECT_EQ(layout->eCoreMaxMHz, 3400.0);
    EXPECT_EQ(laptop.registry.outstandingObjects(), 0u);
}

TEST(LinuxIORegistry, what_nobody_knows_has_no_entries) {
    Machine laptop(fixture("intel-hybrid-laptop-6.12"));
    EXPECT_FALSE(laptop.registry.entryFromPath("IODeviceTree:/"));
    EXPECT_FALSE(laptop.registry.entryFromPath(""));
    EXPECT_FALSE(laptop.registry.getMatchingService({"IOThing"}));
    EXPECT_EQ(laptop.registry.getMatchingServices({""}).result, kernSuccess);
}

TEST(LinuxIORegistry, entries_that_are_none_answer_nothing) {
    Machine server(fixture("virtual-server-6.18"));
    EXPECT_EQ(server.registry.entryProperties({}).result, kernFailure);
    EXPECT_EQ(server.registry.entryCreateCFProperties({}).result, kernFailure);
    EXPECT_EQ(server.registry.entryGetChildIterator({}, planes::service).result, kernFailure);
    EXPECT_FALSE(server.registry.entryProperty({}, "key").exists());
    EXPECT_FALSE(server.registry.entryGetName({}));
    EXPECT_FALSE(server.registry.entryGetRegistryEntryID({}));
    EXPECT_FALSE(server.registry.objectRetain({}));
    EXPECT_FALSE(server.registry.iteratorNext({}));
}

TEST(LinuxIORegistry, a_child_knows_its_parent_in_its_own_plane_alone) {
    Machine board(fixture("arm-big-little-board-6.6"));
    const auto cpus = board.registry.entryFromPath("IODeviceTree:/cpus");
    auto walk = board.registry.entryGetChildIterator(cpus, planes::deviceTree);
    const auto child = board.registry.iteratorNext(walk.iterator);
    const auto parent = board.registry.entryGetParentEntry(child, planes::deviceTree);
    EXPECT_EQ(board.registry.entryGetName(parent), "cpus");
    EXPECT_EQ(board.registry.entryGetRegistryEntryID(parent),
              board.registry.entryGetRegistryEntryID(cpus));
    EXPECT_FALSE(board.registry.entryGetParentEntry(child, planes::service));
    EXPECT_FALSE(board.registry.entryGetParentEntry(cpus, planes::deviceTree));
    EXPECT_FALSE(board.registry.entryGetChildIterator(cpus, planes::service).iterator);
}

TEST_F(LinuxIORegistryWalk, skips_a_device_that_went_meanwhile) {
    const auto walk = registry.getMatchingServices({"IOThing"});
    a->isPresent = false;
    const auto next = registry.iteratorNext(walk.iterator);
    EXPECT_EQ(registry.entryGetName(next), "b");
    EXPECT_FALSE(registry.iteratorNext(walk.iterator));
}

TEST_F(LinuxIORegistryWalk, a_device_that_went_while_it_is_held_stops_answering) {
    const auto held = registry.getMatchingService({"IOThing"});
    EXPECT_EQ(registry.entryProperties(held).properties["reads"].number(), 1);
    a->isPresent = false;
    const auto answer = registry.entryProperties(held);
    EXPECT_EQ(answer.result, kernFailure);
    EXPECT_FALSE(answer.properties.exists());
    EXPECT_FALSE(registry.entryCreateCFProperties(held).properties);
}

TEST_F(LinuxIORegistryWalk, a_second_owner_keeps_a_device_and_looks_for_itself) {
    auto first = registry.getMatchingService({"IOThing"});
    const auto second = registry.objectRetain(first);
    const auto seen = registry.entryProperties(second);
    EXPECT_EQ(registry.entryProperty(first, "reads").number(), 2);
    first.reset();
    EXPECT_EQ(seen.properties["reads"].number(), 1);
    EXPECT_EQ(registry.outstandingObjects(), 1u);
}

TEST_F(LinuxIORegistryWalk, a_device_has_a_number_that_no_other_gets) {
    const auto first = registry.entryGetRegistryEntryID(registry.getMatchingService({"IOThing"}));
    const auto again = registry.entryGetRegistryEntryID(registry.getMatchingService({"IOThing"}));
    EXPECT_EQ(first, again);
    a->isPresent = false;
    const auto walk = registry.getMatchingServices({"IOThing"});
    EXPECT_NE(registry.entryGetRegistryEntryID(registry.iteratorNext(walk.iterator)), first);
}

TEST_F(LinuxIORegistryWalk, everything_that_was_given_out_comes_back) {
    {
        const auto walk = registry.getMatchingServices({"IOThing"});
        const auto entry = registry.iteratorNext(walk.iterator);
        EXPECT_EQ(registry.outstandingObjects(), 2u);
    }
    EXPECT_EQ(registry.outstandingObjects(), 0u);
}

}  // namespace
}  // namespace vtx::test
