// SPDX-License-Identifier: MIT
#include "ui/surfaces/SystemInfoSection.h"

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/models/SystemSectionModel.h"
#include "ui/surfaces/KeyValueCard.h"

namespace vtx {

SystemInfoSection::SystemInfoSection(MetricsCoordinator& coordinator, QWidget* parent)
    : SectionPage(coordinator, parent) {
    refresh();
}

void SystemInfoSection::display(const std::vector<KeyValueCardModel>& models) {
    while (cards_.size() < models.size()) {
        cards_.push_back(new KeyValueCard(this));
        addBlock(cards_.back());
    }
    for (std::size_t i = 0; i < models.size(); ++i) cards_[i]->display(models[i]);
}

void SystemInfoSection::follow() {
    observe(coordinator().systemInfo.info);
    observe(coordinator().battery.latest);
}

void SystemInfoSection::refresh() {
    const auto& battery = *coordinator().battery.latest;
    display(describeSystemSection(*coordinator().systemInfo.info,
                                  battery ? battery->temperatureC : std::nullopt,
                                  Localization::shared()));
}

}  // namespace vtx
