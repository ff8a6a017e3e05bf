// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "base/ObservableObject.h"
#include "base/Published.h"
#include "platform/AppService.h"

namespace vtx {

/// Whether the program is started when the user logs in. What is published is what the system said
/// last, never what was wished. Main executor; owned by the coordinator.
class LoginItemService : public ObservableObject {
public:
    /// Asks the system. The service must outlive the object.
    explicit LoginItemService(AppService& service);

    Published<bool> isEnabled{*this, false};
    /// Why the last change failed; absent after one that did not.
    Published<std::optional<std::string>> lastError{*this};

    void setEnabled(bool enabled);
    /// Asks the system again: the user may have changed it elsewhere.
    void refresh();

private:
    [[nodiscard]] bool isRegistered() const;

    AppService& service_;
};

}  // namespace vtx
