// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Signal.h"
#include "platform/linux/SystemBus.h"

namespace vtx {

/// Whether the desktop prefers dark or light, by the settings portal of the session's bus. It is
/// asked at construction, so the answer comes a moment later, as a change. Main executor.
class DesktopAppearance {
public:
    enum class Preference { dark, light };

    /// The bus is the session's, and must outlive the object.
    explicit DesktopAppearance(SystemBus& session);

    /// Absent where there is no portal, and where the user prefers neither.
    [[nodiscard]] std::optional<Preference> preference() const { return preference_; }

    /// Tells after `preference` has changed.
    Signal<> changed;

private:
    void ask();
    void take(std::optional<std::uint32_t> scheme);

    SystemBus& session_;
    std::optional<Preference> preference_;
    Subscription question_;
    Subscriptions watches_;
};

}  // namespace vtx
