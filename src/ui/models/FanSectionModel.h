// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ui/models/SectionParts.h"

namespace vtx {

struct FanStats;
class Localization;

/// A speed within the range that a fan has; revolutions a minute.
struct FanGaugeModel {
    int current = 0;
    std::optional<int> target;
    int min = 0;
    int max = 0;
    std::string minText;
    std::string targetText;  ///< empty where no speed is commanded
    std::string maxText;
    std::string spoken;  ///< the limits and the target, each with its word

    friend bool operator==(const FanGaugeModel&, const FanGaugeModel&) = default;
};

/// One fan.
struct FanCardModel {
    std::string symbol;
    std::string title;
    std::string speed;
    std::optional<FanGaugeModel> gauge;  ///< absent where either limit is not told

    friend bool operator==(const FanCardModel&, const FanCardModel&) = default;
};

/// All that the page of the fans says.
struct FanSectionModel {
    std::optional<PlaceholderModel> placeholder;  ///< alone where it is there
    std::vector<FigureModel> summary;
    std::vector<FanCardModel> fans;

    friend bool operator==(const FanSectionModel&, const FanSectionModel&) = default;
};

[[nodiscard]] FanSectionModel describeFanSection(const FanStats& reading,
                                                 const Localization& texts);

}  // namespace vtx
