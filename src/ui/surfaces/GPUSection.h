// SPDX-License-Identifier: MIT
#pragma once

#include "ui/surfaces/SectionPage.h"

namespace vtx {

class CardTitle;
class ChartCard;
struct GPUSectionModel;
class HeroNumber;
class MetricRows;
class PlaceholderCard;

/// The page of the graphics: their load, that of their parts, and its history.
class GPUSection final : public SectionPage {
public:
    explicit GPUSection(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    void display(const GPUSectionModel& model);

protected:
    void follow() override;
    void refresh() override;
    void refreshCharts() override;

private:
    Card* makeComponentsCard();

    PlaceholderCard* placeholder_;
    HeroNumber* hero_;
    Card* heroCard_;
    CardTitle* componentsTitle_;
    MetricRows* components_;
    Card* componentsCard_;
    ChartCard* charts_;
};

}  // namespace vtx
