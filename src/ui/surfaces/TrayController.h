// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaObject>
#include <functional>
#include <optional>

#include "base/Date.h"
#include "base/Subscription.h"
#include "ui/models/TrayModel.h"
#include "ui/shell/TrayHost.h"

namespace vtx {

class Clock;
class MetricsCoordinator;

/// Keeps the tray's icon at the critical metric while a tray shows it, and does nothing otherwise.
/// A new picture is sent when it looks different, at most every five seconds; it has no timer of
/// its own, but looks when a reading comes. Main executor; owned by the status item's controller.
class TrayController {
public:
    /// All must outlive the object.
    TrayController(TrayHost& host, MetricsCoordinator& coordinator, const Clock& clock);
    ~TrayController();
    TrayController(const TrayController&) = delete;
    TrayController& operator=(const TrayController&) = delete;

    std::function<void(StatusItemClick, QPoint)> onClick;

private:
    void hostChanged();
    void readingsChanged();
    void send(TrayModel model);

    TrayHost& host_;
    MetricsCoordinator& coordinator_;
    const Clock& clock_;
    std::optional<TrayModel> sent_;
    Instant sentAt_{};
    Subscriptions readings_;
    QMetaObject::Connection theme_;
};

}  // namespace vtx
