// SPDX-License-Identifier: MIT
#include "ui/surfaces/StripView.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "core/MetricsCoordinator.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Theme.h"
#include "ui/kit/Type.h"
#include "ui/surfaces/QtText.h"
#include "ui/surfaces/StripSource.h"

namespace vtx {
namespace {

// The reserved width, unless the text needs more.
double labelWidth(const StripTile& tile) {
    return std::ceil(std::max(tabularWidth(qt(tile.reference), TextRole::strip),
                              tabularWidth(qt(*tile.label), TextRole::strip)));
}

}  // namespace

StripView::StripView(MetricsCoordinator& coordinator, QWidget* parent)
    : QWidget(parent), coordinator_(coordinator) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(&Theme::current(), &Theme::changed, this, [this] { update(); });
    rebuild();
}

QSize StripView::sizeHint() const {
    return {static_cast<int>(std::ceil(contentWidth_)), metrics::stripHeight};
}

void StripView::display(StripModel model) {
    if (model == model_ && !places_.empty()) return;
    const StripModel before = std::exchange(model_, std::move(model));
    const std::vector<Place> placesBefore = places_;
    const double widthBefore = contentWidth_;
    layOut();
    if (before.summary != model_.summary) Q_EMIT summaryChanged();
    if (places_ == placesBefore)
        repaintDifferences(before);
    else
        update();
    if (contentWidth_ == widthBefore) return;
    updateGeometry();
    Q_EMIT widthHintChanged();
}

void StripView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    subscriptions_ = followStripReadings(coordinator_, [this] { rebuild(); });
}

void StripView::hideEvent(QHideEvent* event) {
    subscriptions_.clear();
    QWidget::hideEvent(event);
}

void StripView::rebuild() {
    display(describeStrip(stripReadingsOf(coordinator_), *coordinator_.preferences));
}

void StripView::layOut() {
    places_.clear();
    double x = metrics::stripInset;
    for (const StripTile& tile : model_.tiles) {
        if (&tile != &model_.tiles.front()) x += model_.spacing;
        Place place;
        place.symbol = QRectF(x, 0, metrics::stripSymbol, metrics::stripHeight);
        x += metrics::stripSymbol;
        if (tile.label) {
            x += metrics::stripSymbolGap;
            place.label = QRectF(x, 0, labelWidth(tile), metrics::stripHeight);
            x += place.label.width();
        }
        places_.push_back(place);
    }
    contentWidth_ = x + metrics::stripInset;
}

void StripView::repaintDifferences(const StripModel& before) {
    for (std::size_t i = 0; i < model_.tiles.size(); ++i)
        if (before.tiles[i] != model_.tiles[i]) update(places_[i].whole().toAlignedRect());
}

void StripView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QColor color = Theme::current().color(ColorToken::text1);
    painter.setPen(color);
    for (std::size_t i = 0; i < model_.tiles.size(); ++i) {
        const StripTile& tile = model_.tiles[i];
        const Place& place = places_[i];
        if (!event->region().intersects(place.whole().toAlignedRect())) continue;
        symbols::draw(painter, place.symbol, qt(tile.symbol), metrics::stripSymbol, color);
        if (tile.label)
            drawTabular(painter, place.label, qt(*tile.label), TextRole::strip,
                        Qt::AlignLeft | Qt::AlignVCenter);
    }
}

}  // namespace vtx
