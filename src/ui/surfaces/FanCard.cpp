// SPDX-License-Identifier: MIT
#include "ui/surfaces/FanCard.h"

#include <QVBoxLayout>

#include "ui/kit/CardTitle.h"
#include "ui/kit/Gauge.h"
#include "ui/kit/Metrics.h"
#include "ui/models/FanSectionModel.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

FanCard::FanCard(QWidget* parent) : Card(parent), title_(new CardTitle), gauge_(new Gauge) {
    content()->setSpacing(metrics::figureToBar);
    content()->addWidget(title_);
    content()->addWidget(gauge_);
}

void FanCard::display(const FanCardModel& model) {
    title_->setContent({.title = qt(model.title),
                        .symbol = qt(model.symbol),
                        .trailing = qt(model.speed),
                        .trailingColor = ColorToken::text1,
                        .trailingStyle = TitleEnd::value});
    gauge_->setVisible(model.gauge.has_value());
    if (!model.gauge) return;
    const FanGaugeModel& said = *model.gauge;
    GaugeContent gauge{.current = static_cast<double>(said.current),
                       .min = static_cast<double>(said.min),
                       .max = static_cast<double>(said.max),
                       .label = qt(model.title),
                       .spoken = qt(said.spoken),
                       .minText = qt(said.minText),
                       .targetText = qt(said.targetText),
                       .maxText = qt(said.maxText)};
    if (said.target) gauge.target = static_cast<double>(*said.target);
    gauge_->setContent(gauge);
}

}  // namespace vtx
