// SPDX-License-Identifier: MIT
#pragma once

#include <QMouseEvent>
#include <QString>
#include <optional>

#include "ui/kit/KitWidget.h"

namespace vtx {

class Button;
class Switch;

struct TileContent {
    QString id;
    QString label;
    /// What assistive technology calls a tile that has no label to be seen.
    QString spoken;
    /// Absent for a tile that cannot be turned on or off here.
    std::optional<bool> isOn;
    QString upName, downName;

    bool operator==(const TileContent&) const = default;
};

enum class TileStep : quint8 { up, down };

/// One tile of a list that can be put in another order: handle, label, switch, and a button for
/// either direction. With the keyboard's focus it moves by Alt and the arrows. A list item for
/// assistive technology. Owned by its TileList, which hears of the pointer.
class TileRow : public KitWidget {
    Q_OBJECT

public:
    enum class Look : quint8 { resting, lifted };

    explicit TileRow(QWidget* parent = nullptr);

    void setContent(const TileContent& content);
    [[nodiscard]] const TileContent& content() const { return content_; }
    /// Its end of the list disables a direction.
    void setSteps(bool canGoUp, bool canGoDown);

    [[nodiscard]] Switch& toggle() const { return *switch_; }
    [[nodiscard]] Button& button(TileStep step) const;

    /// The row as it hovers under the pointer, or as it lies in the list.
    void paintTo(QPainter& painter);
    /// While its picture follows the pointer its place alone is shown.
    void setLifted(bool lifted);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::ListItem;
    }

Q_SIGNALS:
    void toggled(bool on);
    void stepped(TileStep step);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override { event->ignore(); }
    void mouseReleaseEvent(QMouseEvent* event) override { event->ignore(); }

private:
    TileContent content_;
    Switch* switch_;
    Button* up_;
    Button* down_;
    bool isHovered_ = false;
    bool isLifted_ = false;
};

}  // namespace vtx
