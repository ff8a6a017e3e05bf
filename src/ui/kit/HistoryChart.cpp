// SPDX-License-Identifier: MIT
#include "ui/kit/HistoryChart.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/kit/ChartRaster.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

constexpr Qt::Alignment atLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment atRight = Qt::AlignRight | Qt::AlignVCenter;

bool isShown(const ChartPoint& point) { return std::isfinite(point.value); }

/// The latest of the series' last points.
double endOf(const std::vector<ChartSeries>& all) {
    double end = -std::numeric_limits<double>::infinity();
    for (const ChartSeries& series : all)
        if (!series.points.empty()) end = std::max(end, series.points.back().seconds);
    return end;
}

ChartFrame frameOf(const HistoryChartContent& content, QSize plot, qreal scale) {
    ChartFrame frame;
    frame.width = static_cast<int>(std::lround(plot.width() * scale));
    frame.height = static_cast<int>(std::lround(plot.height() * scale));
    frame.top = metrics::chartClear * scale;
    frame.bottom = (metrics::chartHeight - metrics::chartClear) * scale;
    frame.upper = content.upper;
    frame.lower = content.lower;
    frame.endSeconds = endOf(content.series);
    frame.windowSeconds = content.windowSeconds;
    frame.pixelsPerUnit = scale;
    return frame;
}

/// Where a value of the scale's lower edge, middle or upper edge stands in the plot.
int markY(const QRect& plot, int mark) {
    constexpr int scale = metrics::chartHeight - 2 * metrics::chartClear;
    return plot.top() + metrics::chartClear + scale - scale / 2 * mark;
}

}  // namespace

HistoryChart::HistoryChart(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void HistoryChart::setContent(HistoryChartContent content) {
    if (content_ == content) return;
    const int height = sizeHint().height();
    const HistoryChartContent before = std::exchange(content_, std::move(content));
    picture_.reset();
    // Each call is told to listeners, whatever was there before.
    if (accessibleName() != content_.spokenName) setAccessibleName(content_.spokenName);
    if (accessibleDescription() != content_.spoken) setAccessibleDescription(content_.spoken);
    if (sizeHint().height() != height) updateGeometry();
    const bool sameHead = before.title == content_.title && before.symbol == content_.symbol;
    if (sameHead && hasHead()) {
        update(rect().adjusted(0, headRect().height(), 0, 0));
    } else {
        update();
    }
}

bool HistoryChart::hasPoints() const {
    return std::ranges::any_of(content_.series, [](const ChartSeries& series) {
        return std::ranges::any_of(series.points, isShown);
    });
}

QSize HistoryChart::sizeHint() const {
    const int head = hasHead() ? headRect().height() + metrics::titleToChart : 0;
    const int foot = hasFoot() ? metrics::chartToPills + metrics::chartPillHeight : 0;
    return {metrics::popoverWidth - 2 * (metrics::contentInset + metrics::cardPadding),
            head + metrics::chartHeight + foot};
}

QSize HistoryChart::minimumSizeHint() const {
    return {2 * metrics::chartAxisWidth, sizeHint().height()};
}

QRect HistoryChart::headRect() const {
    return {0, 0, width(), hasHead() ? lineHeight(TextRole::chartTitle) : 0};
}

QRect HistoryChart::plotRect() const {
    const int top = hasHead() ? headRect().height() + metrics::titleToChart : 0;
    return {0, top, std::max(0, width() - metrics::chartAxisWidth), metrics::chartHeight};
}

QRect HistoryChart::footRect() const {
    const QRect plot = plotRect();
    return {0, plot.top() + plot.height() + metrics::chartToPills, width(),
            metrics::chartPillHeight};
}

void HistoryChart::hideEvent(QHideEvent* event) {
    picture_.reset();
    // An hour of points is a hundred kilobytes; the page gives them again when it is shown.
    for (ChartSeries& series : content_.series) std::vector<ChartPoint>().swap(series.points);
    KitWidget::hideEvent(event);
}

const HistoryChart::Picture& HistoryChart::pictureAt(qreal scale) {
    const ChartFrame frame = frameOf(content_, plotRect().size(), scale);
    std::vector<QRgb> colors;
    for (const ChartSeries& series : content_.series)
        colors.push_back(series.color.resolved().rgb());
    const QSize size(frame.width, frame.height);
    const bool isCurrent = picture_ && picture_->scale == scale && picture_->colors == colors &&
                           picture_->image.size() == size;
    if (isCurrent) return *picture_;
    Picture made{QImage(size, QImage::Format_ARGB32_Premultiplied), scale, colors, {}};
    made.image.fill(Qt::transparent);
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const ChartSeries& series = content_.series[i];
        const ChartTrace trace = ChartTrace::of(series.points, frame, series.shape);
        if (!made.image.isNull())
            chartRaster::drawMarks(made.image, trace, frame, series.shape, colors[i]);
        if (trace.peak)
            made.peaks.push_back({QPointF(trace.peak->x, trace.peak->y) / scale, colors[i]});
    }
    made.image.setDevicePixelRatio(scale);
    return picture_.emplace(std::move(made));
}

void HistoryChart::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (hasHead() && event->region().intersects(headRect())) paintHead(painter);
    if (!hasPoints()) return paintPlaceholder(painter);
    paintGrid(painter);
    paintMarks(painter);
    if (content_.series.size() > 1) {
        paintLegend(painter);
    } else {
        paintFigures(painter);
    }
}

void HistoryChart::paintHead(QPainter& painter) const {
    const QRect line = headRect();
    const QRect symbol(0, 0, metrics::chartSymbol, line.height());
    const bool hasSymbol = !content_.symbol.isEmpty() && !content_.series.empty();
    if (hasSymbol)
        symbols::draw(painter, mirrored(symbol), content_.symbol, metrics::chartSymbol,
                      content_.series.front().color.resolved());
    const int left = hasSymbol ? metrics::chartSymbol + metrics::symbolToTitle : 0;
    painter.setPen(color(ColorToken::text1));
    drawText(painter, mirrored(line.adjusted(left, 0, 0, 0)), content_.title, TextRole::chartTitle,
             layoutDirection() == Qt::LeftToRight ? atLeft : atRight);
}

void HistoryChart::paintPlaceholder(QPainter& painter) const {
    const QRect box(0, plotRect().top(), width(), metrics::chartHeight);
    paint::fillRounded(painter, box, metrics::radiusTile, color(ColorToken::hover));
    painter.setPen(color(ColorToken::text3));
    drawText(painter, box, content_.placeholder, TextRole::caption, Qt::AlignCenter);
}

void HistoryChart::paintGrid(QPainter& painter) const {
    const QRect plot = plotRect();
    const int half = lineHeight(TextRole::axis) / 2;
    for (int mark = 0; mark < 3; ++mark) {
        const int y = markY(plot, mark);
        const QRectF line(plot.left(), y, plot.width(), 0);
        if (mark == 0) {
            painter.fillRect(line.adjusted(0, 0, 0, metrics::strokeEmphasis),
                             color(ColorToken::grid));
        } else {
            paint::separator(painter, line.left(), line.right(), y, color(ColorToken::grid));
        }
        painter.setPen(color(ColorToken::text3));
        drawTabular(painter, QRectF(plot.width(), y - half, metrics::chartAxisWidth, 2 * half),
                    content_.marks.at(static_cast<std::size_t>(mark)), TextRole::axis);
    }
}

void HistoryChart::paintMarks(QPainter& painter) {
    const QRect plot = plotRect();
    const Picture& picture = pictureAt(paint::scaleOf(painter));
    painter.drawImage(plot.topLeft(), picture.image);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    constexpr qreal radius = metrics::chartDot / 2;
    constexpr qreal ring = radius + metrics::strokeLine;
    for (const Peak& peak : picture.peaks) {
        const QPointF middle = peak.place + plot.topLeft();
        painter.setBrush(color(ColorToken::card));
        painter.drawEllipse(middle, ring, ring);
        painter.setBrush(QColor(peak.color));
        painter.drawEllipse(middle, radius, radius);
    }
    painter.restore();
}

void HistoryChart::paintFigures(QPainter& painter) const {
    constexpr int padding = metrics::chartPillPadding;
    QRectF pill = footRect();
    for (const ChartFigure& figure : content_.figures) {
        const qreal label = textWidth(figure.label, TextRole::label);
        const qreal value = tabularWidth(figure.value, TextRole::labelValue);
        pill.setWidth(std::ceil(label + value) + 2 * padding + metrics::chartPillLabelGap);
        paint::fillRounded(painter, pill, metrics::radiusSmall, color(ColorToken::hover));
        const QRectF text = pill.adjusted(padding, 0, -padding, 0);
        painter.setPen(color(ColorToken::text3));
        drawText(painter, text, figure.label, TextRole::label, atLeft);
        painter.setPen(color(ColorToken::text1));
        drawTabular(painter, text, figure.value, TextRole::labelValue, atRight);
        pill.moveLeft(pill.right() + metrics::chartPillGap);
    }
}

void HistoryChart::paintLegend(QPainter& painter) const {
    QRectF entry = footRect();
    for (const ChartSeries& series : content_.series) {
        const QColor tint = series.color.resolved();
        QRectF sample(entry.left(), 0, metrics::chartLegendWidth, metrics::chartLegendHeight);
        sample.moveTop(entry.center().y() - sample.height() / 2);
        const bool isFilled = series.shape != ChartShape::line;
        if (isFilled) painter.fillRect(sample, withOpacity(tint, metrics::chartAreaTop));
        const qreal y = isFilled ? sample.top() : entry.center().y() - metrics::strokeLine / 2;
        painter.fillRect(QRectF(sample.left(), y, sample.width(), metrics::strokeLine), tint);
        entry.setLeft(sample.right() + metrics::chartPillGap);
        painter.setPen(color(ColorToken::text2));
        drawText(painter, entry, series.name, TextRole::label, atLeft);
        entry.setLeft(entry.left() + textWidth(series.name, TextRole::label) +
                      metrics::chartLegendGap);
    }
}

}  // namespace vtx
