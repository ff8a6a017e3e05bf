// SPDX-License-Identifier: MIT
#include "ui/surfaces/BatterySection.h"

#include <QVBoxLayout>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/TextBlock.h"
#include "ui/kit/UsageBar.h"
#include "ui/models/BatterySectionModel.h"
#include "ui/surfaces/CollectingCard.h"
#include "ui/surfaces/KeyValueCard.h"
#include "ui/surfaces/KitContent.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

BatterySection::BatterySection(MetricsCoordinator& coordinator, QWidget* parent)
    : SectionPage(coordinator, parent),
      placeholder_(new PlaceholderCard(this)),
      collecting_(new CollectingCard(this)),
      charge_(new HeroNumber),
      bar_(new UsageBar),
      lowPowerMode_(new TextBlock),
      chargeCard_(makeChargeCard()),
      status_(new KeyValueCard(this)),
      health_(new KeyValueCard(this)),
      details_(new KeyValueCard(this)) {
    for (QWidget* block : std::initializer_list<QWidget*>{placeholder_, collecting_, chargeCard_,
                                                          status_, health_, details_})
        addBlock(block);
    refresh();
}

Card* BatterySection::makeChargeCard() {
    auto* card = new Card(this);
    card->content()->setSpacing(metrics::figureToBar);
    card->content()->addWidget(charge_);
    card->content()->addWidget(bar_);
    card->content()->addWidget(lowPowerMode_);
    return card;
}

void BatterySection::display(const BatterySectionModel& model) {
    const bool isKnown = !model.placeholder && model.collecting.empty();
    if (model.placeholder) placeholder_->setContent(toKit(*model.placeholder));
    placeholder_->setVisible(model.placeholder.has_value());
    collecting_->display(model.collecting);
    displayCharge(model.charge);
    status_->display({}, model.status);
    health_->display(
        {.title = qt(model.health.title), .pill = toKit(model.health.grade, PillDot::none)},
        model.health.rows);
    details_->display({}, model.details);
    for (QWidget* card : std::initializer_list<QWidget*>{chargeCard_, status_, health_})
        card->setVisible(isKnown);
    details_->setVisible(!model.details.empty());
}

void BatterySection::displayCharge(const BatteryChargeModel& model) {
    charge_->setContent(toKit(model.hero));
    bar_->setContent({.value = model.fraction,
                      .tint = colorOf(model.tint),
                      .label = qt(model.hero.title),
                      .spoken = qt(model.hero.value),
                      .track = BarTrack::tinted,
                      .size = BarSize::thick});
    lowPowerMode_->setContent({.text = qt(model.lowPowerMode),
                               .color = ColorToken::green,
                               .role = TextRole::label,
                               .symbol = qt(model.lowPowerSymbol)});
    lowPowerMode_->setVisible(!model.lowPowerMode.empty());
}

void BatterySection::follow() {
    observe(coordinator().battery.latest);
    observe(coordinator().systemInfo.info);
}

void BatterySection::refresh() {
    const SystemInfo& machine = *coordinator().systemInfo.info;
    display(
        describeBatterySection({coordinator().battery.isAvailable(), *coordinator().battery.latest,
                                machine.batteryDesignCapacityMAh, machine.batteryCycleCount},
                               Localization::shared()));
}

}  // namespace vtx
