// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <functional>
#include <optional>
#include <vector>

#include "base/Subscription.h"
#include "ui/shell/StripPlacement.h"

class QPainterPath;
class QWidget;

namespace vtx {

/// What the strip, the popover and the floating panel need of the window system beyond the toolkit.
/// The base class stands for a system that grants nothing: windows then stand where the compositor
/// puts them. Main executor; owned by the composition root, outlives the windows.
class WindowSystem {
public:
    WindowSystem() = default;
    WindowSystem(const WindowSystem&) = delete;
    WindowSystem& operator=(const WindowSystem&) = delete;
    virtual ~WindowSystem() = default;

    /// Whether a window may choose its own place.
    [[nodiscard]] virtual bool placesWindows() const { return false; }
    /// The screens of the desktop, the primary one first.
    [[nodiscard]] virtual StripPlacement::Screens screens() const;
    /// Whether what lies behind shows through a translucent window; if not, windows are cut out.
    [[nodiscard]] virtual bool blendsWindows() const { return true; }

    /// Makes a strip of a window that has its handle but was never shown: on every desktop, above
    /// others, in no list of windows.
    virtual void makeStrip(QWidget& /*window*/) {}
    /// After a strip was shown.
    virtual void stripShown(QWidget& /*window*/) {}
    /// Makes a short-lived companion of a window that has its handle but was never shown.
    virtual void makePopover(QWidget& /*window*/) {}

    /// Has a window that has its handle shown on the desktop that the user looks at, or moves it
    /// there: it would open beside another window of ours, on whichever desktop that was left.
    virtual void bringHere(QWidget& /*window*/) {}

    /// Makes a floating panel of a window that has its handle but was never shown: on every
    /// desktop, above others, in no list of windows, without the keyboard.
    virtual void makeFloating(QWidget& /*window*/) {}

    /// Shows only what lies within the path, given in the window's coordinates.
    virtual void cutOut(QWidget& window, const QPainterPath& path);

    /// Keeps maximised windows away from a part of the desktop; absent: no longer.
    virtual void reserve(QWidget& /*window*/, const std::optional<Strut>& /*strut*/) {}
    /// What other windows than `except` reserve.
    [[nodiscard]] virtual std::vector<Strut> reservations(const QWidget& /*except*/) const {
        return {};
    }

    /// Whether the user works in another window than `ours`. A system that does not tell says yes.
    [[nodiscard]] virtual bool worksElsewhere(const QWidget& /*ours*/) const { return true; }

    /// Where the pointer is now, in logical pixels of the desktop.
    [[nodiscard]] virtual QPoint pointer() const;
    /// Calls `pressed` after each press of a mouse button anywhere, in other programs' windows too,
    /// with the pointer's place. Nothing is taken away from them.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): who overrides it keeps the handler
    [[nodiscard]] virtual Subscription watchPresses(std::function<void(QPoint)> /*pressed*/) {
        return {};
    }
};

}  // namespace vtx
