// SPDX-License-Identifier: MIT
#include "ui/surfaces/OverviewTab.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/Banner.h"
#include "ui/kit/Card.h"
#include "ui/kit/HistoryChart.h"
#include "ui/kit/MetricRows.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/SectionHead.h"
#include "ui/models/ChartRange.h"
#include "ui/surfaces/ChartContent.h"
#include "ui/surfaces/HistoryRangePicker.h"
#include "ui/surfaces/QtText.h"

namespace vtx {
namespace {

// The range picker keeps room for its focus ring; the other blocks keep as much above them.
constexpr int ringRoom = metrics::focusReach;

ColorToken colorOf(Tint tint) {
    switch (tint) {
        case Tint::yellow:
            return ColorToken::yellow;
        case Tint::orange:
            return ColorToken::orange;
        case Tint::red:
            return ColorToken::red;
        case Tint::primary:
            break;
    }
    return ColorToken::text1;
}

BannerContent contentOf(const PressureNotice& notice) {
    BannerContent content;
    content.color = colorOf(notice.tint);
    content.symbol = qt(notice.symbol);
    content.title = qt(notice.title);
    content.status = qt(notice.status);
    content.body = qt(notice.consumersTitle);
    for (const PressureNotice::Consumer& each : notice.consumers)
        content.entries.push_back({qt(each.name), qt(each.size)});
    return content;
}

QVBoxLayout* addBlock(QVBoxLayout* column) {
    auto* block = new QVBoxLayout;
    block->setContentsMargins(0, ringRoom, ringRoom, 0);
    block->setSpacing(metrics::cardGap);
    column->addLayout(block);
    return block;
}

}  // namespace

OverviewTab::OverviewTab(MetricsCoordinator& coordinator, QWidget* parent)
    : LivePage(coordinator, parent),
      banner_(new Banner(this)),
      graphsHead_(new QWidget(this)),
      graphsTitle_(new SectionHead({}, graphsHead_)),
      liveHead_(new SectionHead({}, this)),
      liveRows_(new MetricRows) {
    layOut();
    refresh();
    refreshCharts();
}

void OverviewTab::layOut() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(metrics::contentInset, metrics::contentInset - ringRoom,
                               metrics::contentInset - ringRoom, metrics::contentInset);
    layout->setSpacing(metrics::cardGap - ringRoom);
    addBlock(layout)->addWidget(banner_);

    auto* head = new QHBoxLayout(graphsHead_);
    head->setContentsMargins(0, 0, 0, 0);
    head->setSpacing(0);
    head->addWidget(graphsTitle_, 1);
    head->addWidget(new HistoryRangePicker(coordinator(), graphsHead_));
    // Alone without the room of a ring at its end, so that the picker, seen without its ring, ends
    // where the cards do.
    layout->addWidget(graphsHead_);
    cards_ = new QVBoxLayout;
    cards_->setContentsMargins(0, 0, ringRoom, 0);
    cards_->setSpacing(metrics::cardGap);
    layout->addLayout(cards_);

    auto* card = new Card(this);
    card->content()->setContentsMargins(metrics::cardPadding, metrics::metricRowsInset,
                                        metrics::cardPadding, metrics::metricRowsInset);
    card->content()->addWidget(liveRows_);
    auto* live = addBlock(layout);
    live->addWidget(liveHead_);
    live->addWidget(card);
    layout->addStretch();
}

void OverviewTab::display(const OverviewModel& model) {
    banner_->setVisible(model.pressure.has_value());
    if (model.pressure) banner_->setContent(contentOf(*model.pressure));
    liveHead_->setTitle(qt(model.liveTitle));
    std::vector<MetricRow> rows;
    rows.reserve(model.liveRows.size());
    for (const MetricRowModel& row : model.liveRows)
        rows.push_back({qt(row.symbol), qt(row.title), qt(row.value), colorOf(row.tint)});
    liveRows_->setRows(std::move(rows));
}

void OverviewTab::hideEvent(QHideEvent* event) {
    processes_.cancel();
    LivePage::hideEvent(event);
}

void OverviewTab::follow() {
    const auto& c = coordinator();
    observe(c.cpu.latest);
    observe(c.gpu.latest);
    observe(c.memory.latest);
    observe(c.memory.pressure);
    observe(c.temperature.latest);
    observe(c.gpu.isAvailable, Concern::charts);
    for (const auto* history :
         {&c.cpuHistory, &c.pCoreHistory, &c.eCoreHistory, &c.gpuHistory, &c.memoryHistory})
        observe(*history, Concern::charts);
}

void OverviewTab::followProcesses() {
    const auto& c = coordinator();
    if (*c.memory.pressure == MemoryStats::Pressure::normal || !isVisible())
        processes_.cancel();
    else if (!processes_)
        processes_ = subscriptionTo(c.processes.processes, Concern::values);
}

void OverviewTab::refresh() {
    const auto& c = coordinator();
    followProcesses();
    std::vector<ProcessSnapshot> consumers;
    if (*c.memory.pressure != MemoryStats::Pressure::normal)
        consumers = c.memoryPressure.suggestedCleanupTargets(overviewConsumers);
    display(describeOverview({c.cpu.layout(), *c.cpu.latest, *c.gpu.latest, *c.temperature.latest,
                              *c.memory.latest, *c.memory.pressure, consumers}));
}

void OverviewTab::refreshCharts() {
    const auto& c = coordinator();
    const auto& preferences = *c.preferences;
    const auto sampling = *c.gpu.isAvailable ? GPUSampling::available : GPUSampling::unavailable;
    const auto shown = overviewCharts(preferences, sampling, c.cpu.layout());
    if (!std::ranges::equal(shown, charts_, {}, {}, &ChartCard::metric)) makeCards(shown);
    graphsHead_->setVisible(!shown.empty());
    graphsTitle_->setTitle(qt(historyTitle(preferences.historyRange)));
    const OverviewHistories histories{&drawn(c.cpuHistory), &drawn(c.pCoreHistory),
                                      &drawn(c.eCoreHistory), &drawn(c.gpuHistory),
                                      &drawn(c.memoryHistory)};
    for (const ChartCard& each : charts_)
        each.chart->setContent(
            chartContent(describeOverviewChart(each.metric, histories, preferences)));
}

void OverviewTab::makeCards(const std::vector<ChartMetric>& metrics) {
    // The one that takes the click may be among them.
    for (const ChartCard& each : charts_) {
        each.card->hide();
        each.card->deleteLater();
    }
    charts_.clear();
    for (const ChartMetric metric : metrics) {
        auto* card = new Card(this);
        auto* chart = new HistoryChart(card);
        card->content()->addWidget(chart);
        cards_->addWidget(card);
        charts_.push_back({metric, card, chart});
    }
}

}  // namespace vtx
