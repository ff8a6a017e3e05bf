// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedWorkspace.h"

#include <utility>

#include "platform/simulated/Operations.h"

namespace vtx {

Subscription SimulatedWorkspace::onWillSleep(std::function<void()> handler) {
    return instruments_.handles.hold(handles::willSleep,
                                     mac_.willSleep.subscribe(std::move(handler)));
}

Subscription SimulatedWorkspace::onDidWake(std::function<void()> handler) {
    return instruments_.handles.hold(handles::didWake, mac_.didWake.subscribe(std::move(handler)));
}

void SimulatedWorkspace::selectFile(const std::string& path) {
    instruments_.counter.count(operations::selectFile);
    mac_.selectedFile = path;
}

void SimulatedWorkspace::openSystemMonitor() {
    instruments_.counter.count(operations::openSystemMonitor);
}

std::optional<std::int32_t> SimulatedWorkspace::frontmostApplication() {
    instruments_.counter.count(operations::frontmostApplication);
    return mac_.frontmostApplication;
}

}  // namespace vtx
