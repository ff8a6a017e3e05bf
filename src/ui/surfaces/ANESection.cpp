// SPDX-License-Identifier: MIT
#include "ui/surfaces/ANESection.h"

#include "language/Localization.h"
#include "ui/models/ANESectionModel.h"
#include "ui/surfaces/KitContent.h"

namespace vtx {

ANESection::ANESection(MetricsCoordinator& coordinator, QWidget* parent)
    : SectionPage(coordinator, parent), placeholder_(new PlaceholderCard(this)) {
    addBlock(placeholder_);
    refresh();
}

void ANESection::display(const PlaceholderModel& model) { placeholder_->setContent(toKit(model)); }

void ANESection::refresh() { display(describeANESection(Localization::shared())); }

}  // namespace vtx
