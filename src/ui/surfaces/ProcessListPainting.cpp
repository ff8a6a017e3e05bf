// SPDX-License-Identifier: MIT
// How the process list looks.
#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"
#include "ui/kit/WrappedText.h"
#include "ui/models/ProcessRowModel.h"
#include "ui/surfaces/ProcessColumns.h"
#include "ui/surfaces/ProcessList.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

namespace {

constexpr int rowHeight = metrics::processRowHeight;

QRect centred(const QRect& in, int size) {
    return {in.left() + (in.width() - size) / 2, in.top() + (in.height() - size) / 2, size, size};
}

/// The greatest numbers would touch the column before theirs.
TextRole pidRole(const QString& pid) {
    const bool fits =
        tabularWidth(pid, TextRole::rowTitle) <= metrics::processPIDWidth - metrics::labelToValue;
    return fits ? TextRole::rowTitle : TextRole::caption;
}

}  // namespace

void ProcessList::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (rowCount() == 0) {
        if (placeholder_) paintPlaceholder(painter);
        return;
    }
    const QRect asked = event->rect();
    const int last = std::min(rowCount() - 1, asked.bottom() / rowHeight);
    for (int row = std::max(0, asked.top() / rowHeight); row <= last; ++row)
        if (event->region().intersects(partRect(row))) paintRow(painter, row);
}

void ProcessList::paintGround(QPainter& painter, int row) const {
    constexpr int inset = metrics::processRowInset;
    const QRect ground = partRect(row).adjusted(inset, 0, -inset, 0);
    if (row == hovered_ || row == menuRow_)
        paint::fillRounded(painter, ground, metrics::radiusSmall, color(ColorToken::hover));
    if (row == menuRow_) {
        const QRect action = centred(actionRect(row), metrics::processActionGround);
        paint::fillRounded(painter, action, metrics::radiusSmall, color(ColorToken::press));
    }
    if (showsFocus() && row == current_)
        paint::focusRingInside(painter, ground, metrics::radiusSmall);
}

void ProcessList::paintRow(QPainter& painter, int row) const {
    const ProcessRowModel said = describeProcessRow(process(row));
    const auto places = ProcessColumnPlaces::in(partRect(row));
    paintGround(painter, row);
    paintName(painter, places.name, qt(said.name), qt(said.niceMark));
    painter.setPen(color(ColorToken::text1));
    drawTabular(painter, mirrored(places.cpu), qt(said.cpu), TextRole::keyValue, atEnd());
    painter.setPen(color(ColorToken::text2));
    drawTabular(painter, mirrored(places.memory), qt(said.memory), TextRole::rowTitle, atEnd());
    painter.setPen(color(ColorToken::text3));
    drawTabular(painter, mirrored(places.pid), qt(said.pid), pidRole(qt(said.pid)), atEnd());
    const bool isLit = row == hovered_ || row == menuRow_;
    symbols::draw(painter, actionRect(row), QStringLiteral("ellipsis.circle"),
                  metrics::processActionSymbol,
                  color(isLit ? ColorToken::text1 : ColorToken::text2));
}

void ProcessList::paintName(QPainter& painter, const QRect& place, const QString& name,
                            const QString& mark) const {
    const int markWidth = mark.isEmpty()
                              ? 0
                              : static_cast<int>(std::ceil(tabularWidth(mark, TextRole::small))) +
                                    2 * metrics::processMarkPadding;
    const int room = place.width() - (markWidth > 0 ? markWidth + metrics::processNameGap : 0);
    painter.setPen(color(ColorToken::text1));
    drawName(painter, mirrored({place.left(), place.top(), room, place.height()}), name,
             TextRole::rowTitle, atStart());
    if (mark.isEmpty()) return;
    // Only the mark asks where the name ends: to lay a text out is most of what a row costs.
    const QFontMetricsF measure(fontFor(TextRole::rowTitle));
    const QString shown = measure.elidedText(name, Qt::ElideMiddle, room);
    const int taken = static_cast<int>(std::ceil(measure.horizontalAdvance(shown)));
    const QRect ground = mirrored({place.left() + taken + metrics::processNameGap,
                                   place.top() + (rowHeight - metrics::processMarkHeight) / 2,
                                   markWidth, metrics::processMarkHeight});
    paint::fillRounded(painter, ground, metrics::radiusSegment, color(ColorToken::track));
    painter.setPen(color(ColorToken::text2));
    drawTabular(painter, ground, mark, TextRole::small, Qt::AlignCenter);
}

void ProcessList::paintPlaceholder(QPainter& painter) const {
    const int width = std::min(metrics::placeholderTextWidth, this->width());
    const QString text = qt(placeholder_->text);
    const int lines = wrapped::height(text, TextRole::body, width);
    const int height = metrics::placeholderSymbol + metrics::placeholderGap + lines;
    const int top = std::max(0, (this->height() - height) / 2);
    const QRect symbol((this->width() - metrics::placeholderSymbol) / 2, top,
                       metrics::placeholderSymbol, metrics::placeholderSymbol);
    symbols::draw(painter, symbol, qt(placeholder_->symbol), metrics::placeholderSymbol,
                  color(ColorToken::text3));
    painter.setPen(color(ColorToken::text2));
    wrapped::draw(
        painter,
        {(this->width() - width) / 2, symbol.bottom() + 1 + metrics::placeholderGap, width, lines},
        text, TextRole::body, Qt::AlignHCenter);
}

}  // namespace vtx
