// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "ui/surfaces/SectionPage.h"

namespace vtx {

class Banner;
class CardTitle;
class ChartCard;
class CollectingCard;
class ListRows;
struct MemorySectionModel;
class MemorySummaryCard;
class TextBlock;

/// The page of the memory: what it is used for, by whom, and the history of it.
class MemorySection final : public SectionPage {
public:
    /// As many of the largest processes are listed.
    static constexpr std::size_t topConsumerLimit = 6;

    explicit MemorySection(MetricsCoordinator& coordinator, QWidget* parent = nullptr);

    void display(const MemorySectionModel& model);

protected:
    void follow() override;
    void refresh() override;
    void refreshCharts() override;

private:
    Card* makeConsumersCard();
    void displayBanner(const MemorySectionModel& model);
    void displayConsumers(const MemorySectionModel& model);

    CollectingCard* collecting_;
    MemorySummaryCard* summary_;
    Banner* banner_;
    CardTitle* consumersTitle_;
    TextBlock* noConsumers_;
    ListRows* consumers_;
    Card* consumersCard_;
    ChartCard* charts_;
};

}  // namespace vtx
