// SPDX-License-Identifier: MIT
#include "ui/surfaces/GPUSection.h"

#include <QVBoxLayout>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/Card.h"
#include "ui/kit/CardTitle.h"
#include "ui/kit/MetricRows.h"
#include "ui/kit/Metrics.h"
#include "ui/models/GPUSectionModel.h"
#include "ui/surfaces/ChartCard.h"
#include "ui/surfaces/ChartContent.h"
#include "ui/surfaces/KitContent.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

GPUSection::GPUSection(MetricsCoordinator& coordinator, QWidget* parent)
    : SectionPage(coordinator, parent),
      placeholder_(new PlaceholderCard(this)),
      hero_(new HeroNumber),
      heroCard_(new Card(this)),
      componentsTitle_(new CardTitle),
      components_(new MetricRows),
      componentsCard_(makeComponentsCard()),
      charts_(new ChartCard(this)) {
    heroCard_->content()->addWidget(hero_);
    for (QWidget* block :
         std::initializer_list<QWidget*>{placeholder_, heroCard_, componentsCard_, charts_})
        addBlock(block);
    refresh();
    refreshCharts();
}

Card* GPUSection::makeComponentsCard() {
    auto* card = new Card(this);
    constexpr int padding = metrics::cardPadding;
    card->content()->setContentsMargins(padding, padding, padding, metrics::cardRowsInset);
    card->content()->setSpacing(metrics::titleToRows);
    card->content()->addWidget(componentsTitle_);
    card->content()->addWidget(components_);
    return card;
}

void GPUSection::display(const GPUSectionModel& model) {
    const bool isKnown = !model.placeholder;
    if (model.placeholder) placeholder_->setContent(toKit(*model.placeholder));
    placeholder_->setVisible(!isKnown);
    hero_->setContent(toKit(model.hero));
    componentsTitle_->setContent({.title = qt(model.componentsTitle)});
    std::vector<MetricRow> rows;
    rows.reserve(model.components.size());
    for (const GPUComponentModel& part : model.components)
        rows.push_back({.symbol = qt(part.symbol),
                        .title = qt(part.title),
                        .value = qt(part.value),
                        .symbolColor = part.color ? seriesColor(*part.color) : ColorToken::text3});
    components_->setRows(std::move(rows));
    heroCard_->setVisible(isKnown);
    componentsCard_->setVisible(isKnown);
}

void GPUSection::follow() {
    observe(coordinator().gpu.latest);
    observe(coordinator().gpu.isAvailable, Concern::all);
    observe(coordinator().gpuHistory, Concern::charts);
}

void GPUSection::refresh() {
    const MetricsCoordinator& c = coordinator();
    display(describeGPUSection({*c.gpu.isAvailable, *c.gpu.latest}, *c.preferences,
                               Localization::shared()));
}

void GPUSection::refreshCharts() {
    const MetricsCoordinator& c = coordinator();
    charts_->display(describeGPUCharts(*c.gpu.isAvailable, drawn(c.gpuHistory), *c.preferences,
                                       Localization::shared()));
}

}  // namespace vtx
