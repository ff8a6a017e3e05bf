// SPDX-License-Identifier: MIT
#include "ui/surfaces/MemorySummaryCard.h"

#include <QVBoxLayout>
#include <array>
#include <utility>

#include "ui/kit/CardTitle.h"
#include "ui/kit/CompositionBar.h"
#include "ui/kit/Metrics.h"
#include "ui/models/MemorySectionModel.h"
#include "ui/surfaces/KitContent.h"
#include "ui/surfaces/QtText.h"

namespace vtx {
namespace {

// In the order of the composition.
constexpr std::array partColors{ColorToken::memoryWired, ColorToken::memoryActive,
                                ColorToken::memoryCompressed, ColorToken::memoryInactive,
                                ColorToken::memoryFree};
constexpr auto swapSymbol = "arrow.triangle.swap";

}  // namespace

MemorySummaryCard::MemorySummaryCard(QWidget* parent)
    : Card(parent),
      hero_(new HeroNumber),
      composition_(new CompositionBar),
      available_(new CardTitle),
      parts_(new KeyValueRows) {
    constexpr int padding = metrics::cardPadding;
    content()->setContentsMargins(padding, padding, padding, metrics::cardRowsInset);
    content()->addWidget(hero_);
    content()->addSpacing(metrics::figureToBar);
    content()->addWidget(composition_);
    content()->addSpacing(metrics::barToTitle);
    content()->addWidget(available_);
    content()->addSpacing(metrics::titleToKeyValues);
    content()->addWidget(parts_);
}

void MemorySummaryCard::display(const MemorySummaryModel& model) {
    HeroContent hero = toKit(model.hero);
    hero.beside = std::exchange(hero.trailing, {});
    hero.pill = toKit(model.pressure, PillDot::shown);
    hero_->setContent(std::move(hero));
    std::vector<CompositionPart> parts;
    for (std::size_t i = 0; i < partColors.size(); ++i)
        parts.push_back({model.composition.fractions[i], partColors[i]});
    composition_->setParts(std::move(parts));
    composition_->setSpoken(qt(model.composition.spoken));
    available_->setContent({.title = qt(model.available.title),
                            .trailing = qt(model.available.value),
                            .trailingColor = ColorToken::text1,
                            .trailingStyle = TitleEnd::value});
    std::vector<KeyValueRow> rows = toKit(model.parts);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i < partColors.size())
            rows[i].swatch = partColors[i];
        else
            rows[i].symbol = swapSymbol;
    }
    parts_->setRows(std::move(rows));
}

}  // namespace vtx
