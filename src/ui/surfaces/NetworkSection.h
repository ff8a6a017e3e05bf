// SPDX-License-Identifier: MIT
#pragma once

#include "ui/surfaces/SectionPage.h"

namespace vtx {

class CardTitle;
class CollectingCard;
class Figures;
class KeyValueCard;
class ListRows;
struct NetworkSectionModel;
class PlaceholderCard;
class TextBlock;

/// The page of the network: what goes through it, and its interfaces.
class NetworkSection final : public SectionPage {
public:
    explicit NetworkSection(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    void display(const NetworkSectionModel& model);

protected:
    void follow() override;
    void refresh() override;

private:
    Card* makeThroughputCard();
    Card* makeInterfacesCard();
    void displayPrimary(const NetworkSectionModel& model);
    void displayInterfaces(const NetworkSectionModel& model);

    CollectingCard* collecting_;
    PlaceholderCard* placeholder_;
    CardTitle* title_;
    Figures* throughput_;
    Card* throughputCard_;
    KeyValueCard* primary_;
    CardTitle* interfacesTitle_;
    TextBlock* noneActive_;
    ListRows* interfaces_;
    Card* interfacesCard_;
};

}  // namespace vtx
