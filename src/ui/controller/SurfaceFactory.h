// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "language/Language.h"
#include "ui/models/PopoverSection.h"

namespace vtx {

class MetricsCoordinator;

/// What happened to the status item's button. The keyboard's activation counts as a left click,
/// its menu key as a right one.
enum class ButtonEvent { leftMouseUp, leftMouseUpWithControl, rightMouseUp };

/// One entry of the status item's menu; without an action it is a separator.
struct MenuItem {
    std::string title;
    std::string key;  ///< one letter, pressed with the platform's command modifier; may be empty
    std::function<void()> action;
};

/// The program's place in the desktop's bar, with the strip in it. Main executor, as all surfaces.
class StatusItemSurface {
public:
    virtual ~StatusItemSurface() = default;

    /// Whether the desktop gave a place; without one all else does nothing.
    [[nodiscard]] virtual bool hasButton() const = 0;
    /// Width that the strip's content asks for now, in logical pixels.
    [[nodiscard]] virtual double intrinsicContentWidth() = 0;
    /// Gives strip and item this width.
    virtual void setLength(double length) = 0;
    /// Shows a new menu at the item.
    virtual void popUpMenu(std::vector<MenuItem> items) = 0;

    std::function<void(ButtonEvent)> onClick;
    /// The content asks for another width than before.
    std::function<void()> onIntrinsicWidthChange;
};

/// The transient window of sections at the status item. Closes by itself on an outside click.
class PopoverSurface {
public:
    virtual ~PopoverSurface() = default;

    [[nodiscard]] virtual bool isShown() const = 0;
    virtual void show() = 0;
    virtual void close() = 0;

    std::function<void()> onShow;   ///< once after each opening
    std::function<void()> onClose;  ///< once after each closing, whatever closed it
};

/// The resizable window of sections.
class DashboardSurface {
public:
    virtual ~DashboardSurface() = default;

    /// Brings the window to the front at the section, making it if need be.
    virtual void show(PopoverSection section) = 0;

    std::function<void(bool)> onVisibilityChange;
};

/// The small panel of the essentials that floats above all other windows.
class MiniWidgetSurface {
public:
    virtual ~MiniWidgetSurface() = default;

    /// Makes the panel at its saved place; one that is there comes to the front.
    virtual void show() = 0;
    /// Destroys the panel, if there is one.
    virtual void close() = 0;
};

/// The window that asks for a language at the first start.
class LanguagePickerSurface {
public:
    virtual ~LanguagePickerSurface() = default;

    /// Makes the window with `initial` marked; one that is there comes to the front and stays as it
    /// is. `onConfirm` is called with the choice after the window has closed. Nothing else closes
    /// it.
    virtual void present(Language initial, std::function<void(Language)> onConfirm) = 0;
};

/// Makes the surfaces and stands for the running application. Outlives what it makes.
class SurfaceFactory {
public:
    virtual ~SurfaceFactory() = default;

    virtual std::unique_ptr<LanguagePickerSurface> makeLanguagePicker() = 0;
    virtual std::unique_ptr<DashboardSurface> makeDashboard(MetricsCoordinator& coordinator) = 0;
    virtual std::unique_ptr<MiniWidgetSurface> makeMiniWidget(MetricsCoordinator& coordinator) = 0;
    virtual std::unique_ptr<StatusItemSurface> makeStatusItem(MetricsCoordinator& coordinator) = 0;
    /// The popover opens at `item` and calls `onDetachRequested` with the section it shows.
    virtual std::unique_ptr<PopoverSurface> makePopover(
        MetricsCoordinator& coordinator, StatusItemSurface& item,
        std::function<void(PopoverSection)> onDetachRequested) = 0;

    /// No place among the desktop's applications, and no end with the last window.
    virtual void becomeAccessory() = 0;
    /// Brings the application before all others.
    virtual void activate() = 0;
    virtual void showAboutPanel() = 0;
    /// Asks the application to end; it goes on until the present event was handled.
    virtual void terminate() = 0;
};

}  // namespace vtx
