// SPDX-License-Identifier: MIT
#include "ui/surfaces/LivePage.h"

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"

namespace vtx {

LivePage::LivePage(MetricsCoordinator& coordinator, QWidget* parent)
    : QWidget(parent), coordinator_(coordinator) {}

const HistorySeries& LivePage::drawn(const Published<HistorySeries>& history) const {
    static const HistorySeries none;
    return isFollowing_ ? *history : none;
}

void LivePage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (isFollowing_) return;
    observe(coordinator_.preferences, Concern::all);
    observe(Localization::shared().effective, Concern::all);
    follow();
    isFollowing_ = true;
    areValuesDue_ = areChartsDue_ = true;
    showDue();
}

void LivePage::hideEvent(QHideEvent* event) {
    isFollowing_ = false;
    subscriptions_.clear();
    QWidget::hideEvent(event);
}

void LivePage::changed(Concern concern) {
    if (!isFollowing_) return;
    const bool isQueued = areValuesDue_ || areChartsDue_;
    areValuesDue_ = areValuesDue_ || concern != Concern::charts;
    areChartsDue_ = areChartsDue_ || concern != Concern::values;
    if (!isQueued) QMetaObject::invokeMethod(this, [this] { showDue(); }, Qt::QueuedConnection);
}

void LivePage::showDue() {
    const bool showsValues = std::exchange(areValuesDue_, false);
    const bool showsCharts = std::exchange(areChartsDue_, false);
    if (!isFollowing_) return;
    if (showsValues) refresh();
    if (showsCharts) refreshCharts();
}

}  // namespace vtx
