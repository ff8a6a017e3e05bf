// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedIORegistry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

using testing::ElementsAre;

// A registry of its own, with a drive below a bus.
class SimulatedIORegistryTest : public testing::Test {
protected:
    std::vector<std::string> walk(const RegistryIterator& iterator) {
        std::vector<std::string> names;
        while (const auto entry = port.iteratorNext(iterator))
            names.push_back(port.entryGetName(entry).value_or("?"));
        return names;
    }
    RegistryEntry entryOf(std::string_view className) {
        return port.getMatchingService(*port.serviceMatching(className));
    }

    SimulatedRegistry registry;
    Instruments instruments;
    SimulatedIORegistry port{registry, instruments};
    SimulatedRegistry::Node bus = registry.add(registry.root("IOService"), "bus", "Bus");
    SimulatedRegistry::Node drive = registry.add(bus, "drive", "Drive", {{"size", 7}});
    SimulatedRegistry::Node cpus = registry.add(registry.root("IODeviceTree"), "cpus", "Node");
};

TEST_F(SimulatedIORegistryTest, services_are_found_by_class_in_the_order_in_which_they_came) {
    registry.add(bus, "second", "Drive");
    const auto walked = port.getMatchingServices(*port.serviceMatching("Drive"));
    EXPECT_EQ(walked.result, kernSuccess);
    EXPECT_THAT(walk(walked.iterator), ElementsAre("drive", "second"));
}

TEST_F(SimulatedIORegistryTest, entries_are_found_by_their_path_in_a_plane) {
    registry.add(cpus, "cpu0", "Node");
    EXPECT_EQ(port.entryGetName(port.entryFromPath("IODeviceTree:/cpus/cpu0")), "cpu0");
    EXPECT_FALSE(port.entryFromPath("IODeviceTree:/memory"));
    EXPECT_FALSE(port.entryFromPath("IOService:/cpus"));
    EXPECT_FALSE(port.entryFromPath("cpus"));
}

TEST_F(SimulatedIORegistryTest, children_and_parents_are_there_in_the_entrys_own_plane_only) {
    const auto entry = entryOf("Bus");
    EXPECT_THAT(walk(port.entryGetChildIterator(entry, "IOService").iterator),
                ElementsAre("drive"));
    EXPECT_THAT(walk(port.entryGetChildIterator(entry, "IODeviceTree").iterator), ElementsAre());
    const auto child = entryOf("Drive");
    EXPECT_EQ(port.entryGetName(port.entryGetParentEntry(child, "IOService")), "bus");
    EXPECT_FALSE(port.entryGetParentEntry(child, "IODeviceTree"));
}

TEST_F(SimulatedIORegistryTest, a_view_shows_what_the_property_is_when_it_is_asked_for) {
    const auto entry = entryOf("Drive");
    int value = 1;
    registry.setSource(drive, "live", [&value] { return Property(value); });
    EXPECT_EQ(port.entryProperty(entry, "live").number(), 1);
    value = 2;
    EXPECT_EQ(port.entryProperties(entry).properties["live"].number(), 2);
    EXPECT_EQ(port.entryProperty(entry, "size").number(), 7);
    EXPECT_FALSE(port.entryProperty(entry, "none").exists());
}

TEST_F(SimulatedIORegistryTest, an_entry_that_went_away_answers_nothing_and_is_passed_over) {
    const auto held = entryOf("Drive");
    const auto walked = port.getMatchingServices(*port.serviceMatching("Drive"));
    registry.remove(bus);
    EXPECT_THAT(walk(walked.iterator), ElementsAre());
    EXPECT_NE(port.entryCreateCFProperties(held).result, kernSuccess);
    EXPECT_FALSE(port.entryProperty(held, "size").exists());
    EXPECT_EQ(port.entryGetName(held), std::nullopt);
    EXPECT_EQ(port.entryGetRegistryEntryID(held), std::nullopt);
}

TEST_F(SimulatedIORegistryTest, names_are_cut_to_the_platforms_buffer) {
    registry.add(bus, std::string(200, 'x'), "Long");
    EXPECT_EQ(port.entryGetName(entryOf("Long")), std::string(127, 'x'));
}

TEST_F(SimulatedIORegistryTest, a_retained_entry_outlives_the_first_owner) {
    auto first = entryOf("Drive");
    const auto second = port.objectRetain(first);
    first.reset();
    EXPECT_EQ(port.entryGetName(second), "drive");
    EXPECT_EQ(instruments.handles.outstanding(handles::registryEntry), 1U);
}

TEST_F(SimulatedIORegistryTest, every_owner_gives_its_reference_back) {
    {
        auto entry = entryOf("Drive");
        const auto walked = port.getMatchingServices(*port.serviceMatching("Drive"));
        const auto moved = std::move(entry);
        EXPECT_EQ(instruments.handles.outstanding(), 2U);
    }
    EXPECT_EQ(instruments.handles.outstanding(), 0U);
}

}  // namespace
}  // namespace vtx
