// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedThermalState.h"

#include <utility>

#include "platform/simulated/Operations.h"

namespace vtx {

std::int64_t SimulatedThermalState::thermalState() {
    instruments_.counter.count(operations::thermalState);
    return mac_.thermalState();
}

Subscription SimulatedThermalState::onThermalStateDidChange(std::function<void()> handler) {
    return instruments_.handles.hold(handles::thermalStateDidChange,
                                     mac_.thermalStateDidChange.subscribe(std::move(handler)));
}

}  // namespace vtx
