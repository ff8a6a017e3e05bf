// SPDX-License-Identifier: MIT
#include "platform/simulated/MacShape.h"

#include <algorithm>

namespace vtx {

MacShape MacShape::standard(std::size_t performanceCores, std::size_t efficiencyCores) {
    MacShape shape;
    shape.cores.assign(efficiencyCores, CoreKind::efficiency);
    shape.cores.insert(shape.cores.end(), performanceCores, CoreKind::performance);
    shape.performanceLevels = 2;
    return shape;
}

MacShape MacShape::singleLevel(std::size_t coreCount) {
    MacShape shape = standard(coreCount, 0);
    shape.performanceLevels = 1;
    return shape;
}

MacShape MacShape::withoutLevels(std::size_t coreCount) {
    MacShape shape = standard(coreCount, 0);
    shape.performanceLevels.reset();
    return shape;
}

std::size_t MacShape::count(CoreKind kind) const {
    return static_cast<std::size_t>(std::ranges::count(cores, kind));
}

}  // namespace vtx
