// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "ui/models/OverviewGraphs.h"
#include "ui/models/OverviewModel.h"
#include "ui/surfaces/LivePage.h"

class QVBoxLayout;

namespace vtx {

class Banner;
class Card;
class HistoryChart;
class MetricRows;
class SectionHead;

/// The first page of popover and dashboard: how the machine is doing, at a glance. Leads with a
/// notice while memory runs short, then the charts that are enabled, then the present values.
/// Follows the coordinator while it is shown and changes nothing.
class OverviewTab final : public LivePage {
    Q_OBJECT

public:
    explicit OverviewTab(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    /// Shows a model as it is; the coordinator's next change replaces it.
    void display(const OverviewModel& model);

protected:
    void follow() override;
    void refresh() override;
    void refreshCharts() override;
    void hideEvent(QHideEvent* event) override;

private:
    struct ChartCard {
        ChartMetric metric;
        Card* card;
        HistoryChart* chart;
    };

    void layOut();
    /// Processes come every few seconds, and nothing of them is shown without the notice.
    void followProcesses();
    void makeCards(const std::vector<ChartMetric>& metrics);

    Banner* banner_;
    QWidget* graphsHead_;
    SectionHead* graphsTitle_;
    QVBoxLayout* cards_ = nullptr;
    std::vector<ChartCard> charts_;
    SectionHead* liveHead_;
    MetricRows* liveRows_;
    Subscription processes_;
};

}  // namespace vtx
