// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "ui/kit/Color.h"
#include "ui/kit/Figures.h"
#include "ui/kit/HeroNumber.h"
#include "ui/kit/KeyValueRows.h"
#include "ui/kit/Pill.h"
#include "ui/kit/PlaceholderCard.h"
#include "ui/models/SectionParts.h"

// What the models say, as the parts of the kit take it.
namespace vtx {

[[nodiscard]] ColorToken colorOf(Hue hue);

[[nodiscard]] HeroContent toKit(const HeroModel& model);
[[nodiscard]] std::vector<FigureContent> toKit(const std::vector<FigureModel>& models);
[[nodiscard]] std::vector<KeyValueRow> toKit(const std::vector<KeyValueModel>& models);
[[nodiscard]] PlaceholderContent toKit(const PlaceholderModel& model);
[[nodiscard]] PillContent toKit(const PillModel& model, PillDot dot);

}  // namespace vtx
