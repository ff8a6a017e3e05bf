// SPDX-License-Identifier: MIT
#include "comparison/Sections.h"

#include <algorithm>

#include "TemporaryFolder.h"
#include "core/DisplayPreferences.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/PollRunLoop.h"
#include "telemetry/SystemInfoService.h"
#include "ui/models/PopoverSection.h"

namespace vtx::bench {

std::vector<int> Sections::inOrderOfUse() const {
    constexpr int keys = 9;
    std::vector<int> order;
    for (int number = 1; number <= std::min(count, keys); ++number)
        if (number != processes) order.push_back(number);
    order.push_back(processes);
    return order;
}

Sections sectionsOfAFirstStart() {
    const TemporaryFolder settings;
    LinuxPlatform::Options options;
    options.configFolder = settings.path();
    PollRunLoop loop;
    LinuxPlatform platform(loop, loop.executor(), options);
    const auto all = visibleSections(SystemInfoService::detect(platform.ports()), {});
    const auto found = std::ranges::find(all, PopoverSection::processes);
    return {static_cast<int>(all.size()), static_cast<int>(found - all.begin()) + 1};
}

}  // namespace vtx::bench
