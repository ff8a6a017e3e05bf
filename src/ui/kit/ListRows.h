// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

#include "ui/kit/RowList.h"
#include "ui/kit/SeriesColor.h"

namespace vtx {

/// How high the rows of a list are and what they have room for.
enum class ListKind : quint8 {
    oneLine,  ///< 32: title, note, and a value with its mark
    twoLine,  ///< 42: title over caption, and up to two values over one another
    withBar,  ///< 33: title and value over a bar
};

enum class StateMark : quint8 { none, filled, hollow };

/// A value at the end of a row, with a word in front of it.
struct ListValue {
    QString text;
    QString label = {};
    SeriesColor color = ColorToken::text1;

    bool operator==(const ListValue&) const = default;
};

/// Empty fields are left out.
struct ListRow {
    QString title;
    QString symbol = {};
    SeriesColor symbolColor = ColorToken::text2;
    /// Beside the title in one line, below it in two.
    QString caption = {};
    /// In front of the first value; only where a row is of one line.
    StateMark mark = StateMark::none;
    /// The first two are shown.
    std::vector<ListValue> values = {};
    /// 0 to 1; held within.
    std::optional<double> bar = std::nullopt;
    SeriesColor barTint = ColorToken::accent;

    bool operator==(const ListRow&) const = default;
};

/// Things that have a name and more than one property, below one another: interfaces, volumes,
/// consumers. Captions of one line begin at one place and have the room that the widest one needs;
/// names take what is left and are shortened in the middle.
class ListRows : public RowList<ListRow> {
public:
    explicit ListRows(ListKind kind, QWidget* parent = nullptr);

    /// Shows `rows`. Hides RowList's, to hold the bars' values within their range.
    void setRows(std::vector<ListRow> rows);

    [[nodiscard]] AccessiblePart part(int index) const override;

protected:
    [[nodiscard]] int rowHeight() const override;
    bool arrange() override;
    void paintRow(QPainter& painter, int index) const override;

private:
    [[nodiscard]] int endWidth(const ListRow& shown) const;
    /// Where the captions of one line begin, from a title's left edge.
    [[nodiscard]] int captionLeft() const;
    [[nodiscard]] QRect within(const QRect& line, const QRect& part) const;
    int paintSymbol(QPainter& painter, const QRect& line, const ListRow& shown) const;
    void paintOneLine(QPainter& painter, const QRect& line, const ListRow& shown) const;
    void paintTwoLines(QPainter& painter, const QRect& line, const ListRow& shown) const;
    void paintWithBar(QPainter& painter, const QRect& line, const ListRow& shown) const;
    int paintValue(QPainter& painter, const QRect& line, const ListRow& shown,
                   std::size_t index) const;
    int paintMark(QPainter& painter, const QRect& line, int taken, const ListRow& shown) const;

    ListKind kind_;
    /// The most that any row of one line needs for its title, its caption, and what ends it.
    struct Widths {
        int title = 0;
        int caption = 0;
        int end = 0;
    };
    Widths widest_;
};

}  // namespace vtx
