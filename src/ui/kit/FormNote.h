// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTextLayout>

#include "ui/kit/KitWidget.h"

namespace vtx {

/// The explanation below a form's group or row: a caption that wraps, in which "**" begins and ends
/// what is emphasised, behind a symbol where it has one. Without text it takes no room. Static text
/// for assistive technology.
class FormNote : public KitWidget {
public:
    explicit FormNote(QWidget* parent = nullptr);

    void setText(const QString& text, const QString& symbol = {});

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::StaticText;
    }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int lead() const;
    /// Lays the text out; the number of its lines.
    int layOut(QTextLayout& layout, int width) const;

    QString plain_;
    QList<QTextLayout::FormatRange> emphasised_;
    QString symbol_;
};

}  // namespace vtx
