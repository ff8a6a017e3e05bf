// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "ui/kit/KitWidget.h"
#include "ui/kit/Pill.h"
#include "ui/kit/SeriesColor.h"

namespace vtx {

/// How the text at the end of a card's title looks.
enum class TitleEnd : quint8 {
    note,   ///< 11/400, a word beside the title
    mark,   ///< 11/500, a word with a symbol of its own
    value,  ///< 15/600, a figure
    load,   ///< 20/600, the figure of the whole card
};

/// Empty fields are left out.
struct CardTitleContent {
    QString title;
    QString symbol = {};
    SeriesColor symbolColor = ColorToken::text2;
    QString trailing = {};
    SeriesColor trailingColor = ColorToken::text2;
    TitleEnd trailingStyle = TitleEnd::note;
    QString trailingSymbol = {};
    /// In place of the trailing text.
    PillContent pill = {};

    bool operator==(const CardTitleContent&) const = default;
};

/// The first line of a card: symbol, title, and what stands at the other end. A heading for
/// assistive technology, followed by the words at its end.
class CardTitle : public KitWidget {
public:
    explicit CardTitle(QWidget* parent = nullptr);

    void setContent(CardTitleContent content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] int partCount() const override;
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] const QString& endText() const;
    [[nodiscard]] int symbolRoom() const;
    [[nodiscard]] int endWidth() const;
    [[nodiscard]] int lineHeightNeeded() const;
    void paintEnd(QPainter& painter) const;

    CardTitleContent content_;
};

}  // namespace vtx
