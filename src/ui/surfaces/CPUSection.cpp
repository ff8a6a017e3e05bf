// SPDX-License-Identifier: MIT
#include "ui/surfaces/CPUSection.h"

#include <QVBoxLayout>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/Card.h"
#include "ui/models/CPUSectionModel.h"
#include "ui/surfaces/ChartCard.h"
#include "ui/surfaces/ClusterCard.h"
#include "ui/surfaces/KitContent.h"

namespace vtx {

CPUSection::CPUSection(MetricsCoordinator& coordinator, QWidget* parent)
    : SectionPage(coordinator, parent),
      hero_(new HeroNumber),
      noLayout_(new PlaceholderCard(this)),
      clusters_{new ClusterCard(this), new ClusterCard(this)},
      charts_(new ChartCard(this)) {
    addCard()->content()->addWidget(hero_);
    addBlock(noLayout_);
    for (ClusterCard* cluster : clusters_) addBlock(cluster);
    addBlock(charts_);
    refresh();
    refreshCharts();
}

void CPUSection::display(const CPUSectionModel& model) {
    hero_->setContent(toKit(model.hero));
    if (model.noLayout) noLayout_->setContent(toKit(*model.noLayout));
    noLayout_->setVisible(model.noLayout.has_value());
    for (std::size_t i = 0; i < clusters_.size(); ++i) {
        const bool isThere = i < model.clusters.size();
        if (isThere) clusters_[i]->display(model.clusters[i]);
        clusters_[i]->setVisible(isThere);
    }
}

void CPUSection::follow() {
    observe(coordinator().cpu.latest);
    observe(coordinator().cpuHistory, Concern::charts);
    observe(coordinator().pCoreHistory, Concern::charts);
    observe(coordinator().eCoreHistory, Concern::charts);
}

void CPUSection::refresh() {
    const MetricsCoordinator& c = coordinator();
    display(describeCPUSection({c.cpu.layout(), *c.cpu.latest}, *c.preferences,
                               Localization::shared()));
}

void CPUSection::refreshCharts() {
    const MetricsCoordinator& c = coordinator();
    charts_->display(describeCPUCharts(
        c.cpu.layout(), {drawn(c.cpuHistory), drawn(c.pCoreHistory), drawn(c.eCoreHistory)},
        *c.preferences, Localization::shared()));
}

}  // namespace vtx
