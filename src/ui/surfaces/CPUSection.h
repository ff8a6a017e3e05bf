// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "ui/surfaces/SectionPage.h"

namespace vtx {

class ChartCard;
class ClusterCard;
struct CPUSectionModel;
class HeroNumber;
class PlaceholderCard;

/// The page of the processor: its load, its clusters with their cores, and their histories.
class CPUSection final : public SectionPage {
public:
    explicit CPUSection(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    void display(const CPUSectionModel& model);

protected:
    void follow() override;
    void refresh() override;
    void refreshCharts() override;

private:
    HeroNumber* hero_;
    PlaceholderCard* noLayout_;
    std::vector<ClusterCard*> clusters_;
    ChartCard* charts_;
};

}  // namespace vtx
