// SPDX-License-Identifier: MIT
#include "ui/surfaces/OverviewTab.h"

#include <QVBoxLayout>

#include "core/MetricsCoordinator.h"
#include "ui/kit/Card.h"
#include "ui/kit/MetricRows.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/SectionHead.h"
#include "ui/surfaces/QtText.h"

namespace vtx {
namespace {

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

}  // namespace

OverviewTab::OverviewTab(MetricsCoordinator& coordinator, QWidget* parent)
    : QWidget(parent),
      coordinator_(coordinator),
      liveHead_(new SectionHead({}, this)),
      liveRows_(new MetricRows) {
    auto* card = new Card(this);
    card->content()->setContentsMargins(metrics::cardPadding, metrics::metricRowsInset,
                                        metrics::cardPadding, metrics::metricRowsInset);
    card->content()->addWidget(liveRows_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(metrics::contentInset, metrics::contentInset, metrics::contentInset,
                               metrics::contentInset);
    layout->setSpacing(metrics::cardGap);
    layout->addWidget(liveHead_);
    layout->addWidget(card);
    layout->addStretch();
    rebuild();
}

void OverviewTab::display(const OverviewModel& model) {
    liveHead_->setTitle(qt(model.liveTitle));
    std::vector<MetricRow> rows;
    rows.reserve(model.liveRows.size());
    for (const MetricRowModel& row : model.liveRows)
        rows.push_back({qt(row.symbol), qt(row.title), qt(row.value), colorOf(row.tint)});
    liveRows_->setRows(std::move(rows));
}

void OverviewTab::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    const auto follow = [this](const auto&) { rebuild(); };
    subscriptions_.push_back(coordinator_.cpu.latest.subscribe(follow));
    subscriptions_.push_back(coordinator_.gpu.latest.subscribe(follow));
    subscriptions_.push_back(coordinator_.temperature.latest.subscribe(follow));
}

void OverviewTab::hideEvent(QHideEvent* event) {
    subscriptions_.clear();
    QWidget::hideEvent(event);
}

void OverviewTab::rebuild() {
    display(describeOverview({coordinator_.cpu.layout(), *coordinator_.cpu.latest,
                              *coordinator_.gpu.latest, *coordinator_.temperature.latest}));
}

}  // namespace vtx
