// SPDX-License-Identifier: MIT
#include "ui/models/PopoverSection.h"

#include <algorithm>
#include <array>

#include "core/DisplayPreferences.h"
#include "telemetry/SystemInfo.h"

namespace vtx {
namespace {

using Key = L10n::Key;

constexpr std::array sections{
    SectionDescription{PopoverSection::overview, "overview", "square.grid.2x2",
                       Key::section_overview},
    SectionDescription{PopoverSection::cpu, "cpu", "cpu", Key::section_cpu},
    SectionDescription{PopoverSection::gpu, "gpu", "cube.transparent", Key::section_gpu},
    SectionDescription{PopoverSection::memory, "memory", "memorychip", Key::section_memory},
    SectionDescription{PopoverSection::disk, "disk", "internaldrive", Key::section_disk},
    SectionDescription{PopoverSection::fan, "fan", "fan", Key::section_fan},
    SectionDescription{PopoverSection::ane, "ane", "brain", Key::section_ane},
    SectionDescription{PopoverSection::network, "network", "network", Key::section_network},
    SectionDescription{PopoverSection::battery, "battery", "battery.75", Key::section_battery},
    SectionDescription{PopoverSection::processes, "processes", "list.bullet.rectangle",
                       Key::section_processes},
    SectionDescription{PopoverSection::system, "system", "info.circle", Key::section_system},
    SectionDescription{PopoverSection::settings, "settings", "gearshape", Key::section_settings},
};

bool isOffered(PopoverSection section, const SystemInfo& machine,
               const DisplayPreferences& preferences) {
    switch (section) {
        case PopoverSection::gpu:
            return machine.hasGPU;
        case PopoverSection::battery:
            return machine.hasBattery;
        case PopoverSection::disk:
            return preferences.showDiskIO;
        case PopoverSection::fan:
            return preferences.showFan;
        case PopoverSection::ane:
            return false;  // nothing tells its load, whatever `showANE` says
        default:
            return true;
    }
}

}  // namespace

const SectionDescription& describe(PopoverSection section) {
    return *std::ranges::find(sections, section, &SectionDescription::section);
}

std::vector<PopoverSection> visibleSections(const SystemInfo& machine,
                                            const DisplayPreferences& preferences) {
    std::vector<PopoverSection> visible;
    for (const SectionDescription& said : sections)
        if (isOffered(said.section, machine, preferences)) visible.push_back(said.section);
    return visible;
}

}  // namespace vtx
