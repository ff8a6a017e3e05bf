// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedProcessInfo.h"

#include <utility>

#include "base/Fault.h"
#include "platform/simulated/Operations.h"

namespace vtx {

std::string SimulatedProcessInfo::operatingSystemVersionString() const {
    instruments_.counter.count(operations::operatingSystemVersion);
    return mac_.operatingSystemVersion;
}

std::optional<std::string> SimulatedProcessInfo::environment(std::string_view name) const {
    instruments_.counter.count(operations::environment);
    const auto found = mac_.environment.find(name);
    return found == mac_.environment.end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::string> SimulatedProcessInfo::loadedBundlePaths() const {
    instruments_.counter.count(operations::loadedBundlePaths);
    return mac_.loadedBundlePaths;
}

bool SimulatedProcessInfo::isLowPowerModeEnabled() const {
    instruments_.counter.count(operations::isLowPowerModeEnabled);
    return mac_.isLowPowerMode();
}

Subscription SimulatedProcessInfo::onPowerStateDidChange(std::function<void()> handler) {
    return instruments_.handles.hold(handles::powerStateDidChange,
                                     mac_.powerStateDidChange.subscribe(std::move(handler)));
}

ActivityToken SimulatedProcessInfo::beginActivity(std::uint64_t options, std::string_view reason) {
    if (instruments_.enter(operations::beginActivity)) return 0;
    instruments_.handles.add(handles::activity);
    activities_.emplace(++last_, Activity{options, std::string(reason)});
    return last_;
}

void SimulatedProcessInfo::endActivity(ActivityToken token) {
    instruments_.counter.count(operations::endActivity);
    if (token == 0) return;
    if (activities_.erase(token) == 0) programmingFault("an activity was ended that is not there");
    instruments_.handles.remove(handles::activity);
}

std::vector<SimulatedProcessInfo::Activity> SimulatedProcessInfo::activities() const {
    std::vector<Activity> all;
    for (const auto& [token, activity] : activities_) all.push_back(activity);
    return all;
}

}  // namespace vtx
