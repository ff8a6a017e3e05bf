// SPDX-License-Identifier: MIT
#include "platform/simulated/MacShape.h"

#include <algorithm>

namespace vtx {

MacShape MacShape::standard(std::size_t performanceCores, std::size_t efficiencyCores) {
    MacShape shape;
    shape.cores.assign(efficiencyCores, CoreKind::efficiency);
    shape.cores.insert(shape.cores.end(), performanceCores, CoreKind::performance);
    shape.performanceLevels = 2;
    shape.performanceStepsMHz = {600, 828, 1056, 1284, 1512, 1728, 2064, 2388, 2712, 3036, 3204};
    shape.efficiencyStepsMHz = {600, 972, 1332, 1704, 2064};
    return shape;
}

MacShape MacShape::threeClusters(std::size_t performanceCores, std::size_t efficiencyCores) {
    MacShape shape = standard(performanceCores, efficiencyCores);
    shape.performanceStepsMHz.push_back(4512);  // in hertz it would not fit
    shape.thirdClusterStepsMHz = {400, 800};
    shape.stepUnit = StepUnit::kilohertz;
    shape.efficiencyChannel = "MCPU";
    return shape;
}

MacShape MacShape::laptop() {
    MacShape shape = standard();
    shape.hasBattery = true;
    return shape;
}

MacShape MacShape::singleLevel(std::size_t coreCount) {
    MacShape shape = standard(coreCount, 0);
    shape.performanceLevels = 1;
    shape.efficiencyStepsMHz.clear();
    shape.stepUnit = StepUnit::megahertz;
    return shape;
}

MacShape MacShape::withoutLevels(std::size_t coreCount) {
    MacShape shape = standard(coreCount, 0);
    shape.performanceLevels.reset();
    shape.efficiencyStepsMHz.clear();
    shape.performanceStepsMHz.clear();
    return shape;
}

std::size_t MacShape::count(CoreKind kind) const {
    return static_cast<std::size_t>(std::ranges::count(cores, kind));
}

}  // namespace vtx
