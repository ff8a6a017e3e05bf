// SPDX-License-Identifier: MIT
#pragma once

#include "ui/surfaces/SectionPage.h"

namespace vtx {

struct BatteryChargeModel;
struct BatterySectionModel;
class CollectingCard;
class HeroNumber;
class KeyValueCard;
class PlaceholderCard;
class TextBlock;
class UsageBar;

/// The page of the battery: its charge, where the power comes from, its health and its figures.
class BatterySection final : public SectionPage {
public:
    explicit BatterySection(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    void display(const BatterySectionModel& model);

protected:
    void follow() override;
    void refresh() override;

private:
    Card* makeChargeCard();
    void displayCharge(const BatteryChargeModel& model);

    PlaceholderCard* placeholder_;
    CollectingCard* collecting_;
    HeroNumber* charge_;
    UsageBar* bar_;
    TextBlock* lowPowerMode_;
    Card* chargeCard_;
    KeyValueCard* status_;
    KeyValueCard* health_;
    KeyValueCard* details_;
};

}  // namespace vtx
