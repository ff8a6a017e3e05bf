// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "ui/kit/Card.h"

namespace vtx {

class CardTitle;
struct ChartCardModel;
class HistoryChart;

/// The charts of a section below one another, under the window that they show.
class ChartCard final : public Card {
public:
    explicit ChartCard(QWidget* parent = nullptr);

    /// Without a model the card is not shown.
    void display(const std::optional<ChartCardModel>& model);

private:
    CardTitle* title_;
    std::vector<HistoryChart*> charts_;
};

}  // namespace vtx
