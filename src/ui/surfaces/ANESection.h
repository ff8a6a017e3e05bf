// SPDX-License-Identifier: MIT
#pragma once

#include "ui/surfaces/SectionPage.h"

namespace vtx {

class PlaceholderCard;
struct PlaceholderModel;

/// The page of the Neural Engine, whose load nothing tells.
class ANESection final : public SectionPage {
public:
    explicit ANESection(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    void display(const PlaceholderModel& model);

protected:
    void follow() override {}
    void refresh() override;

private:
    PlaceholderCard* placeholder_;
};

}  // namespace vtx
