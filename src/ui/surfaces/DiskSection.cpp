// SPDX-License-Identifier: MIT
#include "ui/surfaces/DiskSection.h"

#include <QVBoxLayout>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/Card.h"
#include "ui/kit/CardTitle.h"
#include "ui/kit/ListRows.h"
#include "ui/kit/Metrics.h"
#include "ui/models/DiskSectionModel.h"
#include "ui/surfaces/DiskChartCard.h"
#include "ui/surfaces/KitContent.h"
#include "ui/surfaces/QtText.h"

namespace vtx {
namespace {

ListRow rowOf(const VolumeRowModel& model) {
    return {.title = qt(model.name),
            .symbol = qt(model.symbol),
            .caption = qt(model.device),
            .values = {{.text = qt(model.read.value), .label = qt(model.read.title)},
                       {.text = qt(model.write.value), .label = qt(model.write.title)}}};
}

}  // namespace

DiskSection::DiskSection(MetricsCoordinator& coordinator, QWidget* parent)
    : SectionPage(coordinator, parent),
      summary_(new Figures(FigureSize::medium)),
      volumesTitle_(new CardTitle),
      volumes_(new ListRows(ListKind::twoLine)),
      volumesCard_(makeVolumesCard()),
      chart_(new DiskChartCard(this)) {
    addCard()->content()->addWidget(summary_);
    addBlock(volumesCard_);
    addBlock(chart_);
    refresh();
    refreshCharts();
}

Card* DiskSection::makeVolumesCard() {
    auto* card = new Card(this);
    constexpr int padding = metrics::cardPadding;
    card->content()->setContentsMargins(padding, padding, padding, metrics::cardRowsInset);
    card->content()->setSpacing(metrics::titleToRows);
    card->content()->addWidget(volumesTitle_);
    card->content()->addWidget(volumes_);
    return card;
}

void DiskSection::display(const DiskSectionModel& model) {
    summary_->setFigures(toKit(model.summary));
    volumesTitle_->setContent({.title = qt(model.volumesTitle)});
    std::vector<ListRow> rows;
    rows.reserve(model.volumes.size());
    for (const VolumeRowModel& volume : model.volumes) rows.push_back(rowOf(volume));
    volumes_->setRows(std::move(rows));
    volumesCard_->setVisible(!model.volumes.empty());
}

void DiskSection::follow() {
    observe(coordinator().diskIO.latest);
    observe(coordinator().diskReadHistory, Concern::charts);
    observe(coordinator().diskWriteHistory, Concern::charts);
}

void DiskSection::refresh() {
    display(describeDiskSection(*coordinator().diskIO.latest, Localization::shared()));
}

void DiskSection::refreshCharts() {
    const MetricsCoordinator& c = coordinator();
    chart_->display(describeDiskSectionChart(drawn(c.diskReadHistory), drawn(c.diskWriteHistory),
                                             *c.preferences));
}

}  // namespace vtx
