// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "ui/models/ChartModel.h"

namespace vtx {

/// The card of a section's charts, below one another, under the window that they show.
struct ChartCardModel {
    std::string title;
    std::vector<MetricChartModel> charts;

    friend bool operator==(const ChartCardModel&, const ChartCardModel&) = default;
};

}  // namespace vtx
