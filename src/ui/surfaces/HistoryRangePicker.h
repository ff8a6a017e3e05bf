// SPDX-License-Identifier: MIT
#pragma once

#include "base/Subscription.h"
#include "ui/kit/SegmentedControl.h"

namespace vtx {

class MetricsCoordinator;

/// Picks the window of all charts: the preference is its only state, and all that it changes.
/// Follows the preference while it is shown.
class HistoryRangePicker final : public SegmentedControl {
    Q_OBJECT

public:
    explicit HistoryRangePicker(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void pick(int index);

    MetricsCoordinator& coordinator_;
    Subscription followed_;
};

}  // namespace vtx
