// SPDX-License-Identifier: MIT
#include "ui/surfaces/SettingsColorRow.h"

#include <memory>
#include <string>

#include "ui/kit/Button.h"
#include "ui/kit/ColorWell.h"
#include "ui/kit/FormRow.h"
#include "ui/kit/SeriesColor.h"
#include "ui/surfaces/ChartContent.h"
#include "ui/surfaces/QtText.h"
#include "ui/surfaces/SettingsSink.h"

namespace vtx {
namespace {

/// A colour that cannot be told in red, green and blue counts as grey.
std::string hexOf(const QColor& color) {
    const QColor told = color.toRgb();
    if (!told.isValid()) return settings::encodeHex(0.5, 0.5, 0.5);
    return settings::encodeHex(static_cast<double>(told.redF()), static_cast<double>(told.greenF()),
                               static_cast<double>(told.blueF()));
}

}  // namespace

std::function<void(const SettingsRow&)> fillColorRow(FormRow& form, const SettingsRow& row,
                                                     SettingsSink& sink) {
    auto* reset = new Button(ButtonKind::quiet);
    reset->setSymbol(QStringLiteral("arrow.counterclockwise"));
    reset->setTip(qt(resetColorTip));
    form.addControl(reset, ControlName::own);
    auto* well = new ColorWell;
    form.addControl(well);
    const auto id = row.id;
    // What the dialog found, for when it is given up.
    const auto before = std::make_shared<std::string>();
    QObject::connect(reset, &Button::pressed, &form, [&sink, id] { sink.recolor(id, {}); });
    QObject::connect(well, &ColorWell::opened, &form,
                     [&sink, id, before] { *before = sink.colorText(id); });
    QObject::connect(well, &ColorWell::chosen, &form,
                     [&sink, id](const QColor& color) { sink.recolor(id, hexOf(color)); });
    QObject::connect(well, &ColorWell::givenUp, &form,
                     [&sink, id, before] { sink.recolor(id, *before); });
    const auto shown = std::make_shared<SeriesColor>(seriesColor(row.color));
    // The theme's own colour is another one in the other appearance.
    QObject::connect(&Theme::current(), &Theme::changed, well,
                     [well, shown] { well->setColor(shown->resolved()); });
    return [&form, reset, well, shown](const SettingsRow& next) {
        *shown = seriesColor(next.color);
        well->setColor(shown->resolved());
        reset->setAccessibleName(qt(resetColorTip) + ", " + qt(next.label));
        if (reset->isVisibleTo(&form) == next.canReset) return;
        // The keyboard's focus would go to the next row with the button.
        if (reset->hasFocus()) well->setFocus(Qt::TabFocusReason);
        reset->setVisible(next.canReset);
    };
}

}  // namespace vtx
