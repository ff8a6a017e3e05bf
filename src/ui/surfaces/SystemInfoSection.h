// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "ui/surfaces/SectionPage.h"

namespace vtx {

class KeyValueCard;
struct KeyValueCardModel;

/// The page of the machine: what it is made of.
class SystemInfoSection final : public SectionPage {
public:
    explicit SystemInfoSection(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    void display(const std::vector<KeyValueCardModel>& models);

protected:
    void follow() override;
    void refresh() override;

private:
    std::vector<KeyValueCard*> cards_;
};

}  // namespace vtx
