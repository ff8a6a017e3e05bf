// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "ui/kit/KitWidget.h"

namespace vtx {

/// What one card of a language says.
struct LanguageCardContent {
    QString nativeName;
    QString label;

    bool operator==(const LanguageCardContent&) const = default;
};

/// Languages to choose one of, in two columns. One stop of the keyboard: the arrows move the mark
/// as they do in every group of radio buttons. Radio buttons for assistive technology.
class LanguageCards final : public KitWidget {
    Q_OBJECT

public:
    explicit LanguageCards(QWidget* parent = nullptr);

    void setCards(std::vector<LanguageCardContent> cards);
    /// Absent where none is marked.
    void setSelection(std::optional<int> selection);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Grouping;
    }
    [[nodiscard]] int partCount() const override { return static_cast<int>(cards_.size()); }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;
    [[nodiscard]] int focusedPart() const override { return focused_; }
    void pressPart(int index) override;

Q_SIGNALS:
    void selected(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] std::optional<int> partAt(QPoint place) const;
    /// The card to which a key leads from the focused one; absent for other keys.
    [[nodiscard]] std::optional<int> target(int key) const;
    void setHovered(std::optional<int> index);
    void setFocused(int index);
    void updatePart(std::optional<int> index);
    void paintCard(QPainter& painter, int index) const;
    void paintMark(QPainter& painter, const QRectF& place, bool isSelected) const;

    std::vector<LanguageCardContent> cards_;
    std::optional<int> selection_;
    std::optional<int> hovered_;
    int focused_ = 0;
};

}  // namespace vtx
