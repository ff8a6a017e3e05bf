// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/StatusNotifierItem.h"
#include "ui/shell/TrayHost.h"

namespace vtx {

/// The tray of desktops with a StatusNotifier host.
class StatusNotifierTray final : public TrayHost {
public:
    /// As the item's own.
    StatusNotifierTray(SystemBus& session, const QString& identifier, const QString& title);

    [[nodiscard]] bool isHosted() const override { return item_.isHosted(); }
    void setPictures(const std::vector<QImage>& pictures) override;
    void setToolTip(const QString& text) override;

private:
    StatusNotifierItem item_;
};

}  // namespace vtx
