// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <vector>

#include "base/Subscription.h"
#include "ui/models/OverviewGraphs.h"
#include "ui/models/OverviewModel.h"

class QVBoxLayout;

namespace vtx {

class Banner;
class Card;
class HistoryChart;
class MetricRows;
class MetricsCoordinator;
class SectionHead;

/// The first page of popover and dashboard: how the machine is doing, at a glance. Leads with a
/// notice while memory runs short, then the charts that are enabled, then the present values.
/// Follows the coordinator while it is shown and changes nothing.
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
    struct ChartCard {
        ChartMetric metric;
        Card* card;
        HistoryChart* chart;
    };

    void layOut();
    void follow();
    void rebuild();
    /// Makes the cards of the charts that are enabled, and draws each.
    void rebuildGraphs();
    void makeCards(const std::vector<ChartMetric>& metrics);
    /// Draws the chart anew, if it is shown.
    void redraw(ChartMetric metric);

    MetricsCoordinator& coordinator_;
    Banner* banner_;
    QWidget* graphsHead_;
    SectionHead* graphsTitle_;
    QVBoxLayout* cards_ = nullptr;
    std::vector<ChartCard> charts_;
    SectionHead* liveHead_;
    MetricRows* liveRows_;
    SeenClocks seenClocks_;
    Subscriptions subscriptions_;
};

}  // namespace vtx
