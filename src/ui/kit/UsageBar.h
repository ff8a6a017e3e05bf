// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "ui/kit/KitWidget.h"
#include "ui/kit/SeriesColor.h"

namespace vtx {

/// What a bar's fill runs over: the neutral track, or a shade of its own colour.
enum class BarTrack : quint8 { neutral, tinted };
enum class BarSize : quint8 { thin, regular, thick };

struct UsageBarContent {
    /// 0 to 1; held within.
    double value = 0;
    SeriesColor tint = ColorToken::accent;
    /// What the bar measures, and its value in words, both for assistive technology only.
    QString label = {};
    QString spoken = {};
    BarTrack track = BarTrack::neutral;
    BarSize size = BarSize::regular;

    bool operator==(const UsageBarContent&) const = default;
};

/// A bar of how much of something is used. Takes its new length at once, see bars. A progress bar
/// for assistive technology.
class UsageBar : public KitWidget {
public:
    explicit UsageBar(QWidget* parent = nullptr);

    /// Paints only where the fill's length in device pixels, or a colour, is another.
    void setContent(UsageBarContent content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] int partCount() const override { return 1; }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int) const override { return rect(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int thickness() const;

    UsageBarContent content_;
};

}  // namespace vtx
