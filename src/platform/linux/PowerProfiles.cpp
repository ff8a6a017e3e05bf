// SPDX-License-Identifier: MIT
#include "platform/linux/PowerProfiles.h"

#include <algorithm>

namespace vtx {

PowerProfiles::PowerProfiles(SystemBus& bus) : bus_(bus) {
    services_[0].object = {"org.freedesktop.UPower.PowerProfiles",
                           "/org/freedesktop/UPower/PowerProfiles",
                           "org.freedesktop.UPower.PowerProfiles"};
    services_[1].object = {"net.hadess.PowerProfiles", "/net/hadess/PowerProfiles",
                           "net.hadess.PowerProfiles"};
}

bool PowerProfiles::isPowerSaver() {
    listen();
    return isPowerSaver_;
}

Subscription PowerProfiles::onChange(std::function<void()> handler) {
    listen();
    return changed_.subscribe(std::move(handler));
}

void PowerProfiles::listen() {
    if (isListening_) return;
    isListening_ = true;
    for (auto& service : services_) {
        const auto askAgain = [this, &service](BusMessage&) { ask(service); };
        service.watches.push_back(bus_.onOwnerChanged(service.object.service, askAgain));
        service.watches.push_back(bus_.onPropertiesChanged(service.object, askAgain));
        ask(service);
    }
}

void PowerProfiles::ask(Service& service) {
    // A question already under way is forgotten: its answer may be older than what was announced.
    service.get = bus_.getProperty(
        service.object, "ActiveProfile",
        [this, &service](BusMessage& answer) { take(service, answer.variantText()); });
}

void PowerProfiles::take(Service& service, std::optional<std::string> profile) {
    service.activeProfile = std::move(profile);
    if (isPowerSaver_ == computed()) return;
    isPowerSaver_ = !isPowerSaver_;
    changed_.emit();
}

bool PowerProfiles::computed() const {
    return std::ranges::any_of(
        services_, [](const Service& service) { return service.activeProfile == "power-saver"; });
}

}  // namespace vtx
