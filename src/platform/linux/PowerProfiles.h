// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>

#include "base/Signal.h"
#include "platform/linux/SystemBus.h"

namespace vtx {

/// The system's power profile, by the service that offers it under either of the names it has had.
/// It is asked for with the first use, so the first answer may come a moment later, as a change.
/// Main executor; owned by `LinuxProcessInfo`.
class PowerProfiles {
public:
    explicit PowerProfiles(SystemBus& bus);

    /// Whether a service says "power-saver"; false where there is none.
    [[nodiscard]] bool isPowerSaver();

    /// Tells after `isPowerSaver` has changed.
    [[nodiscard]] Subscription onChange(std::function<void()> handler);

private:
    /// The service under one of its names.
    struct Service {
        BusObject object;
        std::optional<std::string> activeProfile;  ///< absent where nobody answers to the name
        Subscription get;
        Subscriptions watches;
    };

    void listen();
    void ask(Service& service);
    void take(Service& service, std::optional<std::string> profile);
    [[nodiscard]] bool computed() const;

    SystemBus& bus_;
    std::array<Service, 2> services_;
    bool isListening_ = false;
    bool isPowerSaver_ = false;
    Signal<> changed_;
};

}  // namespace vtx
