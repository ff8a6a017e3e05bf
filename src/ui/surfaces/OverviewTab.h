// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "base/Subscription.h"
#include "ui/models/OverviewModel.h"

namespace vtx {

class MetricRows;
class MetricsCoordinator;
class SectionHead;

/// The first page of popover and dashboard: how the machine is doing, at a glance. Follows the
/// coordinator while it is shown and changes nothing.
class OverviewTab final : public QWidget {
    Q_OBJECT

public:
    explicit OverviewTab(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    /// Shows a model as it is; the coordinator's next change replaces it.
    void display(const OverviewModel& model);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void rebuild();

    MetricsCoordinator& coordinator_;
    SectionHead* liveHead_;
    MetricRows* liveRows_;
    Subscriptions subscriptions_;
};

}  // namespace vtx
