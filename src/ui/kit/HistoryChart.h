// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "ui/kit/ChartTrace.h"
#include "ui/kit/KitWidget.h"
#include "ui/kit/SeriesColor.h"

namespace vtx {

/// One series of a chart. Its name stands in the legend where there are several.
struct ChartSeries {
    std::vector<ChartPoint> points;
    ChartShape shape = ChartShape::area;
    SeriesColor color = ColorToken::cpu;
    QString name = {};

    bool operator==(const ChartSeries&) const = default;
};

/// A figure below a chart.
struct ChartFigure {
    QString label;
    QString value;

    bool operator==(const ChartFigure&) const = default;
};

/// All that a chart shows. The window ends with the last point of its series.
struct HistoryChartContent {
    /// Empty for a chart whose card has a title already.
    QString title = {};
    QString symbol = {};
    std::vector<ChartSeries> series = {};
    double windowSeconds = 60;
    double lower = 0;
    double upper = 1;
    /// At the lower edge, the middle and the upper edge.
    std::array<QString, 3> marks = {};
    std::vector<ChartFigure> figures = {};
    /// In place of a plot without points.
    QString placeholder = {};
    /// The chart in words, for assistive technology, which hears it after the name.
    QString spokenName = {};
    QString spoken = {};

    bool operator==(const HistoryChartContent&) const = default;
};

/// The course of one or two series over time, the newest point at the right edge, with its title
/// above and its figures, or a legend of several series, below. The marks are a picture that is
/// made again only when points, size, colours or the screen's scale change. It goes when the
/// widget is hidden, and the points with it: who shows the chart again gives them again.
class HistoryChart : public KitWidget {
public:
    explicit HistoryChart(QWidget* parent = nullptr);

    /// Paints again what differs, and nothing where nothing does.
    void setContent(HistoryChartContent content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Chart; }

    /// Where the marks are, and the title above them, and the figures below.
    [[nodiscard]] QRect plotRect() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Peak {
        QPointF place;  ///< in logical pixels within the plot
        QRgb color = 0;
    };
    /// What a picture was made for, besides the content.
    struct Picture {
        QImage image;
        qreal scale = 0;
        std::vector<QRgb> colors;
        std::vector<Peak> peaks;
    };

    [[nodiscard]] bool hasPoints() const;
    [[nodiscard]] bool hasHead() const { return !content_.title.isEmpty(); }
    [[nodiscard]] bool hasFoot() const { return hasPoints(); }
    [[nodiscard]] QRect headRect() const;
    [[nodiscard]] QRect footRect() const;
    [[nodiscard]] const Picture& pictureAt(qreal scale);
    void paintHead(QPainter& painter) const;
    void paintPlaceholder(QPainter& painter) const;
    void paintGrid(QPainter& painter) const;
    void paintMarks(QPainter& painter);
    void paintFigures(QPainter& painter) const;
    void paintLegend(QPainter& painter) const;

    HistoryChartContent content_;
    std::optional<Picture> picture_;
};

}  // namespace vtx
