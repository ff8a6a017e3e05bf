// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "ui/kit/Card.h"

namespace vtx {

class CardTitle;
struct DiskThroughputChart;
class HistoryChart;

/// What the drives read and wrote, as one chart.
class DiskChartCard final : public Card {
public:
    explicit DiskChartCard(QWidget* parent = nullptr);

    /// Without a model the card is not shown.
    void display(const std::optional<DiskThroughputChart>& model);

private:
    CardTitle* title_;
    HistoryChart* chart_;
};

}  // namespace vtx
