// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "ui/kit/KitWidget.h"
#include "ui/kit/Pill.h"
#include "ui/kit/SeriesColor.h"

namespace vtx {

/// Empty fields are left out.
struct HeroContent {
    QString label = {};
    QString text = {};
    SeriesColor tint = ColorToken::text1;
    /// Right behind the number, on its base line.
    QString beside = {};
    /// At the other end, on the number's base line.
    QString trailing = {};
    /// At the other end, in the label's line.
    PillContent pill = {};

    bool operator==(const HeroContent&) const = default;
};

/// The largest number of a page under its label. One item for assistive technology, of the label
/// with every other text.
class HeroNumber : public KitWidget {
public:
    explicit HeroNumber(QWidget* parent = nullptr);

    void setContent(HeroContent content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] int partCount() const override { return 1; }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int) const override { return rect(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int labelHeight() const;
    void paintLabel(QPainter& painter) const;
    void paintNumber(QPainter& painter) const;

    HeroContent content_;
};

}  // namespace vtx
