// SPDX-License-Identifier: MIT
#pragma once

#include "base/Subscription.h"
#include "ui/kit/SegmentedControl.h"

namespace vtx {

class MetricsCoordinator;

/// Picks the window of all charts: the preference is its only state, and all that it changes.
/// Follows the preference and the language while it is shown.
class HistoryRangePicker final : public SegmentedControl {
    Q_OBJECT

public:
    explicit HistoryRangePicker(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// Assistive technology hears what the control is for; what is chosen, its segments tell.
    void nameItself();
    void pick(int index);

    MetricsCoordinator& coordinator_;
    Subscriptions followed_;
};

}  // namespace vtx
