// SPDX-License-Identifier: MIT
#include "ui/models/PopoverSection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/DisplayPreferences.h"
#include "telemetry/SystemInfo.h"

namespace vtx {
namespace {

using Section = PopoverSection;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

SystemInfo laptop() {
    SystemInfo machine;
    machine.hasGPU = machine.hasBattery = true;
    return machine;
}

DisplayPreferences showingAll() {
    DisplayPreferences preferences;
    preferences.showDiskIO = preferences.showFan = preferences.showANE = true;
    return preferences;
}

TEST(PopoverSection, every_section_that_has_a_page_is_offered_in_the_order_of_the_bar) {
    EXPECT_THAT(visibleSections(laptop(), showingAll()),
                ElementsAre(Section::overview, Section::cpu, Section::gpu, Section::memory,
                            Section::disk, Section::fan, Section::network, Section::battery,
                            Section::processes, Section::system, Section::settings));
}

TEST(PopoverSection, a_first_start_offers_neither_disks_nor_fans) {
    EXPECT_THAT(visibleSections(laptop(), {}),
                ElementsAre(Section::overview, Section::cpu, Section::gpu, Section::memory,
                            Section::network, Section::battery, Section::processes, Section::system,
                            Section::settings));
}

TEST(PopoverSection, what_the_machine_lacks_is_not_offered) {
    SystemInfo machine = laptop();
    machine.hasGPU = false;
    EXPECT_THAT(visibleSections(machine, showingAll()), Not(Contains(Section::gpu)));
    EXPECT_THAT(visibleSections(machine, showingAll()), Contains(Section::battery));
    machine.hasBattery = false;
    EXPECT_THAT(visibleSections(machine, showingAll()), Not(Contains(Section::battery)));
}

TEST(PopoverSection, the_graphics_tile_of_the_strip_does_not_hide_their_page) {
    DisplayPreferences preferences;
    preferences.showGPU = preferences.showCPU = preferences.showMemory = false;
    const auto visible = visibleSections(laptop(), preferences);
    EXPECT_THAT(visible, Contains(Section::gpu));
    EXPECT_THAT(visible, Contains(Section::cpu));
    EXPECT_THAT(visible, Contains(Section::memory));
}

TEST(PopoverSection, the_neural_engine_is_never_offered) {
    EXPECT_THAT(visibleSections(laptop(), showingAll()), Not(Contains(Section::ane)));
}

TEST(PopoverSection, each_section_is_described_as_itself) {
    for (const Section section : visibleSections(laptop(), showingAll()))
        EXPECT_EQ(describe(section).section, section);
    EXPECT_EQ(describe(Section::battery).symbol, "battery.75");
    EXPECT_EQ(describe(Section::ane).title, L10n::Key::section_ane);
}

}  // namespace
}  // namespace vtx
