// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <functional>

#include "ui/shell/StripPlacement.h"

class QString;
class QWidget;

namespace vtx {

/// How the item was activated. A click counts when the button is let go; the keyboard's activation
/// is a left click, its menu key a right one.
enum class StatusItemClick { left, right, control };

/// The application's item in the desktop's bar: the seam behind which the platforms differ. It
/// paints the item's ground, outline, pointer and focus states; the content paints the rest, over
/// no background of its own. Main executor; owned by the controller of the bar.
class StatusItem {
public:
    StatusItem() = default;
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;
    virtual ~StatusItem() = default;

    /// Called with the pointer's place, or the item's middle for the keyboard, on the desktop.
    std::function<void(StatusItemClick, QPoint)> onClick;
    /// A mouse button went down on the item, and was let go or began to drag, whatever follows.
    std::function<void()> onPress;
    std::function<void()> onRelease;
    /// The item stands elsewhere now, or has another size.
    std::function<void()> onMove;

    /// The width in logical pixels, rounded up.
    virtual void setLength(double length) = 0;
    /// The height of the bar in logical pixels.
    [[nodiscard]] virtual double thickness() const = 0;

    /// Shows `content` over the whole item instead of what was shown, and owns it from now on.
    virtual void setContent(QWidget* content) = 0;
    /// Whether what belongs to the item is open.
    virtual void setHighlighted(bool highlighted) = 0;
    /// Names the window where lists of windows show it. Constant: a title is a property that the
    /// window system tells everybody of.
    virtual void setTitle(const QString& title) = 0;
    /// What assistive software reads: the item's name, and its figures.
    virtual void setAccessibleText(const QString& name, const QString& description) = 0;

    virtual void show() = 0;

    /// Logical pixels of the desktop.
    [[nodiscard]] virtual QRect screenGeometry() const = 0;
    /// The edge where it is docked, from which what belongs to it opens away.
    [[nodiscard]] virtual DockEdge edge() const = 0;
};

}  // namespace vtx
