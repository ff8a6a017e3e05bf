// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

#include "ui/kit/RowList.h"
#include "ui/kit/SeriesColor.h"

namespace vtx {

/// A property and what it is.
struct KeyValueRow {
    QString label;
    /// As it is shown, with its unit; the dash where it is not known.
    QString value;
    SeriesColor valueColor = ColorToken::text1;
    /// In front of the label: a symbol, or a swatch that stands for a part of a composition bar.
    QString symbol = {};
    std::optional<ColorToken> swatch = std::nullopt;

    bool operator==(const KeyValueRow&) const = default;
};

/// Properties below one another with hairlines between, the value at the other end. A value that
/// is too long for its row is shortened at its end, after its label gave way.
class KeyValueRows : public RowList<KeyValueRow> {
public:
    explicit KeyValueRows(QWidget* parent = nullptr);

    [[nodiscard]] AccessiblePart part(int index) const override;

protected:
    [[nodiscard]] int rowHeight() const override { return metrics::keyValueRowHeight; }
    void paintRow(QPainter& painter, int index) const override;

private:
    /// What stands in front of the label, as a width.
    int paintLead(QPainter& painter, const QRect& line, const KeyValueRow& shown) const;
};

}  // namespace vtx
