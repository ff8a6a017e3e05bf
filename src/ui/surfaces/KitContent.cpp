// SPDX-License-Identifier: MIT
#include "ui/surfaces/KitContent.h"

#include "ui/surfaces/QtText.h"

namespace vtx {

ColorToken colorOf(Hue hue) {
    switch (hue) {
        case Hue::secondary:
            return ColorToken::text2;
        case Hue::tertiary:
            return ColorToken::text3;
        case Hue::accent:
            return ColorToken::accent;
        case Hue::cpu:
            return ColorToken::cpu;
        case Hue::pCore:
            return ColorToken::pCore;
        case Hue::eCore:
            return ColorToken::eCore;
        case Hue::gpu:
            return ColorToken::gpu;
        case Hue::memory:
            return ColorToken::memory;
        case Hue::cyan:
            return ColorToken::cyan;
        case Hue::green:
            return ColorToken::green;
        case Hue::yellow:
            return ColorToken::yellow;
        case Hue::orange:
            return ColorToken::orange;
        case Hue::red:
            return ColorToken::red;
        case Hue::primary:
            break;
    }
    return ColorToken::text1;
}

HeroContent toKit(const HeroModel& model) {
    return {.label = qt(model.title),
            .text = qt(model.value),
            .tint = colorOf(model.hue),
            .trailing = qt(model.note)};
}

std::vector<FigureContent> toKit(const std::vector<FigureModel>& models) {
    std::vector<FigureContent> figures;
    figures.reserve(models.size());
    for (const FigureModel& model : models) {
        const bool isNamed = !model.noteTitle.empty();
        figures.push_back({.label = qt(model.title),
                           .text = qt(model.value),
                           .tint = colorOf(model.hue),
                           .symbol = qt(model.symbol),
                           .caption = qt(isNamed ? model.noteTitle : model.note),
                           .captionValue = qt(isNamed ? model.note : std::string())});
    }
    return figures;
}

std::vector<KeyValueRow> toKit(const std::vector<KeyValueModel>& models) {
    std::vector<KeyValueRow> rows;
    rows.reserve(models.size());
    for (const KeyValueModel& model : models)
        rows.push_back({.label = qt(model.title), .value = qt(model.value)});
    return rows;
}

PlaceholderContent toKit(const PlaceholderModel& model) {
    return {.symbol = qt(model.symbol), .title = qt(model.title), .body = qt(model.body)};
}

PillContent toKit(const PillModel& model, PillDot dot) {
    return {.text = qt(model.text), .color = colorOf(model.hue), .dot = dot};
}

}  // namespace vtx
