// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <vector>

#include "ui/kit/KitWidget.h"
#include "ui/kit/SeriesColor.h"
#include "ui/kit/Type.h"

namespace vtx {

/// A figure with its label above it and a line below it. Empty fields are left out.
struct FigureContent {
    QString label = {};
    QString text = {};
    SeriesColor tint = ColorToken::text1;
    QString symbol = {};
    /// Below the figure: a word, and a value that goes with it.
    QString caption = {};
    QString captionValue = {};

    bool operator==(const FigureContent&) const = default;
};

enum class FigureSize : quint8 {
    medium,  ///< 22/600
    large,   ///< 28/600
};

/// Figures side by side in columns of one width, a hairline between them. A figure that is too
/// wide for its column is set smaller: figures are never shortened. A list for assistive
/// technology, each figure an item of its label with what is below it.
class Figures : public KitWidget {
public:
    explicit Figures(FigureSize size = FigureSize::medium, QWidget* parent = nullptr);

    void setFigures(std::vector<FigureContent> figures);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::List; }
    [[nodiscard]] int partCount() const override { return static_cast<int>(figures_.size()); }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] bool hasCaption() const;
    [[nodiscard]] TextRole role() const;
    /// Whether no figure is cut in that size.
    [[nodiscard]] bool allFit(TextRole size) const;
    /// The largest size in which all fit: side by side they are equally large.
    [[nodiscard]] TextRole fittingRole() const;
    void paintFigure(QPainter& painter, int index) const;
    void paintLabel(QPainter& painter, QRect line, const FigureContent& shown) const;
    void paintCaption(QPainter& painter, const QRect& line, const FigureContent& shown) const;

    FigureSize size_;
    std::vector<FigureContent> figures_;
};

}  // namespace vtx
