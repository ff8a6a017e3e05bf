// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "ui/shell/WindowSystem.h"
#include "ui/shell/linux/X11Connection.h"

namespace vtx {

class X11PressWatcher;

/// Windows under X11, by the properties that window managers agree on.
class X11WindowSystem final : public WindowSystem {
public:
    explicit X11WindowSystem(std::unique_ptr<X11Connection> connection);
    ~X11WindowSystem() override;

    [[nodiscard]] bool placesWindows() const override { return true; }
    [[nodiscard]] bool blendsWindows() const override;
    void makeStrip(QWidget& window) override;
    void stripShown(QWidget& window) override;
    void makePopover(QWidget& window) override;
    void bringHere(QWidget& window) override;
    void makeFloating(QWidget& window) override;
    /// In device pixels, which a mask of the toolkit's is not.
    void cutOut(QWidget& window, const QPainterPath& path) override;
    void reserve(QWidget& window, const std::optional<Strut>& strut) override;
    [[nodiscard]] std::vector<Strut> reservations(const QWidget& except) const override;
    [[nodiscard]] bool worksElsewhere(const QWidget& ours) const override;
    [[nodiscard]] Subscription watchPresses(std::function<void(QPoint)> pressed) override;

private:
    /// Whether the window manager has the window on another desktop than the one that is shown.
    [[nodiscard]] bool isElsewhere(xcb_window_t window) const;
    /// Behind a compositor's server there may be windows of which it is not told.
    [[nodiscard]] bool knowsAllWindows() const;

    std::unique_ptr<X11Connection> x11_;
    std::unique_ptr<X11PressWatcher> presses_;
};

}  // namespace vtx
