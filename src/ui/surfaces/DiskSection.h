// SPDX-License-Identifier: MIT
#pragma once

#include "ui/surfaces/SectionPage.h"

namespace vtx {

class CardTitle;
struct DiskSectionModel;
class DiskChartCard;
class Figures;
class ListRows;

/// The page of the drives: what they move, what each has moved, and the history of it.
class DiskSection final : public SectionPage {
public:
    explicit DiskSection(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    void display(const DiskSectionModel& model);

protected:
    void follow() override;
    void refresh() override;
    void refreshCharts() override;

private:
    Card* makeVolumesCard();

    Figures* summary_;
    CardTitle* volumesTitle_;
    ListRows* volumes_;
    Card* volumesCard_;
    DiskChartCard* chart_;
};

}  // namespace vtx
