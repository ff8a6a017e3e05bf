// SPDX-License-Identifier: MIT
#include "ui/surfaces/MiniWidgetView.h"

#include <QPaintEvent>
#include <QPainter>
#include <utility>

#include "core/MetricsCoordinator.h"
#include "language/Localization.h"
#include "ui/kit/Bars.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Type.h"
#include "ui/surfaces/QtText.h"

namespace vtx {
namespace {

constexpr int headerPart = 0;
constexpr int firstRow = 1;
constexpr int firstChip =
    firstRow + static_cast<int>(std::tuple_size_v<decltype(MiniWidgetModel::rows)>);
constexpr int parts =
    firstChip + static_cast<int>(std::tuple_size_v<decltype(MiniWidgetModel::chips)>);

ColorToken colorOf(MiniWidgetTint tint) {
    switch (tint) {
        case MiniWidgetTint::cpu:
            return ColorToken::cpu;
        case MiniWidgetTint::gpu:
            return ColorToken::gpu;
        case MiniWidgetTint::memory:
            return ColorToken::memory;
        case MiniWidgetTint::pCore:
            return ColorToken::pCore;
        case MiniWidgetTint::eCore:
            return ColorToken::eCore;
        case MiniWidgetTint::temperature:
            break;
    }
    return ColorToken::accent;
}

const MiniWidgetRow& rowOf(const MiniWidgetModel& model, int part) {
    return model.rows.at(static_cast<std::size_t>(part - firstRow));
}

const MiniWidgetChip& chipOf(const MiniWidgetModel& model, int part) {
    return model.chips.at(static_cast<std::size_t>(part - firstChip));
}

bool differs(const MiniWidgetModel& a, const MiniWidgetModel& b, int part) {
    if (part == headerPart) return a.time != b.time;
    if (part < firstChip) return rowOf(a, part) != rowOf(b, part);
    return chipOf(a, part) != chipOf(b, part);
}

}  // namespace

MiniWidgetView::MiniWidgetView(MetricsCoordinator& coordinator, QWidget* parent)
    : KitWidget(parent), coordinator_(coordinator) {
    resize(MiniWidgetView::sizeHint());
    setAccessibleName(qt(model_.title));
    rebuild();
}

void MiniWidgetView::display(MiniWidgetModel model) {
    std::swap(model_, model);
    for (int part = 0; part < parts; ++part) {
        if (!differs(model, model_, part)) continue;
        update(partRect(part));
        // Figures are told as they change; that the second is another one is none.
        if (part != headerPart) accessibility::announceValue(*this, part);
    }
}

QSize MiniWidgetView::sizeHint() const { return {metrics::widgetWidth, metrics::widgetHeight}; }

int MiniWidgetView::partCount() const { return parts; }

AccessiblePart MiniWidgetView::part(int index) const {
    AccessiblePart said{.name = qt(model_.title), .value = qt(model_.time)};
    said.role = QAccessible::ListItem;
    if (index >= firstChip) {
        const MiniWidgetChip& chip = chipOf(model_, index);
        said.name = qt(chip.label);
        said.value = qt(chip.value);
    } else if (index >= firstRow) {
        said.name = qt(rowOf(model_, index).label);
        said.value = qt(rowOf(model_, index).value);
    }
    return said;
}

QRect MiniWidgetView::partRect(int index) const {
    constexpr int left = metrics::widgetPadding, room = metrics::widgetWidth - 2 * left;
    constexpr int chip = (room - metrics::widgetChipGap) / 2;
    if (index == headerPart)
        return {left, metrics::widgetHeaderTop, room, metrics::widgetHeaderHeight};
    if (index < firstChip)
        return {left, metrics::widgetRowsTop + (index - firstRow) * metrics::widgetRowHeight, room,
                metrics::widgetRowHeight};
    return mirrored({left + (index - firstChip) * (chip + metrics::widgetChipGap),
                     metrics::widgetHeight - metrics::widgetPadding - metrics::widgetChipHeight,
                     chip, metrics::widgetChipHeight});
}

void MiniWidgetView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    for (int part = 0; part < parts; ++part) {
        const QRect place = partRect(part);
        if (!event->region().intersects(place)) continue;
        if (part == headerPart)
            paintHeader(painter, place);
        else if (part < firstChip)
            paintRow(painter, place, rowOf(model_, part));
        else
            paintChip(painter, place, chipOf(model_, part));
    }
}

void MiniWidgetView::paintHeader(QPainter& painter, const QRect& line) const {
    QRect dot(line.left(), 0, metrics::statusDot, metrics::statusDot);
    dot.moveTop(line.top() + (line.height() - dot.height()) / 2);
    paint::fillRounded(painter, mirrored(dot), metrics::statusDot / 2.0, color(ColorToken::accent));
    painter.setPen(color(ColorToken::text1));
    drawText(painter, mirrored(line.adjusted(metrics::statusDot + metrics::widgetDotGap, 0, 0, 0)),
             qt(model_.title), TextRole::chartTitle, atStart());
    painter.setPen(color(ColorToken::text2));
    drawTabular(painter, line, qt(model_.time), TextRole::rowTitle, atEnd());
}

void MiniWidgetView::paintRow(QPainter& painter, const QRect& line,
                              const MiniWidgetRow& row) const {
    const QColor tint = color(colorOf(row.tint));
    painter.setPen(color(ColorToken::text2));
    drawText(painter, mirrored(line), qt(row.label), TextRole::rowTitle, atStart());
    painter.setPen(tint);
    drawTabular(painter, line, qt(row.value), TextRole::rowValue, atEnd());
    if (!row.share) return;
    QRect bar(line.left() + metrics::widgetBarStart, line.top(), metrics::widgetBarWidth,
              metrics::barThin);
    bar.moveTop(line.top() + (line.height() - bar.height()) / 2);
    bars::draw(painter, mirrored(bar), *row.share, {color(ColorToken::track), tint},
               layoutDirection());
}

void MiniWidgetView::paintChip(QPainter& painter, const QRect& tile,
                               const MiniWidgetChip& chip) const {
    paint::fillRounded(painter, tile, metrics::radiusSmall, color(ColorToken::hover));
    const QRect inner =
        tile.adjusted(metrics::widgetChipPadding, 0, -metrics::widgetChipPadding, 0);
    painter.setPen(color(colorOf(chip.tint)));
    drawText(painter, inner, qt(chip.label), TextRole::chartTitle, atStart());
    painter.setPen(color(ColorToken::text1));
    drawTabular(painter, inner, qt(chip.value), TextRole::rowValue, atEnd());
}

void MiniWidgetView::showEvent(QShowEvent* event) {
    KitWidget::showEvent(event);
    rebuild();
    const auto follow = [this](const auto&) { readingChanged(); };
    isDue_ = true;  // what is there now is shown, and told once more by each
    subscriptions_.push_back(coordinator_.cpu.latest.subscribe(follow));
    subscriptions_.push_back(coordinator_.gpu.latest.subscribe(follow));
    subscriptions_.push_back(coordinator_.memory.latest.subscribe(follow));
    subscriptions_.push_back(coordinator_.temperature.latest.subscribe(follow));
    subscriptions_.push_back(coordinator_.thermal.latest.subscribe(follow));
    isDue_ = false;
}

void MiniWidgetView::hideEvent(QHideEvent* event) {
    subscriptions_.clear();
    KitWidget::hideEvent(event);
}

// Several readings come in one turn, and the time is written by looking at the zone's file.
void MiniWidgetView::readingChanged() {
    if (std::exchange(isDue_, true)) return;
    const auto show = [this] {
        isDue_ = false;
        if (!subscriptions_.empty()) rebuild();
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

void MiniWidgetView::rebuild() {
    display(describeMiniWidget(
        {*coordinator_.cpu.latest, *coordinator_.gpu.latest, *coordinator_.memory.latest,
         *coordinator_.temperature.latest, *coordinator_.thermal.latest},
        [](Date date) { return Localization::shared().timeOfDay(date); }));
}

}  // namespace vtx
