// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

#include "ui/kit/KitWidget.h"

namespace vtx {

struct GaugeContent {
    double current = 0;
    std::optional<double> target = std::nullopt;
    double min = 0;
    double max = 0;
    /// What the gauge measures and its value in words, for assistive technology only.
    QString label = {};
    QString spoken = {};
    /// Below the bar: at its beginning, in its middle and at its end. No line where all are empty.
    QString minText = {};
    QString targetText = {};
    QString maxText = {};

    bool operator==(const GaugeContent&) const = default;
};

/// A value within its range, over a gradient that the value uncovers, with a mark at its target.
/// A range below 1 shows the track alone. A progress bar for assistive technology.
class Gauge : public KitWidget {
public:
    explicit Gauge(QWidget* parent = nullptr);

    void setContent(GaugeContent content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] int partCount() const override { return 1; }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int) const override { return rect(); }

    /// Where `value` stands in the range, 0 to 1; absent where the range is below 1.
    [[nodiscard]] std::optional<double> position(double value) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] bool hasTexts() const;
    void paintFill(QPainter& painter, const QRectF& bar) const;
    void paintTarget(QPainter& painter, const QRectF& bar) const;
    void paintTexts(QPainter& painter) const;

    GaugeContent content_;
};

}  // namespace vtx
