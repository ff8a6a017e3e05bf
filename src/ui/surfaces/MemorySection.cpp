// SPDX-License-Identifier: MIT
#include "ui/surfaces/MemorySection.h"

#include <QVBoxLayout>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/Banner.h"
#include "ui/kit/Card.h"
#include "ui/kit/CardTitle.h"
#include "ui/kit/ListRows.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/TextBlock.h"
#include "ui/models/MemorySectionModel.h"
#include "ui/surfaces/ChartCard.h"
#include "ui/surfaces/ChartContent.h"
#include "ui/surfaces/CollectingCard.h"
#include "ui/surfaces/KitContent.h"
#include "ui/surfaces/MemorySummaryCard.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

MemorySection::MemorySection(MetricsCoordinator& coordinator, QWidget* parent)
    : SectionPage(coordinator, parent),
      collecting_(new CollectingCard(this)),
      summary_(new MemorySummaryCard(this)),
      banner_(new Banner(this)),
      consumersTitle_(new CardTitle),
      noConsumers_(new TextBlock),
      consumers_(new ListRows(ListKind::withBar)),
      consumersCard_(makeConsumersCard()),
      charts_(new ChartCard(this)) {
    for (QWidget* block :
         std::initializer_list<QWidget*>{collecting_, summary_, banner_, consumersCard_, charts_})
        addBlock(block);
    refresh();
    refreshCharts();
}

Card* MemorySection::makeConsumersCard() {
    auto* card = new Card(this);
    card->content()->setSpacing(metrics::titleToRows);
    card->content()->addWidget(consumersTitle_);
    card->content()->addWidget(noConsumers_);
    card->content()->addWidget(consumers_);
    return card;
}

void MemorySection::display(const MemorySectionModel& model) {
    collecting_->display(model.collecting);
    summary_->setVisible(model.collecting.empty());
    if (model.collecting.empty()) summary_->display(model.summary);
    displayBanner(model);
    displayConsumers(model);
}

void MemorySection::displayBanner(const MemorySectionModel& model) {
    banner_->setVisible(model.banner.has_value());
    if (!model.banner) return;
    banner_->setContent({.color = colorOf(model.banner->status.hue),
                         .symbol = qt(model.banner->symbol),
                         .title = qt(model.banner->title),
                         .status = qt(model.banner->status.text),
                         .body = qt(model.banner->body)});
}

void MemorySection::displayConsumers(const MemorySectionModel& model) {
    consumersTitle_->setContent({.title = qt(model.consumersTitle)});
    noConsumers_->setContent({.text = qt(model.noConsumers), .place = TextPlace::middle});
    noConsumers_->setVisible(!model.noConsumers.empty());
    std::vector<ListRow> rows;
    rows.reserve(model.consumers.size());
    for (const ConsumerRowModel& row : model.consumers)
        rows.push_back({.title = qt(row.name),
                        .values = {{.text = qt(row.size)}},
                        .bar = row.fraction,
                        .barTint = seriesColor(model.color)});
    consumers_->setRows(std::move(rows));
    consumers_->setVisible(!model.consumers.empty());
}

void MemorySection::follow() {
    observe(coordinator().memory.latest);
    observe(coordinator().memory.pressure);
    observe(coordinator().processes.processes);
    observe(coordinator().memoryHistory, Concern::charts);
}

void MemorySection::refresh() {
    const MetricsCoordinator& c = coordinator();
    const auto consumers = c.memoryPressure.suggestedCleanupTargets(topConsumerLimit);
    display(describeMemorySection({*c.memory.latest, *c.memory.pressure, consumers}, *c.preferences,
                                  Localization::shared()));
}

void MemorySection::refreshCharts() {
    const MetricsCoordinator& c = coordinator();
    charts_->display(
        describeMemoryCharts(drawn(c.memoryHistory), *c.preferences, Localization::shared()));
}

}  // namespace vtx
