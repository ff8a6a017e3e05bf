// SPDX-License-Identifier: MIT
#include "ui/surfaces/FanSection.h"

#include <QVBoxLayout>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/models/FanSectionModel.h"
#include "ui/surfaces/FanCard.h"
#include "ui/surfaces/KitContent.h"

namespace vtx {

FanSection::FanSection(MetricsCoordinator& coordinator, QWidget* parent)
    : SectionPage(coordinator, parent),
      placeholder_(new PlaceholderCard(this)),
      summaryCard_(new Card(this)),
      summary_(new Figures(FigureSize::large)) {
    summaryCard_->content()->addWidget(summary_);
    addBlock(placeholder_);
    addBlock(summaryCard_);
    refresh();
}

void FanSection::display(const FanSectionModel& model) {
    if (model.placeholder) placeholder_->setContent(toKit(*model.placeholder));
    placeholder_->setVisible(model.placeholder.has_value());
    summary_->setFigures(toKit(model.summary));
    summaryCard_->setVisible(!model.placeholder);
    while (fans_.size() < model.fans.size()) {
        fans_.push_back(new FanCard(this));
        addBlock(fans_.back());
    }
    for (std::size_t i = 0; i < fans_.size(); ++i) {
        const bool isThere = i < model.fans.size();
        if (isThere) fans_[i]->display(model.fans[i]);
        fans_[i]->setVisible(isThere);
    }
}

void FanSection::follow() { observe(coordinator().fan.latest); }

void FanSection::refresh() {
    display(describeFanSection(*coordinator().fan.latest, Localization::shared()));
}

}  // namespace vtx
