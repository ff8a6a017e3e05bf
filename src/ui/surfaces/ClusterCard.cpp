// SPDX-License-Identifier: MIT
#include "ui/surfaces/ClusterCard.h"

#include <QVBoxLayout>

#include "ui/kit/CardTitle.h"
#include "ui/kit/ClockTile.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/PerCoreBars.h"
#include "ui/models/CPUSectionModel.h"
#include "ui/surfaces/ChartContent.h"
#include "ui/surfaces/KitContent.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

ClusterCard::ClusterCard(QWidget* parent)
    : Card(parent), title_(new CardTitle), clock_(new ClockTile), cores_(new PerCoreBars) {
    content()->addWidget(title_);
    content()->addSpacing(metrics::titleToTile);
    content()->addWidget(clock_);
    content()->addSpacing(metrics::titleToRows);
    content()->addWidget(cores_);
}

void ClusterCard::display(const ClusterModel& model) {
    const SeriesColor tint = seriesColor(model.color);
    title_->setContent({.title = qt(model.title),
                        .symbol = qt(model.symbol),
                        .symbolColor = tint,
                        .trailing = qt(model.usage),
                        .trailingColor = colorOf(model.hue),
                        .trailingStyle = TitleEnd::load});
    clock_->setTexts(qt(model.clock.current), qt(model.clock.maximum));
    PerCoreContent cores{.symbol = qt(model.cores.symbol),
                         .title = qt(model.cores.title),
                         .count = qt(model.cores.count),
                         .cores = {},
                         .tint = tint};
    cores.cores.reserve(model.cores.bars.size());
    for (const CoreBarModel& bar : model.cores.bars)
        cores.cores.push_back({qt(bar.label), bar.fraction, qt(bar.value)});
    cores_->setContent(std::move(cores));
}

}  // namespace vtx
