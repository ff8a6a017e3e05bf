// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "ui/surfaces/SectionPage.h"

namespace vtx {

class FanCard;
struct FanSectionModel;
class Figures;
class PlaceholderCard;

/// The page of the fans: how fast they turn.
class FanSection final : public SectionPage {
public:
    explicit FanSection(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    void display(const FanSectionModel& model);

protected:
    void follow() override;
    void refresh() override;

private:
    PlaceholderCard* placeholder_;
    Card* summaryCard_;
    Figures* summary_;
    std::vector<FanCard*> fans_;
};

}  // namespace vtx
